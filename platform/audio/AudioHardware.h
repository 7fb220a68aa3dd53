// SPDX-License-Identifier: GPL-3.0-or-later
// The audio hardware layer: devices, their properties, their blocks of sound.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// The audio hardware of the machine, or a made-up one.
///
/// A device may have an input side, an output side or both; a property that is asked of a side the
/// device does not have is nullopt, as is every property of a device that is gone.
///
/// Thread: every operation is for the main thread and is answered from a snapshot: it never waits
/// for a server. Listeners are called on the layer's notification thread, I/O procedures on the
/// device's real-time thread (or wherever the implementation says).
/// Errors: a Status other than 0 is the layer's own error code; nothing throws.
class AudioHardware {
public:
    virtual ~AudioHardware() = default;

    /// Real devices first, monitors of outputs last; the order is stable while nothing changes.
    virtual std::vector<DeviceId> devices() const = 0;
    /// nullopt when there is no default device or it is not known yet.
    virtual std::optional<DeviceId> defaultDevice(Direction) const = 0;

    /// nullopt when the device has no stream in that direction.
    virtual std::optional<StreamDescription> streamFormat(DeviceId, Direction) const = 0;
    virtual std::optional<StreamConfiguration> streamConfiguration(DeviceId, Direction) const = 0;
    /// UTF-8, for people.
    virtual std::optional<std::string> deviceName(DeviceId, Direction) const = 0;
    virtual std::optional<std::string> deviceManufacturer(DeviceId, Direction) const = 0;

    /// Whether there is a choice of data source, so that it can be written.
    virtual bool isDataSourceWritable(DeviceId, Direction) const = 0;
    virtual std::vector<DataSourceId> dataSources(DeviceId, Direction) const = 0;
    virtual std::optional<DataSourceId> dataSource(DeviceId, Direction) const = 0;
    virtual std::optional<std::string> dataSourceName(DeviceId, Direction, DataSourceId) const = 0;
    /// When the answer is 0 it is read back at once; 'ssrc' comes when the device has followed.
    virtual Status setDataSource(DeviceId, Direction, DataSourceId) = 0;

    /// @param channel 1 ... channels; 0 is the master channel, which a device may lack
    virtual bool isVolumeWritable(DeviceId, Direction, std::uint32_t channel) const = 0;
    /// Scalar in [0, 1].
    virtual std::optional<float> volume(DeviceId, Direction, std::uint32_t channel) const = 0;
    /// @param scalar in [0, 1]
    virtual Status setVolume(DeviceId, Direction, std::uint32_t channel, float scalar) = 0;

    /// @p client is handed back to @p proc; the pair identifies the listener.
    virtual Status addHardwareListener(PropertyCode, AudioHardwareListenerProc proc,
                                       void* client) = 0;
    virtual Status removeHardwareListener(PropertyCode, AudioHardwareListenerProc proc,
                                          void* client) = 0;
    virtual Status addDeviceListener(DeviceId, std::uint32_t channel, Direction, PropertyCode,
                                     AudioDeviceListenerProc proc, void* client) = 0;
    /// After it has returned, @p proc is not running for this registration (unless it is itself the
    /// caller) and no further call begins; removeHardwareListener() promises the same.
    virtual Status removeDeviceListener(DeviceId, std::uint32_t channel, Direction, PropertyCode,
                                        AudioDeviceListenerProc proc) = 0;

    /// @p proc gets the device's blocks once it is started. One procedure per device.
    virtual Status addIOProc(DeviceId, AudioDeviceIOProc proc, void* refCon) = 0;
    virtual Status removeIOProc(DeviceId, AudioDeviceIOProc proc) = 0;
    virtual Status start(DeviceId, AudioDeviceIOProc proc) = 0;
    /// When it has returned, @p proc is not running and will not be called again.
    virtual Status stop(DeviceId, AudioDeviceIOProc proc) = 0;
};

/// Error codes of the layer that no library supplies.
namespace audio_status {
constexpr Status kOk = 0;
constexpr Status kBadDevice = -1;    ///< no such device, or it is gone
constexpr Status kNotSupported = -2; ///< the device has no such property or side
constexpr Status kNotAdded = -3;     ///< the I/O procedure or listener was never added
constexpr Status kNotStarted = -4;   ///< the device is not running
} // namespace audio_status

} // namespace veltrano
