// SPDX-License-Identifier: GPL-3.0-or-later
// Gives the devices of a sound server their lasting numbers.
#pragma once

#include "platform/audio/DeviceSnapshot.h"
#include "platform/audio/ServerListing.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace veltrano {

/// Turns what the server says into the device list of the audio hardware layer.
///
/// A device is known by its direction and the server's name for it, a port by its name within the
/// device: both keep their numbers as long as the table lives, also when they go and come back.
/// Thread: one at a time.
class ServerDeviceTable {
public:
    /// Numbers are 1 ... kMaxDeviceId; those above belong to other audio hardware.
    static constexpr DeviceId kMaxDeviceId = 0x3FFFFFFF;

    /// Real sources and sinks first, monitors last, otherwise in the order of the listing. A record
    /// without a name, a rate or a channel is left out, so is the second of two with one name.
    DeviceSnapshot snapshot(const ServerListing& listing);

    /// The server's name for a port of a device, or nullptr. The pointer lives until the next
    /// snapshot().
    const std::string* portName(DeviceId device, DataSourceId port) const;

private:
    using Key = std::pair<Direction, std::string>;

    DeviceRecord record(const ServerRecord& said, const std::string& serverName);
    void takePorts(const ServerRecord& said, DeviceRecord& device);
    DeviceId deviceId(const ServerRecord& said);
    DataSourceId portId(DeviceId device, const std::string& name);

    std::map<Key, DeviceId> mIds;
    std::map<DeviceId, std::vector<std::string>> mPorts; ///< the number is the index + 1
    DeviceId mLastId = 0;
};

} // namespace veltrano
