// SPDX-License-Identifier: GPL-3.0-or-later
// The two paths of the detector of partials, their thresholds and their range.
#include "tests/analysis/HeardPartials.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

using namespace partials_test;

// --- the paths

TEST(PartialDetector, APureToneOf440HzTakesTheFullRatePath) {
    Heard heard;
    heard.hear(sine(440, kFrame));
    // The strongest bin is 41 of 411 that are scanned.
    EXPECT_NEAR(heard.detector.fundamental(), 440, 0.05);
    EXPECT_EQ(heard.partials(), (Partials{{heard.detector.fundamental(), heard.detector.peak()}}));
    EXPECT_NEAR(heard.detector.peak(), 0.8 * 0.8 * kSeven, 0.02 * 0.8 * 0.8 * kSeven);
}

TEST(PartialDetector, APureToneOf100HzIsLookedUpInTheHistory) {
    Heard heard;
    heard.hear(sine(100, 4 * kFrame));
    // The strongest bin is 9, near 37 in the history.
    EXPECT_NEAR(heard.detector.fundamental(), 100, 0.02);
    EXPECT_EQ(heard.partials(), (Partials{{heard.detector.fundamental(), heard.detector.peak()}}));
    EXPECT_NEAR(heard.detector.peak(), 0.8 * 0.8 * kSeven, 0.02 * 0.8 * 0.8 * kSeven);
}

TEST(PartialDetector, ForTheFirstThreeFramesTheHistoryIsPartlyZero) {
    Heard heard;
    std::vector<float> peaks;
    for (int frame = 0; frame < 6; ++frame) {
        heard.hear(tones({{10, 0.8}})); // the frames join without a break
        peaks.push_back(heard.detector.peak());
    }
    EXPECT_LT(peaks[0], peaks[1]);
    EXPECT_LT(peaks[1], peaks[2]);
    EXPECT_LT(peaks[2], peaks[3]);
    EXPECT_NEAR(peaks[3], 0.8 * 0.8 * kSeven, 1e-5);
    EXPECT_EQ(peaks[4], peaks[3]);
    EXPECT_EQ(peaks[5], peaks[3]);
}

TEST(PartialDetector, AStrongestBinAbove32IsTakenAsItIs) {
    // After a single frame the history is mostly zero, so that only the full rate has all the
    // power.
    struct {
        double bin;
        bool isFullRate;
    } const cases[] = {{31, false}, {32, false}, {33, true}, {34, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bin);
        Heard heard;
        heard.hear(tones({{c.bin, 0.8}}));
        ASSERT_FALSE(heard.partials().empty());
        EXPECT_EQ(std::abs(static_cast<double>(heard.detector.peak()) - 0.64 * kSeven) < 1e-5,
                  c.isFullRate)
            << heard.detector.peak();
    }
}

TEST(PartialDetector, AStrongestBinOfTheHistoryUpToFourIsNoPartial) {
    struct {
        double bin; ///< of 4 in the history
        bool isFound;
    } const cases[] = {{0.75, false}, {1, false}, {1.25, true}, {1.5, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bin);
        Heard heard;
        heard.hear(tones({{c.bin, 0.8}}, 4));
        EXPECT_EQ(heard.detector.partials() != nullptr, c.isFound);
        EXPECT_NEAR(heard.detector.fundamental(), c.isFound ? c.bin * kBinHz : 0, 0.01);
    }
}

TEST(PartialDetector, AConstantIsNoPartial) {
    Heard heard;
    heard.hear(std::vector<float>(4 * kFrame, 0.5f));
    EXPECT_EQ(heard.analyses, 4);
    EXPECT_TRUE(heard.posts.empty());
}

TEST(PartialDetector, EveryFourthSampleGoesIntoTheHistoryUnfiltered) {
    // What lies between them is not there, so the history has four times the amplitude of the full
    // rate, whose copies lie around a quarter of the rate and are not searched.
    std::vector<float> samples = tones({{20, 0.8}}, 4);
    for (std::size_t n = 0; n < samples.size(); ++n) {
        if (n % 4 != 0) samples[n] = 0;
    }
    Heard heard;
    heard.hear(samples);
    EXPECT_NEAR(heard.detector.fundamental(), 20 * kBinHz, 0.01);
    EXPECT_NEAR(heard.detector.peak(), 0.64 * kSeven, 1e-5);

    // A tone above a quarter of the rate comes out as what is left of it.
    Heard aliasing;
    aliasing.hear(tones({{10, 0.8}, {1024 + 50, 0.4}}, 4));
    expectFrequencies(aliasing, {10, 50});
}

