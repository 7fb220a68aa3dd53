// SPDX-License-Identifier: GPL-3.0-or-later
// Ramps and lengths of the reference tone, also where the rate is none or another.
#include "tests/audio/ToneSynthesisRig.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

/// The envelope in tenths, with a '|' where render() said that the tone has faded out.
std::string steps(ToneSynthesis& tone, int frames) {
    std::string text;
    for (int i = 0; i < frames; ++i) {
        float sample = -9;
        const bool hasEnded = tone.render(std::span(&sample, 1), kEnvelope);
        if (!text.empty()) text += ' ';
        text += std::to_string(std::lround(sample * 10));
        if (hasEnded) text += '|';
        EXPECT_FLOAT_EQ(sample, float(std::lround(sample * 10)) / 10);
    }
    return text;
}

// --- the envelope ---

TEST(ToneSynthesisTest, RampsUpHoldsAndRampsDown) {
    ToneSynthesis tone = slowTone();
    EXPECT_EQ(steps(tone, 2), "0 0") << "nothing is wanted yet";
    tone.play(13);
    EXPECT_EQ(steps(tone, 25), "1 2 3 4 5 6 7 8 9 10 10 10 10 9 8 7 6 5 4 3 2 1 0| 0 0");
}

TEST(ToneSynthesisTest, AToneShorterThanTheRampFadesFromWhereItGotTo) {
    ToneSynthesis tone = slowTone();
    tone.play(4);
    EXPECT_EQ(steps(tone, 10), "1 2 3 4 3 2 1 0| 0 0");
}

TEST(ToneSynthesisTest, ATonePlaysUntilTheFrameAfterItsLast) {
    ToneSynthesis tone = slowTone();
    EXPECT_FALSE(tone.isPlaying());
    tone.play(2);
    EXPECT_TRUE(tone.isPlaying());
    EXPECT_EQ(steps(tone, 2), "1 2");
    EXPECT_TRUE(tone.isPlaying()) << "nobody has noticed yet";
    EXPECT_EQ(steps(tone, 1), "1");
    EXPECT_FALSE(tone.isPlaying());
}

TEST(ToneSynthesisTest, AToneOfLengthZeroIsSilentAndNeverFadesOut) {
    ToneSynthesis tone = slowTone();
    tone.play(0);
    EXPECT_TRUE(tone.isPlaying());
    EXPECT_EQ(steps(tone, 3), "0 0 0");
    EXPECT_FALSE(tone.isPlaying());
}

TEST(ToneSynthesisTest, ATonePlayedDuringTheReleaseRampsUpFromTheLevelReached) {
    ToneSynthesis tone = slowTone();
    tone.play(12);
    EXPECT_EQ(steps(tone, 16), "1 2 3 4 5 6 7 8 9 10 10 10 9 8 7 6");
    tone.play(6);
    EXPECT_EQ(steps(tone, 18), "7 8 9 10 10 10 9 8 7 6 5 4 3 2 1 0| 0 0");
}

TEST(ToneSynthesisTest, ATonePlayedDuringAnotherHoldsTheLevel) {
    ToneSynthesis tone = slowTone();
    tone.play(30);
    steps(tone, 12);
    tone.play(3);
    EXPECT_EQ(steps(tone, 5), "10 10 10 9 8");
}

TEST(ToneSynthesisTest, ANewLengthIsWhatIsLeft) {
    ToneSynthesis tone = slowTone();
    tone.play(1000);
    steps(tone, 12);
    tone.setFrames(2);
    EXPECT_EQ(steps(tone, 4), "10 10 9 8");
    tone.setFrames(3);
    EXPECT_FALSE(tone.isPlaying());
    EXPECT_EQ(steps(tone, 9), "7 6 5 4 3 2 1 0| 0") << "a length alone plays nothing";
}

TEST(ToneSynthesisTest, ANewLengthDoesNotCutShortWhatPlays) {
    ToneSynthesis tone = slowTone();
    tone.play(11);
    steps(tone, 10);
    tone.setFrames(4);
    EXPECT_EQ(steps(tone, 6), "10 10 10 10 9 8");
}

TEST(ToneSynthesisTest, LengthZeroEndsTheToneWithItsFadeOut) {
    ToneSynthesis tone = slowTone();
    tone.play(1000);
    steps(tone, 11);
    tone.setFrames(0);
    EXPECT_TRUE(tone.isPlaying());
    EXPECT_EQ(steps(tone, 11), "9 8 7 6 5 4 3 2 1 0| 0");
    EXPECT_FALSE(tone.isPlaying());
}

