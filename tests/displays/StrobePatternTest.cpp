// SPDX-License-Identifier: GPL-3.0-or-later
// The lit columns of the strobe and its phase.
#include "displays/StrobePattern.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace veltrano {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::size_t kFrame = 5393; // two periods of C0 at 44.1 kHz
constexpr int kColumns = 400;

using Runs = std::vector<StrobeRun>;

Runs copyOf(std::span<const StrobeRun> runs) { return {runs.begin(), runs.end()}; }

// Consecutive frames of one sine wave that begins with its positive half.
std::vector<float> sineFrame(double hz, double rate, std::size_t number) {
    std::vector<float> frame(kFrame);
    for (std::size_t i = 0; i < kFrame; ++i) {
        const double seconds = static_cast<double>(number * kFrame + i) / rate;
        frame[i] = static_cast<float>(std::sin(2 * std::numbers::pi * hz * (seconds + 1e-9)));
    }
    return frame;
}

StrobePattern patternFor(float rate, float hz) {
    StrobePattern pattern;
    pattern.setSampleRate(rate);
    pattern.setFrequency(hz);
    return pattern;
}

TEST(StrobePattern, RunsAreTheColumnsWithSamplesNotBelowZero) {
    const struct {
        const char* name;
        std::vector<float> frame;
        Runs expected;
    } kCases[] = {
        // span = N = columns = 6: column c shows sample (6 - c) mod 6
        {"all negative", {-1, -1, -1, -1, -1, -1}, {}},
        {"all positive: one bar, drawn after the loop", {1, 1, 1, 1, 1, 1}, {{0, 6}}},
        {"zero counts as positive", {0, 0, 0, 0, 0, 0}, {{0, 6}}},
        {"minus zero counts as positive", {-0.0f, -1, -1, -1, -1, -1}, {{0, 1}}},
        {"NaN counts as negative", {1, kNaN, 1, 1, 1, kNaN}, {{0, 1}, {2, 3}}},
        {"the first column wraps to the first sample", {1, -1, -1, -1, -1, -1}, {{0, 1}}},
        {"time runs from right to left", {-1, 1, 1, -1, -1, -1}, {{4, 2}}},
        {"several bars", {1, -1, 1, -1, 1, 1}, {{0, 3}, {4, 1}}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        StrobePattern pattern = patternFor(6, 1); // period 6, two periods are cut to the frame
        EXPECT_EQ(copyOf(pattern.pass(c.frame, 6)), c.expected);
    }
}

TEST(StrobePattern, TwoPeriodsAreSpreadOverTheBar) {
    // period 2, span 4: columns 0 ... 7 show samples 4 3 3 2 2 1 1 0 (of (8 - c) * 4 / 8)
    StrobePattern pattern = patternFor(8, 4);
    const std::vector<float> frame{1, -1, 1, -1, 1, -1, -1, -1};
    EXPECT_EQ(copyOf(pattern.pass(frame, 8)), (Runs{{0, 1}, {3, 2}, {7, 1}}));
}

TEST(StrobePattern, SpanIsCutToTheFrameForATargetBelowTwoPeriods) {
    StrobePattern low = patternFor(44100, 10); // two periods are 8820 samples
    StrobePattern whole;
    const std::vector<float> frame = sineFrame(10, 44100, 0);
    EXPECT_EQ(copyOf(low.pass(frame, kColumns)), copyOf(whole.pass(frame, kColumns)));
}

TEST(StrobePattern, NothingIsDoneWithoutSamples) {
    StrobePattern pattern = patternFor(44100, 440);
    EXPECT_TRUE(pattern.pass({}, kColumns).empty());
    EXPECT_EQ(pattern.frameIndex(), 0);
}

TEST(StrobePattern, PhaseMovesByOnePassEvenWithoutColumns) {
    for (const int columns : {0, -1}) {
        StrobePattern pattern = patternFor(44100, 440);
        const std::vector<float> frame = sineFrame(440, 44100, 0);
        EXPECT_TRUE(pattern.pass(frame, columns).empty());
        EXPECT_GT(pattern.frameIndex(), 0);
    }
}

TEST(StrobePattern, PhaseIsWhereTheGridFallsInTheNextFrame) {
    const float rate = 44100;
    const float hz = 440;
    const double period = static_cast<double>(rate / hz);
    StrobePattern pattern = patternFor(rate, hz);
    const std::vector<float> frame(kFrame, -1.0f);
    double expected = 0;
    for (int pass = 0; pass < 1000; ++pass) {
        SCOPED_TRACE(pass);
        pattern.pass(frame, kColumns);
        expected = expected + period - (5393.0 - std::trunc(5393.0 / period) * period);
        if (expected > 5393.0) expected -= 5393.0;
        ASSERT_EQ(pattern.frameIndex(), expected);
    }
}

TEST(StrobePattern, BarsStandStillAtExactlyTheTarget) {
    // 441 Hz at 44.1 kHz: the period is 100 samples exactly; 4 columns show one sample
    StrobePattern pattern = patternFor(44100, 441);
    const Runs first = copyOf(pattern.pass(sineFrame(441, 44100, 0), kColumns));
    ASSERT_EQ(first.size(), 3u); // two half-waves and the sample that closes the second period
    for (std::size_t number = 1; number < 50; ++number) {
        SCOPED_TRACE(number);
        EXPECT_EQ(copyOf(pattern.pass(sineFrame(441, 44100, number), kColumns)), first);
    }
}

TEST(StrobePattern, BarsDriftWhenSharpOrFlat) {
    for (const double hz : {440.0, 442.0}) {
        SCOPED_TRACE(hz);
        StrobePattern pattern = patternFor(44100, 441);
        const Runs first = copyOf(pattern.pass(sineFrame(hz, 44100, 0), kColumns));
        EXPECT_NE(copyOf(pattern.pass(sineFrame(hz, 44100, 1), kColumns)), first);
    }
}

TEST(StrobePattern, PhaseRestartsOnlyOnAChange) {
    const struct {
        const char* name;
        float rate, hz;
        bool restarts;
    } kCases[] = {
        {"same values", 44100, 440, false},
        {"another target", 44100, 440.001f, true},
        {"another sample rate", 48000, 440, true},
        {"a target that is not a number", 44100, kNaN, true},
    };
    const std::vector<float> frame(kFrame, 1.0f);
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        StrobePattern pattern = patternFor(44100, 440);
        pattern.pass(frame, kColumns);
        ASSERT_GT(pattern.frameIndex(), 0);
        pattern.setSampleRate(c.rate);
        pattern.setFrequency(c.hz);
        EXPECT_EQ(pattern.frameIndex() == 0, c.restarts);
    }
}

