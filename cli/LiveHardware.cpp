// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/LiveHardware.h"

#include "platform/audio/PulseHardware.h"

namespace veltrano {

std::unique_ptr<AudioHardware> liveHardware(Log& log) {
    return std::make_unique<PulseHardware>(log, PulseHardware::Options{});
}

} // namespace veltrano
