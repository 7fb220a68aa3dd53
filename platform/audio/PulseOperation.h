// SPDX-License-Identifier: GPL-3.0-or-later
// A request that the sound server has not answered yet.
#pragma once

#include <memory>
#include <pulse/operation.h>

namespace veltrano {

struct PulseOperationEnd {
    void operator()(pa_operation* operation) const {
        pa_operation_cancel(operation);
        pa_operation_unref(operation);
    }
};

/// Owns a pending request: when it goes, the request's callback is not called any more.
using PulseOperation = std::unique_ptr<pa_operation, PulseOperationEnd>;

} // namespace veltrano
