// SPDX-License-Identifier: GPL-3.0-or-later
// Planned failures of every hardware call, and the log of calls.
#include "platform/audio/VirtualHardware.h"

#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr Direction kIn = Direction::input;

Status nothing(DeviceId, const AudioTimeStamp*, const AudioBufferList*, const AudioTimeStamp*,
               AudioBufferList*, const AudioTimeStamp*, void*) noexcept {
    return 0;
}
Status ignoreHardware(PropertyCode, void*) noexcept { return 0; }
Status ignoreDevice(DeviceId, std::uint32_t, bool, PropertyCode, void*) noexcept { return 0; }

VirtualDevice microphone() {
    VirtualDevice device;
    device.manufacturer = "Maker";
    device.name = "Microphone";
    device.input = VirtualDevice::side(48000, 1);
    device.input->sources = {{1, "A"}, {2, "B"}};
    device.input->source = 1;
    device.input->volumes = {{0.25f, true}};
    return device;
}

/// One call of the hardware: whether it succeeded, and its line in the log of calls.
struct Call {
    HardwareCall call;
    std::function<bool(AudioHardware&, DeviceId)> succeeds;
    std::string line;
};

constexpr Status kFault = 1852797029;

std::vector<Call> allCalls() {
    using H = AudioHardware;
    using C = HardwareCall;
    constexpr auto kSfmt = PropertyCode::streamFormat;
    constexpr auto kVolm = PropertyCode::volumeScalar;
    constexpr auto kAll = kWildcardChannel;
    return {
        {C::devices, [](H& h, DeviceId) { return !h.devices().empty(); }, "devices"},
        {C::defaultDevice, [](H& h, DeviceId) { return h.defaultDevice(kIn).has_value(); },
         "defaultDevice input"},
        {C::streamFormat, [](H& h, DeviceId d) { return h.streamFormat(d, kIn).has_value(); },
         "streamFormat 1073741824 input"},
        {C::streamConfiguration,
         [](H& h, DeviceId d) { return h.streamConfiguration(d, kIn).has_value(); },
         "streamConfiguration 1073741824 input"},
        {C::deviceName, [](H& h, DeviceId d) { return h.deviceName(d, kIn).has_value(); },
         "deviceName 1073741824 input"},
        {C::deviceManufacturer,
         [](H& h, DeviceId d) { return h.deviceManufacturer(d, kIn).has_value(); },
         "deviceManufacturer 1073741824 input"},
        {C::isDataSourceWritable, [](H& h, DeviceId d) { return h.isDataSourceWritable(d, kIn); },
         "isDataSourceWritable 1073741824 input"},
        {C::dataSources, [](H& h, DeviceId d) { return !h.dataSources(d, kIn).empty(); },
         "dataSources 1073741824 input"},
        {C::dataSource, [](H& h, DeviceId d) { return h.dataSource(d, kIn).has_value(); },
         "dataSource 1073741824 input"},
        {C::dataSourceName,
         [](H& h, DeviceId d) { return h.dataSourceName(d, kIn, 2).has_value(); },
         "dataSourceName 1073741824 input 2"},
        {C::setDataSource, [](H& h, DeviceId d) { return h.setDataSource(d, kIn, 2) != kFault; },
         "setDataSource 1073741824 input 2"},
        {C::isVolumeWritable, [](H& h, DeviceId d) { return h.isVolumeWritable(d, kIn, 1); },
         "isVolumeWritable 1073741824 input 1"},
        {C::volume, [](H& h, DeviceId d) { return h.volume(d, kIn, 1).has_value(); },
         "volume 1073741824 input 1"},
        {C::setVolume, [](H& h, DeviceId d) { return h.setVolume(d, kIn, 1, 0.7f) != kFault; },
         "setVolume 1073741824 input 1 0.7"},
        {C::addHardwareListener,
         [](H& h, DeviceId) {
             return h.addHardwareListener(PropertyCode::devices, ignoreHardware, &h) != kFault;
         },
         "addHardwareListener dev#"},
        {C::removeHardwareListener,
         [](H& h, DeviceId) {
             return h.removeHardwareListener(PropertyCode::devices, ignoreHardware, &h) != kFault;
         },
         "removeHardwareListener dev#"},
        {C::addDeviceListener,
         [](H& h, DeviceId d) {
             return h.addDeviceListener(d, 0, kIn, kSfmt, ignoreDevice, &h) != kFault;
         },
         "addDeviceListener 1073741824 input sfmt 0"},
        {C::removeDeviceListener,
         [](H& h, DeviceId d) {
             return h.removeDeviceListener(d, kAll, kIn, kVolm, ignoreDevice) != kFault;
         },
         "removeDeviceListener 1073741824 input volm all"},
        {C::addIOProc, [](H& h, DeviceId d) { return h.addIOProc(d, nothing, &h) != kFault; },
         "addIOProc 1073741824"},
        {C::start, [](H& h, DeviceId d) { return h.start(d, nothing) != kFault; },
         "start 1073741824"},
        {C::stop, [](H& h, DeviceId d) { return h.stop(d, nothing) != kFault; }, "stop 1073741824"},
        {C::removeIOProc, [](H& h, DeviceId d) { return h.removeIOProc(d, nothing) != kFault; },
         "removeIOProc 1073741824"},
    };
}