TEST(StrobePattern, WithoutAUsableTargetTheWholeFrameIsShownAndThePhaseStays) {
    const struct {
        const char* name;
        float rate, hz;
    } kCases[] = {
        {"nothing set", 0, 0},           {"no target", 44100, 0},
        {"no sample rate", 0, 440},      {"target NaN", 44100, kNaN},
        {"rate infinite", kInfinity, 1}, {"target infinite", 44100, kInfinity},
        {"target negative", 44100, -1},
    };
    const std::vector<float> frame{1, -1, -1, 1, 1, -1};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        StrobePattern pattern = patternFor(c.rate, c.hz);
        for (int pass = 0; pass < 3; ++pass) {
            EXPECT_EQ(copyOf(pattern.pass(frame, 6)), (Runs{{0, 1}, {2, 2}}));
            EXPECT_EQ(pattern.frameIndex(), 0);
        }
    }
}

TEST(StrobePattern, ExtremePeriodsStayDefined) {
    const std::vector<float> frame{1, -1, 1, 1, -1, -1};
    const struct {
        const char* name;
        float rate, hz;
    } kCases[] = {
        {"period far below a sample", 1, 1e30f},
        {"smallest period", std::numeric_limits<float>::denorm_min(), 1},
        {"period beyond every frame", 1e30f, 1},
        {"largest period", std::numeric_limits<float>::max(), 1},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        StrobePattern pattern = patternFor(c.rate, c.hz);
        for (int pass = 0; pass < 1000; ++pass) {
            int lit = 0;
            for (const StrobeRun& run : pattern.pass(frame, 6))
                lit += run.length;
            EXPECT_LE(lit, 6);
            EXPECT_TRUE(std::isfinite(pattern.frameIndex()));
        }
    }
}

TEST(StrobePattern, PhaseOfAPeriodLongerThanTheFrame) {
    // kept: only one frame is taken off, so the phase of such a target runs away
    StrobePattern pattern = patternFor(100, 1);
    const std::vector<float> frame(10, -1.0f);
    pattern.pass(frame, 4);
    EXPECT_EQ(pattern.frameIndex(), 80); // 0 + 100 - 10, less the frame
    pattern.pass(frame, 4);
    EXPECT_EQ(pattern.frameIndex(), 160);
}

TEST(StrobePattern, PhaseAtTheEndOfTheFrameStaysThere) {
    // kept: only what lies beyond the frame is taken back
    StrobePattern pattern = patternFor(10, 1);
    std::vector<float> frame(20, -1.0f);
    for (const double expected : {10.0, 20.0, 10.0, 20.0}) {
        pattern.pass(frame, 20);
        EXPECT_EQ(pattern.frameIndex(), expected);
    }
    frame[0] = 1; // the end of the frame is its beginning
    EXPECT_EQ(copyOf(pattern.pass(frame, 20)), (Runs{{0, 1}}));
}

TEST(StrobePattern, PhaseIsRoundedToTheNearestSampleHalvesUp) {
    StrobePattern pattern = patternFor(5, 2);
    std::vector<float> frame(5, -1.0f);
    pattern.pass(frame, 5);
    ASSERT_EQ(pattern.frameIndex(), 2.5);
    frame[3] = 1;
    EXPECT_EQ(copyOf(pattern.pass(frame, 5)), (Runs{{0, 1}}));
}

TEST(StrobePattern, PhaseBeyondTheFrameWrapsToItsBeginning) {
    StrobePattern pattern = patternFor(100, 1);
    std::vector<float> frame(11, -1.0f); // 100 - 11 - 11 = 78 = 7 * 11 + 1
    pattern.pass(frame, 11);
    ASSERT_EQ(pattern.frameIndex(), 78);
    frame[1] = 1; // the sample at the phase: shown by column 0, whose index is a whole frame on
    EXPECT_EQ(copyOf(pattern.pass(frame, 11)), (Runs{{0, 1}}));
}

} // namespace
} // namespace veltrano
