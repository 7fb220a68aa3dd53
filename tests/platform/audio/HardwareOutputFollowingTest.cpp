// SPDX-License-Identifier: GPL-3.0-or-later
// The output unit on devices that change, go and come back.
#include "tests/platform/audio/HardwareOutputUnitRig.h"

namespace veltrano {
namespace {

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
