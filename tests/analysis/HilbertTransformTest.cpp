// SPDX-License-Identifier: GPL-3.0-or-later
// The signal turned by 90 degrees.
#include "analysis/HilbertTransform.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace veltrano {
namespace {

constexpr std::size_t kSize = HilbertTransform::kSize;
constexpr std::size_t kFirstShown = 1792, kAfterShown = 2304; ///< the plotted middle

double turn(double bin, std::size_t n) {
    return 2 * std::numbers::pi * bin * static_cast<double>(n) / kSize;
}

template <class Function>
std::vector<float> samplesOf(Function at, std::size_t count = kSize) {
    std::vector<float> samples(count);
    for (std::size_t n = 0; n < count; ++n)
        samples[n] = static_cast<float>(at(n));
    return samples;
}

void expectNear(std::span<const float> actual, const std::vector<float>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t n = 0; n < expected.size(); ++n)
        ASSERT_NEAR(actual[n], expected[n], 1e-6f) << "sample " << n;
}

std::vector<float> copyOf(std::span<const float> samples) {
    return {samples.begin(), samples.end()};
}

TEST(HilbertTransform, IsZeroAtFirst) {
    const HilbertTransform transform;
    EXPECT_EQ(copyOf(transform.wave()), std::vector<float>(4096));
    EXPECT_EQ(copyOf(transform.hilbertWave()), std::vector<float>(4096));
}

TEST(HilbertTransform, TurnsEveryBinBy90Degrees) {
    for (const double bin : {1.0, 2.0, 41.0, 1024.0, 2047.0}) {
        SCOPED_TRACE(bin);
        HilbertTransform transform;
        const std::vector<float> cosine =
            samplesOf([=](std::size_t n) { return 0.5 * std::cos(turn(bin, n)); });
        const std::vector<float> sine =
            samplesOf([=](std::size_t n) { return 0.5 * std::sin(turn(bin, n)); });
        transform.setData(cosine);
        EXPECT_EQ(copyOf(transform.wave()), cosine);
        expectNear(transform.hilbertWave(), sine);
        transform.setData(sine);
        expectNear(transform.hilbertWave(),
                   samplesOf([=](std::size_t n) { return -0.5 * std::cos(turn(bin, n)); }));
    }
}

TEST(HilbertTransform, LeavesOutTheConstantAndTheHighestBin) {
    HilbertTransform transform;
    transform.setData(std::vector<float>(kSize, 0.75f));
    expectNear(transform.hilbertWave(), std::vector<float>(kSize));
    transform.setData(samplesOf([](std::size_t n) { return n % 2 == 0 ? 0.5 : -0.5; }));
    expectNear(transform.hilbertWave(), std::vector<float>(kSize));
    transform.setData(samplesOf([](std::size_t n) { return 0.25 + 0.5 * std::cos(turn(10, n)); }));
    expectNear(transform.hilbertWave(),
               samplesOf([](std::size_t n) { return 0.5 * std::sin(turn(10, n)); }));
    EXPECT_NEAR(transform.wave()[0], 0.75f, 1e-6f); // the signal keeps it
}

TEST(HilbertTransform, TwiceItIsTheSignalUpsideDown) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> level(-1, 1);
    std::vector<float> noise = samplesOf([&](std::size_t) { return level(random); });
    HilbertTransform once;
    once.setData(noise); // takes the constant and the highest bin away
    HilbertTransform twice;
    twice.setData(once.hilbertWave());
    HilbertTransform thrice;
    thrice.setData(twice.hilbertWave());
    std::vector<float> upsideDown = copyOf(once.hilbertWave());
    std::ranges::transform(upsideDown, upsideDown.begin(), std::negate());
    expectNear(thrice.hilbertWave(), upsideDown);
}

TEST(HilbertTransform, ASteadySineIsACircleInTheMiddleOfTheBlock) {
    for (const double hz : {440.0, 261.6, 1000.0}) {
        SCOPED_TRACE(hz);
        HilbertTransform transform; // an update frame at 44.1 kHz
        transform.setData(samplesOf(
            [=](std::size_t n) { return 0.3 * std::sin(turn(hz * kSize / 44100, n)); }, 5393));
        for (std::size_t n = kFirstShown; n < kAfterShown; ++n) {
            const float radius = std::hypot(transform.hilbertWave()[n], transform.wave()[n]);
            ASSERT_NEAR(radius, 0.3f, 0.003f) << "sample " << n;
        }
    }
}

TEST(HilbertTransform, ABlockLongerThan4096SamplesIsCutToItsFirst4096) {
    const std::vector<float> whole =
        samplesOf([](std::size_t n) { return std::sin(0.01 * static_cast<double>(n)); });
    std::vector<float> longer = whole;
    longer.resize(5393, 9.0f);
    HilbertTransform cut;
    HilbertTransform exact;
    cut.setData(longer);
    exact.setData(whole);
    EXPECT_EQ(copyOf(cut.wave()), whole);
    EXPECT_EQ(copyOf(cut.hilbertWave()), copyOf(exact.hilbertWave()));
}

TEST(HilbertTransform, ABlockOf1000SamplesIsZeroPadded) {
    const std::vector<float> block =
        samplesOf([](std::size_t n) { return std::sin(0.1 * static_cast<double>(n)); }, 1000);
    std::vector<float> padded = block;
    padded.resize(kSize);
    HilbertTransform transform;
    transform.setData(std::vector<float>(kSize, 1.0f)); // nothing of it stays
    transform.setData(block);
    EXPECT_EQ(copyOf(transform.wave()), padded);
    for (std::size_t n = kFirstShown; n < kAfterShown; ++n)
        ASSERT_EQ(transform.wave()[n], 0.0f);
    HilbertTransform exact;
    exact.setData(padded);
    EXPECT_EQ(copyOf(transform.hilbertWave()), copyOf(exact.hilbertWave()));
    EXPECT_GT(std::abs(transform.hilbertWave()[1010]), 1e-4f); // the transform is not zero there
}

TEST(HilbertTransform, ASingleZeroOrNothingAtAllIsZeroEverywhere) {
    for (const std::vector<float>& block : {std::vector<float>{0.0f}, std::vector<float>{}}) {
        SCOPED_TRACE(block.size());
        HilbertTransform transform;
        transform.setData(std::vector<float>(100, 1.0f));
        transform.setData(block);
        EXPECT_EQ(copyOf(transform.wave()), std::vector<float>(kSize));
        EXPECT_EQ(copyOf(transform.hilbertWave()), std::vector<float>(kSize));
    }
}

} // namespace
} // namespace veltrano
