// SPDX-License-Identifier: GPL-3.0-or-later
// Silence instead of missing sound, and bursts after a hang.
#include "platform/audio/StreamWatch.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr double kRate = 44100;
constexpr std::size_t kBlock = 882; ///< 20 ms

StreamWatch running() {
    StreamWatch watch;
    watch.begin(100, kRate);
    return watch;
}

/// Sound in real time from one moment up to another. @returns the accepted frames
std::size_t play(StreamWatch& watch, double from, double to) {
    std::size_t accepted = 0;
    for (int block = 0; from + 0.02 * block < to; ++block) {
        if (watch.sound(from + 0.02 * block, kBlock)) accepted += kBlock;
    }
    return accepted;
}

/// Asks for silence at each deadline. @returns its frames
std::size_t fill(StreamWatch& watch, double until) {
    std::size_t frames = 0;
    while (watch.deadline() && *watch.deadline() <= until)
        frames += watch.silenceDue(*watch.deadline());
    return frames;
}

TEST(StreamWatch, SoundInTimeIsAllAcceptedAndNoSilenceIsAdded) {
    StreamWatch watch = running();
    EXPECT_EQ(play(watch, 100, 110), 500 * kBlock);
    EXPECT_EQ(watch.silenceDue(110.4), 0u);
    EXPECT_FALSE(watch.isSilent());
}

TEST(StreamWatch, AFastClockOfTheDeviceLosesNothing) {
    StreamWatch watch = running();
    for (int block = 0; block < 30000; ++block) // ten minutes, 1 % too fast
        ASSERT_TRUE(watch.sound(100 + 0.0198 * block, kBlock)) << block;
}

TEST(StreamWatch, AGapShorterThanAStallLosesNothing) {
    StreamWatch watch = running();
    play(watch, 100, 101);
    for (int block = 0; block < 25; ++block) // half a second at once
        EXPECT_TRUE(watch.sound(101.49, kBlock)) << block;
}

TEST(StreamWatch, AStallIsNoticedWithinASecondAndFilledWithOneAndAHalfOfSilence) {
    StreamWatch watch = running();
    play(watch, 100, 101); // the last block at 100.98
    EXPECT_EQ(fill(watch, 101.47), 0u);
    EXPECT_FALSE(watch.isSilent());
    fill(watch, 101.5);
    EXPECT_TRUE(watch.isSilent());
    fill(watch, 105);
    EXPECT_FALSE(watch.isSilent());
    EXPECT_TRUE(watch.isSpent());
    EXPECT_EQ(watch.deadline(), std::nullopt);
}

TEST(StreamWatch, SilenceIsPacedInRealTime) {
    StreamWatch watch = running();
    watch.lost(101);
    EXPECT_TRUE(watch.isSilent());
    EXPECT_EQ(watch.silenceDue(101.02), kBlock);
    EXPECT_EQ(watch.silenceDue(101.02), 0u);
    EXPECT_EQ(watch.silenceDue(101.5), std::size_t(0.48 * kRate)) << "a late call catches up";
    EXPECT_EQ(watch.silenceDue(109), std::size_t(1.0 * kRate)) << "but never beyond the end";
    EXPECT_TRUE(watch.isSpent());
    EXPECT_EQ(watch.silenceDue(110), 0u);
}

TEST(StreamWatch, ALossIsFilledOnceNotAgainByALaterLoss) {
    StreamWatch watch = running();
    watch.lost(101);
    EXPECT_EQ(fill(watch, 103), std::size_t(1.5 * kRate));
    watch.lost(104);
    EXPECT_EQ(fill(watch, 110), 0u);
}

TEST(StreamWatch, SoundOfANewStreamEndsTheSilenceAtOnce) {
    StreamWatch watch = running();
    watch.lost(101);
    fill(watch, 101.3);
    watch.opened(101.31, 48000);
    EXPECT_TRUE(watch.isSilent()) << "until sound comes";
    EXPECT_TRUE(watch.sound(101.33, 960));
    EXPECT_FALSE(watch.isSilent());
    EXPECT_EQ(fill(watch, 101.8), 0u);
    watch.lost(101.82);
    EXPECT_EQ(fill(watch, 110), std::size_t(1.5 * 48000)) << "and the next loss counts anew";
}

TEST(StreamWatch, WhatAHungServerGatheredIsDropped) {
    for (const double hang : {1.0, 5.0, 60.0}) {
        StreamWatch watch = running();
        play(watch, 100, 101);
        fill(watch, 101 + hang);
        std::size_t accepted = 0;
        for (double second = 0; second < hang; second += 0.02) // within 10 ms
            if (watch.sound(101 + hang + 0.01 * second / hang, kBlock)) accepted += kBlock;
        EXPECT_LE(accepted, kBlock) << hang;
        // The present is let through as soon as it comes at its own pace.
        EXPECT_GE(play(watch, 101.03 + hang, 102.03 + hang), 49 * kBlock) << hang;
        EXPECT_FALSE(watch.isSilent()) << hang;
    }
}

TEST(StreamWatch, SoundFasterThanRealTimeIsThinnedOut) {
    StreamWatch watch = running();
    std::size_t accepted = 0;
    for (int block = 0; block < 2000; ++block) // 40 s of sound in 10 s
        if (watch.sound(100 + 0.005 * block, kBlock)) accepted += kBlock;
    EXPECT_LE(double(accepted) / kRate, StreamWatch::kCatchUp * 10 + StreamWatch::kBurstSeconds);
    EXPECT_GE(double(accepted) / kRate, 10.0);
}

TEST(StreamWatch, ABlockLongerThanAnyBurstIsNotRefusedForEver) {
    StreamWatch watch;
    watch.begin(100, 8000);
    EXPECT_TRUE(watch.sound(102, 16384));
    EXPECT_FALSE(watch.sound(102.1, 16384));
    EXPECT_TRUE(watch.sound(104.05, 16384));
}

TEST(StreamWatch, AStartThatNeverGivesSoundIsFilledToo) {
    StreamWatch watch = running(); // what ran before may still show a reading
    EXPECT_EQ(watch.secondsWithoutSound(100.25), 0.25);
    EXPECT_EQ(fill(watch, 110), std::size_t(1.5 * kRate));
}

TEST(StreamWatch, ALateTimerStartsTheSilenceLateNotLong) {
    StreamWatch watch = running();
    EXPECT_EQ(watch.silenceDue(109), 0u);
    EXPECT_EQ(fill(watch, 120), std::size_t(1.5 * kRate));
}

} // namespace
} // namespace veltrano
