// SPDX-License-Identifier: GPL-3.0-or-later
// The lasting numbers of a server's devices, and what changed between two lists.
#include "platform/audio/ServerDeviceTable.h"
#include "platform/audio/PropertyChanges.h"

#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

ServerRecord source(const std::string& name) {
    ServerRecord record;
    record.name = name;
    record.description = "Microphone " + name;
    record.vendor = "Acme";
    record.sampleRate = 48000;
    record.channelPositions = {1, 2};
    record.volumes = {ServerRecord::kFullVolume, ServerRecord::kFullVolume};
    return record;
}

ServerRecord sink(const std::string& name) {
    ServerRecord record = source(name);
    record.direction = Direction::output;
    return record;
}

ServerRecord monitor(const std::string& name) {
    ServerRecord record = source(name);
    record.isMonitor = true;
    return record;
}

ServerRecord withPorts(ServerRecord record, const std::string& active) {
    record.ports = {{"front", "Front Jack"}, {"rear", ""}};
    record.activePort = active;
    return record;
}

ServerListing listing(std::vector<ServerRecord> records) {
    return {"pulseaudio", "", "", std::move(records)};
}

std::vector<std::string> namesOf(const DeviceSnapshot& snapshot) {
    std::vector<std::string> names;
    for (const DeviceRecord& device : snapshot.devices)
        names.push_back(device.serverName);
    return names;
}

std::vector<DeviceId> idsOf(const DeviceSnapshot& snapshot) {
    std::vector<DeviceId> ids;
    for (const DeviceRecord& device : snapshot.devices)
        ids.push_back(device.id);
    return ids;
}

using Names = std::vector<std::string>;
using Ids = std::vector<DeviceId>;

TEST(ServerDeviceTable, NumbersFollowTheNameNotTheOrder) {
    ServerDeviceTable table;
    EXPECT_EQ(idsOf(table.snapshot(listing({source("a"), source("b")}))), (Ids{1, 2}));
    EXPECT_EQ(idsOf(table.snapshot(listing({source("b")}))), (Ids{2})) << "a was unplugged";
    EXPECT_EQ(idsOf(table.snapshot(listing({}))), (Ids{})) << "the server is restarted";
    EXPECT_EQ(idsOf(table.snapshot(listing({source("b"), source("c"), source("a")}))),
              (Ids{2, 3, 1}))
        << "a comes back under its old number, c is new";
}

TEST(ServerDeviceTable, ASourceAndASinkOfOneNameAreTwoDevices) {
    ServerDeviceTable table;
    EXPECT_EQ(idsOf(table.snapshot(listing({source("duplex"), sink("duplex")}))), (Ids{1, 2}));
}

TEST(ServerDeviceTable, ListsMonitorsAfterTheRealDevices) {
    ServerDeviceTable table;
    const auto made = table.snapshot(listing({monitor("out.monitor"), sink("out"), source("mic"),
                                              monitor("hdmi.monitor"), source("line")}));
    EXPECT_EQ(namesOf(made), (Names{"out", "mic", "line", "out.monitor", "hdmi.monitor"}));
}

TEST(ServerDeviceTable, LeavesOutWhatCannotBeADevice) {
    ServerRecord noRate = source("noRate");
    noRate.sampleRate = 0;
    ServerRecord noChannel = source("noChannel");
    noChannel.channelPositions.clear();
    ServerDeviceTable table;
    const auto made =
        table.snapshot(listing({source(""), noRate, noChannel, source("twice"), source("twice")}));
    EXPECT_EQ(namesOf(made), (Names{"twice"}));
}

