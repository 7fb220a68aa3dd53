// SPDX-License-Identifier: GPL-3.0-or-later
// The audio hardware of the machine, through its sound server.
#pragma once

#include "platform/audio/AudioHardware.h"
#include "platform/foundation/Log.h"

#include <memory>

namespace veltrano {

struct DeviceRecord;

/// PulseAudio, or PipeWire through its PulseAudio server. A source or a sink is a device.
///
/// The server may be absent, die, hang and come back at any time: then it is as if the devices had
/// been unplugged and plugged. A started device whose sound stays away is given 1.5 s of silence; a
/// list of devices that became empty is announced after it. A started device that comes back gives
/// sound again by itself.
///
/// Device ids are 1 ... 0x3FFFFFFF and belong to the server's names for the life of this object.
/// Channel 0 has no volume. I/O procedures get one buffer of interleaved floats in the device's own
/// rate and channels; the first block's sample time is its length. An output is asked for such
/// a buffer.
///
/// Thread: main; nothing waits for the server. Listeners are called on a thread of this object's
/// own, I/O procedures on libpulse's. start() and stop() not from inside an I/O procedure.
/// Errors: besides audio_status, libpulse's error codes. A setting that the server refuses later
/// is logged as a detail.
class PulseHardware final : public AudioHardware {
public:
    struct Options {
        std::string server;                   ///< as in PULSE_SERVER; empty: the user's own
        std::string application = "Veltrano"; ///< shown by the desktop's mixer
        double firstListSeconds = 0.25;       ///< the constructor waits so long at most
    };

    /// @param log must outlive this object; written on several threads
    PulseHardware(Log& log, const Options& options);
    ~PulseHardware() override;

    std::vector<DeviceId> devices() const override;
    std::optional<DeviceId> defaultDevice(Direction) const override;
    std::optional<StreamDescription> streamFormat(DeviceId, Direction) const override;
    std::optional<StreamConfiguration> streamConfiguration(DeviceId, Direction) const override;
    std::optional<std::string> deviceName(DeviceId, Direction) const override;
    std::optional<std::string> deviceManufacturer(DeviceId, Direction) const override;
    bool isDataSourceWritable(DeviceId, Direction) const override;
    std::vector<DataSourceId> dataSources(DeviceId, Direction) const override;
    std::optional<DataSourceId> dataSource(DeviceId, Direction) const override;
    std::optional<std::string> dataSourceName(DeviceId, Direction, DataSourceId) const override;
    Status setDataSource(DeviceId, Direction, DataSourceId) override;
    bool isVolumeWritable(DeviceId, Direction, std::uint32_t channel) const override;
    std::optional<float> volume(DeviceId, Direction, std::uint32_t channel) const override;
    /// The channels that are written within one turn of the event loop go to the server together.
    Status setVolume(DeviceId, Direction, std::uint32_t channel, float scalar) override;
    Status addHardwareListener(PropertyCode, AudioHardwareListenerProc, void* client) override;
    Status removeHardwareListener(PropertyCode, AudioHardwareListenerProc, void* client) override;
    Status addDeviceListener(DeviceId, std::uint32_t channel, Direction, PropertyCode,
                             AudioDeviceListenerProc, void* client) override;
    Status removeDeviceListener(DeviceId, std::uint32_t channel, Direction, PropertyCode,
                                AudioDeviceListenerProc) override;
    Status addIOProc(DeviceId, AudioDeviceIOProc, void* refCon) override;
    Status removeIOProc(DeviceId, AudioDeviceIOProc) override;
    Status start(DeviceId, AudioDeviceIOProc) override;
    Status stop(DeviceId, AudioDeviceIOProc) override;

private:
    struct Private;

    /// What @p ask says of the device, when it is listed and has that side.
    template <class Ask>
    auto ofDevice(DeviceId, Direction, Ask ask) const;
    void sendVolumes();

    const std::unique_ptr<Private> m;
};

} // namespace veltrano
