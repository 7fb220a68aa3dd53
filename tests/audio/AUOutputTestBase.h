// SPDX-License-Identifier: GPL-3.0-or-later
// A machine with loudspeakers and a scripted output unit for the tests of the output side.
#pragma once

#include "audio/AUOutputUnit.h"
#include "tests/audio/AudioUnitTestBase.h"
#include "tests/audio/ScriptedOutputUnit.h"

#include <memory>

namespace veltrano {

constexpr const char* kNoDefaultOutputLine = "Default output device not found in the device list.";

/// An output device of manufacturer "M", with the selectable sources 1, 2, ... if there are names.
inline VirtualDevice loudspeaker(const std::string& name, double rateHz = 44100,
                                 const Lines& sources = {}, DataSourceId current = 1,
                                 std::uint32_t channels = 2) {
    VirtualDevice device;
    device.manufacturer = "M";
    device.name = name;
    device.output = VirtualDevice::side(rateHz, channels);
    for (const auto& source : sources)
        device.output->sources.push_back({DataSourceId(device.output->sources.size() + 1), source});
    if (!sources.empty()) device.output->source = current;
    return device;
}

/// The base of the tests of AUOutputUnit over a scripted unit.
class AUOutputUnitTestBase : public AudioUnitTestBase {
protected:
    AUOutputUnit& unit() {
        if (mUnit == nullptr) {
            mUnit = std::make_unique<AUOutputUnit>(registry(), mUnits);
            mUnit->setAUListenerProc(noteProperty, &heard);
        }
        return *mUnit;
    }
    void endUnit() { mUnit.reset(); }
    /// What the unit's owner was told since the last call: "2 scope 0 element 0".
    Lines takeHeard() { return std::exchange(heard, {}); }
    Lines takeLog() { return std::exchange(log.lines, {}); }
    /// Everything that hardware and unit have announced is served.
    void settle() { mainThread.runAll(); }
    /// As a unit does that is pointed at a device.
    void unitMoves(DeviceId device) {
        script.device = device;
        script.tell(UnitProperty::currentDevice);
        settle();
    }

    OutputUnitScript script;
    Lines heard;

private:
    static void noteProperty(void* client, OutputUnit*, UnitProperty property, UnitScope scope,
                             std::uint32_t element) noexcept {
        static_cast<Lines*>(client)->push_back(std::to_string(std::uint32_t(property)) + " scope " +
                                               std::to_string(std::uint32_t(scope)) + " element " +
                                               std::to_string(element));
    }

    ScriptedOutputUnits mUnits{script};
    std::unique_ptr<AUOutputUnit> mUnit;
};

} // namespace veltrano
