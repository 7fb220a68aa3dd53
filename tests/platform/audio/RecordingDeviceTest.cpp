// SPDX-License-Identifier: GPL-3.0-or-later
// A recording as a microphone.
#include "platform/audio/RecordingDevice.h"
#include "tests/platform/audio/BlockRecorder.h"
#include "tests/platform/audio/SoundFileBytes.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

constexpr Direction kIn = Direction::input;
using Clock = std::chrono::steady_clock;

/// Waits until @p isDone, at most half a minute.
template <class Condition>
bool eventually(Condition isDone) {
    const auto end = Clock::now() + std::chrono::seconds(30);
    while (!isDone()) {
        if (Clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

class RecordingDeviceTest : public testing::Test {
protected:
    /// A recording of @p frames counting sample frames.
    std::unique_ptr<RecordingDevice> open(int frames, int channels = 1, unsigned rateHz = 48000,
                                          int framesPerBlock = 100) {
        numbers = countingSamples(frames, channels);
        const auto path = folder.write("Note A4.wav", wav16(unsigned(channels), rateHz, numbers));
        std::string error;
        auto device = RecordingDevice::open(hardware, path, error, framesPerBlock);
        EXPECT_NE(device, nullptr) << error;
        return device;
    }
    void start(const RecordingDevice& device) {
        hardware.addIOProc(device.id(), BlockRecorder::recordBlock, &recorder);
        hardware.start(device.id(), BlockRecorder::recordBlock);
    }
    void stop(const RecordingDevice& device) {
        hardware.stop(device.id(), BlockRecorder::recordBlock);
        hardware.removeIOProc(device.id(), BlockRecorder::recordBlock);
    }
    std::vector<float> expectedSamples() const {
        std::vector<float> samples;
        for (const auto number : numbers)
            samples.push_back(float(number) / 32768.0f);
        return samples;
    }
    std::vector<double> sampleTimes() const {
        std::vector<double> times;
        for (const auto& block : recorder.blocks())
            times.push_back(block.sampleTime);
        return times;
    }

    const ScratchFolder folder;
    VirtualHardware hardware;
    BlockRecorder recorder;
    std::vector<std::int16_t> numbers;
};

TEST_F(RecordingDeviceTest, IsAnInputDeviceNamedAfterTheFile) {
    const auto device = open(10, 2, 44100);
    EXPECT_EQ(hardware.devices(), std::vector{device->id()});
    EXPECT_EQ(hardware.deviceManufacturer(device->id(), kIn), "Recording");
    EXPECT_EQ(hardware.deviceName(device->id(), kIn), "Note A4");
    EXPECT_EQ(hardware.streamFormat(device->id(), kIn), VirtualDevice::format(44100, 2));
    EXPECT_EQ(hardware.streamConfiguration(device->id(), kIn), StreamConfiguration{{2}});
    EXPECT_FALSE(hardware.isDataSourceWritable(device->id(), kIn));
    EXPECT_FALSE(hardware.isVolumeWritable(device->id(), kIn, 1));
    EXPECT_FALSE(hardware.streamFormat(device->id(), Direction::output));
    EXPECT_EQ(device->sampleRate(), 44100.0);
    EXPECT_EQ(device->channels(), 2);
}

TEST_F(RecordingDeviceTest, GoesWithItsObject) {
    open(10);
    EXPECT_TRUE(hardware.devices().empty());
}

TEST_F(RecordingDeviceTest, ABrokenFileAddsNoDeviceAndSaysWhy) {
    std::string error;
    const std::string path = folder.path("missing.wav");
    EXPECT_EQ(RecordingDevice::open(hardware, path, error), nullptr);
    EXPECT_EQ(error, path + ": no such file");
    EXPECT_TRUE(hardware.devices().empty());
}

TEST_F(RecordingDeviceTest, DeliversTheWholeFileInBlocksTheLastOneShort) {
    const auto device = open(250, 2);
    start(*device);
    int blocks = 0;
    while (device->playBlock())
        ++blocks;
    EXPECT_EQ(blocks, 3);
    EXPECT_EQ(recorder.samples(), expectedSamples());
    EXPECT_EQ(sampleTimes(), (std::vector{100.0, 200.0, 250.0}));
    EXPECT_EQ(recorder.blocks()[2].channels, std::vector<std::uint32_t>{2}); // one buffer
    EXPECT_EQ(device->position(), 250);
    EXPECT_FALSE(device->playBlock());
}

TEST_F(RecordingDeviceTest, ABlockHas512FramesWhenNothingElseIsAskedFor) {
    const auto path = folder.write("a.wav", wav16(1, 48000, countingSamples(600, 1)));
    std::string error;
    const auto device = RecordingDevice::open(hardware, path, error);
    ASSERT_NE(device, nullptr) << error;
    start(*device);
    while (device->playBlock()) {
    }
    EXPECT_EQ(sampleTimes(), (std::vector{512.0, 600.0}));
}

TEST_F(RecordingDeviceTest, DoesNotMoveWhileItIsNotStarted) {
    const auto device = open(250);
    EXPECT_FALSE(device->playBlock());
    EXPECT_FALSE(device->playBlock());
    EXPECT_EQ(device->position(), 0);
    start(*device);
    EXPECT_TRUE(device->playBlock());
    stop(*device);
    EXPECT_FALSE(device->playBlock());
    start(*device);
    while (device->playBlock()) {
    }
    EXPECT_EQ(recorder.samples(), expectedSamples());
    EXPECT_EQ(sampleTimes(), (std::vector{100.0, 200.0, 250.0}));
}

TEST_F(RecordingDeviceTest, ATruncatedFileIsPlayedAsFarAsItGoes) {
    const std::string whole = wav16(1, 48000, countingSamples(100, 1));
    const auto path = folder.write("cut.wav", whole.substr(0, whole.size() - 101));
    std::string error;
    const auto device = RecordingDevice::open(hardware, path, error, 40);
    ASSERT_NE(device, nullptr) << error;
    start(*device);
    while (device->playBlock()) {
    }
    EXPECT_EQ(sampleTimes(), (std::vector{40.0, 49.0}));
}

TEST_F(RecordingDeviceTest, InRealTimeItDeliversTheWholeFileAndThenSilence) {
    const auto device = open(4850, 2); // 0.1 s
    start(*device);
    const auto begin = Clock::now();
    device->startRealTime();
    EXPECT_TRUE(device->isRealTime());
    EXPECT_FALSE(device->playBlock());
    ASSERT_TRUE(eventually([&] { return recorder.count() >= 60; }));
    const std::chrono::duration<double> elapsed = Clock::now() - begin;
    EXPECT_GE(elapsed.count(), 60 * 100 / 48000.0); // never faster than the sound
    device->stopRealTime();

    EXPECT_EQ(device->position(), 4850);
    const auto samples = recorder.samples();
    const auto expected = expectedSamples();
    ASSERT_GE(samples.size(), expected.size());
    EXPECT_EQ(std::vector(samples.begin(), samples.begin() + std::ptrdiff_t(expected.size())),
              expected);
    for (std::size_t i = expected.size(); i < samples.size(); ++i)
        ASSERT_EQ(samples[i], 0.0f);

    const auto times = sampleTimes();
    EXPECT_EQ(times[0], 100.0);
    EXPECT_EQ(times[48], 4850.0);
    EXPECT_EQ(times[49], 4950.0); // silence goes on where the sound ended
    const std::size_t count = recorder.count();
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(recorder.count(), count);
}

TEST_F(RecordingDeviceTest, InRealTimeItWaitsForItsStart) {
    const auto device = open(4800);
    device->startRealTime();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(device->position(), 0);
    start(*device);
    ASSERT_TRUE(eventually([&] { return device->position() >= 1000; }));
    stop(*device);
    const std::int64_t position = device->position();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(device->position(), position);
    start(*device);
    ASSERT_TRUE(eventually([&] { return device->position() == 4800; }));
    device->stopRealTime();
    auto samples = recorder.samples();
    samples.resize(4800);
    EXPECT_EQ(samples, expectedSamples());
}

TEST_F(RecordingDeviceTest, BothWaysOfPlayingTakeOverFromEachOther) {
    const auto device = open(48000); // longer than what is read ahead
    start(*device);
    EXPECT_TRUE(device->playBlock());
    stop(*device);
    EXPECT_FALSE(device->playBlock()); // has read a block that nobody took
    start(*device);
    device->startRealTime();
    device->startRealTime(); // nothing more
    ASSERT_TRUE(eventually([&] { return device->position() >= 500; }));
    device->stopRealTime();
    device->stopRealTime();
    EXPECT_TRUE(device->playBlock());
    device->startRealTime();
    ASSERT_TRUE(eventually([&] { return device->position() >= 2000; }));
    device->stopRealTime();
    while (device->playBlock()) {
    }
    EXPECT_EQ(recorder.samples(), expectedSamples());
}

TEST_F(RecordingDeviceTest, ARecordingThatIsLongerThanWhatIsReadAheadArrivesWhole) {
    const auto device = open(384000, 1, 384000, 1000); // one second
    start(*device);
    device->startRealTime();
    ASSERT_TRUE(eventually([&] { return device->position() == 384000; }));
    device->stopRealTime();
    // The disk may have been slower than the sound: then there is silence in between.
    std::vector<float> samples;
    for (const auto& block : recorder.blocks()) {
        const bool isSilence = block.samples == std::vector<float>(1000);
        if (!isSilence) samples.insert(samples.end(), block.samples.begin(), block.samples.end());
    }
    EXPECT_EQ(samples, expectedSamples());
}

} // namespace
} // namespace veltrano
