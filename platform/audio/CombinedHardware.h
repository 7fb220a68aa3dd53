// SPDX-License-Identifier: GPL-3.0-or-later
// Several audio hardwares seen as one.
#pragma once

#include "platform/audio/AudioHardware.h"

namespace veltrano {

/// Joins audio hardwares whose device ids lie in different ranges.
///
/// Thread: as AudioHardware; listeners are called on the thread of the part that announces.
/// Owns: nothing; the parts must outlive it.
class CombinedHardware final : public AudioHardware {
public:
    struct Part {
        AudioHardware* hardware = nullptr;
        DeviceId firstId = 0; ///< its ids reach from here to the next part's first id
    };

    /// @param parts at least one, by rising firstId; the device list follows this order
    explicit CombinedHardware(std::vector<Part> parts);

    std::vector<DeviceId> devices() const override;
    /// That of the first part that has one.
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
    Status setVolume(DeviceId, Direction, std::uint32_t channel, float scalar) override;
    /// In every part, whatever the others answer; the first failure is the answer.
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
    /// An id below every range goes to the first part, which does not know it.
    AudioHardware& partOf(DeviceId device) const;

    const std::vector<Part> mParts;
};

} // namespace veltrano
