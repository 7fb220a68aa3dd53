// SPDX-License-Identifier: GPL-3.0-or-later
// The common base of the two audio ends: the input unit and the output unit.
#pragma once

#include "audio/AUUnitRegistry.h"
#include "audio/DeviceEntry.h"
#include "platform/desktop/ControlPorts.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Lists the devices of one direction, names them and hears of their changes.
///
/// A subclass says which direction it serves and adds itself to the registry's targets when it is
/// ready to be told.
/// Thread: main. Owns: nothing; the registry must outlive it.
class AUUnit {
public:
    explicit AUUnit(AUUnitRegistry& registry);
    virtual ~AUUnit();
    AUUnit(const AUUnit&) = delete;
    AUUnit& operator=(const AUUnit&) = delete;

    virtual bool isInput() const { return false; }

    /// Appends the entries of one direction to @p array, in hardware order. A device without a
    /// stream in that direction is left out. One entry per device, titled "manufacturer : device";
    /// or, when its data source is selectable, one per source, titled "manufacturer : source" (the
    /// device's own name is then deliberately not shown).
    void setupAudioSource(DeviceList& array, bool isInput) const;

    /// Replaces all items by one per entry; item index equals list index.
    void setupPopUpButton(PopUpMenu& popUp, const DeviceList& array) const;

    /// 0 when there is none or it cannot be read.
    DeviceId defaultDevice() const;

    /// The name that the device's current entry has; nullopt when it has no stream in the unit's
    /// direction.
    std::optional<std::string> nameOfDevice(DeviceId device) const;

    /// Told by the registry; the base does nothing and answers 0.
    virtual Status audioHardwareListener(PropertyCode property);
    virtual Status audioDevicePropertyListener(DeviceId device, std::uint32_t channel, bool isInput,
                                               PropertyCode property);

    /// "AUUnit: 0x..." with the object's address.
    virtual std::string description() const;

protected:
    AudioHardware& hardware() const { return mRegistry.hardware(); }
    Log& log() const { return mRegistry.log(); }
    AUUnitRegistry& registry() const { return mRegistry; }
    Direction direction() const { return isInput() ? Direction::input : Direction::output; }
    /// Later, unless this unit is gone by then.
    void performOnMainThread(std::function<void()> function);
    std::string describedAs(std::string_view className) const;

private:
    AUUnitRegistry& mRegistry;
    const std::shared_ptr<void> mAlive; ///< held weakly by what waits for the main thread
};

} // namespace veltrano
