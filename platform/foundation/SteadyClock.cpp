// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/SteadyClock.h"

#include <chrono>

namespace veltrano {

double SteadyClock::now() const {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceStart).count();
}

} // namespace veltrano
