// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the settings in the controls of the preferences panel.
#include "settings/PreferencesDisplay.h"

#include "platform/foundation/LenientNumber.h"
#include "settings/Preferences.h"
#include "tuning/PitchClass.h"
#include "tuning/TuningLibraries.h"

#include <array>
#include <cmath>

namespace veltrano {

namespace {

constexpr int kPitchRow = 1;

constexpr std::array<const char*, 12> kRootKeyNames{"C", "C#/Db", "D", "D#/Eb", "E", "F", "F#/Gb",
                                                    "G", "G#/Ab", "A", "A#/Bb", "B"};

void show(ValueControl* control, double value) {
    if (control) control->setValue(value);
}

void show(TextOutlet* control, const std::string& text) {
    if (control) control->setText(text);
}

void select(PopUpMenu* control, int index) {
    if (control) control->selectIndex(index);
}

template <class Control>
void enable(Control* control, bool enabled) {
    if (control) control->setEnabled(enabled);
}

/// What a menu holds when there is no library.
void fillWithBuiltIn(PopUpMenu& menu, std::string_view title) {
    menu.clear();
    menu.addItem(title);
    menu.setEnabled(false);
}

} // namespace

std::string rootKeyName(int pitchClass) {
    return kRootKeyNames[static_cast<std::size_t>(pitchClass)];
}

PreferencesDisplay::PreferencesDisplay(const Preferences& preferences,
                                       const TemperamentLibrary* temperaments,
                                       const StretchLibrary* stretches,
                                       const PreferencesControls& controls)
    : mPreferences(preferences), mTemperaments(temperaments), mStretches(stretches),
      mControls(controls) {}

void PreferencesDisplay::updateUI() {
    updateReferencePitch();
    updateTuning();
    updateTonic();
    updateStretch();
    updateInTuneThreshold();
    updateManualMode();
    updateManualType();
    updateManualNote();
    updateManualPitch();
    updateSoundBack();
    updateSoundBackDuration();
    updateSoundBackVolume();
    updateSoundBackWaveform();
}

void PreferencesDisplay::updateReferencePitch() {
    show(mControls.mReferencePitchText, mPreferences.referencePitch());
    show(mControls.mReferencePitchStepper, mPreferences.referencePitch());
}

void PreferencesDisplay::updateTuning() {
    select(mControls.mTuningPopUpButton, mPreferences.tuning());
}

void PreferencesDisplay::updateTonic() {
    select(mControls.mTonicPopUpButton, mPreferences.tonic());
}

void PreferencesDisplay::updateStretch() {
    select(mControls.mStretchPopUpButton, mPreferences.stretch());
}

void PreferencesDisplay::updateInTuneThreshold() {
    const int threshold = mPreferences.inTuneThreshold();
    const char* const unit = threshold < 2 ? " cent" : " cents"; // kept: "0 cent"
    show(mControls.mInTuneThresholdText, "\u00B1" + std::to_string(threshold) + unit);
    show(mControls.mInTuneThresholdSlider, threshold);
}

void PreferencesDisplay::updateManualMode() {
    const bool isManual = mPreferences.manualMode();
    show(mControls.mManualModeCheckbox, isManual);
    enable(mControls.mNotePitchRadioButton, isManual);
    enable(mControls.mNotePopUpButton, isManual);
    enable(mControls.mOctavePopUpButton, isManual);
    updatePitchText();
}

void PreferencesDisplay::updateManualType() {
    show(mControls.mNotePitchRadioButton, mPreferences.manualType());
    updatePitchText();
}

void PreferencesDisplay::updatePitchText() {
    const bool isEnabled = mPreferences.manualMode() && mPreferences.manualType() == kPitchRow;
    enable(mControls.mPitchText, isEnabled);
    enable(mControls.mPitchTextStepper, isEnabled);
}

void PreferencesDisplay::updateManualNote() {
    const int key = mPreferences.manualNote();
    select(mControls.mNotePopUpButton, key % kPitchClasses);
    select(mControls.mOctavePopUpButton, kHighestOctave - key / kPitchClasses);
}

void PreferencesDisplay::updateManualPitch() {
    show(mControls.mPitchText, mPreferences.manualPitch());
    show(mControls.mPitchTextStepper, mPreferences.manualPitch());
}

void PreferencesDisplay::updateSoundBack() {
    show(mControls.mSoundBackCheckbox, mPreferences.soundBack());
}

void PreferencesDisplay::updateSoundBackDuration() {
    const auto seconds = double(mPreferences.soundBackDuration());
    show(mControls.mSoundBackDurationText, fixedDecimals(seconds, 1) + " sec");
    show(mControls.mSoundBackDurationSlider, seconds);
}

void PreferencesDisplay::updateSoundBackVolume() {
    show(mControls.mSoundBackVolumeText, mPreferences.soundBackVolume());
    show(mControls.mSoundBackVolumeSlider, mPreferences.soundBackVolume());
}

void PreferencesDisplay::updateSoundBackWaveform() {
    select(mControls.mSoundBackWaveformPopUpButton, mPreferences.soundBackWaveform());
}

void PreferencesDisplay::setupPopUpMenus() {
    updateTuningPopUpMenu();
    updateStretchPopUpMenu();
    updateTonicMenu();
    enableTonic();
}

void PreferencesDisplay::updateTuningPopUpMenu() {
    if (!mControls.mTuningPopUpButton) return;
    if (mTemperaments) {
        mTemperaments->updatePopUpButton(*mControls.mTuningPopUpButton);
    } else {
        fillWithBuiltIn(*mControls.mTuningPopUpButton, "Equal Tempered");
    }
}

void PreferencesDisplay::updateStretchPopUpMenu() {
    if (!mControls.mStretchPopUpButton) return;
    if (mStretches) {
        mStretches->updatePopUpButton(*mControls.mStretchPopUpButton);
    } else {
        fillWithBuiltIn(*mControls.mStretchPopUpButton, "None");
    }
}

double PreferencesDisplay::tonicFrequency(int pitchClass) const {
    const double pitch = mPreferences.referencePitch();
    const int a = kPitchClasses - 3; // pitch class of the reference
    if (mPreferences.tuning() == 0) return pitch * std::pow(2.0, (pitchClass - a) / 12.0);
    const int degree = (pitchClass - mPreferences.tonic() + kPitchClasses) % kPitchClasses;
    const double offset = mPreferences.temperamentTable()[static_cast<std::size_t>(degree)];
    return pitch * std::pow(2.0, (-900.0 + 100.0 * pitchClass + offset) / 1200.0);
}

void PreferencesDisplay::updateTonicMenu() {
    if (!mControls.mTonicPopUpButton) return;
    PopUpMenu& menu = *mControls.mTonicPopUpButton;
    menu.clear();
    for (int k = 0; k < kPitchClasses; ++k)
        menu.addItem(rootKeyName(k) + " (" + fixedDecimals(tonicFrequency(k), 6) + "Hz)");
    updateTonic();
}

void PreferencesDisplay::enableTonic() {
    enable(mControls.mTonicPopUpButton, mPreferences.tuning() != 0);
}

} // namespace veltrano
