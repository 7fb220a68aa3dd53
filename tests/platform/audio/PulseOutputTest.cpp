// SPDX-License-Identifier: GPL-3.0-or-later
// Started sinks that are stopped, lost, found again and changed.
#include "tests/platform/audio/PulseServerTest.h"

#include <algorithm>
#include <cmath>

namespace veltrano {
namespace {

/// Plays a sine of 0.5 into every channel, so that the tone of a monitor can be told from silence.
struct Player {
    std::atomic<long> frames{0}; ///< written by the I/O procedure
    std::atomic<int> faults{0};
    double sampleTime = 0; ///< of the procedure's thread
    double phase = 0;

    static Status ioProc(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                         const AudioTimeStamp*, AudioBufferList* output, const AudioTimeStamp* time,
                         void* player) noexcept {
        auto& self = *static_cast<Player*>(player);
        const bool isWellFormed = input->empty() && output->size() == 1;
        if (!isWellFormed || time->sampleTime <= self.sampleTime) ++self.faults;
        self.sampleTime = time->sampleTime;
        AudioBuffer& buffer = output->front();
        const std::size_t frames = buffer.byteSize / sizeof(float) / buffer.channels;
        for (std::size_t i = 0; i < frames; ++i, self.phase += 0.05)
            std::fill_n(buffer.data + i * buffer.channels, buffer.channels,
                        0.5f * float(std::sin(self.phase)));
        self.frames += long(frames);
        return audio_status::kOk;
    }
};

class PulseOutputTest : public PulseServerTest {
protected:
    void SetUp() override {
        PulseServerTest::SetUp();
        if (IsSkipped()) return;
        server = std::make_unique<SoundServer>(GetParam(), SoundServer::Devices::sink);
        ASSERT_TRUE(server->start()) << server->output();
        bench = std::make_unique<PulseBench>(server->address());
    }
    /// A sink beside that of the server.
    void load(int rateHz) {
        std::vector<std::string> arguments{"module-null-sink", "sink_name=extra",
                                           "sink_properties=device.description=Extra",
                                           "rate=" + std::to_string(rateHz)};
        if (!isPipeWire()) arguments.emplace_back("norewinds=1");
        const auto loaded = server->loadModule(arguments);
        ASSERT_TRUE(loaded);
        module = *loaded;
        ASSERT_TRUE(bench->waitFor([this] { return sink() != 0; }));
        ASSERT_TRUE(bench->waitFor([this] { return bench->find("Monitor of Extra") != 0; }));
    }
    void unload() {
        ASSERT_TRUE(server->unloadModule(module));
        ASSERT_TRUE(bench->waitFor([this] { return sink() == 0; }));
    }
    DeviceId sink() const { return bench->find("Extra", Direction::output); }
    void start(DeviceId device) {
        EXPECT_EQ(bench->hardware().addIOProc(device, &Player::ioProc, &player), 0);
        EXPECT_EQ(bench->hardware().start(device, &Player::ioProc), 0);
    }
    void stop(DeviceId device) {
        EXPECT_EQ(bench->hardware().stop(device, &Player::ioProc), 0);
        EXPECT_EQ(bench->hardware().removeIOProc(device, &Player::ioProc), 0);
    }
    bool isHeard() {
        const double now = HeardBlocks::now();
        return bench->waitFor([&] { return bench->heard().soundAt > now; });
    }
    /// Sample frames that were asked for per second.
    double askedPerSecond(double seconds) {
        const long before = player.frames;
        const double begin = HeardBlocks::now();
        bench->pass(seconds);
        return double(player.frames - before) / (HeardBlocks::now() - begin);
    }

    std::unique_ptr<SoundServer> server;
    std::unique_ptr<PulseBench> bench;
    Player player;
    std::string module;
};
VELTRANO_EVERY_SERVER(PulseOutputTest);

TEST_P(PulseOutputTest, StoppedAndStartedItIsHeardAgain) {
    load(44100);
    const DeviceId device = sink();
    ASSERT_TRUE(bench->listenTo("Monitor of Extra"));
    for (const double pause : {0.0, 0.05, 0.4}) { // the stream stays for a while, or is gone
        start(device);
        EXPECT_TRUE(isHeard()) << pause;
        stop(device);
        const long frames = player.frames;
        bench->pass(pause);
        EXPECT_EQ(player.frames, frames) << "not asked after the stop";
        player.sampleTime = 0;
    }
    EXPECT_EQ(player.faults, 0);
}

TEST_P(PulseOutputTest, WhatNobodyHearsIsAskedForInRealTimeUntilTheSinkIsBack) {
    load(44100);
    const DeviceId device = sink();
    start(device);
    ASSERT_TRUE(bench->listenTo("Monitor of Extra"));
    EXPECT_TRUE(isHeard());
    unload();
    bench->pass(0.7); // it waits for half a second
    EXPECT_NEAR(askedPerSecond(2), 44100, 44100 * 0.1);
    load(44100);
    EXPECT_EQ(sink(), device);
    EXPECT_TRUE(bench->waitFor([&] { return bench->device() != 0; }));
    EXPECT_TRUE(isHeard()) << "without another start";
    EXPECT_EQ(player.faults, 0);
    stop(device);
}

TEST_P(PulseOutputTest, ASinkThatComesBackAtAnotherRateIsPlayedAtThat) {
    load(44100);
    const DeviceId device = sink();
    start(device);
    ASSERT_TRUE(bench->listenTo("Monitor of Extra"));
    EXPECT_TRUE(isHeard());
    unload();
    load(96000);
    EXPECT_EQ(sink(), device);
    EXPECT_EQ(bench->hardware().streamFormat(device, Direction::output)->sampleRate, 96000.0);
    EXPECT_TRUE(isHeard());
    bench->pass(0.5);
    EXPECT_NEAR(askedPerSecond(2), 96000, 96000 * 0.1);
    stop(device);
}

TEST_P(PulseOutputTest, ASinkThatIsGoneIsStoppedAllTheSame) {
    load(44100);
    const DeviceId device = sink();
    start(device);
    bench->waitFor([this] { return player.frames > 0; });
    unload();
    stop(device);
    const long frames = player.frames;
    bench->pass(1);
    EXPECT_EQ(player.frames, frames);
    EXPECT_EQ(bench->hardware().addIOProc(device, &Player::ioProc, &player),
              audio_status::kBadDevice);
}

TEST_P(PulseOutputTest, AServerThatIsStartedAgainIsPlayedToAgain) {
    const DeviceId device = bench->find("TestSink", Direction::output);
    start(device);
    ASSERT_TRUE(bench->listenTo("Monitor of TestSink"));
    EXPECT_TRUE(isHeard());
    server->kill();
    bench->pass(0.7);
    EXPECT_NEAR(askedPerSecond(1), 44100, 44100 * 0.15);
    ASSERT_TRUE(server->start()) << server->output();
    EXPECT_TRUE(bench->waitFor([&] { return bench->device() != 0; }));
    EXPECT_EQ(bench->find("TestSink", Direction::output), device);
    EXPECT_TRUE(isHeard());
    EXPECT_EQ(player.faults, 0);
    stop(device);
}

} // namespace
} // namespace veltrano
