// SPDX-License-Identifier: GPL-3.0-or-later
// Peak picking, the robust mean of the intervals, the level.
#include "engine/PeriodDetector.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace veltrano {
namespace {

using namespace period_detector;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr std::uint32_t kFrame = 5393;

std::vector<float> sine(double period, double phase = 0, float amplitude = 0.5f,
                        std::size_t samples = kFrame) {
    std::vector<float> frame(samples);
    for (std::size_t i = 0; i < samples; ++i) {
        const double cycles = double(i) / period + phase;
        frame[i] = amplitude * float(std::sin(2 * std::numbers::pi * cycles));
    }
    return frame;
}

std::vector<std::uint64_t> intervalsOf(const std::vector<float>& frame,
                                       float* amplitude = nullptr) {
    Peaks peaks;
    findPeaks(frame, peaks);
    if (amplitude) *amplitude = peaks.amplitude;
    return {peaks.intervals.begin(), peaks.intervals.begin() + std::ptrdiff_t(peaks.count)};
}

TEST(PeriodDetector, RecordsPeaksByTheRunningThreshold) {
    struct {
        const char* name;
        std::vector<float> frame;
        std::vector<std::uint64_t> intervals;
        float amplitude;
    } const cases[] = {
        {"no sample", {}, {}, 0},
        {"all samples at or below 0: the largest magnitude", {0, -0.25f, -0.75f, -0.5f}, {}, 0.75f},
        {"the first interval is the offset of the first peak", {-1e-3f, 0.5f, 0}, {1}, 0.5f},
        {"a peak at index 0 is never recorded", {0.5f, 0, 0.46f, 0}, {}, 0.0f},
        {"among equal maxima the last wins", {0, 0.5f, 0.5f, 0.5f, 0}, {3}, 0.5f},
        {"a lobe still open at the end is not recorded", {0, 0.5f, 0, 0.5f}, {1}, 0.5f},
        {"a lobe below the threshold leaves it where it is",
         {0, 0.5f, 0, 0.44f, 0, 0.44f, 0, 0.45f, 0},
         {1, 6},
         0.5f},
        {"the threshold decays by 0.9 of the recorded peak",
         {0, 0.5f, 0, 0.45f, 0, 0.405f, 0, 0.36f, 0},
         {1, 2, 2},
         0.5f},
        {"the decay is worked out in double precision",
         {0, 16001.0f / 32768.0f, 0, 0.43948057f, 0},
         {1},
         16001.0f / 32768.0f},
        {"a missed lobe does not raise the amplitude by itself",
         {0, 0.5f, -0.125f, 0.4f, 0},
         {1},
         0.5f},
        {"a negative sample raises the amplitude directly", {0, 0.5f, -0.75f}, {1}, 0.75f},
        {"NaN is not positive: it ends a lobe", {0, 0.5f, kNaN, 0.5f, 0}, {1, 2}, 0.5f},
        {"only NaN", {kNaN, kNaN}, {}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        float amplitude = -1;
        EXPECT_EQ(intervalsOf(c.frame, &amplitude), c.intervals);
        EXPECT_EQ(amplitude, c.amplitude);
    }
}

TEST(PeriodDetector, StopsAtThe256thInterval) {
    std::vector<float> frame;
    for (int i = 0; i < 300; ++i)
        frame.insert(frame.end(), {-0.125f, 0.25f});
    frame.push_back(-1.0f); // beyond the stop: must not be seen
    float amplitude = 0;
    const auto intervals = intervalsOf(frame, &amplitude);
    ASSERT_EQ(intervals.size(), kMaxIntervals);
    EXPECT_EQ(intervals[0], 1u);
    EXPECT_EQ(intervals[255], 2u);
    EXPECT_EQ(amplitude, 0.25f);
}

TEST(PeriodDetector, AveragesTheIntervalsThatAgree) {
    constexpr std::uint32_t third = kFrame / 3; // 1797
    struct {
        const char* name;
        std::vector<std::uint64_t> intervals;
        float period;
    } const cases[] = {
        {"none", {}, 0},
        {"one", {100}, 0},
        {"two, the second exactly a third of the frame: rejected", {5, third}, 0},
        {"two, one sample longer: accepted", {5, third + 1}, float(third + 1)},
        {"three use only the second", {5, 2000, 1900}, 2000},
        {"three with a short second", {5, 100, 2000}, 0},
        {"four all different: the largest is the reference", {10, 50, 51, 52}, 51},
        {"the order in the frame does not matter", {52, 10, 51, 50}, 51},
        {"a tie keeps the smaller value at position 0, the largest is the reference",
         {100, 100, 300, 300},
         0},
        {"the smallest as the mode counts as no mode", {100, 100, 100, 300}, 0},
        {"the mode is the reference elsewhere", {7, 100, 100, 101, 300}, 301.0f / 3.0f},
        {"a later value must be strictly more frequent", {7, 100, 100, 200, 200}, 0},
        {"exactly half is no majority", {10, 100, 100, 300}, 0},
        {"window ends are whole numbers: 95 in 100 of 99 is 94, 105 in 100 of 99 is 104",
         {3, 94, 99, 99, 104},
         396.0f / 4.0f},
        {"the lower end does not round: 95 in 100 of 90 is 85", {3, 85, 90, 90}, 265.0f / 3.0f},
        {"just outside the window", {3, 93, 99, 99, 99, 99, 105}, 99.0f},
        {"upper end rounds half up: 105 in 100 of 90 is 95 with the half",
         {3, 90, 90, 95},
         275.0f / 3.0f},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::uint64_t> intervals = c.intervals;
        EXPECT_EQ(averageDiffs(intervals, kFrame), c.period);
    }
}

TEST(PeriodDetector, LevelIsWholeDecibelsAbove16Bit) {
    struct {
        float amplitude;
        int level;
    } const cases[] = {{0, 0},
                       {1.0f, 96},
                       {0.5f, 89},
                       {1.5e-5f, 0},
                       {1 / 32768.0f, 0},
                       {2 / 32768.0f, 9},
                       {3 / 32768.0f, 13},
                       {1.6e-5f, 0},
                       {0.01f, 55},
                       {0.0251f, 63},
                       {0.1f, 75},
                       {2.0f, 102},
                       {kNaN, 0},
                       {1e30f, 186}};
    for (const auto& c : cases)
        EXPECT_EQ(levelOf(c.amplitude), c.level) << double(c.amplitude);
}

TEST(PeriodDetector, SineOfPeriod100Reads100) {
    const auto intervals = intervalsOf(sine(100));
    EXPECT_NEAR(double(intervals.size()), 53, 2);
    EXPECT_EQ(intervals[0], 25u) << "the offset of the first peak";
    const Result result = detect(sine(100), 44100, kFrame);
    ASSERT_TRUE(result.hz);
    EXPECT_EQ(*result.hz, 441.0f);
    EXPECT_EQ(result.peak, 0.5f);
    EXPECT_EQ(result.level, 89);
}

TEST(PeriodDetector, NoEstimateWithoutSoundOrAgreement) {
    const Result silent = detect(std::vector<float>(kFrame, 0.0f), 44100, kFrame);
    EXPECT_FALSE(silent.hz);
    EXPECT_EQ(silent.level, 0);
    EXPECT_FALSE(detect(std::vector<float>(kFrame, -0.5f), 44100, kFrame).hz);
    EXPECT_FALSE(detect({}, 44100, kFrame).hz);
}

TEST(PeriodDetector, PeakAmplitudeMustExceedOneHundredth) {
    // 0.01 as a float, widened, lies just below the double 0.01; the next float lies above it.
    std::vector<float> frame = sine(100, 0, 1.0f);
    const float above = std::nextafter(0.01f, 1.0f);
    for (float& x : frame)
        x = x > 0.99f ? 0.01f : x > 0 ? 0.005f : -0.005f;
    EXPECT_FALSE(detect(frame, 44100, kFrame).hz);
    for (float& x : frame) {
        if (x == 0.01f) x = above;
    }
    EXPECT_TRUE(detect(frame, 44100, kFrame).hz);
}

TEST(PeriodDetector, RateOverPeriodIsASinglePrecisionDivision) {
    const Result result = detect(sine(147.3), 48000, 5870);
    ASSERT_TRUE(result.hz);
    auto intervals = intervalsOf(sine(147.3));
    EXPECT_EQ(*result.hz, 48000.0f / averageDiffs(intervals, 5870));
}

} // namespace
} // namespace veltrano