TEST(ServerDeviceTable, NamesDevicesForPeople) {
    struct {
        const char* name;
        std::string server, vendor, description;
        std::string manufacturer, deviceName;
    } const cases[] = {
        {"vendor and description", "pulseaudio", "Acme", "USB Mic", "Acme", "USB Mic"},
        {"no vendor: the server", "pulseaudio", "", "Null Output", "pulseaudio", "Null Output"},
        {"no version of the server in a name that is stored", "PulseAudio (on PipeWire 0.3.65)", "",
         "USB Mic", "PulseAudio", "USB Mic"},
        {"no description: the server's name of it", "pulseaudio", "", "", "pulseaudio", "mic"},
    };
    for (const auto& c : cases) {
        ServerRecord record = source("mic");
        record.vendor = c.vendor;
        record.description = c.description;
        ServerDeviceTable table;
        const auto made = table.snapshot({c.server, "", "", {record}});
        EXPECT_EQ(made.devices.at(0).manufacturer, c.manufacturer) << c.name;
        EXPECT_EQ(made.devices.at(0).name, c.deviceName) << c.name;
    }
}

TEST(ServerDeviceTable, TheFormatIsTheDevicesOwnAsFloats) {
    ServerRecord record = source("mic");
    record.sampleRate = 96000;
    record.channelPositions = {1, 2, 3};
    ServerDeviceTable table;
    const DeviceRecord device = table.snapshot(listing({record})).devices.at(0);
    EXPECT_EQ(device.format.sampleRate, 96000.0);
    EXPECT_EQ(device.format.channelsPerFrame, 3u);
    EXPECT_EQ(device.format.bytesPerFrame, 12u);
    EXPECT_EQ(device.format.bitsPerChannel, 32u);
    EXPECT_EQ(device.volumes.size(), 3u) << "one per channel, whatever the server says";
    EXPECT_EQ(device.volumes.back(), 1.0f);
}

TEST(ServerDeviceTable, VolumesAreScalarsUpToOne) {
    ServerRecord record = source("mic");
    record.volumes = {ServerRecord::kFullVolume / 2, ServerRecord::kFullVolume * 3 / 2};
    ServerDeviceTable table;
    EXPECT_EQ(table.snapshot(listing({record})).devices.at(0).volumes,
              (std::vector<float>{0.5f, 1.0f}));
}

TEST(ServerDeviceTable, PortsAreDataSourcesWithLastingNumbers) {
    ServerDeviceTable table;
    const DeviceRecord first =
        table.snapshot(listing({withPorts(source("mic"), "rear")})).devices.at(0);
    EXPECT_EQ(first.sources, (std::vector<DeviceRecord::Source>{{1, "Front Jack"}, {2, "rear"}}));
    EXPECT_EQ(first.source, 2u);

    ServerRecord turned = source("mic");
    turned.ports = {{"rear", "Rear"}, {"side", "Side"}};
    const DeviceRecord second = table.snapshot(listing({turned})).devices.at(0);
    EXPECT_EQ(second.sources, (std::vector<DeviceRecord::Source>{{2, "Rear"}, {3, "Side"}}));
    EXPECT_EQ(second.source, std::nullopt) << "none is active";

    ASSERT_NE(table.portName(1, 3), nullptr);
    EXPECT_EQ(*table.portName(1, 3), "side");
    EXPECT_EQ(table.portName(1, 0), nullptr);
    EXPECT_EQ(table.portName(1, 4), nullptr);
    EXPECT_EQ(table.portName(7, 1), nullptr);
}

TEST(ServerDeviceTable, ASourceThatWasChosenIsInUseUntilTheServerSaysOtherwise) {
    ServerDeviceTable table;
    const ServerListing said = listing(
        {withPorts(sink("a"), "front"), withPorts(sink("b"), "front"), withPorts(source("a"), "")});
    const DeviceSnapshot before = table.snapshot(said);
    const DeviceSnapshot after = before.withSource(2, 2);
    EXPECT_EQ(after.find(2)->source, 2u);
    EXPECT_EQ(after.find(1)->source, 1u);
    EXPECT_EQ(after.find(3)->source, std::nullopt);
    EXPECT_EQ(propertyChanges(before, after),
              (std::vector<PropertyChange>{{2, 0, Direction::output, PropertyCode::dataSource}}))
        << "and nothing else is";
    for (const auto& [device, unknown] : {std::pair{2u, 3u}, {2u, 0u}, {4u, 1u}, {0u, 1u}}) {
        SCOPED_TRACE(unknown);
        EXPECT_EQ(propertyChanges(before, before.withSource(device, unknown)),
                  std::vector<PropertyChange>{});
    }
}

