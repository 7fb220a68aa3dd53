// SPDX-License-Identifier: GPL-3.0-or-later
// Lengths and channels as libpulse wants them.
#pragma once

#include <cstdint>
#include <pulse/pulseaudio.h>
#include <vector>

namespace veltrano {

/// Whole frames, at least one.
std::uint32_t pulseBytesOf(double seconds, const pa_sample_spec& format);

/// @param positions one per channel, as the server names them; what is beyond its limit is left out
pa_channel_map pulseChannelMap(const std::vector<std::uint32_t>& positions);

} // namespace veltrano
