// SPDX-License-Identifier: GPL-3.0-or-later
// The output unit: its calls, and the sound it delivers.
#include "tests/platform/audio/HardwareOutputUnitRig.h"

namespace veltrano {
namespace {

// --- calls ---

TEST_F(HardwareOutputUnitTest, WithoutADeviceItDoesNotStart) {
    EXPECT_EQ(unit().initialize(), 0);
    EXPECT_EQ(unit().currentDevice(), std::nullopt);
    EXPECT_EQ(unit().start(), audio_status::kBadDevice);
    EXPECT_EQ(unit().stop(), 0);
}

TEST_F(HardwareOutputUnitTest, IsPointedAtOutputDevicesOnly) {
    VirtualDevice microphone;
    microphone.input = VirtualDevice::side(44100, 1);
    const DeviceId input = hardware.addDevice(std::move(microphone));
    const DeviceId a = add("A");
    for (const DeviceId wrong : {input, DeviceId(0), DeviceId(4711)})
        EXPECT_EQ(unit().setCurrentDevice(wrong), wrong == 0 ? 0 : audio_status::kBadDevice);
    EXPECT_EQ(unit().currentDevice(), std::nullopt);
    EXPECT_EQ(unit().setCurrentDevice(a), 0);
    EXPECT_EQ(unit().currentDevice(), a);
    EXPECT_EQ(takeHeard(), kDeviceHeard);
    EXPECT_EQ(unit().setCurrentDevice(a), 0);
    EXPECT_EQ(unit().setCurrentDevice(input), audio_status::kBadDevice);
    EXPECT_EQ(unit().currentDevice(), a);
    EXPECT_EQ(takeHeard(), Lines{}) << "nothing changed";
}

TEST_F(HardwareOutputUnitTest, TheClientFormatIsTwoSeparateChannelsAtAnyRate) {
    StreamDescription expected;
    expected.channelsPerFrame = 2;
    expected.bytesPerFrame = expected.bytesPerPacket = 4;
    EXPECT_EQ(unit().streamFormat(), expected);
    expected.sampleRate = 96000;
    EXPECT_EQ(unit().setStreamFormat(expected), 0);
    EXPECT_EQ(unit().streamFormat(), expected);
    StreamDescription wrong[3] = {expected, expected, expected};
    wrong[0].channelsPerFrame = 1;
    wrong[1].bitsPerChannel = 16;
    wrong[2].formatId = fourCharCode("alaw");
    for (const StreamDescription& format : wrong)
        EXPECT_EQ(unit().setStreamFormat(format), audio_status::kNotSupported);
    EXPECT_EQ(unit().streamFormat(), expected);
}

TEST_F(HardwareOutputUnitTest, StartsAndStopsAnyNumberOfTimes) {
    const DeviceId a = add("A");
    unit().setCurrentDevice(a);
    EXPECT_FALSE(plays(a));
    EXPECT_EQ(unit().stop(), 0) << "it does not run";
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(unit().start(), 0);
        EXPECT_EQ(unit().start(), 0) << "it runs";
        EXPECT_TRUE(plays(a));
        EXPECT_EQ(unit().stop(), 0);
        EXPECT_FALSE(plays(a));
        EXPECT_EQ(unit().stop(), 0);
    }
}

TEST_F(HardwareOutputUnitTest, FailuresOfTheHardwareAreAnswered) {
    const DeviceId a = add("A");
    unit().setCurrentDevice(a);
    hardware.faults().failNext(HardwareCall::addIOProc, -11);
    EXPECT_EQ(unit().start(), -11);
    EXPECT_FALSE(plays(a));
    hardware.faults().failNext(HardwareCall::start, -12);
    hardware.keepCalls(true);
    EXPECT_EQ(unit().start(), -12);
    EXPECT_EQ(hardware.calls().back(), "removeIOProc " + std::to_string(a)) << "left as before";
    EXPECT_EQ(unit().stop(), 0) << "it never ran";
    EXPECT_EQ(unit().start(), 0);
    hardware.faults().failNext(HardwareCall::start, -13);
    EXPECT_EQ(unit().start(), -13);
    EXPECT_TRUE(plays(a)) << "as before";
    hardware.faults().failNext(HardwareCall::stop, -14);
    EXPECT_EQ(unit().stop(), -14);
    EXPECT_FALSE(plays(a)) << "its procedure is removed all the same";
}

TEST_F(HardwareOutputUnitTest, AtItsEndItStopsAndListensNoMore) {
    const DeviceId a = add("A");
    play(a);
    hardware.announce(a, 0, kOut, PropertyCode::streamFormat);
    add("B"); // 'dev#'
    hardware.keepCalls(true);
    endUnit();
    const std::string id = std::to_string(a);
    EXPECT_EQ(hardware.calls(), (Lines{"stop " + id, "removeIOProc " + id,
                                       "removeDeviceListener " + id + " output sfmt 0",
                                       "removeHardwareListener dev#"}));
    EXPECT_FALSE(plays(a));
    EXPECT_EQ(posted.size(), 2u);
    settle(); // finds nobody
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(HardwareOutputUnitTest, ASourceOpensUnits) {
    HardwareOutputUnits source(hardware, [](auto) {});
    EXPECT_TRUE(source.isAvailable());
    std::unique_ptr<OutputUnit> opened;
    EXPECT_EQ(source.open(opened), 0);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->setCurrentDevice(add("A")), 0);
    EXPECT_EQ(opened->start(), 0);
}

// --- sound ---

TEST_F(HardwareOutputUnitTest, TheFirstChannelsAreTheClientsAndTheRestIsSilent) {
    const struct {
        std::uint32_t channels;
        Samples expected; ///< of three frames
    } cases[] = {
        {1, {1, 2, 3}},
        {2, {1, -1, 2, -2, 3, -3}},
        {3, {1, -1, 0, 2, -2, 0, 3, -3, 0}},
        {8, {1, -1, 0, 0, 0, 0, 0, 0, 2, -2, 0, 0, 0, 0, 0, 0, 3, -3, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.channels);
        counter = {};
        const DeviceId device = add("A", 44100, test.channels);
        play(device);
        EXPECT_EQ(deliver(device, 3, test.channels), test.expected);
    }
}

TEST_F(HardwareOutputUnitTest, TheBuffersAreClearedBeforeEveryCycle) {
    const DeviceId a = add("A");
    play(a);
    deliver(a, 4);
    counter.isWriting = false;
    EXPECT_EQ(deliver(a, 4), Samples(8, 0.0f));
}

TEST_F(HardwareOutputUnitTest, WithoutACallbackItIsSilentAndANewOneCountsAtOnce) {
    const DeviceId a = add("A");
    play(a);
    unit().setRenderCallback(nullptr, nullptr);
    EXPECT_EQ(deliver(a, 2), Samples(4, 0.0f));
    Counter other;
    unit().setRenderCallback(Counter::render, &other);
    EXPECT_EQ(deliver(a, 2), (Samples{1, -1, 2, -2}));
    EXPECT_EQ(counter.count, 0);
}

TEST_F(HardwareOutputUnitTest, ALongBlockIsRenderedInParts) {
    const DeviceId a = add("A");
    play(a);
    const Samples samples = deliver(a, 2500);
    EXPECT_EQ(counter.cycles, (Lines{"2500: 1024", "3524: 1024", "4548: 452"}));
    ASSERT_EQ(samples.size(), 5000u);
    for (int i = 0; i < 2500; ++i) {
        ASSERT_EQ(samples[std::size_t(2 * i)], float(i + 1));
        ASSERT_EQ(samples[std::size_t(2 * i + 1)], -float(i + 1));
    }
    counter.cycles.clear();
    deliver(a, 1024);
    deliver(a, 1025);
    EXPECT_EQ(counter.cycles, (Lines{"3524: 1024", "4549: 1024", "5573: 1"}));
}

TEST_F(HardwareOutputUnitTest, ABlockWithoutChannelsOrFramesIsLeftAlone) {
    const DeviceId a = add("A");
    play(a);
    EXPECT_EQ(deliver(a, 4, 0), Samples{});
    EXPECT_EQ(deliver(a, 0), Samples{});
    EXPECT_EQ(hardware.deliver(a, {}, 1), 0) << "no buffer at all";
    EXPECT_EQ(counter.cycles, Lines{});
}

} // namespace
} // namespace veltrano
