// SPDX-License-Identifier: GPL-3.0-or-later
// Two hardwares as one.
#include "platform/audio/CombinedHardware.h"
#include "platform/audio/VirtualHardware.h"
#include "tests/platform/audio/NotificationRecorder.h"

#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr Direction kIn = Direction::input;
constexpr DeviceId kSplit = VirtualHardware::kFirstId + 2;

Status nothing(DeviceId, const AudioTimeStamp*, const AudioBufferList*, const AudioTimeStamp*,
               AudioBufferList*, const AudioTimeStamp*, void*) noexcept {
    return 0;
}

VirtualDevice named(const std::string& name) {
    VirtualDevice device;
    device.manufacturer = "Maker";
    device.name = name;
    device.input = VirtualDevice::side(48000, 1);
    device.input->sources = {{1, "A"}};
    device.input->source = 1;
    device.input->volumes = {{0.25f, true}};
    return device;
}

/// The first part has the ids below kSplit, the second those from there on. Both hardwares hold
/// devices of the same ids, so that the wrong part would answer too, but differently.
class CombinedHardwareTest : public testing::Test {
protected:
    CombinedHardwareTest() {
        for (const char* name : {"first 0", "first 1"})
            first.addDevice(named(name));
        for (int i = 0; i < 2; ++i)
            second.removeDevice(second.addDevice(named("gone")));
        for (const char* name : {"second 2", "second 3"})
            second.addDevice(named(name));
        first.keepCalls(true);
        second.keepCalls(true);
    }

    VirtualHardware first;
    VirtualHardware second;
    CombinedHardware combined{{{&first, 0}, {&second, kSplit}}};
};

TEST_F(CombinedHardwareTest, ListsTheDevicesOfAllPartsInTheirOrder) {
    EXPECT_EQ(combined.devices(), (std::vector{kSplit - 2, kSplit - 1, kSplit, kSplit + 1}));
    EXPECT_EQ(combined.deviceName(kSplit - 1, kIn), "first 1");
    EXPECT_EQ(combined.deviceName(kSplit, kIn), "second 2");
    EXPECT_EQ(combined.deviceName(3, kIn), std::nullopt);
}

TEST_F(CombinedHardwareTest, TheDefaultIsThatOfTheFirstPartThatHasOne) {
    EXPECT_EQ(combined.defaultDevice(kIn), std::nullopt);
    second.setDefaultDevice(kIn, kSplit);
    EXPECT_EQ(combined.defaultDevice(kIn), kSplit);
    first.setDefaultDevice(kIn, kSplit - 1);
    EXPECT_EQ(combined.defaultDevice(kIn), kSplit - 1);
}

TEST_F(CombinedHardwareTest, EveryCallAboutADeviceGoesToItsPart) {
    using C = CombinedHardware;
    constexpr auto kSfmt = PropertyCode::streamFormat;
    const std::function<void(C&, DeviceId)> calls[] = {
        [](C& c, DeviceId d) { EXPECT_TRUE(c.streamFormat(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.streamConfiguration(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.deviceName(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.deviceManufacturer(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.isDataSourceWritable(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.dataSources(d, kIn).size(), 1u); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.dataSource(d, kIn)); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.dataSourceName(d, kIn, 1), "A"); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.setDataSource(d, kIn, 1), 0); },
        [](C& c, DeviceId d) { EXPECT_TRUE(c.isVolumeWritable(d, kIn, 1)); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.volume(d, kIn, 1), 0.25f); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.setVolume(d, kIn, 1, 0.25f), 0); },
        [](C& c, DeviceId d) {
            EXPECT_EQ(c.addDeviceListener(d, 0, kIn, kSfmt, NotificationRecorder::onDevice, &c), 0);
        },
        [](C& c, DeviceId d) {
            EXPECT_EQ(c.removeDeviceListener(d, 0, kIn, kSfmt, NotificationRecorder::onDevice), 0);
        },
        [](C& c, DeviceId d) { EXPECT_EQ(c.addIOProc(d, nothing, &c), 0); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.start(d, nothing), 0); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.stop(d, nothing), 0); },
        [](C& c, DeviceId d) { EXPECT_EQ(c.removeIOProc(d, nothing), 0); },
    };
    for (const auto& call : calls) {
        call(combined, kSplit - 1);
        EXPECT_EQ(first.calls().size(), 1u);
        EXPECT_TRUE(second.calls().empty());
        first.clearCalls();
        call(combined, kSplit + 1);
        EXPECT_TRUE(first.calls().empty());
        EXPECT_EQ(second.calls().size(), 1u);
        second.clearCalls();
    }
}

TEST_F(CombinedHardwareTest, HardwareListenersHearOfAllParts) {
    NotificationRecorder recorder;
    EXPECT_EQ(combined.addHardwareListener(PropertyCode::devices, NotificationRecorder::onHardware,
                                           &recorder),
              0);
    first.removeDevice(kSplit - 1);
    second.removeDevice(kSplit);
    EXPECT_EQ(recorder.lines().size(), 2u);
    EXPECT_EQ(combined.removeHardwareListener(PropertyCode::devices,
                                              NotificationRecorder::onHardware, &recorder),
              0);
    first.returnDevice(kSplit - 1);
    second.returnDevice(kSplit);
    EXPECT_EQ(recorder.lines().size(), 2u);
}

TEST_F(CombinedHardwareTest, AFailureInOnePartDoesNotKeepTheListenerFromTheOther) {
    NotificationRecorder recorder;
    first.faults().failNext(HardwareCall::addHardwareListener, 11);
    second.faults().failNext(HardwareCall::removeHardwareListener, 12);
    EXPECT_EQ(combined.addHardwareListener(PropertyCode::devices, NotificationRecorder::onHardware,
                                           &recorder),
              11);
    first.removeDevice(kSplit - 1);
    second.removeDevice(kSplit);
    EXPECT_EQ(recorder.lines().size(), 1u);
    first.addHardwareListener(PropertyCode::devices, NotificationRecorder::onHardware, &recorder);
    EXPECT_EQ(combined.removeHardwareListener(PropertyCode::devices,
                                              NotificationRecorder::onHardware, &recorder),
              12);
    EXPECT_EQ(first.notifier().listenerCount(), 0u);
}

} // namespace
} // namespace veltrano
