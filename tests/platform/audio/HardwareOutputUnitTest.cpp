// SPDX-License-Identifier: GPL-3.0-or-later
// The output unit on devices that change, go and come back.
#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/VirtualHardware.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;
using Samples = std::vector<float>;
constexpr Direction kOut = Direction::output;

/// Counts upwards on the first channel, downwards on the second, from one cycle to the next.
struct Counter {
    static Status render(void* refCon, const AudioTimeStamp* time, std::uint32_t bus,
                         std::uint32_t frames, AudioBufferList* buffers) noexcept {
        auto& self = *static_cast<Counter*>(refCon);
        self.cycles.push_back(std::to_string(std::lround(time->sampleTime)) + ": " +
                              std::to_string(frames));
        EXPECT_EQ(bus, 0u);
        EXPECT_EQ(buffers->size(), 2u);
        for (const AudioBuffer& buffer : *buffers) {
            EXPECT_EQ(buffer.channels, 1u);
            EXPECT_EQ(buffer.byteSize, frames * sizeof(float));
            for (std::uint32_t i = 0; i < frames; ++i)
                EXPECT_EQ(buffer.data[i], 0) << "not cleared";
        }
        for (std::uint32_t i = 0; i < frames && self.isWriting; ++i) {
            (*buffers)[0].data[i] = float(++self.count);
            (*buffers)[1].data[i] = -float(self.count);
        }
        return 77; // of no account
    }

    bool isWriting = true;
    int count = 0;
    Lines cycles; ///< "sample time: frames"
};

class HardwareOutputUnitTest : public testing::Test {
protected:
    DeviceId add(const std::string& name, double rateHz = 44100, std::uint32_t channels = 2) {
        VirtualDevice device;
        device.name = name;
        device.output = VirtualDevice::side(rateHz, channels);
        return hardware.addDevice(std::move(device));
    }
    HardwareOutputUnit& unit() {
        if (!mUnit) {
            mUnit = std::make_unique<HardwareOutputUnit>(
                hardware, [this](auto task) { posted.push_back(std::move(task)); });
            for (const UnitProperty property :
                 {UnitProperty::sampleRate, UnitProperty::currentDevice}) {
                EXPECT_EQ(mUnit->addPropertyListener(property, hear, this), 0);
            }
            EXPECT_EQ(mUnit->setRenderCallback(Counter::render, &counter), 0);
        }
        return *mUnit;
    }
    void endUnit() { mUnit.reset(); }
    void play(DeviceId device) {
        EXPECT_EQ(unit().setCurrentDevice(device), 0);
        EXPECT_EQ(unit().start(), 0);
        takeHeard();
    }
    Lines takeHeard() { return std::exchange(heard, {}); }
    /// Serves what was posted, and what that posted.
    void settle() {
        while (!posted.empty()) {
            const auto tasks = std::exchange(posted, {});
            for (const auto& task : tasks)
                task();
        }
    }
    /// What the device gets in one block; empty when it is not started.
    Samples deliver(DeviceId device, std::uint32_t frames, std::uint32_t channels = 2) {
        Samples samples(frames * channels, -9);
        AudioBuffer buffer{channels, std::uint32_t(samples.size() * sizeof(float)), samples.data()};
        mTime += frames;
        const Status status = hardware.deliver(device, {}, mTime, AudioBufferList(&buffer, 1));
        return status == 0 ? samples : Samples{};
    }
    bool plays(DeviceId device) { return !deliver(device, 1).empty(); }
    StreamDescription clientFormat(double rateHz) {
        StreamDescription format = unit().streamFormat().value();
        format.sampleRate = rateHz;
        return format;
    }

    VirtualHardware hardware;
    std::vector<std::function<void()>> posted;
    Counter counter;
    Lines heard; ///< "2000 scope 1 element 0"

private:
    static void hear(void* client, OutputUnit* unit, UnitProperty property, UnitScope scope,
                     std::uint32_t element) noexcept {
        auto& self = *static_cast<HardwareOutputUnitTest*>(client);
        EXPECT_EQ(unit, self.mUnit.get());
        self.heard.push_back(std::to_string(std::uint32_t(property)) + " scope " +
                             std::to_string(std::uint32_t(scope)) + " element " +
                             std::to_string(element));
    }

