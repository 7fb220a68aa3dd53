// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/AUUnit.h"

#include <array>
#include <cstdio>
#include <utility>

namespace veltrano {

namespace {

/// A property that a device in the list fails to tell is not worth a line: it reads as nothing.
std::string titled(const std::optional<std::string>& manufacturer,
                   const std::optional<std::string>& name) {
    return manufacturer.value_or("") + " : " + name.value_or("");
}

} // namespace

AUUnit::AUUnit(AUUnitRegistry& registry) : mRegistry(registry), mAlive(std::make_shared<char>()) {}

AUUnit::~AUUnit() { mRegistry.removeListenerTarget(*this); }

void AUUnit::setupAudioSource(DeviceList& array, bool isInput) const {
    const AudioHardware& layer = hardware();
    const Direction side = isInput ? Direction::input : Direction::output;
    for (const DeviceId device : layer.devices()) {
        if (!layer.streamFormat(device, side)) continue;
        const auto name = layer.deviceName(device, side);
        const auto manufacturer = layer.deviceManufacturer(device, side);
        if (!layer.isDataSourceWritable(device, side)) {
            array.push_back({titled(manufacturer, name), device, std::nullopt});
            continue;
        }
        for (const DataSourceId source : layer.dataSources(device, side)) {
            const auto sourceName = layer.dataSourceName(device, side, source);
            array.push_back({titled(manufacturer, sourceName), device, source});
        }
    }
}

void AUUnit::setupPopUpButton(PopUpMenu& popUp, const DeviceList& array) const {
    popUp.clear();
    for (const DeviceEntry& entry : array)
        popUp.addItem(entry.name);
}

DeviceId AUUnit::defaultDevice() const { return hardware().defaultDevice(direction()).value_or(0); }

std::optional<std::string> AUUnit::nameOfDevice(DeviceId device) const {
    const AudioHardware& layer = hardware();
    if (!layer.streamFormat(device, direction())) return std::nullopt;
    const auto manufacturer = layer.deviceManufacturer(device, direction());
    if (!layer.isDataSourceWritable(device, direction())) {
        return titled(manufacturer, layer.deviceName(device, direction()));
    }
    const auto source = layer.dataSource(device, direction());
    if (!source) return titled(manufacturer, std::nullopt);
    return titled(manufacturer, layer.dataSourceName(device, direction(), *source));
}

Status AUUnit::audioHardwareListener(PropertyCode) { return audio_status::kOk; }

Status AUUnit::audioDevicePropertyListener(DeviceId, std::uint32_t, bool, PropertyCode) {
    return audio_status::kOk;
}

std::string AUUnit::description() const { return describedAs("AUUnit"); }

std::string AUUnit::describedAs(std::string_view className) const {
    std::array<char, 32> address{};
    std::snprintf(address.data(), address.size(), "%p", static_cast<const void*>(this));
    return std::string(className) + ": " + address.data();
}

void AUUnit::performOnMainThread(std::function<void()> function) {
    mRegistry.performOnMainThread([alive = std::weak_ptr(mAlive), function = std::move(function)] {
        if (!alive.expired()) function();
    });
}

} // namespace veltrano
