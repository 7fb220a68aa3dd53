// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/Preferences.h"

#include "audio/ToneGenerator.h"
#include "platform/foundation/NotificationNames.h"
#include "settings/PreferencesDisplay.h"
#include "tuning/PitchClass.h"

#include <cmath>
#include <functional>

namespace veltrano {

namespace {

Preferences* theSharedInstance = nullptr;

/// The separator is no choice, and without a library there is nothing but index 0.
template <class Library>
bool isSelectable(int index, const Library* library) {
    return index == 0 || (index >= Preferences::kFirstEntry && library != nullptr);
}

/// A file without a name goes by that of the file, as in the libraries' menus.
std::string nameOr(const std::string& fileName, std::string name) {
    return name.empty() ? fileName : name;
}

/// Whether @p value is new; it is stored then.
template <class Value>
bool stored(Value& field, Value value) {
    if (field == value) return false;
    field = value;
    return true;
}

/// Whether @p document is that of a library's file. Neither an untitled document nor an entry that
/// is not known has a path.
template <class Document>
bool isFileOf(const Document& document, const std::string& path) {
    return !path.empty() && document.fileName() == path;
}

} // namespace

Preferences::Preferences(const PreferencesPorts& ports)
    : mDefaults(ports.defaults), mNotifications(ports.notifications),
      mTemperaments(ports.temperaments), mStretches(ports.stretches), mSoundGen(ports.soundGen) {
    if (theSharedInstance == nullptr) theSharedInstance = this;
    setDefaultValue();
    observeLibraries();
}

Preferences::~Preferences() {
    if (theSharedInstance == this) theSharedInstance = nullptr;
}

Preferences* Preferences::sharedInstance() { return theSharedInstance; }

void Preferences::replaceSharedInstance(Preferences* preferences) {
    theSharedInstance = preferences;
}

void Preferences::show(void (PreferencesDisplay::*field)()) {
    if (mDisplay) std::invoke(field, mDisplay);
}

void Preferences::setReferencePitch(double hz) {
    if (!std::isfinite(hz) || !stored(mReferencePitch, hz)) return;
    show(&PreferencesDisplay::updateReferencePitch);
    post(notification::kReferencePitch);
}

void Preferences::setTuning(int index) {
    if (!isSelectable(index, mTemperaments) || !stored(mTuning, index)) return;
    show(&PreferencesDisplay::updateTuning);
    setCentTable();
    post(notification::kTemperamentChanged);
}

void Preferences::setTuningForFileName(std::string_view name) {
    std::optional<int> position;
    if (!name.empty() && mTemperaments) {
        position = mTemperaments->indexOfTemperamentWithFileName(name);
    }
    if (position) mTuningFileName = name;
    setTuning(position ? *position + kFirstEntry : 0);
}

void Preferences::setTonic(int pitchClass) {
    if (pitchClass < 0 || pitchClass >= kPitchClasses || !stored(mTonic, pitchClass)) return;
    show(&PreferencesDisplay::updateTonic);
    setCentTable();
    post(notification::kTemperamentChanged);
    post(notification::kRootKeyChanged);
}

void Preferences::setCentTable() {
    if (mTuning == 0) {
        mCentTable[0] = 0; // kept: the other eleven stay; equal temperament does not consult them
        return;
    }
    if (const auto cents = mTemperaments->temperamentCentsForFileName(mTuningFileName)) {
        mCentTable = *cents;
        mTemperaments->normalizeCents(mCentTable, mTonic);
    }
}

void Preferences::setStretch(int index) {
    if (!isSelectable(index, mStretches) || index == mStretch) return;
    if (index == 0) {
        mStretchTable.fill(0);
    } else if (const auto table = mStretches->stretchForFileName(mStretchFileName)) {
        mStretchTable = *table;
    }
    mStretch = index;
    show(&PreferencesDisplay::updateStretch);
    post(notification::kStretchChanged);
}

void Preferences::setStretchForFileName(std::string_view name) {
    std::optional<int> position;
    if (!name.empty() && mStretches) position = mStretches->indexOfStretchWithFileName(name);
    if (position) mStretchFileName = name;
    setStretch(position ? *position + kFirstEntry : 0);
}

void Preferences::setInTuneThreshold(int cents) {
    if (!stored(mInTuneThreshold, cents)) return;
    show(&PreferencesDisplay::updateInTuneThreshold);
    post(notification::kInTuneThresholdChanged);
}

void Preferences::setManualMode(bool on) {
    if (!stored(mManualMode, on)) return;
    show(&PreferencesDisplay::updateManualMode);
    post(notification::kManualModeChanged);
}

void Preferences::setManualType(int type) {
    if (!stored(mManualType, type)) return;
    show(&PreferencesDisplay::updateManualType);
    if (mManualMode) post(notification::kManualModeChanged);
}

void Preferences::setManualNote(int key) {
    if (key < 0 || key >= kKeys || !stored(mManualNote, key)) return;
    show(&PreferencesDisplay::updateManualNote);
    if (mManualMode) post(notification::kManualModeChanged);
}

void Preferences::setManualPitch(double hz) {
    // A value that is not equal to itself would be news each time, and whoever hears of it may set
    // it.
    if (!std::isfinite(hz) || !stored(mManualPitch, hz)) return;
    show(&PreferencesDisplay::updateManualPitch);
    post(notification::kManualModeChanged);
}

void Preferences::setSoundGen(ToneGenerator* generator) {
    mSoundGen = generator;
    pushSoundBack(); // the settings were read before there was a generator
}

void Preferences::setSoundBack(bool on) {
    if (!stored(mSoundBack, on)) return;
    show(&PreferencesDisplay::updateSoundBack);
    if (!on && mSoundGen) mSoundGen->setLength(0);
}

void Preferences::setSoundBackDuration(float seconds) {
    const float rounded = static_cast<float>(std::round(double(seconds) * 10) / 10);
    if (!stored(mSoundBackDuration, rounded)) return;
    show(&PreferencesDisplay::updateSoundBackDuration);
    if (mSoundGen) mSoundGen->setLength(rounded);
}

void Preferences::setSoundBackVolume(int percent) {
    if (!stored(mSoundBackVolume, percent)) return;
    show(&PreferencesDisplay::updateSoundBackVolume);
    if (mSoundGen) mSoundGen->setVolume(static_cast<float>(percent / 100.0));
}

void Preferences::setSoundBackWaveform(int index) {
    if (!stored(mSoundBackWaveform, index)) return;
    show(&PreferencesDisplay::updateSoundBackWaveform);
    if (mSoundGen) mSoundGen->setWaveform(index);
}

std::string Preferences::tuningNameString() const {
    if (mTuning == 0) return "Equal Tempered";
    return nameOr(mTuningFileName, mTemperaments->nameForFileName(mTuningFileName));
}

std::string Preferences::tuningToolTipString() const {
    if (mTuning == 0) {
        return "Equal Tempered.\ncents = (0.000, 0.000, 0.000, 0.000, 0.000, 0.000, "
               "0.000, 0.000, 0.000, 0.000, 0.000, 0.000)";
    }
    return mTemperaments->descriptionForFileName(mTuningFileName);
}

std::string Preferences::stretchNameString() const {
    if (mStretch == 0) return "None";
    return nameOr(mStretchFileName, mStretches->nameForFileName(mStretchFileName));
}

std::string Preferences::stretchToolTipString() const {
    if (mStretch == 0) return "No Stretch.";
    return mStretches->descriptionForFileName(mStretchFileName);
}

void Preferences::observeLibraries() {
    const auto observe = [this](std::string_view name, NotificationCenter::Handler handler) {
        mObservations.push_back(mNotifications.observe(name, std::move(handler)));
    };
    observe(notification::kTemperamentEdited,
            [this](const std::any& document) { temperamentEdited(document); });
    observe(notification::kStretchEdited,
            [this](const std::any& document) { stretchEdited(document); });
    observe(notification::kTemperamentSaved, [this](const std::any&) { temperamentSaved(); });
    observe(notification::kStretchSaved, [this](const std::any&) { stretchSaved(); });
}

void Preferences::temperamentEdited(const std::any& object) {
    const auto* document = std::any_cast<const EditedTemperament*>(&object);
    if (mTuning == 0 || !document || !*document) return;
    if (!isFileOf(**document, mTemperaments->pathForFileName(mTuningFileName))) return;
    mCentTable = (*document)->temperamentCents();
    mTemperaments->normalizeCents(mCentTable, mTonic);
    show(&PreferencesDisplay::updateTonicMenu);
    post(notification::kTemperamentChanged);
}

void Preferences::temperamentSaved() {
    reloadTemperament();
    show(&PreferencesDisplay::updateTuningPopUpMenu);
    show(&PreferencesDisplay::updateTuning);
    show(&PreferencesDisplay::updateTonicMenu);
    show(&PreferencesDisplay::enableTonic);
}

void Preferences::reloadTemperament() {
    if (mTuning == 0) return;
    if (const auto position = mTemperaments->indexOfTemperamentWithFileName(mTuningFileName)) {
        mTuning = 0; // so that the same position is loaded again
        setTuning(*position + kFirstEntry);
    } else {
        mTuningFileName.clear();
        setTuning(0);
    }
    post(notification::kTemperamentChanged); // kept: in addition to the setter's own
}

void Preferences::stretchEdited(const std::any& object) {
    const auto* document = std::any_cast<const EditedStretch*>(&object);
    if (mStretch == 0 || !document || !*document) return;
    if (!isFileOf(**document, mStretches->pathForFileName(mStretchFileName))) return;
    mStretchTable = (*document)->stretch();
    post(notification::kStretchChanged);
}

void Preferences::stretchSaved() {
    reloadStretch();
    show(&PreferencesDisplay::updateStretchPopUpMenu);
    show(&PreferencesDisplay::updateStretch);
}

void Preferences::reloadStretch() {
    if (mStretch == 0) return;
    if (const auto position = mStretches->indexOfStretchWithFileName(mStretchFileName)) {
        mStretch = 0; // so that the same position is loaded again
        setStretch(*position + kFirstEntry);
    } else {
        mStretchFileName.clear();
        setStretch(0);
    }
    post(notification::kStretchChanged); // kept: in addition to the setter's own
}

} // namespace veltrano