    double mTime = 0;
    std::unique_ptr<HardwareOutputUnit> mUnit;
};

const Lines kDeviceHeard{"2000 scope 1 element 0"};
const Lines kRateHeard{"2 scope 1 element 0"};
const Lines kBothHeard{kDeviceHeard[0], kRateHeard[0]};

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

// --- another device ---

TEST_F(HardwareOutputUnitTest, ARunningUnitPlaysOnAtTheNewDevice) {
    const DeviceId a = add("A"), b = add("B");
    play(a);
    deliver(a, 2);
    EXPECT_EQ(unit().setCurrentDevice(b), 0);
    EXPECT_EQ(takeHeard(), kDeviceHeard);
    EXPECT_FALSE(plays(a));
    EXPECT_EQ(deliver(b, 1), (Samples{3, -3}));
}

TEST_F(HardwareOutputUnitTest, AStoppedUnitStaysStoppedAtTheNewDevice) {
    const DeviceId a = add("A"), b = add("B");
    play(a);
    unit().stop();
    unit().setCurrentDevice(b);
    EXPECT_FALSE(plays(a));
    EXPECT_FALSE(plays(b));
}

TEST_F(HardwareOutputUnitTest, ANewDeviceThatDoesNotStartIsTheCurrentOneAndAnswersItsStatus) {
    const DeviceId a = add("A"), b = add("B");
    play(a);
    hardware.faults().failNext(HardwareCall::start, -21, b);
    EXPECT_EQ(unit().setCurrentDevice(b), -21);
    EXPECT_EQ(unit().currentDevice(), b);
    EXPECT_EQ(takeHeard(), kDeviceHeard);
    EXPECT_EQ(unit().start(), 0);
    EXPECT_TRUE(plays(b));
}

TEST_F(HardwareOutputUnitTest, AChangedRateOfItsDeviceIsToldLater) {
    const DeviceId a = add("A"), b = add("B");
    play(a);
    hardware.changeFormat(a, kOut, VirtualDevice::format(96000, 2));
    EXPECT_EQ(takeHeard(), Lines{}) << "not on the notifying thread";
    settle();
    EXPECT_EQ(takeHeard(), kRateHeard);
    hardware.changeFormat(b, kOut, VirtualDevice::format(96000, 2));
    settle();
    EXPECT_EQ(takeHeard(), Lines{});
    unit().setCurrentDevice(b);
    takeHeard();
    hardware.changeFormat(a, kOut, VirtualDevice::format(44100, 2));
    settle();
    EXPECT_EQ(takeHeard(), Lines{}) << "no longer its device";
    hardware.changeFormat(b, kOut, VirtualDevice::format(44100, 2));
    settle();
    EXPECT_EQ(takeHeard(), kRateHeard);
}

// --- a device that goes ---

TEST_F(HardwareOutputUnitTest, UnpluggingItsDeviceMovesItToTheDefaultOne) {
    const DeviceId a = add("A"), b = add("B"), c = add("C");
    hardware.setDefaultDevice(kOut, c);
    play(a);
    unit().setStreamFormat(clientFormat(44100));
    settle();
    deliver(a, 2);
    hardware.removeDevice(a);
    EXPECT_EQ(unit().currentDevice(), a) << "not on the notifying thread";
    settle();
    EXPECT_EQ(unit().currentDevice(), c);
    EXPECT_EQ(takeHeard(), kDeviceHeard);
    EXPECT_FALSE(plays(b));
    EXPECT_EQ(deliver(c, 1), (Samples{3, -3}));
    hardware.returnDevice(a);
    settle();
    EXPECT_EQ(unit().currentDevice(), c) << "it is not waited for";
}

