// SPDX-License-Identifier: GPL-3.0-or-later
// The plain records that pass between the audio hardware layer and its users.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veltrano {

using DeviceId = std::uint32_t;     ///< 0 = no device; else unique for the life of the process
using DataSourceId = std::uint32_t; ///< an input or output jack of one device
using Status = std::int32_t;        ///< 0 = done; otherwise the layer's own error code

/// The number of a four-character code such as 'sfmt', most significant character first.
constexpr std::uint32_t fourCharCode(const char (&code)[5]) {
    return (std::uint32_t(std::uint8_t(code[0])) << 24) | (std::uint32_t(std::uint8_t(code[1])) << 16) |
           (std::uint32_t(std::uint8_t(code[2])) << 8) | std::uint32_t(std::uint8_t(code[3]));
}

/// What can change, be read or be listened to, of the hardware as a whole or of one device.
enum class PropertyCode : std::uint32_t {
    devices = fourCharCode("dev#"),             ///< the list of devices
    deviceHasChanged = fourCharCode("diff"),    ///< anything not named below
    streamFormat = fourCharCode("sfmt"),        ///< sample rate and format
    streamConfiguration = fourCharCode("slay"), ///< channels and their order
    dataSource = fourCharCode("ssrc"),          ///< the jack in use
    volumeScalar = fourCharCode("volm"),        ///< volume of a channel
};

/// Stands for every channel when a listener is added.
constexpr std::uint32_t kWildcardChannel = 0xFFFFFFFFu;

enum class Direction { input, output };

/// How one sample looks. Samples handed to and by the I/O procedures are always native 32-bit
/// floats; this record tells the rate and the number of channels of the device.
struct StreamDescription {
    double sampleRate = 0; ///< [Hz]
    std::uint32_t formatId = fourCharCode("lpcm");
    std::uint32_t formatFlags = 0;
    std::uint32_t bytesPerPacket = 0;
    std::uint32_t framesPerPacket = 1;
    std::uint32_t bytesPerFrame = 0;
    std::uint32_t channelsPerFrame = 0;
    std::uint32_t bitsPerChannel = 32;
    std::uint32_t reserved = 0;

    bool operator==(const StreamDescription&) const = default;
};

/// The channel count of each buffer that the device delivers per block.
struct StreamConfiguration {
    std::vector<std::uint32_t> channelsOfBuffer;

    bool operator==(const StreamConfiguration&) const = default;
};

/// One buffer of a block: @c channels interleaved channels of 32-bit floats.
struct AudioBuffer {
    std::uint32_t channels = 0;
    std::uint32_t byteSize = 0; ///< size of @c data in bytes
    float* data = nullptr;      ///< owned by the hardware layer, valid during the call only
};

using AudioBufferList = std::span<AudioBuffer>;

/// When a block was taken.
struct AudioTimeStamp {
    double sampleTime = 0; ///< [samples] above 0 on every block of a running device
};

/// Called for every block, on the device's real-time thread. It must not block, lock or allocate.
/// All pointers are valid during the call only. @p output is empty on an input device.
using AudioDeviceIOProc = Status (*)(DeviceId device, const AudioTimeStamp* now,
                                     const AudioBufferList* input, const AudioTimeStamp* inputTime,
                                     AudioBufferList* output, const AudioTimeStamp* outputTime,
                                     void* refCon) noexcept;

/// Called on the layer's notification thread when the hardware as a whole changed.
using AudioHardwareListenerProc = Status (*)(PropertyCode property, void* client) noexcept;

/// Called on the layer's notification thread when a property of a device changed.
using AudioDeviceListenerProc = Status (*)(DeviceId device, std::uint32_t channel, bool isInput,
                                           PropertyCode property, void* client) noexcept;

} // namespace veltrano