TEST(ToneSynthesisTest, BlocksOfAnySizeGiveTheSameSamples) {
    const ToneSynthesis::Sound sound{440, 0.5f, 2};
    ToneSynthesis whole, parts;
    for (ToneSynthesis* tone : {&whole, &parts}) {
        tone->setSampleRate(8000);
        tone->play(1200);
    }
    const Samples expected = rendered(whole, 3000, sound);
    Samples samples(3000, -9);
    std::size_t done = 0;
    for (std::size_t size = 0; done < samples.size(); size = (size + 7) % 50) {
        const std::size_t part = std::min(size, samples.size() - done);
        const bool hasEnded = parts.render(std::span(samples).subspan(done, part), sound);
        done += part;
        EXPECT_EQ(hasEnded, done >= 2000 && done - part < 2000) << done; // 1200 and a ramp
    }
    EXPECT_EQ(samples, expected);
}

TEST(ToneSynthesisTest, ARampMayBeASingleStep) {
    ToneSynthesis tone = slowTone();
    tone.play(100);
    rendered(tone, 50);
    tone.setSampleRate(10);
    EXPECT_EQ(steps(tone, 2), "10 10");
    tone.play(3);
    EXPECT_EQ(steps(tone, 6), "10 10 10 0| 0 0");
    tone.play(1);
    EXPECT_EQ(steps(tone, 2), "10 0|");
}

TEST(ToneSynthesisTest, NoFramesChangeNothing) {
    ToneSynthesis tone = slowTone();
    tone.play(0);
    EXPECT_FALSE(tone.render({}, kEnvelope));
    EXPECT_TRUE(tone.isPlaying());
    EXPECT_EQ(tone.phase(), 0);
}

// --- no rate, another rate ---

TEST(ToneSynthesisTest, WithoutARateThereIsSilenceAndTheTonesToComeAreNotSpoilt) {
    for (const float noRate : {0.0f, -0.0f, -44100.0f, 9.0f, kNan, kInfinity}) {
        SCOPED_TRACE(noRate);
        ToneSynthesis tone;
        tone.setSampleRate(noRate);
        tone.play(100);
        EXPECT_EQ(rendered(tone, 50, {440, 1, 0}), Samples(50, 0.0f));
        EXPECT_TRUE(tone.isPlaying());
        rendered(tone, 51, {440, 1, 0});
        EXPECT_FALSE(tone.isPlaying()) << "the frames are used up all the same";
        tone.setSampleRate(100);
        tone.play(5);
        EXPECT_EQ(steps(tone, 6), "1 2 3 4 5 4");
        EXPECT_TRUE(std::isfinite(tone.phase()));
    }
}

TEST(ToneSynthesisTest, WhatIsNoFrequencyIsSilent) {
    for (const float noFrequency : {kNan, kInfinity, -kInfinity}) {
        ToneSynthesis tone = slowTone();
        tone.play(100);
        EXPECT_EQ(rendered(tone, 20, {noFrequency, 1, 0}), Samples(20, 0.0f));
        EXPECT_EQ(tone.phase(), 0);
        EXPECT_EQ(steps(tone, 1), "10") << "the ramp went on";
    }
}

TEST(ToneSynthesisTest, ALowerRateNeverRaisesTheLevelAboveFull) {
    ToneSynthesis tone;
    tone.setSampleRate(200);
    tone.play(100);
    steps(tone, 0);
    rendered(tone, 30);
    tone.setSampleRate(100);
    EXPECT_EQ(steps(tone, 3), "10 10 10");
    tone.setFrames(0);
    EXPECT_EQ(steps(tone, 11), "9 8 7 6 5 4 3 2 1 0| 0");
}

TEST(ToneSynthesisTest, AHigherRateRampsUpToTheNewFullLevel) {
    ToneSynthesis tone = slowTone();
    tone.play(100);
    rendered(tone, 30);
    tone.setSampleRate(200);
    const Samples samples = rendered(tone, 11);
    EXPECT_EQ(samples.front(), 0.55f); // the eleventh of twenty steps
    EXPECT_EQ(samples.back(), 1.0f);
}

TEST(ToneSynthesisTest, AToneThatLosesItsRateStillFadesOut) {
    ToneSynthesis tone = slowTone();
    tone.play(12);
    rendered(tone, 11);
    tone.setSampleRate(0);
    Samples samples(20, -9);
    EXPECT_TRUE(tone.render(samples, kEnvelope)) << "or its output would run for ever";
    EXPECT_EQ(samples, Samples(20, 0.0f));
}

} // namespace
} // namespace veltrano
