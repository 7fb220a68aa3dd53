// SPDX-License-Identifier: GPL-3.0-or-later
// Devices, sound and settings of real sound servers.
#include "tests/platform/audio/PulseServerTest.h"
#include "tests/support/AudioHardwareContract.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veltrano {
namespace {

class PulseHardwareTest : public PulseServerTest {};
VELTRANO_EVERY_SERVER(PulseHardwareTest);

std::vector<float> sine(double hz, double seconds) {
    constexpr double kRate = 44100;
    std::vector<float> samples(std::size_t(seconds * kRate));
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const double phase = 2 * std::numbers::pi * hz * double(index) / kRate;
        samples[index] = float(0.5 * std::sin(phase));
    }
    return samples;
}

std::vector<std::string> inputNames(const PulseHardware& hardware) {
    std::vector<std::string> names;
    for (const DeviceId device : hardware.devices()) {
        if (const auto name = hardware.deviceName(device, Direction::input)) {
            names.push_back(*name);
        }
    }
    return names;
}

TEST_P(PulseHardwareTest, KeepsTheContractOfTheLayer) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    const DeviceId tone = bench.find("TestTone");
    ASSERT_NE(tone, 0u);
    AudioHardwareContract::check({bench.hardware(), tone, 4711, [&] { bench.turn(); }});
}

TEST_P(PulseHardwareTest, TheFirstListIsThereFromTheStart) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    const double begun = HeardBlocks::now();
    PulseBench bench(server.address());
    print("constructor, with a server", HeardBlocks::now() - begun);
    EXPECT_LT(HeardBlocks::now() - begun, 0.5);

    auto names = inputNames(bench.hardware());
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0], "TestTone") << "real inputs first";
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names,
              (std::vector<std::string>{"Monitor of Hum", "Monitor of TestSink", "TestTone"}));
    const DeviceId sink = bench.find("TestSink", Direction::output);
    const DeviceId monitor = bench.find("Monitor of TestSink");
    EXPECT_NE(sink, 0u);
    EXPECT_FALSE(bench.hardware().streamFormat(sink, Direction::input));
    EXPECT_EQ(bench.hardware().streamFormat(monitor, Direction::input)->sampleRate, 44100.0);
    EXPECT_EQ(bench.hardware().streamFormat(monitor, Direction::input)->channelsPerFrame, 2u);
    EXPECT_FALSE(bench.hardware().deviceManufacturer(monitor, Direction::input)->empty());
    bench.pass(0.5);
    EXPECT_EQ(bench.announcements(), 0) << "nothing changed";
}

/// Counts the sample frames that a sink asks for.
struct AskedFrames {
    std::atomic<long> frames{0}; ///< written by the I/O procedure
    std::atomic<bool> isSound{true};

    static Status ioProc(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                         const AudioTimeStamp*, AudioBufferList* output, const AudioTimeStamp*,
                         void* asked) noexcept {
        auto& self = *static_cast<AskedFrames*>(asked);
        if (!input->empty() || output->size() != 1) self.isSound = false;
        for (const AudioBuffer& buffer : *output) {
            std::fill_n(buffer.data, buffer.byteSize / sizeof(float), 0.0f);
            self.frames += long(buffer.byteSize / sizeof(float) / buffer.channels);
        }
        return audio_status::kOk;
    }
};

TEST_P(PulseHardwareTest, AStartedSinkAsksForSoundUntilItIsStopped) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    const DeviceId sink = bench.find("TestSink", Direction::output);
    AskedFrames asked;
    PulseHardware& hardware = bench.hardware();
    EXPECT_EQ(hardware.addIOProc(sink, &AskedFrames::ioProc, &asked), audio_status::kOk);
    EXPECT_EQ(hardware.start(sink, &AskedFrames::ioProc), audio_status::kOk);
    for (int i = 0; i < 100 && asked.frames < 44100; ++i)
        bench.pass(0.05);
    EXPECT_GE(asked.frames, 44100);
    EXPECT_TRUE(asked.isSound) << "one output buffer and no input";
    EXPECT_EQ(hardware.stop(sink, &AskedFrames::ioProc), audio_status::kOk);
    const long atTheEnd = asked.frames;
    bench.pass(0.3);
    EXPECT_EQ(asked.frames, atTheEnd);
}

