// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PropertyChanges.h"

#include <algorithm>

namespace veltrano {

namespace {

bool isListedIn(const DeviceSnapshot& other, const DeviceSnapshot& all) {
    return std::all_of(other.devices.begin(), other.devices.end(),
                       [&](const DeviceRecord& device) { return all.find(device.id); });
}

bool differsOtherwise(const DeviceRecord& before, const DeviceRecord& after) {
    return before.manufacturer != after.manufacturer || before.name != after.name ||
           before.isMuted != after.isMuted || before.sources != after.sources;
}

void appendVolumes(const DeviceRecord& before, const DeviceRecord& after,
                   std::vector<PropertyChange>& changes) {
    for (std::size_t index = 0; index < after.volumes.size(); ++index) {
        const bool isSame =
            index < before.volumes.size() && before.volumes[index] == after.volumes[index];
        if (isSame) continue;
        changes.push_back(
            {after.id, std::uint32_t(index + 1), after.direction, PropertyCode::volumeScalar});
    }
}

void appendDevice(const DeviceRecord& before, const DeviceRecord& after,
                  std::vector<PropertyChange>& changes) {
    const auto append = [&](bool hasChanged, PropertyCode property) {
        if (hasChanged) changes.push_back({after.id, 0, after.direction, property});
    };
    append(before.format != after.format, PropertyCode::streamFormat);
    append(before.channelPositions != after.channelPositions, PropertyCode::streamConfiguration);
    append(before.source != after.source, PropertyCode::dataSource);
    appendVolumes(before, after, changes);
    append(differsOtherwise(before, after), PropertyCode::deviceHasChanged);
}

} // namespace

bool hasOtherDevices(const DeviceSnapshot& before, const DeviceSnapshot& after) {
    return !isListedIn(before, after) || !isListedIn(after, before);
}

std::vector<PropertyChange> propertyChanges(const DeviceSnapshot& before,
                                            const DeviceSnapshot& after) {
    std::vector<PropertyChange> changes;
    if (hasOtherDevices(before, after)) changes.push_back({});
    for (const DeviceRecord& device : after.devices) {
        if (const DeviceRecord* was = before.find(device.id)) appendDevice(*was, device, changes);
    }
    return changes;
}

} // namespace veltrano
