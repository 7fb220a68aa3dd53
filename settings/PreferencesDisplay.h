// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the settings in the controls of the preferences panel.
#pragma once

#include "settings/PreferencesControls.h"

#include <string>

namespace veltrano {

class Preferences;
class StretchLibrary;
class TemperamentLibrary;

constexpr int kHighestOctave = 8; ///< first item of the menu of octaves, which counts down to 0

/// One operation for each field. None of them calls a setter. Thread: main.
class PreferencesDisplay {
public:
    /// All of it outlives this; a null library leaves its menu with the built-in item alone.
    PreferencesDisplay(const Preferences& preferences, const TemperamentLibrary* temperaments,
                       const StretchLibrary* stretches, const PreferencesControls& controls);

    void updateUI(); ///< all fields
    void updateReferencePitch();
    void updateTuning();
    void updateTonic();
    void updateStretch();
    void updateInTuneThreshold();
    void updateManualMode();
    void updateManualType();
    void updateManualNote();
    void updateManualPitch();
    void updateSoundBack();
    void updateSoundBackDuration();
    void updateSoundBackVolume();
    void updateSoundBackWaveform();

    void setupPopUpMenus();
    void updateTuningPopUpMenu();
    void updateStretchPopUpMenu();
    /// The twelve notes with their frequencies in octave 4.
    void updateTonicMenu();
    /// The root key can be chosen exactly when there is a temperament.
    void enableTonic();

    const PreferencesControls& controls() const { return mControls; }

private:
    void updatePitchText();
    double tonicFrequency(int pitchClass) const;

    const Preferences& mPreferences;
    const TemperamentLibrary* const mTemperaments;
    const StretchLibrary* const mStretches;
    const PreferencesControls mControls;
};

/// The names of the root keys and of the notes of manual mode. @param pitchClass 0 (C) ... 11
std::string rootKeyName(int pitchClass);

} // namespace veltrano
