// SPDX-License-Identifier: GPL-3.0-or-later
// Sound servers that are absent, die, hang and come back.
#include "tests/platform/audio/PulseServerTest.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace veltrano {
namespace {

class PulseFaultsTest : public PulseServerTest {};
VELTRANO_EVERY_SERVER(PulseFaultsTest);

/// How often a thing is done: a few times in the suite, more often in the soak run.
int rounds(int inTheSuite) {
    if (const char* wanted = std::getenv("VELTRANO_SOAK_KILLS")) return std::atoi(wanted);
    return std::getenv("VELTRANO_SOAK") ? 100 : inTheSuite;
}

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::size_t(std::distance(begin(all), end(all)));
}

/// [KiB] resident memory of this process.
std::size_t residentKilobytes() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages * std::size_t(::sysconf(_SC_PAGESIZE)) / 1024;
}

TEST_P(PulseFaultsTest, StartsWithoutAServerAndSeesItComeLater) {
    SoundServer server(GetParam());
    for (int start = 0; start < rounds(10); ++start) {
        const double begun = HeardBlocks::now();
        PulseBench bench(server.address());
        EXPECT_LT(HeardBlocks::now() - begun, 0.2) << "an absent server is not waited for";
        EXPECT_TRUE(bench.hardware().devices().empty());
        EXPECT_FALSE(bench.hardware().defaultDevice(Direction::input));
        EXPECT_FALSE(bench.listenTo("TestTone"));
    }
    PulseBench bench(server.address());
    EXPECT_FALSE(bench.listenTo("TestTone"));
    bench.pass(0.3);
    EXPECT_EQ(bench.announcements(), 0);
    ASSERT_TRUE(server.start()) << server.output();
    const double ready = HeardBlocks::now();
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > 0; }));
    print("from an answering server to 'dev#'", bench.announcedAt() - ready);
    EXPECT_LT(bench.announcedAt() - ready, 0.5 + 0.3) << "connected, and 300 ms for the devices";
    ASSERT_NE(bench.find("TestTone"), 0u);
    EXPECT_GT(bench.awaitSoundSince(ready - 1), 0.0) << "the wanted device is listened to";
}

TEST_P(PulseFaultsTest, StartsWithAServerThatHangs) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    server.hang();
    const double begun = HeardBlocks::now();
    PulseBench bench(server.address());
    const double end = HeardBlocks::now();
    print("constructor, with a server that hangs", end - begun);
    EXPECT_LT(end - begun, 0.25 + 0.1);
    EXPECT_TRUE(bench.hardware().devices().empty());
    bench.listenTo("TestTone");
    const double ending = [&] {
        const auto another = std::make_unique<PulseBench>(server.address(), 0);
        return HeardBlocks::now();
    }();
    EXPECT_LT(HeardBlocks::now() - ending, 0.1) << "the end of the program waits for nothing";
    server.goOn();
    EXPECT_GT(bench.awaitSoundSince(end), 0.0);
    EXPECT_EQ(bench.announcements(), 1);
}

TEST_P(PulseFaultsTest, StartsWithAServerWithoutASource) {
    if (isPipeWire()) GTEST_SKIP() << "PipeWire puts in a sink, with its monitor, of its own";
    SoundServer server(GetParam(), SoundServer::Devices::none);
    ASSERT_TRUE(server.start()) << server.output();
    for (int start = 0; start < rounds(10); ++start) {
        PulseBench bench(server.address());
        EXPECT_TRUE(bench.hardware().devices().empty());
        EXPECT_FALSE(bench.hardware().defaultDevice(Direction::input));
    }
    PulseBench bench(server.address());
    bench.listenTo("TestTone");
    ASSERT_TRUE(
        server.loadModule({"module-null-source", "source_name=tone", "description=TestTone"}));
    EXPECT_TRUE(bench.waitFor([&] { return bench.heard().blocks > 0; }));
    EXPECT_EQ(bench.announcements(), 1);
}

/// One death of the server. @returns [s] from its new start to its sound
double surviveKill(SoundServer& server, PulseBench& bench) {
    server.kill();
    const double killed = HeardBlocks::now();
    bench.pass(0.06);
    const double launched = HeardBlocks::now();
    server.launch();
    const double heard = bench.awaitSoundSince(killed, 10);
    EXPECT_GT(heard, 0.0) << "no sound again";
    // The program restarts the device when it is told of it: sound must go on after that too.
    bench.pass(0.1);
    const double restarted = HeardBlocks::now();
    EXPECT_TRUE(bench.waitFor([&] { return bench.heard().soundAt > restarted; }));
    return heard - launched;
}

