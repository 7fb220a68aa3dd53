// SPDX-License-Identifier: GPL-3.0-or-later
// What a made-up audio device looks like.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// The description of one device of VirtualHardware. All texts are UTF-8.
struct VirtualDevice {
    struct Source {
        DataSourceId id = 0;
        std::string name;
    };
    struct Volume {
        float scalar = 1.0f; ///< [0, 1]
        bool isWritable = true;
    };
    /// What the device has in one direction.
    struct Side {
        StreamDescription format;
        StreamConfiguration configuration;
        std::vector<Source> sources;        ///< empty: the device has no data sources
        std::optional<DataSourceId> source; ///< the one in use
        bool isSourceWritable = true;       ///< counts only when there are sources
        std::vector<Volume> volumes;        ///< of channel 1, 2, ...; empty: no volume
        std::optional<Volume> master;       ///< of channel 0
    };

    std::string manufacturer;
    std::string name;
    std::optional<Side> input;
    std::optional<Side> output;

    /// A side with one buffer of interleaved floats, without data sources and volumes.
    static Side side(double sampleRateHz, std::uint32_t channels) {
        Side made;
        made.format = format(sampleRateHz, channels);
        made.configuration = StreamConfiguration{{channels}};
        return made;
    }

    /// Interleaved native floats.
    static StreamDescription format(double sampleRateHz, std::uint32_t channels) {
        StreamDescription made;
        made.sampleRate = sampleRateHz;
        made.channelsPerFrame = channels;
        made.bytesPerFrame = made.bytesPerPacket = channels * std::uint32_t(sizeof(float));
        return made;
    }
};

} // namespace veltrano
