// SPDX-License-Identifier: GPL-3.0-or-later
// What each control of the preferences panel does when it is used.
#pragma once

#include <string>

namespace veltrano {

class AUInputUnit;
class AUOutputUnit;
class Preferences;
class PreferencesDisplay;
class StretchLibrary;
class TemperamentLibrary;

/// One action for each control; the arguments are what the control holds. Each calls the setters,
/// which announce and show the change. Thread: main.
class PreferencesActions {
public:
    /// None of it is owned. A null pointer stands for a part that is not there.
    struct Ports {
        Preferences& preferences;
        PreferencesDisplay& display;
        const TemperamentLibrary* temperaments = nullptr;
        const StretchLibrary* stretches = nullptr;
        AUInputUnit* inputUnit = nullptr;
        AUOutputUnit* outputUnit = nullptr;
    };

    explicit PreferencesActions(const Ports& ports) : mPorts(ports) {}

    void referencePitchChanged(double hz);
    void tuningPopUpChanged(int index);
    void tonicPopUpChanged(int index);
    void stretchPopUpChanged(int index);
    void inTuneThresholdSliderChanged(int cents);
    void manualModeCheckboxChanged(bool on);
    void notePitchRadioButtonChanged(int row);
    void noteOctavePopUpChanged(int noteIndex, int octaveIndex);
    void pitchTextChanged(double hz);
    void soundBackCheckboxChanged(bool on);
    void soundBackDurationSliderChanged(float seconds);
    void soundBackVolumeSliderChanged(int percent);
    void soundBackWaveformPopUpChanged(int index);
    void outputDevicePopupChanged(int index);
    void inputDevicePopupChanged(int index);
    void inputVolumeSliderChanged(int percent);

    /// The file of a menu's item; empty below the library's first one, and outside the library.
    std::string temperamentFileNameAtIndex(int index) const;
    std::string stretchFileNameAtIndex(int index) const;

private:
    const Ports mPorts;
};

} // namespace veltrano
