// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings ask of an audio unit: which device to remember.
#pragma once

#include <optional>
#include <string>

namespace veltrano {

/// A unit that works on one device of a list. Thread: main.
class NamedDeviceUnit {
public:
    /// The name under which the device is found again at the next start, UTF-8; nullopt when there
    /// was none yet.
    virtual std::optional<std::string> deviceName() const = 0;

protected:
    ~NamedDeviceUnit() = default; ///< nobody owns a unit through this interface
};

} // namespace veltrano
