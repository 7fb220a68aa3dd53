// SPDX-License-Identifier: GPL-3.0-or-later
// The pace of blocks, and a sine at that pace.
#include "platform/audio/BlockPacer.h"
#include "platform/audio/BlockSchedule.h"
#include "platform/audio/ToneDevice.h"
#include "tests/platform/audio/BlockRecorder.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <thread>

namespace veltrano {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Blocks of 10 ms that are taken from 0 to @p end, when it is looked every 5 ms but in a gap.
int takenUntil(double end, double gapFrom, double gapTo) {
    BlockSchedule schedule(0.01);
    schedule.begin(0);
    int taken = 0;
    for (double now = 1e-6; now < end; now += 0.005) {
        if (now > gapFrom && now < gapTo) continue;
        while (schedule.takeDue(now))
            ++taken;
    }
    return taken;
}

TEST(BlockSchedule, ABlockIsDueWhenItsLengthHasPassed) {
    BlockSchedule schedule(0.5);
    schedule.begin(100);
    EXPECT_EQ(schedule.deadline(), 100.5);
    EXPECT_FALSE(schedule.takeDue(100.49));
    EXPECT_TRUE(schedule.takeDue(100.5));
    EXPECT_EQ(schedule.deadline(), 101.0);
    EXPECT_FALSE(schedule.takeDue(100.9));
    EXPECT_TRUE(schedule.takeDue(101.2)); // late, but the next deadline stays
    EXPECT_EQ(schedule.deadline(), 101.5);
}

TEST(BlockSchedule, MakesUpForAShortDelay) {
    EXPECT_EQ(takenUntil(1.001, 9, 9), 100);
    EXPECT_EQ(takenUntil(1.001, 0.301, 0.5), 100);
}

TEST(BlockSchedule, LetsBlocksGoAfterALongDelay) {
    EXPECT_EQ(takenUntil(1.998, 0.301, 1.3), 30 + 1 + 69);
}

TEST(BlockSchedule, RoundingDoesNotAddUp) {
    BlockSchedule schedule(512.0 / 44100);
    schedule.begin(12345.678);
    const int hour = 3600 * 44100 / 512;
    for (int block = 0; block < hour; ++block)
        ASSERT_TRUE(schedule.takeDue(schedule.deadline()));
    EXPECT_NEAR(schedule.deadline(), 12345.678 + (hour + 1) * 512.0 / 44100, 1e-9);
}

struct CountingTarget final : BlockPacer::Target {
    std::atomic<int> calls{0};
    void onBlockDue() noexcept override { ++calls; }
};

TEST(BlockPacer, CallsOncePerBlockAndNeverAheadOfTime) {
    CountingTarget target;
    BlockPacer pacer(target, 0.002);
    const auto begin = Clock::now();
    pacer.start();
    while (target.calls < 100)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_GE(secondsSince(begin), 0.2);
    pacer.stop();
    const int calls = target.calls;
    EXPECT_LE(calls * 0.002, secondsSince(begin));
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(target.calls, calls);
}

TEST(BlockPacer, StopDoesNotWaitForALongBlock) {
    CountingTarget target;
    BlockPacer pacer(target, 60);
    pacer.start();
    std::this_thread::sleep_for(std::chrono::milliseconds(50)); // it sleeps by now
    const auto begin = Clock::now();
    pacer.stop();
    EXPECT_LT(secondsSince(begin), 30);
    EXPECT_EQ(target.calls, 0);
}

TEST(BlockPacer, CanBeStartedAgain) {
    CountingTarget target;
    BlockPacer pacer(target, 0.001);
    for (int round = 1; round <= 3; ++round) {
        pacer.start();
        pacer.start();
        EXPECT_TRUE(pacer.isRunning());
        const int before = target.calls;
        while (target.calls == before)
            std::this_thread::yield();
        pacer.stop();
        pacer.stop();
        EXPECT_FALSE(pacer.isRunning());
    }
}

class ToneDeviceTest : public testing::Test {
protected:
    void start(const ToneDevice& device) {
        hardware.addIOProc(device.id(), BlockRecorder::recordBlock, &recorder);
        hardware.start(device.id(), BlockRecorder::recordBlock);
    }

    VirtualHardware hardware;
    BlockRecorder recorder;
};

TEST_F(ToneDeviceTest, DeliversAContinuousSineOnAllChannels) {
    ToneDevice device(hardware, {"Sine", 48000, 2, 100, 441, 0.25});
    EXPECT_EQ(hardware.deviceManufacturer(device.id(), Direction::input), "Tone");
    EXPECT_EQ(hardware.streamFormat(device.id(), Direction::input),
              VirtualDevice::format(48000, 2));
    EXPECT_FALSE(device.playBlock()); // not started: the sine stands
    start(device);
    for (int block = 0; block < 3; ++block)
        EXPECT_TRUE(device.playBlock());
    const auto samples = recorder.samples();
    ASSERT_EQ(samples.size(), 600u);
    for (std::size_t frame = 0; frame < 300; ++frame) {
        const double phase = 2 * std::numbers::pi * 441 * double(frame) / 48000;
        EXPECT_NEAR(samples[2 * frame], 0.25 * std::sin(phase), 1e-6) << frame;
        EXPECT_EQ(samples[2 * frame], samples[2 * frame + 1]);
    }
    EXPECT_EQ(recorder.blocks()[2].sampleTime, 300.0);
}

TEST_F(ToneDeviceTest, ANewFrequencyGoesOnFromTheSamePhase) {
    ToneDevice device(hardware, {"Sine", 1000, 1, 10, 10, 1.0}); // a tenth of a period per block
    start(device);
    device.playBlock();
    device.setFrequency(20);
    device.setAmplitude(0.5);
    device.playBlock();
    const auto samples = recorder.samples();
    EXPECT_NEAR(samples[10], 0.5 * std::sin(2 * std::numbers::pi * 0.1), 1e-6);
    EXPECT_NEAR(samples[11], 0.5 * std::sin(2 * std::numbers::pi * 0.12), 1e-6);
}

TEST_F(ToneDeviceTest, SoundsInRealTimeAndGoesWithItsObject) {
    {
        ToneDevice device(hardware, {});
        start(device);
        device.startRealTime();
        EXPECT_FALSE(device.playBlock());
        while (recorder.count() < 5)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(hardware.devices().empty());
    EXPECT_EQ(recorder.blocks()[0].samples.size(), 512u);
}

} // namespace
} // namespace veltrano