TEST_P(PulseFaultsTest, AKilledServerThatIsStartedAgainGivesSoundAgain) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    const DeviceId device = bench.device();
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 0; }));
    surviveKill(server, bench); // what is allocated once is allocated now

    const int kills = rounds(10);
    const std::size_t descriptors = openDescriptors();
    const std::size_t memory = residentKilobytes();
    std::vector<double> times;
    for (int kill = 0; kill < kills; ++kill)
        times.push_back(surviveKill(server, bench));
    std::sort(times.begin(), times.end());
    std::printf("             %d kills, from launching the server to its sound:\n", kills);
    print("median", times[times.size() / 2]);
    print("shortest", times.front());
    print("longest", times.back());
    std::printf("             descriptors %zu -> %zu, resident %zu -> %zu KiB\n", descriptors,
                openDescriptors(), memory, residentKilobytes());
    EXPECT_LT(times[times.size() / 2], 0.5);
    EXPECT_EQ(openDescriptors(), descriptors);
#ifndef VELTRANO_SANITIZED // a sanitizer keeps what was released
    EXPECT_LT(residentKilobytes(), memory + 2048);
#endif
    EXPECT_EQ(bench.device(), device) << "the number stays";
}

TEST_P(PulseFaultsTest, ALostServerIsFilledWithSilenceBeforeTheListIsEmpty) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 4410; }));
    bench.setFollows(false);
    const auto silent = bench.heard().silentBlocks.load();
    server.kill();
    const double killed = HeardBlocks::now();
    const auto frames = bench.heard().frames.load();
    bench.pass(1.0);
    EXPECT_FALSE(bench.hardware().devices().empty()) << "as long as silence is delivered";
    EXPECT_EQ(bench.announcements(), 0);
    const double inOneSecond = double(bench.heard().frames - frames);
    const double rate = bench.hardware().streamFormat(bench.device(), Direction::input)->sampleRate;
    EXPECT_NEAR(inOneSecond / rate, 1.0, 0.15) << "paced in real time";
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > 0; }));
    print("from the kill to the empty list", bench.announcedAt() - killed);
    EXPECT_NEAR(bench.announcedAt() - killed, 1.5, 0.4);
    EXPECT_TRUE(bench.hardware().devices().empty());
    EXPECT_GT(bench.heard().silentBlocks, silent);
    EXPECT_EQ(bench.heard().faults, 0u);
    const auto total = bench.heard().frames.load();
    bench.pass(0.3);
    EXPECT_EQ(bench.heard().frames, total) << "nothing after the silence";
    EXPECT_EQ(bench.announcements(), 1);

    server.launch();
    EXPECT_GT(bench.awaitSoundSince(killed), 0.0) << "a started device gives sound by itself";
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > 1; }));
    bench.pass(0.5);
    if (!isPipeWire()) { // whose devices come one by one
        EXPECT_EQ(bench.announcements(), 2);
    }
    EXPECT_EQ(bench.find("TestTone"), bench.device());
    EXPECT_EQ(bench.heard().faults, 0u);
}

TEST_P(PulseFaultsTest, AStopEndsTheSilenceAndTheEmptyListIsAnnounced) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 0; }));
    const auto silent = bench.heard().silentBlocks.load();
    server.kill();
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().silentBlocks > silent; }));
    bench.stop();
    const auto blocks = bench.heard().blocks.load();
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > 0; }, 0.5));
    EXPECT_TRUE(bench.hardware().devices().empty());
    EXPECT_EQ(bench.heard().blocks, blocks);
}

TEST_P(PulseFaultsTest, AnUnpluggedDeviceIsAnnouncedAtOnceWhenOthersRemain) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    const auto module = server.loadModule(
        {"module-null-sink", "sink_name=extra", "sink_properties=device.description=Extra"});
    ASSERT_TRUE(module);
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.waitFor([&] { return bench.listenTo("Monitor of Extra"); }));
    bench.pass(0.2);
    const int announced = bench.announcements();
    const double begun = HeardBlocks::now();
    ASSERT_TRUE(server.unloadModule(*module));
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > announced; }));
    print("from unloading to 'dev#'", bench.announcedAt() - begun);
    EXPECT_LT(bench.announcedAt() - begun, 0.5);
    bench.waitFor([&] { return bench.device() == 0; });
    EXPECT_EQ(bench.find("Monitor of Extra"), 0u);
    EXPECT_NE(bench.find("TestTone"), 0u);
}

TEST_P(PulseFaultsTest, AStreamThatIsEndedWhileItsDeviceStaysIsOpenedAgain) {
    if (isPipeWire()) GTEST_SKIP() << "PipeWire has no command for it";
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    bench.setFollows(false);
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 0; }));
    const double begun = HeardBlocks::now();
    // Stream 0 is the one that joins "tone" to "hum"; ours is the next.
    ASSERT_TRUE(server.endStream(1));
    ASSERT_TRUE(bench.waitFor([&] { return bench.log().count("No stream from tone") == 1; }));
    EXPECT_TRUE(bench.waitFor([&] { return bench.heard().soundAt > HeardBlocks::now() - 0.02; }));
    print("from the stream's end to sound", HeardBlocks::now() - begun);
    EXPECT_LT(HeardBlocks::now() - begun, 0.5);
    EXPECT_EQ(bench.announcements(), 0) << "no device went";
    EXPECT_EQ(bench.heard().faults, 0u);
}

