// SPDX-License-Identifier: GPL-3.0-or-later
// Who hears that the user chose another input device.
#pragma once

namespace veltrano {

/// Thread: main.
class InputDeviceListener {
public:
    /// The input unit works on the new device already.
    virtual void inputDevicePopupChanged() = 0;

protected:
    ~InputDeviceListener() = default; ///< nobody owns a listener through this interface
};

} // namespace veltrano
