// SPDX-License-Identifier: GPL-3.0-or-later
// An audio hardware that exists in this program only: recordings, tones, scripted devices.
#pragma once

#include "platform/audio/AudioHardware.h"
#include "platform/audio/BlockGate.h"
#include "platform/audio/FaultPlan.h"
#include "platform/audio/PropertyNotifier.h"
#include "platform/audio/VirtualDevice.h"

#include <array>
#include <atomic>
#include <memory>

namespace veltrano {

/// Devices that are added by description and fed by whoever has sound for them.
///
/// There are two kinds of operations: those of AudioHardware, which a user of the hardware calls,
/// and those with which the outside world acts on it (add, remove, change, deliver); the latter
/// raise the property notifications that a real change would raise.
///
/// Thread: main, apart from deliver() and isStarted(), which any one thread per device may call
/// while the main thread does what it likes. Listeners are called as NotifyOn says.
/// Allocates: nothing in deliver() and isStarted().
class VirtualHardware final : public AudioHardware {
public:
    /// Ids count up from here and are never used for another device.
    static constexpr DeviceId kFirstId = 0x40000000;
    /// Devices that can be added in the life of this object.
    static constexpr std::size_t kMaxDevices = 4096;

    explicit VirtualHardware(NotifyOn where = NotifyOn::callingThread);
    /// Nothing may be delivering any more. Listeners are not called.
    ~VirtualHardware() override;

    // --- the outside world ---

    /// Adds a device at the end of the list and announces 'dev#'. 0 when there are too many.
    DeviceId addDevice(VirtualDevice device);
    /// Unplugs the device, ends its I/O procedure and announces 'dev#'; unknown: nothing.
    void removeDevice(DeviceId device);
    /// Plugs a removed device in again, with the same id and at its old place; announces 'dev#'.
    void returnDevice(DeviceId device);
    /// Announces nothing, as a sound server does not either. nullopt: no default.
    void setDefaultDevice(Direction direction, std::optional<DeviceId> device);

    /// Each of these changes one side of a device and announces the property named; an unknown
    /// device or a missing side is kBadDevice or kNotSupported, and nothing is announced.
    Status changeFormat(DeviceId, Direction, const StreamDescription& format);        // 'sfmt'
    Status changeConfiguration(DeviceId, Direction, const StreamConfiguration& slay); // 'slay'
    Status changeDataSource(DeviceId, Direction, DataSourceId source);                // 'ssrc'
    /// 'volm' of @p channel; kNotSupported when the device has no such channel.
    Status changeVolume(DeviceId, Direction, std::uint32_t channel, VirtualDevice::Volume volume);
    /// 'diff'. Replaces the whole side.
    Status changeSide(DeviceId, Direction, const VirtualDevice::Side& side);
    /// Announces a property although nothing changed.
    void announce(DeviceId device, std::uint32_t channel, Direction direction,
                  PropertyCode property);

    /// Any thread, one per device. Calls the I/O procedure on this very thread.
    /// @param sampleTime [samples] stamped on the block
    /// @return kNotStarted, and nothing called, when the device is not running
    Status deliver(DeviceId device, AudioBufferList input, double sampleTime,
                   AudioBufferList output = {}) noexcept;
    /// Any thread.
    bool isStarted(DeviceId device) const noexcept;

    // --- scripting and looking on ---

    FaultPlan& faults() { return mFaults; }
    PropertyNotifier& notifier() { return mNotifier; }
    /// Off at first. The log then holds every call of AudioHardware's operations, such as
    /// "start 1073741824", "setVolume 1073741824 input 1 0.5" or "addHardwareListener dev#".
    void keepCalls(bool keep) { mKeepsCalls = keep; }
    const std::vector<std::string>& calls() const { return mCalls; }
    void clearCalls() { mCalls.clear(); }

    // --- AudioHardware ---

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
    struct Device;

    Device* presentDevice(DeviceId device) const;
    VirtualDevice::Side* sideOf(DeviceId device, Direction direction) const;
    BlockGate* gateOf(DeviceId device) const noexcept;
    template <class Change>
    Status changeSideWith(DeviceId, Direction, PropertyCode, std::uint32_t channel, Change change);
    /// Notes the call and answers the failure planned for it, 0 for none.
    template <class... Words>
    Status enter(HardwareCall call, DeviceId device, const Words&... words) const;

    std::vector<std::unique_ptr<Device>> mDevices; ///< by id - kFirstId; gone ones are kept
    std::optional<DeviceId> mDefaultInput;
    std::optional<DeviceId> mDefaultOutput;
    /// By id - kFirstId. Written by the main thread only, read by delivering threads.
    std::array<std::atomic<BlockGate*>, kMaxDevices> mGates{};

    mutable FaultPlan mFaults;
    bool mKeepsCalls = false;
    mutable std::vector<std::string> mCalls;
    PropertyNotifier mNotifier; ///< last: its thread ends before the rest goes
};

} // namespace veltrano