TEST_F(HardwareOutputUnitTest, AnotherRateOfTheDefaultDeviceIsToldAfterTheDevice) {
    const DeviceId a = add("A", 44100), b = add("B", 48000);
    hardware.setDefaultDevice(kOut, b);
    play(a);
    unit().setStreamFormat(clientFormat(44100));
    hardware.removeDevice(a);
    settle();
    EXPECT_EQ(takeHeard(), kBothHeard);
    unit().setStreamFormat(clientFormat(48000)); // what a client does then
    add("C");
    settle();
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(HardwareOutputUnitTest, AStoppedUnitMovesTooAndStaysStopped) {
    const DeviceId a = add("A"), b = add("B");
    hardware.setDefaultDevice(kOut, b);
    play(a);
    unit().stop();
    hardware.removeDevice(a);
    settle();
    EXPECT_EQ(unit().currentDevice(), b);
    EXPECT_FALSE(plays(b));
}

TEST_F(HardwareOutputUnitTest, OtherDevicesComeAndGoUnnoticed) {
    const DeviceId a = add("A"), b = add("B");
    hardware.setDefaultDevice(kOut, b);
    play(a);
    unit().setStreamFormat(clientFormat(44100));
    settle();
    hardware.removeDevice(b);
    add("C");
    settle();
    EXPECT_EQ(unit().currentDevice(), a);
    EXPECT_EQ(takeHeard(), Lines{});
    EXPECT_TRUE(plays(a));
}

TEST_F(HardwareOutputUnitTest, WithoutADefaultItWaitsForItsDevice) {
    const DeviceId a = add("A", 44100);
    play(a);
    unit().setStreamFormat(clientFormat(44100));
    hardware.removeDevice(a);
    settle();
    EXPECT_EQ(unit().currentDevice(), a);
    hardware.returnDevice(a);
    EXPECT_FALSE(plays(a));
    settle();
    EXPECT_TRUE(plays(a)) << "it ran when the device went";
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(HardwareOutputUnitTest, ADeviceThatComesBackAtAnotherRateIsToldSo) {
    const DeviceId a = add("A", 44100);
    play(a);
    unit().setStreamFormat(clientFormat(44100));
    hardware.changeFormat(a, kOut, VirtualDevice::format(96000, 2));
    posted.clear(); // as if the change had come while it was away
    hardware.removeDevice(a);
    hardware.returnDevice(a);
    settle();
    EXPECT_FALSE(heard.empty());
    EXPECT_EQ(takeHeard().front(), kRateHeard[0]);
}

TEST_F(HardwareOutputUnitTest, AStoppedUnitStaysStoppedWhenItsDeviceComesBack) {
    const DeviceId a = add("A");
    play(a);
    unit().stop();
    hardware.removeDevice(a);
    settle();
    hardware.returnDevice(a);
    settle();
    EXPECT_FALSE(plays(a));
    EXPECT_EQ(unit().start(), 0);
    EXPECT_TRUE(plays(a));
}

TEST_F(HardwareOutputUnitTest, WithoutADeviceOfItsOwnItFollowsNone) {
    unit();
    const DeviceId a = add("A");
    hardware.setDefaultDevice(kOut, a);
    add("B");
    settle();
    EXPECT_EQ(unit().currentDevice(), std::nullopt);
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(HardwareOutputUnitTest, AListenerMayAddAListener) {
    const DeviceId a = add("A");
    struct Adding {
        static void hear(void* client, OutputUnit* unit, UnitProperty property, UnitScope,
                         std::uint32_t) noexcept {
            for (int i = 0; i < 100; ++i)
                unit->addPropertyListener(property, never, nullptr);
            ++*static_cast<int*>(client);
        }
        static void never(void*, OutputUnit*, UnitProperty, UnitScope, std::uint32_t) noexcept {
            FAIL() << "it was added for the next change";
        }
    };
    int calls = 0;
    unit().addPropertyListener(UnitProperty::currentDevice, Adding::hear, &calls);
    unit().setCurrentDevice(a);
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace veltrano
