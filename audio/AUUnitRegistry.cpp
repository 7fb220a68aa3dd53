// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/AUUnitRegistry.h"

#include "audio/AUUnit.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veltrano {

namespace {

struct ListenedProperty {
    PropertyCode property;
    std::uint32_t channel;
};

constexpr std::array<ListenedProperty, 5> kListenedProperties = {{
    {PropertyCode::deviceHasChanged, 0},
    {PropertyCode::streamFormat, 0},
    {PropertyCode::dataSource, 0},
    {PropertyCode::volumeScalar, kWildcardChannel},
    {PropertyCode::streamConfiguration, 0},
}};

constexpr Direction directionOf(bool isInput) {
    return isInput ? Direction::input : Direction::output;
}

Status hardwareTrampoline(PropertyCode property, void* client) noexcept {
    return static_cast<AUUnitRegistry*>(client)->audioHardwareListenerProc(property);
}

Status deviceTrampoline(DeviceId device, std::uint32_t channel, bool isInput, PropertyCode property,
                        void* client) noexcept {
    return static_cast<AUUnitRegistry*>(client)->audioDevicePropertyListenerDispatchWithObject(
        {device, channel, isInput, property});
}

} // namespace

AUUnitRegistry::AUUnitRegistry(AudioHardware& hardware, PostToMainThread post, Log& log)
    : mHardware(hardware), mPost(std::move(post)), mLog(log), mAlive(std::make_shared<char>()) {
    mHardware.addHardwareListener(PropertyCode::devices, hardwareTrampoline, this);
    rebuildDeviceList();
}

AUUnitRegistry::~AUUnitRegistry() {
    mHardware.removeHardwareListener(PropertyCode::devices, hardwareTrampoline, this);
    for (const DeviceId device : mDeviceIDs) {
        removeListeners(device, true);
        removeListeners(device, false);
    }
}

void AUUnitRegistry::performOnMainThread(std::function<void()> function) {
    mPost([alive = std::weak_ptr(mAlive), function = std::move(function)] {
        if (!alive.expired()) function();
    });
}

void AUUnitRegistry::rebuildDeviceList() {
    for (const DeviceId device : mDeviceIDs) {
        removeListeners(device, true);
        removeListeners(device, false);
    }
    mDeviceIDs = mHardware.devices();
    for (const DeviceId device : mDeviceIDs) {
        addListeners(device, true);
        addListeners(device, false);
    }
}

void AUUnitRegistry::addListenerTarget(AUUnit& target) { mTargets.push_back(&target); }

void AUUnitRegistry::removeListenerTarget(AUUnit& target) {
    std::replace(mTargets.begin(), mTargets.end(), &target, static_cast<AUUnit*>(nullptr));
    if (mTellingDepth == 0) std::erase(mTargets, nullptr);
}

void AUUnitRegistry::addListeners(DeviceId device, bool isInput) {
    for (const auto& [property, channel] : kListenedProperties) {
        mHardware.addDeviceListener(device, channel, directionOf(isInput), property,
                                    deviceTrampoline, this);
    }
}

void AUUnitRegistry::removeListeners(DeviceId device, bool isInput) {
    for (const auto& [property, channel] : kListenedProperties) {
        mHardware.removeDeviceListener(device, channel, directionOf(isInput), property,
                                       deviceTrampoline);
    }
}

Status AUUnitRegistry::audioHardwareListenerProc(PropertyCode property) {
    performOnMainThread([this, property] { audioHardwareListenerWithObject(property); });
    return audio_status::kOk;
}

Status AUUnitRegistry::audioDevicePropertyListenerDispatchWithObject(
    const DeviceNotification& notification) {
    performOnMainThread(
        [this, notification] { audioDevicePropertyListenerWithObject(notification); });
    return audio_status::kOk;
}

template <class Tell>
void AUUnitRegistry::tellTargets(Tell tell) {
    ++mTellingDepth;
    // By index: what a unit does on being told may make or end units.
    for (std::size_t index = 0; index < mTargets.size(); ++index) {
        if (mTargets[index] != nullptr) tell(*mTargets[index]);
    }
    if (--mTellingDepth == 0) std::erase(mTargets, nullptr);
}

void AUUnitRegistry::audioHardwareListenerWithObject(PropertyCode property) {
    if (property == PropertyCode::devices) rebuildDeviceList();
    tellTargets([property](AUUnit& target) { target.audioHardwareListener(property); });
}

void AUUnitRegistry::audioDevicePropertyListenerWithObject(const DeviceNotification& notification) {
    tellTargets([&](AUUnit& target) {
        target.audioDevicePropertyListener(notification.deviceID, notification.channel,
                                           notification.isInput, notification.propertyID);
    });
}

} // namespace veltrano
