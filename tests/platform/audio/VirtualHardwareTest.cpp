// SPDX-License-Identifier: GPL-3.0-or-later
// Devices by description: what they answer, what they announce.
#include "platform/audio/VirtualHardware.h"
#include "tests/platform/audio/NotificationRecorder.h"

#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;
using audio_status::kBadDevice;
using audio_status::kNotAdded;
using audio_status::kNotSupported;
using audio_status::kOk;
constexpr Direction kIn = Direction::input;
constexpr Direction kOut = Direction::output;
constexpr DeviceId kFirst = VirtualHardware::kFirstId;

/// Stereo input with two sources and volumes, the second one fixed; mono output.
VirtualDevice desk() {
    VirtualDevice device;
    device.manufacturer = "Maker";
    device.name = "Desk";
    device.input = VirtualDevice::side(48000, 2);
    device.input->sources = {{7, "Jack"}, {9, "Built-in"}};
    device.input->source = 9;
    device.input->volumes = {{0.25f, true}, {0.75f, false}};
    device.output = VirtualDevice::side(44100, 1);
    return device;
}

/// Listens to every property of both sides.
void listenToAll(VirtualHardware& hardware, DeviceId device, NotificationRecorder& recorder) {
    for (const Direction side : {kIn, kOut}) {
        for (const PropertyCode property :
             {PropertyCode::deviceHasChanged, PropertyCode::streamFormat, PropertyCode::dataSource,
              PropertyCode::volumeScalar, PropertyCode::streamConfiguration}) {
            const auto channel = property == PropertyCode::volumeScalar ? kWildcardChannel : 0;
            hardware.addDeviceListener(device, channel, side, property,
                                       NotificationRecorder::onDevice, &recorder);
        }
    }
}

TEST(VirtualHardware, AnswersWhatTheDescriptionSays) {
    VirtualHardware hardware;
    const DeviceId id = hardware.addDevice(desk());
    EXPECT_EQ(id, kFirst);
    EXPECT_EQ(hardware.streamFormat(id, kIn), VirtualDevice::format(48000, 2));
    EXPECT_EQ(hardware.streamFormat(id, kOut), VirtualDevice::format(44100, 1));
    EXPECT_EQ(hardware.streamConfiguration(id, kIn), StreamConfiguration{{2}});
    EXPECT_EQ(hardware.deviceName(id, kIn), "Desk");
    EXPECT_EQ(hardware.deviceManufacturer(id, kOut), "Maker");
    EXPECT_TRUE(hardware.isDataSourceWritable(id, kIn));
    EXPECT_FALSE(hardware.isDataSourceWritable(id, kOut)); // no sources
    EXPECT_EQ(hardware.dataSources(id, kIn), (std::vector<DataSourceId>{7, 9}));
    EXPECT_EQ(hardware.dataSource(id, kIn), 9u);
    EXPECT_EQ(hardware.dataSource(id, kOut), std::nullopt);
    EXPECT_EQ(hardware.dataSourceName(id, kIn, 7), "Jack");
    EXPECT_EQ(hardware.dataSourceName(id, kIn, 8), std::nullopt);
    EXPECT_TRUE(hardware.isVolumeWritable(id, kIn, 1));
    EXPECT_FALSE(hardware.isVolumeWritable(id, kIn, 2)); // fixed
    EXPECT_FALSE(hardware.isVolumeWritable(id, kIn, 3)); // no such channel
    EXPECT_FALSE(hardware.isVolumeWritable(id, kIn, 0)); // no master
    EXPECT_EQ(hardware.volume(id, kIn, 2), 0.75f);
    EXPECT_EQ(hardware.volume(id, kIn, 0), std::nullopt);
}

TEST(VirtualHardware, NothingIsKnownOfAMissingSideOrDevice) {
    VirtualHardware hardware;
    VirtualDevice microphone = desk();
    microphone.output.reset();
    const DeviceId id = hardware.addDevice(microphone);
    const DeviceId gone = hardware.addDevice(desk());
    hardware.removeDevice(gone);
    const std::pair<DeviceId, Direction> cases[] = {{id, kOut},        {gone, kIn},
                                                    {0, kIn},          {kFirst + 2, kIn},
                                                    {kFirst - 1, kIn}, {0xFFFFFFFFu, kIn}};
    for (const auto& [device, side] : cases) {
        SCOPED_TRACE(device);
        EXPECT_FALSE(hardware.streamFormat(device, side));
        EXPECT_FALSE(hardware.streamConfiguration(device, side));
        EXPECT_FALSE(hardware.deviceName(device, side));
        EXPECT_FALSE(hardware.deviceManufacturer(device, side));
        EXPECT_FALSE(hardware.isDataSourceWritable(device, side));
        EXPECT_TRUE(hardware.dataSources(device, side).empty());
        EXPECT_FALSE(hardware.dataSource(device, side));
        EXPECT_FALSE(hardware.dataSourceName(device, side, 7));
        EXPECT_FALSE(hardware.isVolumeWritable(device, side, 1));
        EXPECT_FALSE(hardware.volume(device, side, 1));
        EXPECT_NE(hardware.setDataSource(device, side, 7), kOk);
        EXPECT_NE(hardware.setVolume(device, side, 1, 0.5f), kOk);
    }
    EXPECT_EQ(hardware.setVolume(id, kOut, 1, 0.5f), kNotSupported);
    EXPECT_EQ(hardware.setVolume(gone, kIn, 1, 0.5f), kBadDevice);
}