class VirtualFaults : public testing::Test {
protected:
    VirtualFaults() { hardware.setDefaultDevice(kIn, id); }

    VirtualHardware hardware;
    const DeviceId id = hardware.addDevice(microphone());
};

TEST_F(VirtualFaults, TheNextCallOfAnyOperationFailsOnce) {
    for (const Call& call : allCalls()) {
        SCOPED_TRACE(call.line);
        hardware.faults().failNext(call.call, kFault);
        EXPECT_FALSE(call.succeeds(hardware, id));
        EXPECT_TRUE(call.succeeds(hardware, id));
    }
}

TEST_F(VirtualFaults, EveryCallOfAnOperationFailsUntilCleared) {
    for (const Call& call : allCalls()) {
        SCOPED_TRACE(call.line);
        hardware.faults().failEvery(call.call, kFault);
        EXPECT_FALSE(call.succeeds(hardware, id));
        EXPECT_FALSE(call.succeeds(hardware, id));
        hardware.faults().clear();
        EXPECT_TRUE(call.succeeds(hardware, id));
    }
}

TEST_F(VirtualFaults, AFailureCanBeOneDevicesOwn) {
    const DeviceId other = hardware.addDevice(microphone());
    hardware.faults().failEvery(HardwareCall::streamFormat, kFault, other);
    EXPECT_TRUE(hardware.streamFormat(id, kIn));
    EXPECT_FALSE(hardware.streamFormat(other, kIn));
}

TEST_F(VirtualFaults, AFailedWriteChangesNothing) {
    hardware.faults().failEvery(HardwareCall::setVolume, kFault);
    hardware.faults().failEvery(HardwareCall::setDataSource, kFault);
    hardware.faults().failEvery(HardwareCall::start, kFault);
    hardware.setVolume(id, kIn, 1, 0.7f);
    hardware.setDataSource(id, kIn, 2);
    hardware.addIOProc(id, nothing, nullptr);
    hardware.start(id, nothing);
    EXPECT_EQ(hardware.volume(id, kIn, 1), 0.25f);
    EXPECT_EQ(hardware.dataSource(id, kIn), 1u);
    EXPECT_FALSE(hardware.isStarted(id));
}

TEST_F(VirtualFaults, CallsAreKeptAsLinesWhenAskedFor) {
    for (const Call& call : allCalls())
        call.succeeds(hardware, id);
    EXPECT_TRUE(hardware.calls().empty());
    hardware.keepCalls(true);
    for (const Call& call : allCalls()) {
        hardware.clearCalls();
        call.succeeds(hardware, id);
        EXPECT_EQ(hardware.calls(), std::vector{call.line});
    }
}

} // namespace
} // namespace veltrano
