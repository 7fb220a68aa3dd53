// SPDX-License-Identifier: GPL-3.0-or-later
// What changed between two device lists, as property notifications.
#pragma once

#include "platform/audio/DeviceSnapshot.h"

#include <vector>

namespace veltrano {

/// One notification of the audio hardware layer.
struct PropertyChange {
    DeviceId device = 0; ///< 0: the hardware as a whole
    std::uint32_t channel = 0;
    Direction direction = Direction::input;
    PropertyCode property = PropertyCode::devices;

    bool operator==(const PropertyChange&) const = default;
};

/// Whether a device came or went. The order and the defaults do not count.
bool hasOtherDevices(const DeviceSnapshot& before, const DeviceSnapshot& after);

/// 'dev#' first when a device came or went, then for each device that is in both lists: 'sfmt',
/// 'slay', 'ssrc', 'volm' of every changed channel, and 'diff' for names, mute and the list of data
/// sources. A change of the default device is not among them.
std::vector<PropertyChange> propertyChanges(const DeviceSnapshot& before,
                                            const DeviceSnapshot& after);

} // namespace veltrano