TEST(VirtualHardware, PluggingAnnouncesTheDeviceListAndKeepsIdsAndOrder) {
    VirtualHardware hardware;
    NotificationRecorder recorder;
    hardware.addHardwareListener(PropertyCode::devices, NotificationRecorder::onHardware,
                                 &recorder);
    const DeviceId a = hardware.addDevice(desk());
    const DeviceId b = hardware.addDevice(desk());
    EXPECT_EQ(recorder.lines(), (Lines{"dev#", "dev#"}));
    EXPECT_EQ(hardware.devices(), (std::vector{a, b}));

    hardware.removeDevice(a);
    EXPECT_EQ(hardware.devices(), std::vector{b});
    const DeviceId c = hardware.addDevice(desk());
    EXPECT_NE(c, a); // an id is never used for another device
    hardware.returnDevice(a);
    EXPECT_EQ(hardware.devices(), (std::vector{a, b, c}));
    EXPECT_EQ(recorder.lines().size(), 5u);

    recorder.clear();
    hardware.removeDevice(kFirst + 99);
    hardware.returnDevice(b); // never went
    EXPECT_EQ(recorder.lines(), Lines{});
}

TEST(VirtualHardware, TheDefaultDeviceIsPerDirectionAndMustBePresent) {
    VirtualHardware hardware;
    const DeviceId a = hardware.addDevice(desk());
    const DeviceId b = hardware.addDevice(desk());
    EXPECT_EQ(hardware.defaultDevice(kIn), std::nullopt);
    hardware.setDefaultDevice(kIn, a);
    hardware.setDefaultDevice(kOut, b);
    EXPECT_EQ(hardware.defaultDevice(kIn), a);
    EXPECT_EQ(hardware.defaultDevice(kOut), b);
    hardware.removeDevice(a);
    EXPECT_EQ(hardware.defaultDevice(kIn), std::nullopt);
}

struct Change {
    const char* name;
    std::function<Status(VirtualHardware&, DeviceId)> make;
    Status status;
    Lines heard; ///< without the device's id in front
};

TEST(VirtualHardware, EveryChangeIsAnnouncedUnderItsProperty) {
    using H = VirtualHardware;
    const Change changes[] = {
        {"format",
         [](H& h, DeviceId d) { return h.changeFormat(d, kIn, VirtualDevice::format(96000, 2)); },
         kOk,
         {"0 input sfmt"}},
        {"configuration",
         [](H& h, DeviceId d) {
             return h.changeConfiguration(d, kOut, {{1, 1}});
         },
         kOk,
         {"0 output slay"}},
        {"data source",
         [](H& h, DeviceId d) { return h.changeDataSource(d, kIn, 7); },
         kOk,
         {"0 input ssrc"}},
        {"unknown data source",
         [](H& h, DeviceId d) { return h.changeDataSource(d, kIn, 8); },
         kNotSupported,
         {}},
        {"volume of a fixed channel",
         [](H& h, DeviceId d) {
             return h.changeVolume(d, kIn, 2, {0.1f, false});
         },
         kOk,
         {"2 input volm"}},
        {"volume without such a channel",
         [](H& h, DeviceId d) {
             return h.changeVolume(d, kIn, 3, {0.1f, true});
         },
         kNotSupported,
         {}},
        {"whole side",
         [](H& h, DeviceId d) { return h.changeSide(d, kIn, VirtualDevice::side(8000, 1)); },
         kOk,
         {"0 input diff"}},
        {"unknown device",
         [](H& h, DeviceId) { return h.changeFormat(5, kIn, VirtualDevice::format(96000, 2)); },
         kBadDevice,
         {}},
        {"data source by its user",
         [](H& h, DeviceId d) { return h.setDataSource(d, kIn, 7); },
         kOk,
         {"0 input ssrc"}},
        {"the same data source by its user",
         [](H& h, DeviceId d) { return h.setDataSource(d, kIn, 9); },
         kOk,
         {}},
        {"volume by its user",
         [](H& h, DeviceId d) { return h.setVolume(d, kIn, 1, 0.5f); },
         kOk,
         {"1 input volm"}},
        {"the same volume by its user",
         [](H& h, DeviceId d) { return h.setVolume(d, kIn, 1, 0.25f); },
         kOk,
         {}},
        {"volume of a fixed channel by its user",
         [](H& h, DeviceId d) { return h.setVolume(d, kIn, 2, 0.5f); },
         kNotSupported,
         {}},
        {"a property that did not change",
         [](H& h, DeviceId d) {
             h.announce(d, 0, kIn, PropertyCode::streamFormat);
             return kOk;
         },
         kOk,
         {"0 input sfmt"}},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.name);
        VirtualHardware hardware;
        NotificationRecorder recorder;
        const DeviceId id = hardware.addDevice(desk());
        listenToAll(hardware, id, recorder);
        EXPECT_EQ(change.make(hardware, id), change.status);
        Lines expected;
        for (const auto& line : change.heard)
            expected.push_back(std::to_string(id) + " " + line);
        EXPECT_EQ(recorder.lines(), expected);
    }
}

