// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/VirtualHardware.h"

#include "platform/audio/CallText.h"

#include <algorithm>
#include <utility>

namespace veltrano {

using audio_status::kBadDevice;
using audio_status::kNotAdded;
using audio_status::kNotStarted;
using audio_status::kNotSupported;
using audio_status::kOk;

struct VirtualHardware::Device {
    VirtualDevice description;
    bool isPresent = true;
    AudioDeviceIOProc ioProc = nullptr; ///< null: none was added
    void* ioRefCon = nullptr;
    BlockGate gate;
};

namespace {

VirtualDevice::Volume* volumeOf(VirtualDevice::Side& side, std::uint32_t channel) {
    if (channel == 0) return side.master ? &*side.master : nullptr;
    return channel <= side.volumes.size() ? &side.volumes[channel - 1] : nullptr;
}

const VirtualDevice::Source* sourceOf(const VirtualDevice::Side& side, DataSourceId id) {
    const auto found = std::find_if(side.sources.begin(), side.sources.end(),
                                    [id](const auto& source) { return source.id == id; });
    return found == side.sources.end() ? nullptr : &*found;
}

bool isSourceWritable(const VirtualDevice::Side& side) {
    return side.isSourceWritable && !side.sources.empty();
}

} // namespace

VirtualHardware::VirtualHardware(NotifyOn where) : mNotifier(where) {}

VirtualHardware::~VirtualHardware() = default;

// --- the outside world ---

DeviceId VirtualHardware::addDevice(VirtualDevice device) {
    const std::size_t index = mDevices.size();
    if (index == kMaxDevices) return 0;
    mDevices.push_back(std::make_unique<Device>());
    mDevices.back()->description = std::move(device);
    mGates[index].store(&mDevices.back()->gate, std::memory_order_release);
    mNotifier.notifyHardware(PropertyCode::devices);
    return kFirstId + DeviceId(index);
}

void VirtualHardware::removeDevice(DeviceId id) {
    Device* const device = presentDevice(id);
    if (device == nullptr) return;
    device->gate.close();
    device->ioProc = nullptr;
    device->isPresent = false;
    mNotifier.notifyHardware(PropertyCode::devices);
}

void VirtualHardware::returnDevice(DeviceId id) {
    const std::size_t index = id - kFirstId; // an id below wraps to a large index
    if (index >= mDevices.size() || mDevices[index]->isPresent) return;
    mDevices[index]->isPresent = true;
    mNotifier.notifyHardware(PropertyCode::devices);
}

void VirtualHardware::setDefaultDevice(Direction direction, std::optional<DeviceId> device) {
    (direction == Direction::input ? mDefaultInput : mDefaultOutput) = device;
}

template <class Change>
Status VirtualHardware::changeSideWith(DeviceId id, Direction direction, PropertyCode property,
                                       std::uint32_t channel, Change change) {
    if (presentDevice(id) == nullptr) return kBadDevice;
    VirtualDevice::Side* const side = sideOf(id, direction);
    if (side == nullptr || !change(*side)) return kNotSupported;
    announce(id, channel, direction, property);
    return kOk;
}

Status VirtualHardware::changeFormat(DeviceId id, Direction direction,
                                     const StreamDescription& format) {
    return changeSideWith(id, direction, PropertyCode::streamFormat, 0, [&](auto& side) {
        side.format = format;
        return true;
    });
}

Status VirtualHardware::changeConfiguration(DeviceId id, Direction direction,
                                            const StreamConfiguration& slay) {
    return changeSideWith(id, direction, PropertyCode::streamConfiguration, 0, [&](auto& side) {
        side.configuration = slay;
        return true;
    });
}

Status VirtualHardware::changeDataSource(DeviceId id, Direction direction, DataSourceId source) {
    return changeSideWith(id, direction, PropertyCode::dataSource, 0, [&](auto& side) {
        if (sourceOf(side, source) == nullptr) return false;
        side.source = source;
        return true;
    });
}

Status VirtualHardware::changeVolume(DeviceId id, Direction direction, std::uint32_t channel,
                                     VirtualDevice::Volume volume) {
    return changeSideWith(id, direction, PropertyCode::volumeScalar, channel, [&](auto& side) {
        VirtualDevice::Volume* const held = volumeOf(side, channel);
        if (held == nullptr) return false;
        *held = volume;
        return true;
    });
}

Status VirtualHardware::changeSide(DeviceId id, Direction direction,
                                   const VirtualDevice::Side& changed) {
    return changeSideWith(id, direction, PropertyCode::deviceHasChanged, 0, [&](auto& side) {
        side = changed;
        return true;
    });
}

void VirtualHardware::announce(DeviceId device, std::uint32_t channel, Direction direction,
                               PropertyCode property) {
    mNotifier.notifyDevice(device, channel, direction, property);
}

Status VirtualHardware::deliver(DeviceId device, AudioBufferList input, double sampleTime,
                                AudioBufferList output) noexcept {
    BlockGate* const gate = gateOf(device);
    if (gate == nullptr) return kBadDevice;
    return gate->deliver(device, input, output, sampleTime) ? kOk : kNotStarted;
}

bool VirtualHardware::isStarted(DeviceId device) const noexcept {
    const BlockGate* const gate = gateOf(device);
    return gate != nullptr && gate->isOpen();
}

// --- finding ---

VirtualHardware::Device* VirtualHardware::presentDevice(DeviceId id) const {
    const std::size_t index = id - kFirstId;
    if (index >= mDevices.size() || !mDevices[index]->isPresent) return nullptr;
    return mDevices[index].get();
}

VirtualDevice::Side* VirtualHardware::sideOf(DeviceId id, Direction direction) const {
    Device* const device = presentDevice(id);
    if (device == nullptr) return nullptr;
    VirtualDevice& description = device->description;
    auto& side = direction == Direction::input ? description.input : description.output;
    return side ? &*side : nullptr;
}

BlockGate* VirtualHardware::gateOf(DeviceId id) const noexcept {
    const std::size_t index = id - kFirstId;
    return index < kMaxDevices ? mGates[index].load(std::memory_order_acquire) : nullptr;
}

template <class... Words>
Status VirtualHardware::enter(HardwareCall call, DeviceId device, const Words&... words) const {
    if (mKeepsCalls) mCalls.push_back(call_text::line(call, words...));
    return mFaults.take(call, device);
}

// --- AudioHardware: reading ---

std::vector<DeviceId> VirtualHardware::devices() const {
    std::vector<DeviceId> ids;
    if (enter(HardwareCall::devices, 0) != kOk) return ids;
    for (std::size_t index = 0; index < mDevices.size(); ++index) {
        if (mDevices[index]->isPresent) ids.push_back(kFirstId + DeviceId(index));
    }
    return ids;
}

std::optional<DeviceId> VirtualHardware::defaultDevice(Direction direction) const {
    if (enter(HardwareCall::defaultDevice, 0, direction) != kOk) return std::nullopt;
    const auto id = direction == Direction::input ? mDefaultInput : mDefaultOutput;
    return id && presentDevice(*id) != nullptr ? id : std::nullopt;
}

std::optional<StreamDescription> VirtualHardware::streamFormat(DeviceId id,
                                                               Direction direction) const {
    const Status fault = enter(HardwareCall::streamFormat, id, id, direction);
    const auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return std::nullopt;
    return side->format;
}

std::optional<StreamConfiguration> VirtualHardware::streamConfiguration(DeviceId id,
                                                                        Direction direction) const {
    const Status fault = enter(HardwareCall::streamConfiguration, id, id, direction);
    const auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return std::nullopt;
    return side->configuration;
}

std::optional<std::string> VirtualHardware::deviceName(DeviceId id, Direction direction) const {
    const Status fault = enter(HardwareCall::deviceName, id, id, direction);
    if (fault != kOk || sideOf(id, direction) == nullptr) return std::nullopt;
    return presentDevice(id)->description.name;
}

std::optional<std::string> VirtualHardware::deviceManufacturer(DeviceId id,
                                                               Direction direction) const {
    const Status fault = enter(HardwareCall::deviceManufacturer, id, id, direction);
    if (fault != kOk || sideOf(id, direction) == nullptr) return std::nullopt;
    return presentDevice(id)->description.manufacturer;
}

bool VirtualHardware::isDataSourceWritable(DeviceId id, Direction direction) const {
    const Status fault = enter(HardwareCall::isDataSourceWritable, id, id, direction);
    const auto* const side = sideOf(id, direction);
    return fault == kOk && side != nullptr && isSourceWritable(*side);
}

std::vector<DataSourceId> VirtualHardware::dataSources(DeviceId id, Direction direction) const {
    std::vector<DataSourceId> ids;
    const Status fault = enter(HardwareCall::dataSources, id, id, direction);
    const auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return ids;
    for (const auto& source : side->sources)
        ids.push_back(source.id);
    return ids;
}

std::optional<DataSourceId> VirtualHardware::dataSource(DeviceId id, Direction direction) const {
    const Status fault = enter(HardwareCall::dataSource, id, id, direction);
    const auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return std::nullopt;
    return side->source;
}

std::optional<std::string> VirtualHardware::dataSourceName(DeviceId id, Direction direction,
                                                           DataSourceId source) const {
    const Status fault = enter(HardwareCall::dataSourceName, id, id, direction, source);
    const auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return std::nullopt;
    const auto* const found = sourceOf(*side, source);
    return found != nullptr ? std::optional(found->name) : std::nullopt;
}

bool VirtualHardware::isVolumeWritable(DeviceId id, Direction direction,
                                       std::uint32_t channel) const {
    const Status fault = enter(HardwareCall::isVolumeWritable, id, id, direction, channel);
    auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return false;
    const auto* const held = volumeOf(*side, channel);
    return held != nullptr && held->isWritable;
}

std::optional<float> VirtualHardware::volume(DeviceId id, Direction direction,
                                             std::uint32_t channel) const {
    const Status fault = enter(HardwareCall::volume, id, id, direction, channel);
    auto* const side = sideOf(id, direction);
    if (fault != kOk || side == nullptr) return std::nullopt;
    const auto* const held = volumeOf(*side, channel);
    return held != nullptr ? std::optional(held->scalar) : std::nullopt;
}

// --- AudioHardware: writing ---

Status VirtualHardware::setDataSource(DeviceId id, Direction direction, DataSourceId source) {
    const Status fault = enter(HardwareCall::setDataSource, id, id, direction, source);
    if (fault != kOk) return fault;
    if (presentDevice(id) == nullptr) return kBadDevice;
    VirtualDevice::Side* const side = sideOf(id, direction);
    if (side == nullptr || !isSourceWritable(*side)) return kNotSupported;
    if (side->source == source) return kOk;
    return changeDataSource(id, direction, source);
}

Status VirtualHardware::setVolume(DeviceId id, Direction direction, std::uint32_t channel,
                                  float scalar) {
    const Status fault = enter(HardwareCall::setVolume, id, id, direction, channel, scalar);
    if (fault != kOk) return fault;
    if (presentDevice(id) == nullptr) return kBadDevice;
    VirtualDevice::Side* const side = sideOf(id, direction);
    const auto* const held = side != nullptr ? volumeOf(*side, channel) : nullptr;
    if (held == nullptr || !held->isWritable) return kNotSupported;
    const float bounded = std::clamp(scalar, 0.0f, 1.0f);
    if (held->scalar == bounded) return kOk;
    return changeVolume(id, direction, channel, {bounded, true});
}

Status VirtualHardware::addHardwareListener(PropertyCode property, AudioHardwareListenerProc proc,
                                            void* client) {
    const Status fault = enter(HardwareCall::addHardwareListener, 0, property);
    if (fault != kOk) return fault;
    mNotifier.add(PropertyNotifier::HardwareListener{property, proc, client});
    return kOk;
}

Status VirtualHardware::removeHardwareListener(PropertyCode property,
                                               AudioHardwareListenerProc proc, void* client) {
    const Status fault = enter(HardwareCall::removeHardwareListener, 0, property);
    if (fault != kOk) return fault;
    return mNotifier.remove(PropertyNotifier::HardwareListener{property, proc, client}) ? kOk
                                                                                        : kNotAdded;
}

Status VirtualHardware::addDeviceListener(DeviceId id, std::uint32_t channel, Direction direction,
                                          PropertyCode property, AudioDeviceListenerProc proc,
                                          void* client) {
    const Status fault =
        enter(HardwareCall::addDeviceListener, id, id, direction, property, channel);
    if (fault != kOk) return fault;
    if (presentDevice(id) == nullptr) return kBadDevice;
    mNotifier.add(PropertyNotifier::DeviceListener{id, channel, direction, property, proc, client});
    return kOk;
}

Status VirtualHardware::removeDeviceListener(DeviceId id, std::uint32_t channel,
                                             Direction direction, PropertyCode property,
                                             AudioDeviceListenerProc proc) {
    const Status fault =
        enter(HardwareCall::removeDeviceListener, id, id, direction, property, channel);
    if (fault != kOk) return fault;
    // Also for a device that is gone: its listeners must not outlive their owner.
    const PropertyNotifier::DeviceListener gone{id, channel, direction, property, proc, nullptr};
    return mNotifier.remove(gone) ? kOk : kNotAdded;
}

Status VirtualHardware::addIOProc(DeviceId id, AudioDeviceIOProc proc, void* refCon) {
    const Status fault = enter(HardwareCall::addIOProc, id, id);
    if (fault != kOk) return fault;
    Device* const device = presentDevice(id);
    if (device == nullptr) return kBadDevice;
    if (proc == nullptr || device->gate.isOpen()) return kNotSupported;
    device->ioProc = proc;
    device->ioRefCon = refCon;
    return kOk;
}

Status VirtualHardware::removeIOProc(DeviceId id, AudioDeviceIOProc proc) {
    const Status fault = enter(HardwareCall::removeIOProc, id, id);
    if (fault != kOk) return fault;
    Device* const device = presentDevice(id);
    if (device == nullptr) return kBadDevice;
    if (proc == nullptr || device->ioProc != proc) return kNotAdded;
    device->gate.close();
    device->ioProc = nullptr;
    return kOk;
}

Status VirtualHardware::start(DeviceId id, AudioDeviceIOProc proc) {
    const Status fault = enter(HardwareCall::start, id, id);
    if (fault != kOk) return fault;
    Device* const device = presentDevice(id);
    if (device == nullptr) return kBadDevice;
    if (proc == nullptr || device->ioProc != proc) return kNotAdded;
    if (!device->gate.isOpen()) device->gate.open(device->ioProc, device->ioRefCon);
    return kOk;
}

Status VirtualHardware::stop(DeviceId id, AudioDeviceIOProc proc) {
    const Status fault = enter(HardwareCall::stop, id, id);
    if (fault != kOk) return fault;
    Device* const device = presentDevice(id);
    if (device == nullptr) return kBadDevice;
    if (proc == nullptr || device->ioProc != proc) return kNotAdded;
    device->gate.close();
    return kOk;
}

} // namespace veltrano