TEST_P(PulseFaultsTest, ADeviceThatFallsSilentIsFilledOnceAndStaysListed) {
    if (!isPipeWire()) GTEST_SKIP() << "nothing falls silent on PulseAudio but the whole server";
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("Monitor of Hum"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 0; }));
    server.killSessionManager(); // the server answers, but no stream is joined to a device any more
    const double killed = HeardBlocks::now();
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().lastAt < HeardBlocks::now() - 0.6; }));
    print("from the last sound to the end of the silence",
          bench.heard().lastAt - bench.heard().soundAt);
    EXPECT_NEAR(bench.heard().lastAt - bench.heard().soundAt, 0.5 + 1.5, 0.3);
    EXPECT_LT(bench.heard().soundAt, killed + 0.5);
    const auto frames = bench.heard().frames.load();
    const std::size_t descriptors = openDescriptors();
    bench.pass(4.0); // a new stream is tried in between
    EXPECT_EQ(bench.heard().frames, frames);
    EXPECT_EQ(bench.announcements(), 0);
    EXPECT_NE(bench.find("Monitor of Hum"), 0u);
    EXPECT_EQ(openDescriptors(), descriptors);
}

TEST_P(PulseFaultsTest, AHungServerIsNoticedFilledAndSurvived) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 4410; }));
    const auto silent = bench.heard().silentBlocks.load();
    server.hang();
    const double hung = HeardBlocks::now();
    EXPECT_TRUE(bench.waitFor([&] { return bench.heard().silentBlocks > silent; }));
    print("from the hang to the first silence", HeardBlocks::now() - hung);
    EXPECT_LT(HeardBlocks::now() - hung, 1.0);
    EXPECT_EQ(bench.announcements(), 0);
    EXPECT_TRUE(bench.waitFor([&] { return bench.announcements() > 0; }));
    print("from the hang to the empty list", bench.announcedAt() - hung);
    EXPECT_LT(bench.announcedAt() - hung, 1.0 + 1.5 + 0.2);
    EXPECT_TRUE(bench.hardware().devices().empty());
    const double stopping = HeardBlocks::now();
    EXPECT_TRUE(bench.waitFor([&] { return bench.device() == 0; })) << "the program stops";
    EXPECT_LT(HeardBlocks::now() - stopping, 0.2) << "and is not held up";
    bench.pass(2.0);
    EXPECT_EQ(bench.announcements(), 1);

    const auto frames = bench.heard().frames.load();
    server.goOn();
    const double wentOn = HeardBlocks::now();
    const double heard = bench.awaitSoundSince(wentOn);
    ASSERT_GT(heard, 0.0);
    print("from going on to sound", heard - wentOn);
    EXPECT_LT(heard - wentOn, 0.5);
    EXPECT_EQ(bench.announcements(), 2);
    bench.pass(1.0);
    const double rate = bench.hardware().streamFormat(bench.device(), Direction::input)->sampleRate;
    const double seconds = HeardBlocks::now() - wentOn;
    EXPECT_LT(double(bench.heard().frames - frames) / rate, seconds + 0.7)
        << "what the server gathered is not delivered late";
}

TEST_P(PulseFaultsTest, AShortHangIsFilledAndTheBurstAfterItIsDropped) {
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    ASSERT_TRUE(bench.waitFor([&] { return bench.heard().soundFrames > 4410; }));
    const double rate = bench.hardware().streamFormat(bench.device(), Direction::input)->sampleRate;
    const auto frames = bench.heard().frames.load();
    const double begun = HeardBlocks::now();
    server.hang();
    bench.pass(1.4);
    server.goOn();
    const double wentOn = HeardBlocks::now();
    EXPECT_GT(bench.awaitSoundSince(wentOn), 0.0);
    bench.pass(1.0);
    const double seconds = HeardBlocks::now() - begun;
    const double delivered = double(bench.heard().frames - frames) / rate;
    std::printf("             %.2f s of blocks in %.2f s\n", delivered, seconds);
    EXPECT_LT(delivered, seconds + 0.3) << "neither the gap twice nor a queue";
    EXPECT_GT(delivered, seconds - 0.9) << "at most the time to notice is missing";
    EXPECT_EQ(bench.announcements(), 0) << "no device went";
    EXPECT_EQ(bench.heard().faults, 0u);
}

} // namespace
} // namespace veltrano
