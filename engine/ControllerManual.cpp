// SPDX-License-Identifier: GPL-3.0-or-later
// Manual mode, and the tone that gives the target by ear.
#include "engine/Controller.h"

#include "audio/ToneGenerator.h"
#include "engine/NumberTexts.h"
#include "settings/Preferences.h"
#include "tuning/PitchClass.h"

namespace veltrano {

void Controller::manualModeUI() {
    TunerDisplay& display = mPorts.display;
    Preferences& prefs = mPorts.preferences;
    double pitch = prefs.manualPitch();
    if (prefs.manualType() != 0) {
        display.setText(TunerText::note, "-");
        display.setText(TunerText::accidental, "");
        display.setText(TunerText::octave, "-");
        display.setPianoNote(kNoKey);
        display.setText(TunerText::stretchOffset, "--.---");
    } else {
        const int key = prefs.manualNote();
        const double stretch = prefs.stretchTable()[static_cast<std::size_t>(key)];
        pitch = calculateCent(0.0, key, stretch, mFrequency, tuningChoice()).idealHz;
        showSpelling(key);
        setNumber(TunerText::octave, key / 12);
        display.setPianoNote(key);
        display.setText(TunerText::stretchOffset,
                        plusMinusFloatString(static_cast<float>(stretch)));
        // A free pitch starts from the last key's frequency.
        prefs.setManualPitch(pitch);
    }
    display.setLight(TunerLight::inTune, LightImage::gray28x28);
    display.setLight(TunerLight::flat, LightImage::gray24x24);
    display.setLight(TunerLight::sharp, LightImage::gray24x24);
    display.setText(TunerText::cent, "--.-");
    display.setText(TunerText::frequency, "---.---");
    display.setText(TunerText::frequencyDiff, "---.---");
    display.setText(TunerText::idealFrequency, frequencyString(pitch));
    mIdealFrequency = static_cast<float>(pitch);
    display.setStrobeFrequency(mIdealFrequency);
    mDisplayFrequency = mIdealFrequency;
}

void Controller::updateSoundBack(bool force) {
    const Preferences& prefs = mPorts.preferences;
    ToneGenerator* const generator = toneGenerator();
    if (!generator || (!force && !prefs.soundBack())) return;
    generator->playFreq(mIdealFrequency, prefs.soundBackDuration());
}

ToneGenerator* Controller::toneGenerator() const {
    return mPorts.soundGen ? mPorts.soundGen : mSoundGen.get();
}

void Controller::autoManualToggle() {
    const bool wasManual = mPorts.preferences.manualMode();
    mPorts.preferences.setManualMode(!wasManual);
    if (!wasManual) updateSoundBack(false);
}

void Controller::moveNote(int keys) {
    Preferences& prefs = mPorts.preferences;
    if (!prefs.manualMode()) return;
    prefs.setManualType(0);
    prefs.setManualNote(prefs.manualNote() + keys); // past the ends it stays
    updateSoundBack(false);
}

void Controller::noteUp() { moveNote(1); }

void Controller::noteDown() { moveNote(-1); }

void Controller::octaveUp() { moveNote(12); }

void Controller::octaveDown() { moveNote(-12); }

void Controller::soundBackToggle() {
    mPorts.preferences.setSoundBack(!mPorts.preferences.soundBack());
}

void Controller::playSoundBack() { updateSoundBack(true); }

} // namespace veltrano