TEST(PartialDetector, TheHistoryIsFourFramesLong) {
    Heard heard;
    heard.hear(tones({{20, 0.8}, {50, 0.4}}, 4));
    expectFrequencies(heard, {20, 50});
    const float steady = heard.partials()[1].power;
    heard.hear(tones({{20, 0.8}}, 2)); // half of the history has the second tone
    ASSERT_EQ(heard.partials().size(), 2u);
    EXPECT_LT(heard.partials()[1].power, steady);
    heard.hear(tones({{20, 0.8}}, 2));
    expectFrequencies(heard, {20});
}

TEST(PartialDetector, TheHistoryOutlivesASilence) {
    Heard heard;
    heard.hear(tones({{20, 0.8}}, 4));
    const float steady = heard.detector.peak();
    heard.hear({});
    heard.hear(tones({{20, 0.8}}));
    EXPECT_EQ(heard.detector.peak(), steady);
}

TEST(PartialDetector, FullRateFramesAreKeptInTheHistoryToo) {
    Heard heard;
    heard.hear(tones({{100, 0.8}}, 3));
    heard.hear(tones({{20, 0.8}, {100, 0.7}})); // 20 is the strongest of this frame
    ASSERT_FALSE(heard.partials().empty());
    EXPECT_NEAR(heard.detector.fundamental(), 100 * kBinHz, 0.1); // but not of the last four
}

// --- levels