TEST(ServerDeviceTable, FindsTheDefaultsByDirection) {
    ServerDeviceTable table;
    const auto both =
        table.snapshot({"s", "mic", "out", {source("out"), sink("out"), source("mic")}});
    EXPECT_EQ(both.defaultInput, 3u);
    EXPECT_EQ(both.defaultOutput, 2u);
    const auto none = table.snapshot({"s", "(null)", "", {source("mic")}});
    EXPECT_EQ(none.defaultInput, std::nullopt);
    EXPECT_EQ(none.defaultOutput, std::nullopt);
}

TEST(PropertyChanges, EachChangeHasItsProperty) {
    using Edit = std::function<void(ServerListing&)>;
    const auto editMic = [](void (*edit)(ServerRecord&)) -> Edit {
        return [edit](ServerListing& said) { edit(said.records[0]); };
    };
    const auto change = [](std::uint32_t channel, PropertyCode property) {
        return PropertyChange{1, channel, Direction::input, property};
    };
    using Changes = std::vector<PropertyChange>;
    const struct {
        const char* name;
        Edit edit;
        Changes expected;
    } cases[] = {
        {"nothing", [](ServerListing&) {}, {}},
        {"another default device",
         [](ServerListing& said) { said.defaultSource = "out.monitor"; },
         {}},
        {"another order",
         [](ServerListing& said) { std::swap(said.records[0], said.records[1]); },
         {}},
        {"a device more",
         [](ServerListing& said) { said.records.push_back(source("new")); },
         {PropertyChange{}}},
        {"a device less", [](ServerListing& said) { said.records.pop_back(); }, {PropertyChange{}}},
        {"one replaced by another",
         [](ServerListing& said) { said.records.back().name = "other"; },
         {PropertyChange{}}},
        {"rate",
         editMic([](ServerRecord& mic) { mic.sampleRate = 44100; }),
         {change(0, PropertyCode::streamFormat)}},
        {"order of the channels",
         editMic([](ServerRecord& mic) {
             mic.channelPositions = {2, 1};
         }),
         {change(0, PropertyCode::streamConfiguration)}},
        {"fewer channels",
         editMic([](ServerRecord& mic) {
             mic.channelPositions = {0};
             mic.volumes.resize(1);
         }),
         {change(0, PropertyCode::streamFormat), change(0, PropertyCode::streamConfiguration)}},
        {"volume of the second channel",
         editMic([](ServerRecord& mic) { mic.volumes[1] = 1; }),
         {change(2, PropertyCode::volumeScalar)}},
        {"volume beyond full", editMic([](ServerRecord& mic) { mic.volumes[1] *= 2; }), {}},
        {"active port",
         editMic([](ServerRecord& mic) { mic.activePort = "rear"; }),
         {change(0, PropertyCode::dataSource)}},
        {"a port less",
         editMic([](ServerRecord& mic) { mic.ports.pop_back(); }),
         {change(0, PropertyCode::deviceHasChanged)}},
        {"mute",
         editMic([](ServerRecord& mic) { mic.isMuted = true; }),
         {change(0, PropertyCode::deviceHasChanged)}},
        {"name",
         editMic([](ServerRecord& mic) { mic.description = "Other"; }),
         {change(0, PropertyCode::deviceHasChanged)}},
        {"vendor",
         editMic([](ServerRecord& mic) { mic.vendor = "Other"; }),
         {change(0, PropertyCode::deviceHasChanged)}},
    };
    for (const auto& c : cases) {
        ServerDeviceTable table;
        ServerListing said = listing({withPorts(source("mic"), "front"), sink("out")});
        const DeviceSnapshot before = table.snapshot(said);
        c.edit(said);
        EXPECT_EQ(propertyChanges(before, table.snapshot(said)), c.expected) << c.name;
    }
}

} // namespace
} // namespace veltrano
