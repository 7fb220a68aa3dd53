// SPDX-License-Identifier: GPL-3.0-or-later
// The clock on the wall, without its jumps.
#pragma once

#include "platform/foundation/Clock.h"

namespace veltrano {

/// Seconds since the machine started. Only differences are used, so the reference date is free, and
/// a steady clock keeps the deadlines right when the wall clock is set. Thread: any.
class SteadyClock final : public Clock {
public:
    double now() const override;
};

} // namespace veltrano
