// SPDX-License-Identifier: GPL-3.0-or-later
// What plays: a unit that is pointed at an output device and asks for sound.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <memory>
#include <optional>

namespace veltrano {

class OutputUnit;

/// Called for every render cycle, on the unit's real-time thread. It must not block, lock or
/// allocate. The buffers hold one channel each of the unit's client format and are cleared before.
using RenderProc = Status (*)(void* refCon, const AudioTimeStamp* time, std::uint32_t bus,
                              std::uint32_t frames, AudioBufferList* buffers) noexcept;

/// Properties of a unit, by their codes.
enum class UnitProperty : std::uint32_t {
    sampleRate = 2,
    streamFormat = 8,
    renderCallback = 23,
    currentDevice = 2000,
};

/// Side of a unit to which a property belongs.
enum class UnitScope : std::uint32_t { global = 0, input = 1, output = 2 };

/// Called on the main thread when a property of the unit changed.
using UnitListenerProc = void (*)(void* client, OutputUnit* unit, UnitProperty property,
                                  UnitScope scope, std::uint32_t element) noexcept;

/// An output unit. Its client format is two channels of 32-bit floats, each in a buffer of its own,
/// at the rate that setStreamFormat() names.
///
/// Thread: main, but for the render procedure. When stop() has returned, the procedure is not
/// running and will not be called until start().
/// Errors: a Status other than 0 is the layer's own code; nothing throws.
class OutputUnit {
public:
    virtual ~OutputUnit() = default;

    virtual Status initialize() = 0;
    /// @p listener hears of one property, with its scope and element.
    virtual Status addPropertyListener(UnitProperty property, UnitListenerProc listener,
                                       void* client) = 0;
    /// Takes effect at the next render cycle. Null: silence.
    virtual Status setRenderCallback(RenderProc proc, void* refCon) = 0;

    virtual std::optional<DeviceId> currentDevice() const = 0;
    /// A running unit plays on at the new device.
    virtual Status setCurrentDevice(DeviceId device) = 0;

    virtual std::optional<StreamDescription> streamFormat() const = 0; ///< of the client
    virtual Status setStreamFormat(const StreamDescription& format) = 0;

    virtual Status start() = 0;
    virtual Status stop() = 0;
};

/// Where output units come from. Thread: main.
class OutputUnitSource {
public:
    virtual ~OutputUnitSource() = default;
    virtual bool isAvailable() const = 0; ///< there is such a component at all
    /// @param unit null when it could not be opened
    virtual Status open(std::unique_ptr<OutputUnit>& unit) = 0;
};

} // namespace veltrano
