// SPDX-License-Identifier: GPL-3.0-or-later
// One selectable audio device, or one data source of a device.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// A line of a device list and of the pop-up that shows it. Two lists are equal when their entries
/// are equal, field by field and in order.
struct DeviceEntry {
    std::string name; ///< "manufacturer : device" or "manufacturer : data source"
    std::uint32_t deviceID = 0;
    std::optional<std::uint32_t> dataSource; ///< only for devices whose data source is selectable

    bool operator==(const DeviceEntry&) const = default;
};

/// Ordered; a pop-up's item index is the list index.
using DeviceList = std::vector<DeviceEntry>;

} // namespace veltrano
