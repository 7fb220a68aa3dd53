// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/CombinedHardware.h"

#include <cassert>
#include <utility>

namespace veltrano {

CombinedHardware::CombinedHardware(std::vector<Part> parts) : mParts(std::move(parts)) {
    assert(!mParts.empty());
}

AudioHardware& CombinedHardware::partOf(DeviceId device) const {
    for (auto part = mParts.rbegin(); part != mParts.rend(); ++part) {
        if (part->firstId <= device) return *part->hardware;
    }
    return *mParts.front().hardware;
}

std::vector<DeviceId> CombinedHardware::devices() const {
    std::vector<DeviceId> all;
    for (const Part& part : mParts) {
        const std::vector<DeviceId> ids = part.hardware->devices();
        all.insert(all.end(), ids.begin(), ids.end());
    }
    return all;
}

std::optional<DeviceId> CombinedHardware::defaultDevice(Direction direction) const {
    for (const Part& part : mParts) {
        if (const auto device = part.hardware->defaultDevice(direction)) return device;
    }
    return std::nullopt;
}

Status CombinedHardware::addHardwareListener(PropertyCode property, AudioHardwareListenerProc proc,
                                             void* client) {
    Status first = audio_status::kOk;
    for (const Part& part : mParts) {
        const Status status = part.hardware->addHardwareListener(property, proc, client);
        if (first == audio_status::kOk) first = status;
    }
    return first;
}

Status CombinedHardware::removeHardwareListener(PropertyCode property,
                                                AudioHardwareListenerProc proc, void* client) {
    Status first = audio_status::kOk;
    for (const Part& part : mParts) {
        const Status status = part.hardware->removeHardwareListener(property, proc, client);
        if (first == audio_status::kOk) first = status;
    }
    return first;
}

// Everything about one device is that device's part's business.

std::optional<StreamDescription> CombinedHardware::streamFormat(DeviceId id, Direction side) const {
    return partOf(id).streamFormat(id, side);
}

std::optional<StreamConfiguration> CombinedHardware::streamConfiguration(DeviceId id,
                                                                         Direction side) const {
    return partOf(id).streamConfiguration(id, side);
}

std::optional<std::string> CombinedHardware::deviceName(DeviceId id, Direction side) const {
    return partOf(id).deviceName(id, side);
}

std::optional<std::string> CombinedHardware::deviceManufacturer(DeviceId id, Direction side) const {
    return partOf(id).deviceManufacturer(id, side);
}

bool CombinedHardware::isDataSourceWritable(DeviceId id, Direction side) const {
    return partOf(id).isDataSourceWritable(id, side);
}

std::vector<DataSourceId> CombinedHardware::dataSources(DeviceId id, Direction side) const {
    return partOf(id).dataSources(id, side);
}

std::optional<DataSourceId> CombinedHardware::dataSource(DeviceId id, Direction side) const {
    return partOf(id).dataSource(id, side);
}

std::optional<std::string> CombinedHardware::dataSourceName(DeviceId id, Direction side,
                                                            DataSourceId source) const {
    return partOf(id).dataSourceName(id, side, source);
}

Status CombinedHardware::setDataSource(DeviceId id, Direction side, DataSourceId source) {
    return partOf(id).setDataSource(id, side, source);
}

bool CombinedHardware::isVolumeWritable(DeviceId id, Direction side, std::uint32_t channel) const {
    return partOf(id).isVolumeWritable(id, side, channel);
}

std::optional<float> CombinedHardware::volume(DeviceId id, Direction side,
                                              std::uint32_t channel) const {
    return partOf(id).volume(id, side, channel);
}

Status CombinedHardware::setVolume(DeviceId id, Direction side, std::uint32_t channel,
                                   float scalar) {
    return partOf(id).setVolume(id, side, channel, scalar);
}

Status CombinedHardware::addDeviceListener(DeviceId id, std::uint32_t channel, Direction side,
                                           PropertyCode property, AudioDeviceListenerProc proc,
                                           void* client) {
    return partOf(id).addDeviceListener(id, channel, side, property, proc, client);
}

Status CombinedHardware::removeDeviceListener(DeviceId id, std::uint32_t channel, Direction side,
                                              PropertyCode property, AudioDeviceListenerProc proc) {
    return partOf(id).removeDeviceListener(id, channel, side, property, proc);
}

Status CombinedHardware::addIOProc(DeviceId id, AudioDeviceIOProc proc, void* refCon) {
    return partOf(id).addIOProc(id, proc, refCon);
}

Status CombinedHardware::removeIOProc(DeviceId id, AudioDeviceIOProc proc) {
    return partOf(id).removeIOProc(id, proc);
}

Status CombinedHardware::start(DeviceId id, AudioDeviceIOProc proc) {
    return partOf(id).start(id, proc);
}

Status CombinedHardware::stop(DeviceId id, AudioDeviceIOProc proc) {
    return partOf(id).stop(id, proc);
}

} // namespace veltrano
