// SPDX-License-Identifier: GPL-3.0-or-later
// The devices of a sound server at one moment, as the audio hardware layer tells of them.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// One device. It has the one side that @c direction names.
struct DeviceRecord {
    struct Source {
        DataSourceId id = 0;
        std::string name; ///< UTF-8, for people
        bool operator==(const Source&) const = default;
    };

    DeviceId id = 0;
    Direction direction = Direction::input;
    std::string serverName;   ///< what the server calls the device
    std::string manufacturer; ///< UTF-8, for people
    std::string name;         ///< UTF-8, for people
    StreamDescription format;
    std::vector<std::uint32_t> channelPositions; ///< one per channel
    std::vector<float> volumes;                  ///< [0, 1] of channel 1, 2, ...
    bool isMuted = false;
    std::vector<Source> sources;
    std::optional<DataSourceId> source; ///< the one in use
};

/// The whole list. Thread: any while nobody writes it.
struct DeviceSnapshot {
    std::vector<DeviceRecord> devices; ///< real devices first, monitors of outputs last
    std::optional<DeviceId> defaultInput;
    std::optional<DeviceId> defaultOutput;

    /// nullptr when no such device is listed. The pointer lives as long as the list is unchanged.
    const DeviceRecord* find(DeviceId id) const noexcept {
        for (const DeviceRecord& device : devices) {
            if (device.id == id) return &device;
        }
        return nullptr;
    }
    /// The same list with another data source in use. An unknown device or source changes nothing.
    DeviceSnapshot withSource(DeviceId id, DataSourceId source) const {
        DeviceSnapshot changed = *this;
        for (DeviceRecord& device : changed.devices) {
            for (const DeviceRecord::Source& known : device.sources) {
                if (device.id == id && known.id == source) device.source = source;
            }
        }
        return changed;
    }
    bool hasInput() const noexcept {
        for (const DeviceRecord& device : devices) {
            if (device.direction == Direction::input) return true;
        }
        return false;
    }
};

} // namespace veltrano
