// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/FaultPlan.h"

#include <algorithm>

namespace veltrano {

Status FaultPlan::take(HardwareCall call, DeviceId device) {
    const auto fault = std::find_if(mFaults.begin(), mFaults.end(), [&](const Fault& planned) {
        return planned.call == call && (planned.device == kAnyDevice || planned.device == device);
    });
    if (fault == mFaults.end()) return 0;
    const Status status = fault->status;
    if (fault->isOnce) mFaults.erase(fault);
    return status;
}

} // namespace veltrano
