// SPDX-License-Identifier: GPL-3.0-or-later
// Packing and scaling of the transform of real samples.
#include "platform/dsp/RealFFT.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <vector>

namespace veltrano {
namespace {

constexpr int kLog2Analysis = 12; // the analyses' size
constexpr std::size_t kAnalysis = 4096;

double turn(std::size_t k, std::size_t n, std::size_t size) {
    return 2 * std::numbers::pi * static_cast<double>((k * n) % size) / static_cast<double>(size);
}

std::vector<float> noise(std::size_t size) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> level(-1, 1);
    std::vector<float> wave(size);
    std::ranges::generate(wave, [&] { return level(random); });
    return wave;
}

/// The transform by its definition, in double precision.
std::complex<double> bin(const std::vector<float>& wave, std::size_t k) {
    std::complex<double> sum;
    for (std::size_t n = 0; n < wave.size(); ++n)
        sum += static_cast<double>(wave[n]) * std::polar(1.0, -turn(k, n, wave.size()));
    return sum;
}

void load(RealFFT& fft, const std::vector<float>& wave) {
    ASSERT_EQ(fft.wave().size(), wave.size());
    std::ranges::copy(wave, fft.wave().begin());
}

float powerOf(std::complex<float> packed, std::size_t size) {
    const auto n = static_cast<float>(size);
    return (packed.real() * packed.real() + packed.imag() * packed.imag()) / (n * n);
}

TEST(RealFFT, HasNSamplesAndHalfAsManyPackedValuesAllZeroAtFirst) {
    for (const int log2n : {2, 3, 12, 15}) {
        SCOPED_TRACE(log2n);
        { // leaves memory behind that is not zero
            RealFFT used(log2n);
            std::ranges::fill(used.wave(), 9.0f);
            std::ranges::fill(used.spectrum(), std::complex<float>(9, 9));
        }
        RealFFT fft(log2n);
        EXPECT_EQ(fft.wave().size(), std::size_t{1} << log2n);
        EXPECT_EQ(fft.spectrum().size(), std::size_t{1} << (log2n - 1));
        EXPECT_TRUE(std::ranges::all_of(fft.wave(), [](float x) { return x == 0; }));
        EXPECT_TRUE(std::ranges::all_of(fft.spectrum(), [](auto x) { return x == 0.0f; }));
    }
}

TEST(RealFFT, ACosineOfAmplitudeAOnABinHasThePowerASquaredThere) {
    struct {
        std::size_t bin;
        double amplitude;
    } const cases[] = {{1, 1}, {2, 0.5}, {41, 0.25}, {1023, 0.01}, {1024, 0.75}, {2047, 1}};
    RealFFT fft(kLog2Analysis);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bin);
        std::vector<float> wave(kAnalysis);
        for (std::size_t n = 0; n < kAnalysis; ++n)
            wave[n] = static_cast<float>(c.amplitude * std::cos(turn(c.bin, n, kAnalysis)));
        load(fft, wave);
        fft.forward();
        for (std::size_t k = 0; k < kAnalysis / 2; ++k) {
            const auto power = static_cast<double>(powerOf(fft.spectrum()[k], kAnalysis));
            const double expected = k == c.bin ? c.amplitude * c.amplitude : 0;
            ASSERT_NEAR(power, expected, 1e-6 * c.amplitude * c.amplitude) << "bin " << k;
        }
        EXPECT_NEAR(static_cast<double>(fft.spectrum()[c.bin].real()), c.amplitude * kAnalysis,
                    1e-6 * c.amplitude * kAnalysis);
    }
}

