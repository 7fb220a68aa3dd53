// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the settings from the user defaults and writing them back.
#include "audio/NamedDeviceUnit.h"
#include "audio/ToneGenerator.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "tuning/PitchClass.h"

#include <array>
#include <cmath>

namespace veltrano {

namespace key = preference_key;

/// One of the window and display switches.
struct Preferences::Switch {
    std::string_view key;
    bool Preferences::*field;
    bool registered;
};

std::span<const Preferences::Switch> Preferences::switches() {
    static constexpr std::array<Switch, 7> kSwitches{{
        {key::kPianoKeyboard, &Preferences::mPianoKeyboard, true},
        {key::kHilbertScope, &Preferences::mHilbertScope, true},
        {key::kHilbertLine, &Preferences::mHilbertLine, false},
        {key::kHilbertDecay, &Preferences::mHilbertDecay, false},
        {key::kHilbertGrid, &Preferences::mHilbertGrid, true},
        {key::kPartials, &Preferences::mPartials, true},
        {key::kPartialsHold, &Preferences::mPartialsHold, true},
    }};
    return kSwitches;
}

void Preferences::setDefaultValue() {
    mFirstLaunch = !mDefaults.hasStored(key::kTonic);
    registerDefaults();
    readTuning();
    readManualMode();
    for (const Switch& each : switches())
        this->*each.field = mDefaults.boolForKey(each.key);
    readSoundBack();
    mTuneSpeech = mDefaults.boolForKey(key::kTuneSpeech);
    mHertzSpeech = mDefaults.boolForKey(key::kHertzSpeech);
    mInputDeviceName = mDefaults.stringForKey(key::kInputDevice);
    mOutputDeviceName = mDefaults.stringForKey(key::kOutputDevice);
}

void Preferences::registerDefaults() {
    mDefaults.registerDefault(key::kReferencePitch, 440.0);
    mDefaults.registerDefault(key::kInTuneThreshold, 3);
    mDefaults.registerDefault(key::kManualNote, kKeyA4);
    mDefaults.registerDefault(key::kManualPitch, 440.0);
    for (const Switch& each : switches())
        mDefaults.registerDefault(each.key, each.registered);
    mDefaults.registerDefault(key::kSoundBackDuration, 1.0);
    mDefaults.registerDefault(key::kSoundBackVolume, 70);
}

/// Numbers that are used as indices are not believed: a file may have been edited by hand.
int Preferences::readInRange(std::string_view name, int count, int otherwise) const {
    const int value = mDefaults.integerForKey(name);
    return value >= 0 && value < count ? value : otherwise;
}

/// As the setters do, no pitch is taken that is not a number.
double Preferences::readPitch(std::string_view name) const {
    const auto pitch = double(mDefaults.floatForKey(name));
    return std::isfinite(pitch) ? pitch : 440.0;
}

void Preferences::readTuning() {
    mReferencePitch = readPitch(key::kReferencePitch);
    mTonic = readInRange(key::kTonic, kPitchClasses, 0);
    mInTuneThreshold = mDefaults.integerForKey(key::kInTuneThreshold);
    setStretchForFileName(mDefaults.stringForKey(key::kStretch).value_or(""));
    setTuningForFileName(mDefaults.stringForKey(key::kTuning).value_or(""));
}

void Preferences::readManualMode() {
    mManualMode = mDefaults.boolForKey(key::kManualMode);
    mManualType = mDefaults.integerForKey(key::kManualType);
    mManualNote = readInRange(key::kManualNote, kKeys, kKeyA4);
    mManualPitch = readPitch(key::kManualPitch);
}

void Preferences::readSoundBack() {
    mSoundBack = mDefaults.boolForKey(key::kSoundBack);
    mSoundBackDuration = mDefaults.floatForKey(key::kSoundBackDuration);
    mSoundBackVolume = mDefaults.integerForKey(key::kSoundBackVolume);
    mSoundBackWaveform = mDefaults.integerForKey(key::kSoundBackWaveform);
    pushSoundBack();
}

void Preferences::pushSoundBack() {
    if (!mSoundGen) return;
    mSoundGen->setLength(mSoundBackDuration);
    mSoundGen->setVolume(static_cast<float>(mSoundBackVolume / 100.0));
    mSoundGen->setWaveform(mSoundBackWaveform);
}

void Preferences::savePreferences() {
    saveTuning();
    mDefaults.setBool(key::kManualMode, mManualMode);
    mDefaults.setInteger(key::kManualType, mManualType);
    mDefaults.setInteger(key::kManualNote, mManualNote);
    mDefaults.setFloat(key::kManualPitch, static_cast<float>(mManualPitch));
    for (const Switch& each : switches())
        mDefaults.setBool(each.key, this->*each.field);
    saveSoundBack();
    mDefaults.setBool(key::kTuneSpeech, mTuneSpeech);
    mDefaults.setBool(key::kHertzSpeech, mHertzSpeech);
    saveDeviceName(key::kInputDevice, mAUInputUnit);
    saveDeviceName(key::kOutputDevice, mAUOutputUnit);
    mDefaults.synchronize(); // a failure has nobody to be reported to
}

void Preferences::saveTuning() {
    const auto saveChoice = [this](std::string_view name, int index, const std::string& file) {
        if (index == 0) {
            mDefaults.remove(name);
        } else {
            mDefaults.setString(name, file);
        }
    };
    mDefaults.setFloat(key::kReferencePitch, static_cast<float>(mReferencePitch));
    saveChoice(key::kTuning, mTuning, mTuningFileName);
    saveChoice(key::kStretch, mStretch, mStretchFileName);
    mDefaults.setInteger(key::kTonic, mTonic);
    mDefaults.setInteger(key::kInTuneThreshold, mInTuneThreshold);
}

void Preferences::saveSoundBack() {
    mDefaults.setBool(key::kSoundBack, mSoundBack);
    mDefaults.setFloat(key::kSoundBackDuration, mSoundBackDuration);
    mDefaults.setInteger(key::kSoundBackVolume, mSoundBackVolume);
    mDefaults.setInteger(key::kSoundBackWaveform, mSoundBackWaveform);
}

void Preferences::saveDeviceName(std::string_view name, const NamedDeviceUnit* unit) {
    if (!unit) return;
    if (const std::optional<std::string> device = unit->deviceName()) {
        mDefaults.setString(name, *device);
    } else {
        mDefaults.remove(name);
    }
}

} // namespace veltrano