TEST_P(PulseHardwareTest, DevicesThatComeAndGoAreAnnouncedAndKeepTheirNumbers) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    const std::vector<std::string> extra = {"module-null-sink", "sink_name=extra",
                                            "sink_properties=device.description=Extra"};
    DeviceId number = 0;
    for (int round = 0; round < 3; ++round) {
        const int before = bench.announcements();
        const auto module = server.loadModule(extra);
        ASSERT_TRUE(module);
        EXPECT_TRUE(bench.waitFor([&] { return bench.find("Monitor of Extra") != 0; }));
        EXPECT_TRUE(bench.waitFor([&] { return bench.find("Extra", Direction::output) != 0; }));
        const DeviceId found = bench.find("Monitor of Extra");
        if (round > 0) {
            EXPECT_EQ(found, number);
        }
        number = found;
        EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > before; }));
        bench.pass(0.02);
        const int loaded = bench.announcements();
        ASSERT_TRUE(server.unloadModule(*module));
        EXPECT_TRUE(bench.waitFor([&] { return bench.find("Monitor of Extra") == 0; }));
        EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > loaded; }));
    }
}

TEST_P(PulseHardwareTest, ARemappedSourceIsADevice) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(
        server.loadModule({"module-remap-source", "master=test.monitor", "source_name=mono",
                           "channels=1", "channel_map=mono", "master_channel_map=front-left",
                           "remix=no", "source_properties=device.description=LeftOnly"}));
    EXPECT_TRUE(bench.waitFor([&] { return bench.find("LeftOnly") != 0; }));
    EXPECT_TRUE(bench.waitFor([&] {
        const auto format = bench.hardware().streamFormat(bench.find("LeftOnly"), Direction::input);
        return format && format->channelsPerFrame == 1;
    }));
    bench.waitFor([&] { return bench.announcements() >= 1; });
    ASSERT_TRUE(bench.listenTo("LeftOnly"));
    server.play(sine(440, 5), 44100, "test");
    EXPECT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 4410; }));
    EXPECT_EQ(bench.heard().channels, 1u);
}

TEST_P(PulseHardwareTest, AnotherDefaultIsKnownButNotAnnounced) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    for (const char* name : {"test.monitor", "tone", "test.monitor"}) {
        // PipeWire refuses until its session manager is up.
        ASSERT_TRUE(bench.waitFor([&] {
            return server.control({"set-default-source", name}).has_value();
        }));
        const DeviceId wanted = bench.find(name[1] == 'o' ? "TestTone" : "Monitor of TestSink");
        EXPECT_TRUE(bench.waitFor([&] {
            return bench.hardware().defaultDevice(Direction::input) == wanted;
        })) << name;
    }
    EXPECT_EQ(bench.hardware().defaultDevice(Direction::output),
              bench.find("TestSink", Direction::output));
    EXPECT_EQ(bench.announcements(), 0);
}

TEST_P(PulseHardwareTest, A440HertzTonePlayedIntoTheSinkArrives) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("Monitor of TestSink"));
    bench.pass(0.2);
    const double begun = HeardBlocks::now();
    server.play(sine(440, 6), 44100, "test");
    const double heard = bench.awaitSoundSince(begun);
    ASSERT_GT(heard, 0.0);
    print("from starting the player to its sound", heard - begun);
    bench.pass(0.5);
    ASSERT_TRUE(bench.listenTo("Monitor of TestSink")); // counts anew
    bench.pass(2);
    bench.stop();
    const double seconds = double(bench.heard().soundFrames) / 44100;
    EXPECT_NEAR(double(bench.heard().crossings) / seconds, 440.0, 20.0)
        << "a wrong rate is 38 Hz off or more; a server under load leaves gaps";
    EXPECT_NEAR(seconds, 2.0, 0.5) << "all of it, in real time";
    EXPECT_EQ(bench.heard().faults, 0u);
    EXPECT_EQ(bench.heard().firstTime, double(bench.heard().firstFrames))
        << "the first block's time is its length";
    EXPECT_EQ(bench.heard().lastTime, double(bench.heard().frames));
}