TEST(RealFFT, TheFirstValueHoldsTheLowestAndTheHighestBin) {
    // Both are real and doubled as all others: a constant c gives 2 N c.
    struct {
        const char* name;
        std::vector<float> wave;
        std::complex<float> first;
    } const cases[] = {
        {"a constant", {0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f}, {8, 0}},
        {"every other one negative", {3, -3, 3, -3, 3, -3, 3, -3}, {0, 48}},
        {"both", {3, 1, 3, 1, 3, 1, 3, 1}, {32, 16}},
        {"one sample", {1, 0, 0, 0, 0, 0, 0, 0}, {2, 2}},
        {"the sample after it", {0, 1, 0, 0, 0, 0, 0, 0}, {2, -2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        RealFFT fft(3);
        load(fft, c.wave);
        fft.forward();
        EXPECT_EQ(fft.spectrum()[0], c.first);
    }
}

TEST(RealFFT, ForwardIsTwiceTheTransformByItsDefinition) {
    for (const int log2n : {2, 5, kLog2Analysis}) {
        SCOPED_TRACE(log2n);
        RealFFT fft(log2n);
        const std::size_t size = fft.wave().size();
        const std::vector<float> wave = noise(size);
        load(fft, wave);
        fft.forward();
        const double tolerance = 1e-6 * static_cast<double>(size);
        EXPECT_NEAR(static_cast<double>(fft.spectrum()[0].real()), 2 * bin(wave, 0).real(),
                    tolerance);
        EXPECT_NEAR(static_cast<double>(fft.spectrum()[0].imag()), 2 * bin(wave, size / 2).real(),
                    tolerance);
        for (std::size_t k = 1; k < size / 2; ++k) {
            const std::complex<double> packed(fft.spectrum()[k]);
            EXPECT_LT(std::abs(packed - 2.0 * bin(wave, k)), tolerance) << "bin " << k;
        }
    }
}

TEST(RealFFT, ForwardKeepsTheSamples) {
    const std::vector<float> wave = noise(kAnalysis);
    RealFFT fft(kLog2Analysis);
    load(fft, wave);
    fft.forward();
    EXPECT_TRUE(std::ranges::equal(fft.wave(), wave));
}

TEST(RealFFT, ForwardAndInverseMultiplyByTwoN) {
    for (const int log2n : {2, 7, kLog2Analysis}) {
        SCOPED_TRACE(log2n);
        RealFFT fft(log2n);
        const std::vector<float> wave = noise(fft.wave().size());
        const auto scale = static_cast<float>(2 * wave.size());
        load(fft, wave);
        fft.forward();
        std::ranges::fill(fft.wave(), 9.0f);
        fft.inverse();
        for (std::size_t n = 0; n < wave.size(); ++n)
            ASSERT_NEAR(fft.wave()[n] / scale, wave[n], 1e-6f) << "sample " << n;
    }
}

TEST(RealFFT, InverseReadsThePackedLayout) {
    struct {
        const char* name;
        std::vector<std::complex<float>> spectrum;
        std::vector<float> wave;
    } const cases[] = {
        {"lowest bin", {{1, 0}, {}, {}, {}}, {1, 1, 1, 1, 1, 1, 1, 1}},
        {"highest bin", {{0, 1}, {}, {}, {}}, {1, -1, 1, -1, 1, -1, 1, -1}},
        {"real part of a bin", {{}, {}, {1, 0}, {}}, {2, 0, -2, 0, 2, 0, -2, 0}},
        {"imaginary part of a bin", {{}, {}, {0, 1}, {}}, {0, -2, 0, 2, 0, -2, 0, 2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        RealFFT fft(3);
        std::ranges::copy(c.spectrum, fft.spectrum().begin());
        fft.inverse();
        EXPECT_EQ(std::vector<float>(fft.wave().begin(), fft.wave().end()), c.wave);
    }
}

TEST(RealFFT, TheSameSamplesGiveTheSameBits) {
    const std::vector<float> wave = noise(kAnalysis);
    RealFFT one(kLog2Analysis);
    RealFFT another(kLog2Analysis);
    load(one, wave);
    load(another, wave);
    one.forward();
    another.forward();
    EXPECT_TRUE(std::ranges::equal(one.spectrum(), another.spectrum()));
    load(one, wave);
    one.forward();
    EXPECT_TRUE(std::ranges::equal(one.spectrum(), another.spectrum()));
}

} // namespace
} // namespace veltrano
