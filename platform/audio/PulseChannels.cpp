// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseChannels.h"

#include <algorithm>

namespace veltrano {

std::uint32_t pulseBytesOf(double seconds, const pa_sample_spec& format) {
    const double frames = std::max(1.0, seconds * double(format.rate));
    return std::uint32_t(frames) * std::uint32_t(pa_frame_size(&format));
}

pa_channel_map pulseChannelMap(const std::vector<std::uint32_t>& positions) {
    pa_channel_map map;
    pa_channel_map_init(&map);
    const std::size_t channels = std::min<std::size_t>(positions.size(), PA_CHANNELS_MAX);
    map.channels = std::uint8_t(channels);
    for (std::size_t channel = 0; channel < channels; ++channel) {
        map.map[channel] = pa_channel_position_t(positions[channel]);
    }
    return map;
}

} // namespace veltrano