TEST(PartialDetector, AStrongestBinAtOrBelowOneTenThousandthIsSilence) {
    const double limit = std::sqrt(0.0001 / kOwn);
    struct {
        const char* name;
        Tone tone;
        std::size_t frames;
        bool isFound;
    } const cases[] = {
        {"just below, full rate", {64, 0.999 * limit}, 1, false},
        {"just above, full rate", {64, 1.001 * limit}, 1, true},
        {"just below, history", {10, 0.999 * limit}, 4, false},
        {"just above, history", {10, 1.001 * limit}, 4, true},
        {"above in the frame, below in the history", {10, 1.5 * limit}, 1, false},
        {"at the end of the search", {1023, 1.001 * limit}, 1, true},
        {"beyond it", {1028, 0.8}, 1, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Heard heard;
        heard.hear(tones({c.tone}, c.frames));
        EXPECT_EQ(heard.detector.partials() != nullptr, c.isFound);
        EXPECT_NEAR(heard.detector.fundamental(), c.isFound ? c.tone.bin * kBinHz : 0, 0.01);
    }
}

TEST(PartialDetector, OtherPeaksHaveAShareOfTheStrongestOnesPower) {
    const double full = std::sqrt(kSeven / 256 / kOwn);
    const double thinned = std::sqrt(kSeven / 512 / kOwn);
    struct {
        const char* name;
        double strongest, other;
        double amplitude; ///< of the other, relative
        std::vector<double> found;
    } const cases[] = {
        {"full rate, above 1/256", 64, 100, 1.0002 * full, {64, 100}},
        {"full rate, below 1/256", 64, 100, 0.9998 * full, {64}},
        {"full rate, below the strongest", 64, 40, 1.0002 * full, {40, 64}},
        {"history, above 1/512", 20, 60, 1.0002 * thinned, {20, 60}},
        {"history, below 1/512", 20, 60, 0.9998 * thinned, {20}},
        {"history, below the strongest", 20, 10, 1.0002 * thinned, {10, 20}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Heard heard;
        heard.hear(tones({{c.strongest, 0.8}, {c.other, 0.8 * c.amplitude}}, 4));
        expectFrequencies(heard, c.found);
        EXPECT_NEAR(heard.detector.fundamental(), c.strongest * kBinHz, 0.01);
        EXPECT_NEAR(heard.detector.peak(), 0.64 * kSeven, 1e-5);
    }
}

// --- the scanned range

TEST(PartialDetector, ScansUpTo4435HzOnBothPaths) {
    struct {
        const char* name;
        double strongest, other;
        std::vector<double> found;
    } const cases[] = {
        // 411 bins: the third fall of a peak leads to bin 410 at most.
        {"full rate, the last", 64, 407, {64, 407}},
        {"full rate, beyond", 64, 408, {64}},
        // 1647 bins of the history, four to one.
        {"history, the last", 20, 1643 / 4.0, {20, 1643 / 4.0}},
        {"history, beyond", 20, 1644 / 4.0, {20}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Heard heard;
        heard.hear(tones({{c.strongest, 0.8}, {c.other, 0.4}}, 4));
        expectFrequencies(heard, c.found);
    }
}

TEST(PartialDetector, AStrongestPeakAboveTheScannedRangeIsAppended) {
    Heard heard;
    heard.hear(tones({{100, 0.2}, {600, 0.8}}));
    expectFrequencies(heard, {100, 600});
    EXPECT_EQ(heard.partials()[1], (Partial{heard.detector.fundamental(), heard.detector.peak()}));
}

TEST(PartialDetector, AStrongestPeakThatTheScanMissesComesLast) {
    // The tone three bins higher leaves only two falls.
    Heard heard;
    heard.hear(tones({{50, 0.8}, {53, 0.4}, {100, 0.2}}));
    const Partials partials = heard.partials();
    ASSERT_EQ(partials.size(), 2u);
    EXPECT_NEAR(partials[0].hz, 100 * kBinHz, 0.01);
    EXPECT_EQ(partials[1], (Partial{heard.detector.fundamental(), heard.detector.peak()}));
    EXPECT_LT(partials[1].hz, partials[0].hz);
}

// --- sample rates

TEST(PartialDetector, ANewSampleRateCountsFromTheNextAnalysis) {
    Heard heard;
    heard.hear(tones({{64, 0.8}}));
    EXPECT_NEAR(heard.detector.fundamental(), 64 * kBinHz, 0.01);
    std::vector<float> half = tones({{64, 0.8}, {250, 0.4}});
    heard.hear({half.begin(), half.begin() + 2000});
    heard.detector.setSampleRate(88200);
    EXPECT_EQ(heard.detector.sampleRate(), 88200.0f);
    EXPECT_EQ(heard.detector.collected(), 2000u);
    EXPECT_EQ(heard.posts.size(), 1u);
    heard.hear({half.begin() + 2000, half.end()});
    expectFrequencies(heard, {128}); // 205 bins are scanned
    heard.detector.setSampleRate(22050);
    heard.hear(half);
    expectFrequencies(heard, {32, 125});
}

TEST(PartialDetector, OddSampleRatesDoNoHarm) {
    const std::vector<float> sound = tones({{64, 0.8}, {100, 0.4}}, 4);
    struct {
        const char* name;
        double rate;
        std::vector<double> hz; ///< of the last analysis
    } const cases[] = {
        {"none", 0, {0, 0}},
        {"9 Hz", 9, {64 * 9 / 4096.0, 100 * 9 / 4096.0}},
        {"384 kHz, where only 47 bins are scanned", 384000, {6000}},
        {"so high that two bins are scanned", 7e6, {64 * 7e6 / 4096}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Heard heard;
        heard.detector.setSampleRate(c.rate);
        heard.hear(sound);
        EXPECT_EQ(heard.analyses, 4);
        const std::vector<double> hz = heard.frequencies();
        ASSERT_EQ(hz.size(), c.hz.size());
        for (std::size_t i = 0; i < hz.size(); ++i)
            EXPECT_NEAR(hz[i], c.hz[i], 1e-6 * c.hz[i]);
    }
    Heard heard;
    heard.detector.setSampleRate(std::numeric_limits<double>::quiet_NaN());
    heard.hear(sound);
    ASSERT_EQ(heard.partials().size(), 1u);
    EXPECT_TRUE(std::isnan(heard.partials()[0].hz));
    EXPECT_NEAR(heard.partials()[0].power, 0.64 * kSeven, 1e-5);
}

TEST(PartialDetector, LowRatesAndLowNotesStayWithinTheSpectrum) {
    Heard heard;
    heard.detector.setSampleRate(9);
    heard.hear(tones({{20, 0.8}, {510, 0.4}}, 4));
    const std::vector<double> hz = heard.frequencies();
    ASSERT_EQ(hz.size(), 2u);
    EXPECT_NEAR(hz[0], 20 * 9 / 4096.0, 1e-6);
    EXPECT_NEAR(hz[1], 510 * 9 / 4096.0, 1e-6); // bin 2040 of the history's 2048
}

} // namespace
} // namespace veltrano
