// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/ServerDeviceTable.h"

#include <algorithm>

namespace veltrano {

namespace {

StreamDescription floatFormat(double sampleRateHz, std::size_t channels) {
    StreamDescription format;
    format.sampleRate = sampleRateHz;
    format.channelsPerFrame = std::uint32_t(channels);
    format.bytesPerFrame = std::uint32_t(channels * sizeof(float));
    format.bytesPerPacket = format.bytesPerFrame;
    return format;
}

/// A server that stands in for another adds its version in brackets. Names of devices are stored by
/// the user's settings, so an update of the server must not change them.
std::string withoutVersion(const std::string& serverName) {
    return serverName.substr(0, serverName.find(" ("));
}

float scalar(std::uint32_t volume) {
    return std::min(1.0f, float(volume) / float(ServerRecord::kFullVolume));
}

bool isUsable(const ServerRecord& said) {
    return !said.name.empty() && said.sampleRate > 0 && !said.channelPositions.empty();
}

std::optional<DeviceId> idOfName(const DeviceSnapshot& snapshot, Direction direction,
                                 const std::string& serverName) {
    for (const DeviceRecord& device : snapshot.devices) {
        if (device.direction == direction && device.serverName == serverName) return device.id;
    }
    return std::nullopt;
}

} // namespace

DeviceSnapshot ServerDeviceTable::snapshot(const ServerListing& listing) {
    DeviceSnapshot made;
    const std::string serverName = withoutVersion(listing.serverName);
    for (const bool takesMonitors : {false, true}) {
        for (const ServerRecord& said : listing.records) {
            if (said.isMonitor != takesMonitors || !isUsable(said)) continue;
            if (idOfName(made, said.direction, said.name)) continue;
            made.devices.push_back(record(said, serverName));
        }
    }
    made.defaultInput = idOfName(made, Direction::input, listing.defaultSource);
    made.defaultOutput = idOfName(made, Direction::output, listing.defaultSink);
    return made;
}

DeviceRecord ServerDeviceTable::record(const ServerRecord& said, const std::string& serverName) {
    DeviceRecord device;
    device.id = deviceId(said);
    device.direction = said.direction;
    device.serverName = said.name;
    device.manufacturer = said.vendor.empty() ? serverName : said.vendor;
    device.name = said.description.empty() ? said.name : said.description;
    device.format = floatFormat(double(said.sampleRate), said.channelPositions.size());
    device.channelPositions = said.channelPositions;
    for (const std::uint32_t volume : said.volumes)
        device.volumes.push_back(scalar(volume));
    device.volumes.resize(said.channelPositions.size(), 1.0f);
    device.isMuted = said.isMuted;
    takePorts(said, device);
    return device;
}

void ServerDeviceTable::takePorts(const ServerRecord& said, DeviceRecord& device) {
    for (const ServerPort& port : said.ports) {
        const DataSourceId id = portId(device.id, port.name);
        device.sources.push_back({id, port.description.empty() ? port.name : port.description});
        if (port.name == said.activePort) device.source = id;
    }
}

DeviceId ServerDeviceTable::deviceId(const ServerRecord& said) {
    const auto [entry, isNew] = mIds.try_emplace(Key(said.direction, said.name), mLastId + 1);
    if (isNew) ++mLastId;
    return entry->second;
}

DataSourceId ServerDeviceTable::portId(DeviceId device, const std::string& name) {
    std::vector<std::string>& known = mPorts[device];
    const auto found = std::find(known.begin(), known.end(), name);
    const auto index = found - known.begin();
    if (found == known.end()) known.push_back(name);
    return DataSourceId(index + 1);
}

const std::string* ServerDeviceTable::portName(DeviceId device, DataSourceId port) const {
    const auto ports = mPorts.find(device);
    if (ports == mPorts.end() || port == 0 || port > ports->second.size()) return nullptr;
    return &ports->second[port - 1];
}

} // namespace veltrano
