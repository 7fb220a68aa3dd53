// SPDX-License-Identifier: GPL-3.0-or-later
// A loudspeaker that keeps what it plays, and the file that it writes.
#include "platform/audio/SpeakerDevice.h"
#include "platform/audio/Recording.h"
#include "platform/audio/SoundFile.h"
#include "tests/platform/audio/SoundFileBytes.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

namespace veltrano {
namespace {

using Samples = std::vector<float>;

/// Counts upwards through all samples; notes the sample times.
struct Source {
    static Status play(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                       const AudioTimeStamp*, AudioBufferList* output, const AudioTimeStamp* time,
                       void* refCon) noexcept {
        auto& self = *static_cast<Source*>(refCon);
        EXPECT_TRUE(input->empty());
        EXPECT_EQ(output->size(), 1u);
        AudioBuffer& buffer = output->front();
        for (std::uint32_t i = 0; i < buffer.byteSize / sizeof(float); ++i) {
            EXPECT_EQ(buffer.data[i], 0) << "not cleared";
            if (self.isPlaying) buffer.data[i] = float(++self.count);
        }
        self.channels = buffer.channels;
        self.times.push_back(time->sampleTime);
        return 0;
    }

    bool isPlaying = true;
    int count = 0;
    std::uint32_t channels = 0;
    std::vector<double> times;
};

class SpeakerDeviceTest : public testing::Test {
protected:
    void start(DeviceId device) {
        hardware.addIOProc(device, Source::play, &source);
        hardware.start(device, Source::play);
    }
    static Samples kept(const SpeakerDevice& speaker) {
        return {speaker.played().begin(), speaker.played().end()};
    }
    static Samples counted(int count) {
        Samples samples;
        for (int i = 1; i <= count; ++i)
            samples.push_back(float(i));
        return samples;
    }

    const ScratchFolder folder;
    VirtualHardware hardware;
    Source source;
};

TEST_F(SpeakerDeviceTest, IsAnOutputDeviceOfItsParameters) {
    DeviceId id = 0;
    {
        SpeakerDevice speaker(hardware, {"Hall", 96000, 3, 64, 1});
        id = speaker.id();
        EXPECT_EQ(hardware.deviceManufacturer(id, Direction::output), "Speaker");
        EXPECT_EQ(hardware.deviceName(id, Direction::output), "Hall");
        EXPECT_EQ(hardware.streamFormat(id, Direction::output), VirtualDevice::format(96000, 3));
        EXPECT_EQ(hardware.streamFormat(id, Direction::input), std::nullopt);
    }
    EXPECT_TRUE(hardware.devices().empty());
}

TEST_F(SpeakerDeviceTest, KeepsBlocksWhileItIsStarted) {
    SpeakerDevice speaker(hardware, {"A", 44100, 2, 3, 1});
    EXPECT_FALSE(speaker.playBlock());
    EXPECT_EQ(kept(speaker), Samples{});
    start(speaker.id());
    EXPECT_TRUE(speaker.playBlock());
    EXPECT_TRUE(speaker.playBlock());
    source.isPlaying = false;
    EXPECT_TRUE(speaker.playBlock());
    Samples expected = counted(12);
    expected.resize(18, 0);
    EXPECT_EQ(kept(speaker), expected);
    EXPECT_EQ(source.times, (std::vector<double>{3, 6, 9})) << "above 0 from the first block on";
    EXPECT_EQ(source.channels, 2u);
    hardware.stop(speaker.id(), Source::play);
    EXPECT_FALSE(speaker.playBlock());
    speaker.forget();
    EXPECT_EQ(kept(speaker), Samples{});
}

TEST_F(SpeakerDeviceTest, WhatComesAfterTheLengthGivenIsNotKept) {
    SpeakerDevice speaker(hardware, {"A", 10, 1, 4, 1}); // ten samples
    start(speaker.id());
    for (int block = 0; block < 5; ++block)
        EXPECT_TRUE(speaker.playBlock());
    EXPECT_EQ(kept(speaker), counted(10));
    speaker.forget();
    speaker.playBlock();
    EXPECT_EQ(kept(speaker), (Samples{21, 22, 23, 24}));
}

TEST_F(SpeakerDeviceTest, InRealTimeTheBlocksComeByThemselves) {
    SpeakerDevice speaker(hardware, {"A", 44100, 1, 441, 10}); // a hundred blocks a second
    start(speaker.id());
    speaker.startRealTime();
    EXPECT_FALSE(speaker.playBlock());
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    speaker.stopRealTime();
    const std::size_t blocks = speaker.played().size() / 441;
    EXPECT_GE(blocks, 10u);
    EXPECT_LE(blocks, 300u);
    EXPECT_EQ(kept(speaker), counted(int(blocks) * 441));
    EXPECT_TRUE(speaker.playBlock());
}

TEST_F(SpeakerDeviceTest, WritesWhatItKeptToTheBit) {
    SpeakerDevice speaker(hardware, {"A", 48000, 2, 100, 1});
    start(speaker.id());
    speaker.playBlock();
    const std::string path = folder.path("played.wav");
    EXPECT_TRUE(speaker.write(path));
    std::string error;
    const auto recording = Recording::open(path, error);
    ASSERT_NE(recording, nullptr) << error;
    EXPECT_EQ(recording->sampleRateHz(), 48000);
    EXPECT_EQ(recording->channels(), 2);
    Samples read(400);
    EXPECT_EQ(recording->read(read), 100);
    read.resize(200);
    EXPECT_EQ(read, counted(200));
    EXPECT_FALSE(speaker.write(folder.path("no/such/folder.wav")));
    EXPECT_FALSE(speaker.write("/dev/full"));
}

TEST(SoundFileTest, HoldsTheSamplesAsTheyAre) {
    const Samples samples{0,
                          1,
                          -1,
                          1.5f,
                          -0.0f,
                          1e-40f,
                          std::numeric_limits<float>::quiet_NaN(),
                          -std::numeric_limits<float>::infinity()};
    for (const int channels : {1, 2, 4}) {
        SCOPED_TRACE(channels);
        const std::string bytes = waveFileBytes(samples, 384000, channels);
        EXPECT_EQ(bytes.substr(0, 4), "RIFF");
        EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
        EXPECT_EQ(bytes.substr(20, 2), littleEndian(3, 2)) << "floating point";
        EXPECT_EQ(bytes.substr(22, 2), littleEndian(std::uint64_t(channels), 2));
        EXPECT_EQ(bytes.substr(24, 4), littleEndian(384000, 4));
        const std::string data = "data" + littleEndian(32, 4) + bytesOf(samples);
        EXPECT_EQ(bytes.substr(bytes.size() - data.size()), data);
    }
}

TEST(SoundFileTest, IsTheSameTomorrow) {
    const std::string bytes = waveFileBytes(Samples{0.5f}, 8000, 1);
    EXPECT_EQ(bytes.find("PEAK"), std::string::npos) << "such a chunk holds the time of day";
}

TEST(SoundFileTest, WhatNoFileCanHoldIsEmpty) {
    const Samples samples{0, 0};
    EXPECT_EQ(waveFileBytes(samples, 0, 1), "");
    EXPECT_EQ(waveFileBytes(samples, 44100, 0), "");
    EXPECT_NE(waveFileBytes({}, 44100, 1), "") << "no sound is a sound";
}

} // namespace
} // namespace veltrano