TEST(VirtualHardware, WritesAreReadBack) {
    VirtualHardware hardware;
    const DeviceId id = hardware.addDevice(desk());
    hardware.setDataSource(id, kIn, 7);
    EXPECT_EQ(hardware.dataSource(id, kIn), 7u);
    EXPECT_EQ(hardware.setDataSource(id, kIn, 8), kNotSupported);
    EXPECT_EQ(hardware.dataSource(id, kIn), 7u);
    for (const auto& [written, read] : {std::pair{0.5f, 0.5f}, {1.5f, 1.0f}, {-1.0f, 0.0f}}) {
        EXPECT_EQ(hardware.setVolume(id, kIn, 1, written), kOk);
        EXPECT_EQ(hardware.volume(id, kIn, 1), read);
    }
}

TEST(VirtualHardware, TheMasterChannelIsThereWhenItIsDescribed) {
    VirtualHardware hardware;
    VirtualDevice device = desk();
    device.input->master = VirtualDevice::Volume{0.3f, true};
    const DeviceId id = hardware.addDevice(device);
    EXPECT_TRUE(hardware.isVolumeWritable(id, kIn, 0));
    EXPECT_EQ(hardware.volume(id, kIn, 0), 0.3f);
    hardware.setVolume(id, kIn, 0, 0.4f);
    EXPECT_EQ(hardware.volume(id, kIn, 0), 0.4f);
    EXPECT_EQ(hardware.volume(id, kIn, 1), 0.25f);
}

TEST(VirtualHardware, AListenerHearsItsOwnDeviceSidePropertyAndChannelOnly) {
    VirtualHardware hardware;
    const DeviceId a = hardware.addDevice(desk());
    const DeviceId b = hardware.addDevice(desk());
    NotificationRecorder recorder;
    hardware.addDeviceListener(a, 1, kIn, PropertyCode::volumeScalar,
                               NotificationRecorder::onDevice, &recorder);
    hardware.announce(b, 1, kIn, PropertyCode::volumeScalar);
    hardware.announce(a, 1, kOut, PropertyCode::volumeScalar);
    hardware.announce(a, 2, kIn, PropertyCode::volumeScalar);
    hardware.announce(a, 1, kIn, PropertyCode::streamFormat);
    EXPECT_EQ(recorder.lines(), Lines{});
    hardware.announce(a, 1, kIn, PropertyCode::volumeScalar);
    EXPECT_EQ(recorder.lines(), Lines{std::to_string(a) + " 1 input volm"});
}

TEST(VirtualHardware, ListenersAreRemovedOnceAlsoOfADeviceThatIsGone) {
    VirtualHardware hardware;
    const DeviceId id = hardware.addDevice(desk());
    NotificationRecorder recorder;
    const auto remove = [&] {
        return hardware.removeDeviceListener(id, 0, kIn, PropertyCode::streamFormat,
                                             NotificationRecorder::onDevice);
    };
    EXPECT_EQ(remove(), kNotAdded);
    hardware.addDeviceListener(id, 0, kIn, PropertyCode::streamFormat,
                               NotificationRecorder::onDevice, &recorder);
    hardware.removeDevice(id);
    EXPECT_EQ(remove(), kOk);
    EXPECT_EQ(remove(), kNotAdded);
    EXPECT_EQ(hardware.addDeviceListener(id, 0, kIn, PropertyCode::streamFormat,
                                         NotificationRecorder::onDevice, &recorder),
              kBadDevice);
    EXPECT_EQ(hardware.removeHardwareListener(PropertyCode::devices,
                                              NotificationRecorder::onHardware, &recorder),
              kNotAdded);
    EXPECT_EQ(hardware.notifier().listenerCount(), 0u);
}

TEST(VirtualHardware, ThereIsAnEndToTheDevices) {
    VirtualHardware hardware;
    for (std::size_t i = 0; i < VirtualHardware::kMaxDevices; ++i) {
        ASSERT_EQ(hardware.addDevice({}), kFirst + i);
    }
    EXPECT_EQ(hardware.addDevice({}), 0u);
    EXPECT_EQ(hardware.devices().size(), VirtualHardware::kMaxDevices);
}

} // namespace
} // namespace veltrano
