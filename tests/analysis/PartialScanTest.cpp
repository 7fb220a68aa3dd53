// SPDX-License-Identifier: GPL-3.0-or-later
// The window and the peaks of hand-made spectra.
#include "analysis/PartialScan.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace veltrano {
namespace {

using partial_scan::kBins;
using partial_scan::kFrame;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kBinPerHz = 4096; ///< the rate at which a bin's frequency is its number
constexpr float kAboveSilence = 0x1.a36e30p-14f; ///< the float after 0.0001

std::vector<float> silence() { return std::vector<float>(kBins); }

std::vector<float> spectrum(std::initializer_list<std::pair<std::size_t, float>> bins) {
    std::vector<float> power = silence();
    for (const auto& [bin, level] : bins)
        power[bin] = level;
    return power;
}

/// @param levels from bin 1 on; the others are 0
std::vector<float> fromBinOne(const std::vector<float>& levels) {
    std::vector<float> power = silence();
    std::ranges::copy(levels, power.begin() + 1);
    return power;
}

partial_scan::Power view(const std::vector<float>& power) { return partial_scan::Power(power); }

// --- the window

TEST(BlackmanWindow, EveryValueIsTheNearestFloat) {
    const auto& window = partial_scan::blackmanWindow();
    ASSERT_EQ(window.size(), 4096u);
    for (std::size_t n = 0; n < window.size(); ++n) {
        const long double angle =
            2 * std::numbers::pi_v<long double> * static_cast<long double>(n) / 4096;
        const long double exact = (42 - 50 * std::cos(angle) + 8 * std::cos(2 * angle)) / 100;
        ASSERT_EQ(window[n], static_cast<float>(exact)) << "n = " << n;
    }
}

TEST(BlackmanWindow, IsPeriodic) {
    const auto& window = partial_scan::blackmanWindow();
    EXPECT_EQ(window[0], 0.0f);
    EXPECT_EQ(window[1024], 0.34f);
    EXPECT_EQ(window[2048], 1.0f);
    EXPECT_GT(window[4095], 0.0f);
    for (std::size_t n = 1; n < 2048; ++n)
        ASSERT_EQ(window[n], window[4096 - n]) << "n = " << n;
}

// --- the strongest bin

TEST(StrongestBin, IsTheFirstOfTheHighestAboveSilence) {
    struct {
        const char* name;
        std::vector<float> power;
        int expected;
    } const cases[] = {
        {"silence", silence(), 0},
        {"0.0001 is silence", spectrum({{40, 0.0001f}}), 0},
        {"the next float is not", spectrum({{40, kAboveSilence}}), 40},
        {"bin 0 is never used", spectrum({{0, 1.0f}}), 0},
        {"bin 0 beside another", spectrum({{0, 1.0f}, {7, 0.5f}}), 7},
        {"the lowest bin", spectrum({{1, 1.0f}}), 1},
        {"the highest bin", spectrum({{1023, 1.0f}}), 1023},
        {"a quarter of the rate is too high", spectrum({{1024, 1.0f}}), 0},
        {"above that, too", spectrum({{1025, 1.0f}, {2047, 1.0f}, {300, 0.1f}}), 300},
        {"the highest of several", spectrum({{5, 0.2f}, {6, 0.3f}, {700, 0.25f}}), 6},
        {"the first of equal ones", spectrum({{100, 0.5f}, {137, 0.5f}}), 100},
        {"the first of equal ones, later in its sixteen",
         spectrum({{111, 0.5f}, {112, 0.5f}, {1008, 0.5f}}), 111},
        {"the first of equal ones at the edges", spectrum({{1, 0.5f}, {1023, 0.5f}}), 1},
        {"one step higher", spectrum({{100, 0.5f}, {137, 0x1.000002p-1f}}), 137},
        {"NaN is never the strongest", spectrum({{20, kNaN}, {21, 0.5f}, {22, kNaN}}), 21},
        {"NaN after the strongest of its place", spectrum({{21, 0.5f}, {37, kNaN}}), 21},
        {"NaN before the strongest of its place", spectrum({{21, kNaN}, {37, 0.5f}}), 37},
        {"nothing but NaN", std::vector<float>(kBins, kNaN), 0},
        {"infinity", spectrum({{20, kInfinity}, {21, 0.5f}}), 20},
        {"all equal", std::vector<float>(kBins, 1.0f), 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(partial_scan::strongestBin(view(c.power)), c.expected);
    }
}

TEST(StrongestBin, IsFoundOnEveryBin) {
    for (std::size_t bin = 1; bin < 1024; ++bin) {
        std::vector<float> power(kBins, 0.25f);
        power[bin] = 0.5f;
        ASSERT_EQ(partial_scan::strongestBin(view(power)), static_cast<int>(bin));
    }
}

// --- a peak's frequency and power

TEST(PeakAt, IsTheCentreOfGravityAndTheSumOfSevenBins) {
    struct {
        const char* name;
        std::vector<float> power;
        Partial expected;
    } const cases[] = {
        {"even", spectrum({{7, 1}, {8, 2}, {9, 3}, {10, 4}, {11, 3}, {12, 2}, {13, 1}}), {10, 16}},
        {"three bins below", spectrum({{7, 1}, {10, 3}}), {9.25f, 4}},
        {"three bins above", spectrum({{10, 3}, {13, 1}}), {10.75f, 4}},
        {"four bins away does not count", spectrum({{6, 9}, {10, 2}, {14, 9}}), {10, 2}},
        {"one bin alone, beside the middle", spectrum({{12, 0.5f}}), {12, 0.5f}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(partial_scan::peakAt(view(c.power), 10, kBinPerHz), c.expected);
    }
}

TEST(PeakAt, IsSummedInDoublePrecision) {
    // In single precision 1 + 2^-25 is 1, however often it is added.
    constexpr float kTiny = 0x1p-25f;
    const std::vector<float> power = spectrum(
        {{7, 1}, {8, kTiny}, {9, kTiny}, {10, kTiny}, {11, kTiny}, {12, kTiny}, {13, kTiny}});
    const Partial peak = partial_scan::peakAt(view(power), 10, kBinPerHz);
    EXPECT_EQ(peak.power, 1 + 6 * kTiny);
    EXPECT_EQ(peak.hz, std::nextafter(7.0f, 8.0f)); // 7 + 21 * 2^-25
}

TEST(PeakAt, BinsHaveTheirFrequencyInSinglePrecision) {
    // One bin alone has its own frequency; with another of equal power the mean of both.
    constexpr float kRate = 44100.37f;
    const auto hzOf = [](std::size_t bin) { return static_cast<float>(bin) * kRate / 4096.0f; };
    int singleMatters = 0;
    for (std::size_t bin = 4; bin < 2045; ++bin) {
        const auto mean = static_cast<float>(
            (static_cast<double>(hzOf(bin)) + static_cast<double>(hzOf(bin + 3))) / 2);
        const double exact = (static_cast<double>(bin) + 1.5) * static_cast<double>(kRate) / 4096;
        singleMatters += mean != static_cast<float>(exact);
        const std::vector<float> power = spectrum({{bin, 0.5f}, {bin + 3, 0.5f}});
        ASSERT_EQ(partial_scan::peakAt(view(power), static_cast<int>(bin), kRate),
                  (Partial{mean, 1}))
            << "bin " << bin;
    }
    EXPECT_GT(singleMatters, 0);
}

// --- how far a scan goes

TEST(ScannedBins, EndAt4435HzAndWithTheSpectrum) {
    struct {
        const char* name;
        float rate;
        float factor;
        int expected;
    } const cases[] = {
        {"44.1 kHz", 44100, 1, 411},
        {"44.1 kHz, a quarter of the rate", 44100, 4, 1647},
        {"48 kHz", 48000, 1, 378},
        {"48 kHz, a quarter of the rate", 48000, 4, 1513},
        {"384 kHz", 384000, 1, 47},
        {"the rate of exactly all bins", 8870, 1, 2048},
        {"the next higher rate", 8870.001f, 1, 2047},
        {"a lower rate has no more bins", 8869, 1, 2048},
        {"8 kHz, a quarter of the rate", 8000, 4, 2048},
        {"98593 Hz, one more than in double precision", 98593, 4, 737},
        {"327311 Hz, one more than in double precision", 327311, 4, 222},
        {"9 Hz", 9, 4, 2048},
        {"a millionth of a hertz", 1e-6f, 4, 2048},
        {"no rate", 0, 1, 2048},
        {"the rate of one bin", 4435.0f * 4096, 1, 1},
        {"an endless rate", kInfinity, 1, 0},
        {"a rate below zero", -44100, 1, 0},
        {"not a number", kNaN, 1, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(partial_scan::scannedBins(c.rate, c.factor), c.expected);
    }
}

// --- the walk

/// The bins at which the walk finds peaks, from the powers of what it returns.
void expectPeaks(const std::vector<float>& power, const partial_scan::Scan& scan,
                 const std::vector<int>& bins) {
    Partials expected;
    for (const int bin : bins) {
        Partial partial = partial_scan::peakAt(view(power), bin, scan.sampleRateHz);
        partial.hz /= scan.factor;
        expected.push_back(partial);
    }
    if (std::ranges::find(bins, scan.mainBin) == bins.end()) expected.push_back(scan.strongest);
    EXPECT_EQ(partial_scan::detectPartials(view(power), scan), expected);
}

TEST(PeakWalk, NeedsThreeRisesAndThreeFalls) {
    struct {
        const char* name;
        std::vector<float> levels; ///< from bin 1 on
        std::vector<int> peaks;
    } const cases[] = {
        {"three rises, three falls", {0, 1, 2, 3, 2, 1, 0}, {4}},
        {"more of both", {0, 1, 2, 3, 4, 5, 4, 3, 2, 1, 0}, {6}},
        {"two rises", {3, 1, 2, 3, 2, 1, 0}, {}},
        {"two rises at the beginning", {1, 2, 3, 2, 1, 0}, {}},
        {"a fall between rises", {0, 1, 2, 1, 2, 3, 2, 1, 0}, {}},
        {"a fall after one rise", {0, 1, 0, 1, 2, 1, 0}, {}},
        {"a fall before the rises", {5, 4, 1, 2, 3, 4, 3, 2, 1}, {6}},
        {"two falls, then a rise", {0, 1, 2, 3, 2, 1, 2, 0}, {}},
        {"one fall, then a rise", {0, 1, 2, 3, 2, 3, 0}, {}},
        {"flat steps are rises", {0, 1, 1, 2, 1, 0.5f, 0}, {4}},
        {"nothing but flat steps before the falls", {3, 3, 3, 3, 2, 1, 0}, {4}},
        {"two flat steps before the falls", {3, 3, 3, 2, 1, 0}, {}},
        {"a plateau's later bin", {0, 1, 2, 3, 3, 2, 1, 0}, {5}},
        {"a plateau as the third rise", {0, 1, 2, 2, 1.5f, 1, 0}, {4}},
        {"a flat step among the falls", {0, 1, 2, 3, 2, 2, 1, 0}, {}},
        {"a flat step as the third fall", {0, 1, 2, 3, 2, 1, 1, 0}, {}},
        {"two peaks", {0, 1, 2, 3, 2, 1, 0, 1, 2, 3, 2, 1, 0}, {4, 10}},
        {"more falls between peaks", {0, 3, 4, 5, 4, 3, 2, 1, 2, 3, 4, 3, 2, 1}, {4, 11}},
        {"after a peak two rises are too few", {0, 1, 2, 3, 2, 1, 0, 1, 2, 1, 0, 0}, {4}},
        {"the rise that ends the falls is not one of the next peak's three",
         {0, 1, 2, 3, 2, 3, 4, 5, 4, 3, 2, 1, 0},
         {}},
        {"after that rise three more are needed", {0, 1, 2, 3, 2, 3, 4, 5, 6, 5, 4, 3, 0}, {9}},
        {"a smaller peak on the flank hides the larger one",
         {0, 1, 2, 3, 2, 4, 5, 6, 3, 2, 1, 0},
         {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectPeaks(fromBinOne(c.levels), {0.5f, 1, 0, kBinPerHz, {7, 8}}, c.peaks);
    }
}

TEST(PeakWalk, BeginsWithBinOne) {
    std::vector<float> power = fromBinOne({1, 2, 3, 2, 1, 0});
    expectPeaks(power, {0.5f, 1, 0, kBinPerHz, {7, 8}}, {});
    power = fromBinOne({0, 1, 2, 3, 2, 1, 0});
    power[0] = 100;
    expectPeaks(power, {0.5f, 1, 0, kBinPerHz, {7, 8}}, {4});
}

TEST(PeakWalk, APeakWhoseLevelIsTheThresholdIsAccepted) {
    constexpr float kLevel = 3;
    struct {
        const char* name;
        float threshold;
        std::vector<float> levels;
        std::vector<int> peaks;
    } const cases[] = {
        {"equal", kLevel, {0, 1, 2, kLevel, 2, 1, 0}, {4}},
        {"a step below", std::nextafter(kLevel, 4.0f), {0, 1, 2, kLevel, 2, 1, 0}, {}},
        {"its neighbours do not count", kLevel, {0, 2.9f, 2.9f, 2.9f, 2.8f, 2.7f, 2.6f}, {}},
        {"one below it ends at its first fall", 4, {0, 1, 2, 3, 2, 3, 4, 5, 4, 3, 2}, {8}},
        {"a low one between two",
         4,
         {0, 3, 4, 5, 4, 3, 1, 2, 3, 3.5f, 2, 1, 0, 2, 3, 4, 3, 2, 1},
         {4, 16}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectPeaks(fromBinOne(c.levels), {c.threshold, 1, 0, kBinPerHz, {7, 8}}, c.peaks);
    }
}

TEST(PeakWalk, EndsWithTheLastScannedBin) {
    // A peak at bin 4 whose third fall leads to bin 7.
    const std::vector<float> power = fromBinOne({0, 1, 2, 3, 2, 1, 0});
    const auto rateFor = [](int bins) {
        return 4435.0f * 4096 / (static_cast<float>(bins) + 0.5f);
    };
    ASSERT_EQ(partial_scan::scannedBins(rateFor(8), 1), 8);
    ASSERT_EQ(partial_scan::scannedBins(rateFor(7), 1), 7);
    expectPeaks(power, {0.5f, 1, 0, rateFor(8), {7, 8}}, {4});
    expectPeaks(power, {0.5f, 1, 0, rateFor(7), {7, 8}}, {});
    expectPeaks(power, {0.5f, 4, 0, 4 * rateFor(8), {7, 8}}, {4});
    expectPeaks(power, {0.5f, 4, 0, 4 * rateFor(7), {7, 8}}, {});
}

TEST(PeakWalk, AtLowRatesReachesTheLastSevenBins) {
    for (const float rate : {8000.0f, 9.0f, 0.0f}) {
        SCOPED_TRACE(rate);
        const std::vector<float> last =
            spectrum({{2041, 1}, {2042, 2}, {2043, 3}, {2044, 4}, {2045, 3}, {2046, 2}, {2047, 1}});
        expectPeaks(last, {0.5f, 4, 2044, rate, {7, 8}}, {2044});
        const std::vector<float> beyond =
            spectrum({{2042, 1}, {2043, 2}, {2044, 3}, {2045, 4}, {2046, 3}, {2047, 2}});
        expectPeaks(beyond, {0.5f, 4, 2045, rate, {7, 8}}, {}); // no third fall
    }
}

// --- what a scan gives

const std::vector<float> kTwoPeaks = fromBinOne({0, 1, 2, 3, 2, 1, 0, 2, 4, 8, 4, 2, 0});

TEST(DetectPartials, GivesFrequencyAndPowerOfEachPeak) {
    // Sums of seven bins: 9 with the centre at bin 4, 20 with the centre at bin 10.
    const Partials expected{{4, 9}, {10, 20}};
    EXPECT_EQ(partial_scan::detectPartials(view(kTwoPeaks), {1, 1, 10, kBinPerHz, {99, 98}}),
              expected);
    EXPECT_EQ(partial_scan::detectPartials(view(kTwoPeaks), {1, 1, 4, kBinPerHz, {99, 98}}),
              expected);
}

TEST(DetectPartials, DividesTheFrequenciesByTheFactor) {
    EXPECT_EQ(partial_scan::detectPartials(view(kTwoPeaks), {1, 4, 10, kBinPerHz, {99, 98}}),
              (Partials{{1, 9}, {2.5f, 20}}));
}

TEST(DetectPartials, AppendsTheStrongestWhenTheScanMissesIt) {
    const Partial strongest{1, 98}; // below the others: out of order, and as it was given
    struct {
        const char* name;
        std::vector<float> power;
        partial_scan::Scan scan;
        Partials expected;
    } const cases[] = {
        {"beside a peak",
         kTwoPeaks,
         {1, 1, 11, kBinPerHz, strongest},
         {{4, 9}, {10, 20}, strongest}},
        {"not divided by the factor",
         kTwoPeaks,
         {1, 4, 3, kBinPerHz, strongest},
         {{1, 9}, {2.5f, 20}, strongest}},
        {"a peak below the threshold",
         kTwoPeaks,
         {5, 1, 4, kBinPerHz, strongest},
         {{10, 20}, strongest}},
        {"flat", std::vector<float>(kBins, 1.0f), {0.5f, 1, 41, kBinPerHz, strongest}, {strongest}},
        {"silent", silence(), {0, 1, 41, kBinPerHz, strongest}, {strongest}},
        {"two scanned bins", kTwoPeaks, {1, 1, 4, 7e6f, strongest}, {strongest}},
        {"no rate that is a number", kTwoPeaks, {1, 1, 4, kNaN, strongest}, {strongest}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(partial_scan::detectPartials(view(c.power), c.scan), c.expected);
    }
}

TEST(DetectPartials, ARisingSpectrumGivesTheStrongestAlone) {
    std::vector<float> power(kBins);
    for (std::size_t bin = 0; bin < power.size(); ++bin)
        power[bin] = static_cast<float>(bin);
    EXPECT_EQ(partial_scan::detectPartials(view(power), {1, 1, 1023, 44100, {11014, 7}}),
              (Partials{{11014, 7}}));
}

} // namespace
} // namespace veltrano
