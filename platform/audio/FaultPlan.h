// SPDX-License-Identifier: GPL-3.0-or-later
// Which calls of a made-up audio hardware are to fail.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <vector>

namespace veltrano {

/// The operations of AudioHardware.
enum class HardwareCall {
    devices,
    defaultDevice,
    streamFormat,
    streamConfiguration,
    deviceName,
    deviceManufacturer,
    isDataSourceWritable,
    dataSources,
    dataSource,
    dataSourceName,
    setDataSource,
    isVolumeWritable,
    volume,
    setVolume,
    addHardwareListener,
    removeHardwareListener,
    addDeviceListener,
    removeDeviceListener,
    addIOProc,
    removeIOProc,
    start,
    stop,
};

/// A list of planned failures. A call that answers a Status fails with the planned one, a read
/// finds nothing (nullopt, false or an empty list). Thread: main.
class FaultPlan {
public:
    static constexpr DeviceId kAnyDevice = 0;

    void failNext(HardwareCall call, Status status, DeviceId device = kAnyDevice) {
        mFaults.push_back({call, status, device, true});
    }
    void failEvery(HardwareCall call, Status status, DeviceId device = kAnyDevice) {
        mFaults.push_back({call, status, device, false});
    }
    void clear() { mFaults.clear(); }

    /// The status with which this very call has to fail, or 0; a failure that was planned for one
    /// call is used up. @param device 0 for calls that name none
    Status take(HardwareCall call, DeviceId device);

private:
    struct Fault {
        HardwareCall call;
        Status status;
        DeviceId device;
        bool isOnce;
    };
    std::vector<Fault> mFaults;
};

} // namespace veltrano
