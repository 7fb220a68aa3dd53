// SPDX-License-Identifier: GPL-3.0-or-later
// What a sound server says about its devices, in plain records.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace veltrano {

/// One jack or built-in microphone of a device.
struct ServerPort {
    std::string name;        ///< the server's own, the port's identity
    std::string description; ///< UTF-8, for people
};

/// One source or sink as the server describes it.
struct ServerRecord {
    static constexpr std::uint32_t kFullVolume = 0x10000; ///< the volume that is scalar 1.0

    Direction direction = Direction::input;
    bool isMonitor = false;       ///< the input hears what an output plays
    std::string name;             ///< the server's own; unlike its index it survives a restart
    std::string vendor;           ///< empty when the server does not know it
    std::string description;      ///< UTF-8, for people
    std::uint32_t sampleRate = 0; ///< [Hz]
    std::vector<std::uint32_t> channelPositions; ///< one per channel, in the order of the samples
    std::vector<std::uint32_t> volumes;          ///< one per channel, kFullVolume = 1.0
    bool isMuted = false;
    std::vector<ServerPort> ports;
    std::string activePort; ///< name of one of @c ports, or empty
};

/// Everything the server says at one moment.
struct ServerListing {
    std::string serverName;    ///< the server's product name
    std::string defaultSource; ///< name of a record, or of nothing
    std::string defaultSink;   ///< as defaultSource
    std::vector<ServerRecord> records;
};

} // namespace veltrano