TEST_P(PulseHardwareTest, ADeviceReloadedAtAnotherRateGoesOnByItself) {
    SoundServer server(GetParam(), SoundServer::Devices::none);
    ASSERT_TRUE(server.start()) << server.output();
    const std::vector<std::string> sink = {"module-null-sink", "sink_name=test", "norewinds=1",
                                           "sink_properties=device.description=TestSink"};
    const auto withRate = [&](const char* rate) {
        auto arguments = sink;
        if (isPipeWire()) arguments.erase(arguments.begin() + 2);
        arguments.push_back(rate);
        return arguments;
    };
    const auto first = server.loadModule(withRate("rate=44100"));
    ASSERT_TRUE(first);
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.waitFor([&] { return bench.find("Monitor of TestSink") != 0; }));
    bench.setFollows(false);
    ASSERT_TRUE(bench.listenTo("Monitor of TestSink"));
    const DeviceId device = bench.device();
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().blocks > 0; }));
    ASSERT_TRUE(server.unloadModule(*first));
    ASSERT_TRUE(server.loadModule(withRate("rate=96000")));
    EXPECT_TRUE(bench.waitFor([&] {
        const auto format = bench.hardware().streamFormat(device, Direction::input);
        return format && format->sampleRate == 96000;
    }));
    const auto crossings = bench.heard().crossings.load();
    const auto frames = bench.heard().soundFrames.load();
    server.play(sine(440, 5), 44100, "test");
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > frames + 96000; }));
    const double seconds = double(bench.heard().soundFrames - frames) / 96000;
    EXPECT_NEAR(double(bench.heard().crossings - crossings) / seconds, 440.0, 44.0)
        << "samples of the new rate";
}

TEST_P(PulseHardwareTest, VolumesOfOneTurnAreSentTogetherAfterIt) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    PulseHardware& hardware = bench.hardware();
    const DeviceId device = bench.find("Monitor of TestSink");
    const auto volume = [&](std::uint32_t channel) {
        return hardware.volume(device, Direction::input, channel).value_or(-1);
    };
    EXPECT_FALSE(hardware.isVolumeWritable(device, Direction::input, 0));
    ASSERT_EQ(volume(1), 1.0f);
    EXPECT_EQ(hardware.setVolume(device, Direction::input, 1, 0.5f), audio_status::kOk);
    EXPECT_EQ(hardware.setVolume(device, Direction::input, 2, 0.25f), audio_status::kOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(volume(1), 1.0f) << "not sent within the turn";
    EXPECT_TRUE(bench.waitFor([&] { return volume(1) == 0.5f && volume(2) == 0.25f; }));

    struct {
        const char* name;
        float written, expected;
    } const cases[] = {{"above the range", 1.5f, 1.0f},
                       {"below the range", -1.0f, 0.0f},
                       {"not a number", NAN, 0.0f}};
    for (const auto& c : cases) {
        hardware.setVolume(device, Direction::input, 1, 0.75f);
        EXPECT_TRUE(bench.waitFor([&] { return volume(1) == 0.75f; })) << c.name;
        EXPECT_EQ(hardware.setVolume(device, Direction::input, 1, c.written), audio_status::kOk);
        EXPECT_TRUE(bench.waitFor([&] { return volume(1) == c.expected; })) << c.name;
        EXPECT_EQ(volume(2), 0.25f) << "the other channel stays";
    }
}

TEST_P(PulseHardwareTest, AStopIsTheEndOfAllCallsHoweverSoonItComes) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    const DeviceId device = bench.find("TestTone");
    HeardBlocks heard;
    bench.hardware().addIOProc(device, &HeardBlocks::ioProc, &heard);
    for (int round = 0; round < 40; ++round) {
        heard.clear();
        ASSERT_EQ(bench.hardware().start(device, &HeardBlocks::ioProc), audio_status::kOk);
        if (round % 2 == 0) bench.waitFor([&] { return heard.blocks > 0; });
        ASSERT_EQ(bench.hardware().stop(device, &HeardBlocks::ioProc), audio_status::kOk);
        const auto blocks = heard.blocks.load();
        bench.pass(round % 10 == 0 ? 0.3 : 0.002); // also beyond the stream's own end
        ASSERT_EQ(heard.blocks, blocks) << round;
        ASSERT_EQ(heard.faults, 0u) << round;
    }
    bench.hardware().removeIOProc(device, &HeardBlocks::ioProc);
}

TEST_P(PulseHardwareTest, AStreamStaysOnTheDeviceItWasOpenedOn) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 0; }));
    ASSERT_TRUE(bench.waitFor([&] {
        return server.control({"set-default-source", "test.monitor"}).has_value();
    }));
    bench.pass(0.3);
    const auto sound = bench.heard().soundFrames.load();
    bench.pass(0.5);
    EXPECT_GT(bench.heard().soundFrames, sound + 44100 / 5) << "moved to the silent monitor";
}

} // namespace
} // namespace veltrano
