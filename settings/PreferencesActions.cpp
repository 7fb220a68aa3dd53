// SPDX-License-Identifier: GPL-3.0-or-later
// What each control of the preferences panel does when it is used.
#include "settings/PreferencesActions.h"

#include "audio/AUInputUnit.h"
#include "audio/AUOutputUnit.h"
#include "settings/InputDeviceListener.h"
#include "settings/Preferences.h"
#include "settings/PreferencesDisplay.h"
#include "tuning/PitchClass.h"
#include "tuning/TuningLibraries.h"

namespace veltrano {

namespace {

constexpr int kNoteType = 0;
constexpr int kPitchType = 1;

} // namespace

std::string PreferencesActions::temperamentFileNameAtIndex(int index) const {
    if (index < Preferences::kFirstEntry || !mPorts.temperaments) return {};
    return mPorts.temperaments->temperamentFileNameAtIndex(index - Preferences::kFirstEntry);
}

std::string PreferencesActions::stretchFileNameAtIndex(int index) const {
    if (index < Preferences::kFirstEntry || !mPorts.stretches) return {};
    return mPorts.stretches->stretchFileNameAtIndex(index - Preferences::kFirstEntry);
}

void PreferencesActions::referencePitchChanged(double hz) {
    mPorts.preferences.setReferencePitch(hz);
    mPorts.display.updateTonicMenu();
}

void PreferencesActions::tuningPopUpChanged(int index) {
    mPorts.preferences.setTuningFileName(temperamentFileNameAtIndex(index));
    mPorts.preferences.setTuning(index);
    mPorts.display.updateTonicMenu();
    mPorts.display.enableTonic();
}

void PreferencesActions::tonicPopUpChanged(int index) {
    mPorts.preferences.setTonic(index);
    mPorts.display.updateTonicMenu();
}

void PreferencesActions::stretchPopUpChanged(int index) {
    mPorts.preferences.setStretchFileName(stretchFileNameAtIndex(index));
    mPorts.preferences.setStretch(index);
}

void PreferencesActions::inTuneThresholdSliderChanged(int cents) {
    mPorts.preferences.setInTuneThreshold(cents);
}

void PreferencesActions::manualModeCheckboxChanged(bool on) {
    mPorts.preferences.setManualMode(on);
}

void PreferencesActions::notePitchRadioButtonChanged(int row) {
    mPorts.preferences.setManualType(row);
}

void PreferencesActions::noteOctavePopUpChanged(int noteIndex, int octaveIndex) {
    mPorts.preferences.setManualType(kNoteType);
    mPorts.preferences.setManualNote(noteIndex + (kHighestOctave - octaveIndex) * kPitchClasses);
}

void PreferencesActions::pitchTextChanged(double hz) {
    mPorts.preferences.setManualType(kPitchType);
    mPorts.preferences.setManualPitch(hz);
}

void PreferencesActions::soundBackCheckboxChanged(bool on) { mPorts.preferences.setSoundBack(on); }

void PreferencesActions::soundBackDurationSliderChanged(float seconds) {
    mPorts.preferences.setSoundBackDuration(seconds);
}

void PreferencesActions::soundBackVolumeSliderChanged(int percent) {
    mPorts.preferences.setSoundBackVolume(percent);
}

void PreferencesActions::soundBackWaveformPopUpChanged(int index) {
    mPorts.preferences.setSoundBackWaveform(index);
}

void PreferencesActions::outputDevicePopupChanged(int index) {
    if (mPorts.outputUnit) mPorts.outputUnit->setOutputDeviceAtIndex(index);
}

void PreferencesActions::inputDevicePopupChanged(int index) {
    if (mPorts.inputUnit) mPorts.inputUnit->setInputDeviceAtIndex(index);
    if (InputDeviceListener* controller = mPorts.preferences.controller()) {
        controller->inputDevicePopupChanged();
    }
}

void PreferencesActions::inputVolumeSliderChanged(int percent) {
    Preferences& preferences = mPorts.preferences;
    if (percent == preferences.inputVolume()) return;
    preferences.setInputVolume(percent);
    if (TextOutlet* text = mPorts.display.controls().mInputVolumeText) {
        text->setText(std::to_string(percent));
    }
    if (mPorts.inputUnit) mPorts.inputUnit->setVolume(percent);
}

} // namespace veltrano
