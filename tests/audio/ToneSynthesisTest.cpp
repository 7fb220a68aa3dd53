// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and the phase of the reference tone.
#include "tests/audio/ToneSynthesisRig.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <gtest/gtest.h>
#include <numbers>

namespace veltrano {
namespace {

// --- numbers ---

TEST(ToneSynthesisTest, ARampIsATenthOfASecondTruncated) {
    constexpr struct {
        float rateHz;
        std::int64_t frames;
    } kCases[] = {{44100, 4410}, {48000, 4800}, {44109, 4410}, {11025, 1102}, {9.9f, 0},
                  {10, 1},       {0, 0},        {kNan, 0},     {kInfinity, 0}};
    for (const auto& test : kCases) {
        ToneSynthesis tone;
        tone.setSampleRate(test.rateHz);
        EXPECT_EQ(tone.fadeFrames(), test.frames) << test.rateHz;
    }
}

TEST(ToneSynthesisTest, LengthsAreProductsInSinglePrecisionTruncated) {
    constexpr struct {
        float seconds, rateHz;
        std::int64_t frames; ///< from tables in single precision
    } kCases[] = {{1, 44100, 44100},      {0.7f, 44100, 30870},
                  {2.3f, 48000, 110400},  {0.35f, 96000, 33600},
                  {0.29f, 44100, 12789},  {1.1f, 8000, 8800},
                  {0.00001f, 44100, 0},   {0.0001f, 44100, 4},
                  {0, 44100, 0},          {1, 0, 0},
                  {kNan, 44100, 0},       {kInfinity, 44100, 0},
                  {-kInfinity, 44100, 0}, {1e19f, 44100, 0},
                  {9.2e18f, 1, 0},        {-9.2e18f, 1, 0},
                  {-1, 100, -100},        {1000000, 96000, 96000000000}};
    for (const auto& test : kCases) {
        EXPECT_EQ(ToneSynthesis::framesOf(test.seconds, test.rateHz), test.frames)
            << test.seconds << " s at " << test.rateHz;
    }
}

TEST(ToneSynthesisTest, SamplesAreVolumeTimesWaveTimesEnvelope) {
    ToneSynthesis tone;
    tone.setSampleRate(40);
    tone.play(100);
    // d = 1/8, four steps of the ramp; a triangle of 0 1/2 1 1/2 0 -1/2 -1 -1/2.
    const Samples expected{0, 0.5f * 0.75f * 0.5f, 0.75f * 0.75f, 0.5f * 0.75f,
                           0, -0.5f * 0.75f,       -0.75f,        -0.5f * 0.75f,
                           0, 0.5f * 0.75f};
    EXPECT_EQ(rendered(tone, 10, {5, 0.75f, 1}), expected);
}

TEST(ToneSynthesisTest, TheIncrementIsAQuotientInSinglePrecision) {
    ToneSynthesis tone;
    tone.setSampleRate(44100);
    rendered(tone, 1, {440, 1, 0});
    EXPECT_EQ(tone.phase(), 0.009977323934435844); // 440 / 44100 rounded to single precision
}

TEST(ToneSynthesisTest, SoundsFullInTheMiddleOfATone) {
    // Volume 1 / sqrt 2 as a single-precision number, unless somebody says otherwise.
    constexpr ToneSynthesis::Sound kSound;
    EXPECT_EQ(kSound.volume, 0.70710677f);
    EXPECT_EQ(kSound.waveform, 0);
    ToneSynthesis tone;
    tone.setSampleRate(8000);
    tone.play(8000);
    rendered(tone, 800, {1000, 0.5f, 0});
    const Samples full = rendered(tone, 800, {1000, 0.5f, 0});
    for (std::size_t i = 0; i < full.size(); ++i) {
        const double phase = double(800 + i) / 8;
        ASSERT_EQ(full[i], float(0.5 * std::sin(2 * std::numbers::pi * phase))) << i;
    }
}

TEST(ToneSynthesisTest, FrequencyVolumeAndWaveformMayChangeAtAnyBlock) {
    ToneSynthesis tone;
    tone.setSampleRate(64);
    tone.play(1000);
    rendered(tone, 64, {1, 1, 0});
    EXPECT_EQ(tone.phase(), 1);
    EXPECT_EQ(rendered(tone, 4, {4, 1, 1}), (Samples{0, 0.25f, 0.5f, 0.75f}));
    EXPECT_EQ(rendered(tone, 4, {8, 0.5f, 1}), (Samples{0.5f, 0.25f, 0, -0.25f}));
    EXPECT_EQ(rendered(tone, 2, {8, 0.5f, 3}), (Samples{-0.5f, -0.5f}));
}

// --- the phase ---

TEST(ToneSynthesisTest, ThePhaseGoesOnFromToneToTone) {
    ToneSynthesis tone = slowTone();
    const ToneSynthesis::Sound sound{3.125f, 1, 0}; // 1/32 of a cycle per sample
    tone.play(5);
    rendered(tone, 7, sound);
    tone.play(50);
    rendered(tone, 80, sound);
    rendered(tone, 20, sound); // silence counts, too
    EXPECT_EQ(tone.phase(), 107 / 32.0);
}

TEST(ToneSynthesisTest, ARetriggeredToneHasNoJump) {
    ToneSynthesis tone;
    tone.setSampleRate(44100);
    const ToneSynthesis::Sound sound{440, 1, 0};
    tone.play(6000);
    Samples all = rendered(tone, 8000, sound); // in the middle of the release
    tone.play(6000);
    const Samples more = rendered(tone, 8000, sound);
    all.insert(all.end(), more.begin(), more.end());
    // From sample to sample no more than the sine's own slope and a step of the ramp.
    const float most = float(2 * std::numbers::pi * 440 / 44100 + 1 / 4410.0);
    for (std::size_t i = 1; i < all.size(); ++i)
        ASSERT_LE(std::abs(all[i] - all[i - 1]), most) << i;
}

/// A tone that has already run through that many cycles, and plays at full level.
ToneSynthesis toneAfter(double cycles, float rateHz) {
    ToneSynthesis tone;
    tone.setSampleRate(rateHz);
    tone.play(std::int64_t(1) << 40);
    const double perSample = cycles / 65536;
    rendered(tone, 65536, {float(perSample * double(rateHz)), 1, 0});
    return tone;
}

TEST(ToneSynthesisTest, PastTwoToTheThirtyTwoCyclesTheWaveformIsTheSame) {
    const float rate = 65536; // so that all numbers are exact
    for (int index = 0; index < 4; ++index) {
        SCOPED_TRACE(index);
        const ToneSynthesis::Sound sound{4224, 0.75f, index};
        ToneSynthesis young = toneAfter(65536, rate);
        const Samples expected = rendered(young, 4096, sound);
        for (const double cycles : {4294967296.0 - 256, 4294967296.0, 17179869184.0}) {
            ToneSynthesis old = toneAfter(cycles, rate);
            ASSERT_EQ(old.phase(), cycles);
            const Samples samples = rendered(old, 4096, sound);
            EXPECT_TRUE(index == 0 || samples == expected);
            for (std::size_t i = 0; i < samples.size(); ++i)
                ASSERT_NEAR(samples[i], expected[i], 2e-5);
        }
    }
}

TEST(ToneSynthesisTest, AfterAnHourAToneIsAsAtItsBeginning) {
    constexpr float kRate = 44100;
    const ToneSynthesis::Sound sound{kRate / 64, 0.75f, 3};
    ToneSynthesis tone;
    tone.setSampleRate(kRate);
    tone.play(std::int64_t(1) << 40);
    Samples block(44100);
    tone.render(block, sound);
    tone.render(block, sound);
    const Samples second = block;
    for (int seconds = 2; seconds < 3600; ++seconds)
        tone.render(block, sound);
    EXPECT_EQ(tone.phase(), 3600 * 44100 / 64.0);
    // A period is 64 samples; 3598 s of them leave 56 over.
    for (std::size_t i = 0; i < block.size(); ++i)
        ASSERT_EQ(block[i], second[(i + 56) % 64]) << i;
}

TEST(ToneSynthesisTest, AfterAnHourTheFrequencyIsWithinAThousandthOfACent) {
    constexpr float kRate = 44100;
    const ToneSynthesis::Sound sound{4186.009f, 0.75f, 1};
    ToneSynthesis tone = toneAfter(4186 * 3600.0, kRate);
    const double before = tone.phase();
    rendered(tone, 441000, sound);
    const double hz = (tone.phase() - before) / 10;
    EXPECT_LT(std::abs(1200 * std::log2(hz / double(4186.009f))), 0.001);
}

#if defined(NDEBUG) && !defined(VELTRANO_SANITIZED)
TEST(ToneSynthesisTest, ASecondTakesLessThanTwoMilliseconds) {
    Samples second(48000);
    for (int index = 0; index < 4; ++index) {
        ToneSynthesis tone;
        tone.setSampleRate(48000);
        tone.play(std::int64_t(1) << 40);
        std::clock_t least = CLOCKS_PER_SEC;
        for (int run = 0; run < 20; ++run) {
            const std::clock_t begin = std::clock(); // of the processor: others may be at work
            tone.render(second, {440, 1, index});
            least = std::min(least, std::clock() - begin);
        }
        EXPECT_LT(least, CLOCKS_PER_SEC / 500) << "waveform " << index;
    }
}
#endif

} // namespace
} // namespace veltrano
