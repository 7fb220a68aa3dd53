// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's audio hardware for the commands that listen to it.
#pragma once

#include "platform/audio/AudioHardware.h"

#include <memory>

namespace veltrano {

class Log;

/// Connects to the sound server; without one the device list is empty until it comes.
std::unique_ptr<AudioHardware> liveHardware(Log& log);

} // namespace veltrano
