// SPDX-License-Identifier: GPL-3.0-or-later
// The user's settings while the program runs.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "tuning/TuningLibraries.h"
#include "tuning/TuningSettings.h"

#include <any>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veltrano {

class InputDeviceListener;
class NamedDeviceUnit;
class PreferencesDisplay;
class ToneGenerator;
class UserDefaults;

/// What the settings work with. None of it is owned, all of it outlives the settings; a null
/// pointer stands for a part that is not there: nothing is sent to it.
struct PreferencesPorts {
    UserDefaults& defaults;
    NotificationCenter& notifications;
    TemperamentLibrary* temperaments = nullptr; ///< null: only equal temperament can be selected
    StretchLibrary* stretches = nullptr;        ///< null: only "no stretch" can be selected
    ToneGenerator* soundGen = nullptr;          ///< also set later, by setSoundGen()
};

/// The one place where settings live: read from the user defaults when made, changed by setters,
/// written back by savePreferences() only. Every change that others react to is announced.
///
/// Thread: main. Owns: its values and the two tables in use.
///
/// A setter with an effect does nothing when the value is unchanged; otherwise it stores, shows the
/// value in the panel, has its effect, then posts. Notifications carry no object. The
/// edited-notifications that are observed carry a `const EditedTemperament*` or `const
/// EditedStretch*`.
///
/// A temperament or stretch is chosen by index: 0 none (equal temperament, no stretch), 1 the
/// menu's separator, which is never selected, n >= 2 the library's entry n - 2. What is stored is
/// the file name, so that a library that changes between runs still finds the entry.
class Preferences final : public TuningSettings {
public:
    static constexpr int kFirstEntry = 2; ///< index of a library's first entry

    explicit Preferences(const PreferencesPorts& ports);
    ~Preferences() override;
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    /// The settings of the program: the object that was made first and still lives, unless a test
    /// replaced it. Null when there is none.
    static Preferences* sharedInstance();
    static void replaceSharedInstance(Preferences* preferences);

    // Collaborators, handed over at start-up and not owned.
    void setController(InputDeviceListener* controller) { mController = controller; }
    void setAUInputUnit(const NamedDeviceUnit* unit) { mAUInputUnit = unit; }
    void setAUOutputUnit(const NamedDeviceUnit* unit) { mAUOutputUnit = unit; }
    /// Also tells the generator duration, volume and waveform once.
    void setSoundGen(ToneGenerator* generator);
    InputDeviceListener* controller() const { return mController; }
    /// Where changes are shown; null while no panel was loaded.
    void setDisplay(PreferencesDisplay* display) { mDisplay = display; }

    bool firstLaunch() const { return mFirstLaunch; } ///< nothing had been saved yet

    // Tuning
    double referencePitch() const override { return mReferencePitch; } ///< [Hz] of A4
    void setReferencePitch(double hz);                                 ///< not finite: ignored
    int tuning() const { return mTuning; }
    void setTuning(int index);
    const std::string& tuningFileName() const { return mTuningFileName; } ///< empty: none
    void setTuningFileName(std::string_view name) { mTuningFileName = name; }
    void setTuningForFileName(std::string_view name); ///< unknown or empty: equal temperament
    int tonic() const override { return mTonic; }     ///< 0 (C) ... 11
    void setTonic(int pitchClass);                    ///< outside 0 ... 11: ignored
    int stretch() const { return mStretch; }
    void setStretch(int index);
    const std::string& stretchFileName() const { return mStretchFileName; } ///< empty: none
    void setStretchFileName(std::string_view name) { mStretchFileName = name; }
    void setStretchForFileName(std::string_view name); ///< unknown or empty: no stretch
    /// Cent offsets of the temperament in use by scale degree, 0 on A. With equal temperament only
    /// the first is cleared; the others keep what they were and are not to be used.
    std::span<const double, 12> temperamentTable() const { return mCentTable; }
    /// Cent offset of each key; all 0 without a stretch.
    std::span<const double, 108> stretchTable() const { return mStretchTable; }
    int inTuneThreshold() const { return mInTuneThreshold; } ///< [cents]
    void setInTuneThreshold(int cents);
    std::string tuningNameString() const;
    std::string tuningToolTipString() const;
    std::string stretchNameString() const;
    std::string stretchToolTipString() const;

    // Manual mode
    bool manualMode() const { return mManualMode; }
    void setManualMode(bool on);
    int manualType() const { return mManualType; } ///< 0 note, 1 pitch
    void setManualType(int type);
    int manualNote() const { return mManualNote; }      ///< key number
    void setManualNote(int key);                        ///< outside 0 ... 107: ignored
    double manualPitch() const { return mManualPitch; } ///< [Hz]
    void setManualPitch(double hz);                     ///< not finite: ignored

    // Windows and what they show
    bool pianoKeyboard() const { return mPianoKeyboard; }
    void setPianoKeyboard(bool on) { mPianoKeyboard = on; }
    bool hilbertScope() const { return mHilbertScope; }
    void setHilbertScope(bool on) { mHilbertScope = on; }
    bool hilbertLine() const { return mHilbertLine; }
    void setHilbertLine(bool on) { mHilbertLine = on; }
    bool hilbertDecay() const { return mHilbertDecay; }
    void setHilbertDecay(bool on) { mHilbertDecay = on; }
    bool hilbertGrid() const { return mHilbertGrid; }
    void setHilbertGrid(bool on) { mHilbertGrid = on; }
    bool partials() const { return mPartials; }
    void setPartials(bool on) { mPartials = on; }
    bool partialsHold() const { return mPartialsHold; }
    void setPartialsHold(bool on) { mPartialsHold = on; }

    // Sound-back
    bool soundBack() const { return mSoundBack; }
    void setSoundBack(bool on); ///< off ends a tone that is playing
    float soundBackDuration() const { return mSoundBackDuration; } ///< [s] with one decimal
    void setSoundBackDuration(float seconds);                      ///< rounded to one decimal
    int soundBackVolume() const { return mSoundBackVolume; }       ///< [percent]
    void setSoundBackVolume(int percent);
    int soundBackWaveform() const { return mSoundBackWaveform; }
    void setSoundBackWaveform(int index);

    // Speech
    bool tuneSpeech() const { return mTuneSpeech; }
    void setTuneSpeech(bool on) { mTuneSpeech = on; }
    bool hertzSpeech() const { return mHertzSpeech; }
    void setHertzSpeech(bool on) { mHertzSpeech = on; }

    // Devices, by the names of their entries; nullopt: the default device
    const std::optional<std::string>& inputDeviceName() const { return mInputDeviceName; }
    void setInputDeviceName(std::optional<std::string> name) { mInputDeviceName = std::move(name); }
    const std::optional<std::string>& outputDeviceName() const { return mOutputDeviceName; }
    void setOutputDeviceName(std::optional<std::string> name) {
        mOutputDeviceName = std::move(name);
    }
    int inputVolume() const { return mInputVolume; } ///< [percent] as last chosen; not saved
    void setInputVolume(int percent) { mInputVolume = percent; }

    /// Writes everything back. The device names are those of the units, not those read at the
    /// start; without a unit the stored name stays as it is.
    void savePreferences();

private:
    struct Switch;
    static std::span<const Switch> switches();

    void setDefaultValue();
    void registerDefaults();
    void readTuning();
    void readManualMode();
    void readSoundBack();
    void pushSoundBack();
    void saveTuning();
    void saveSoundBack();
    void saveDeviceName(std::string_view key, const NamedDeviceUnit* unit);
    double readPitch(std::string_view key) const; ///< [Hz]
    int readInRange(std::string_view key, int count, int otherwise) const;

    void setCentTable();
    void observeLibraries();
    void temperamentEdited(const std::any& document);
    void temperamentSaved();
    void reloadTemperament();
    void stretchEdited(const std::any& document);
    void stretchSaved();
    void reloadStretch();
    void show(void (PreferencesDisplay::*field)());
    void post(std::string_view name) { mNotifications.post(name); }

    UserDefaults& mDefaults;
    NotificationCenter& mNotifications;
    TemperamentLibrary* const mTemperaments;
    StretchLibrary* const mStretches;
    InputDeviceListener* mController = nullptr;
    const NamedDeviceUnit* mAUInputUnit = nullptr;
    const NamedDeviceUnit* mAUOutputUnit = nullptr;
    ToneGenerator* mSoundGen;
    PreferencesDisplay* mDisplay = nullptr;

    bool mFirstLaunch = false;
    double mReferencePitch = 440.0;
    int mTuning = 0;
    std::string mTuningFileName;
    int mTonic = 0;
    int mStretch = 0;
    std::string mStretchFileName;
    CentTable mCentTable{};
    StretchTable mStretchTable{};
    int mInTuneThreshold = 3;
    bool mManualMode = false;
    int mManualType = 0;
    int mManualNote = 57;
    double mManualPitch = 440.0;
    bool mPianoKeyboard = false;
    bool mHilbertScope = false;
    bool mHilbertLine = false;
    bool mHilbertDecay = false;
    bool mHilbertGrid = false;
    bool mPartials = false;
    bool mPartialsHold = false;
    bool mSoundBack = false;
    float mSoundBackDuration = 0;
    int mSoundBackVolume = 0;
    int mSoundBackWaveform = 0;
    bool mTuneSpeech = false;
    bool mHertzSpeech = false;
    std::optional<std::string> mInputDeviceName;
    std::optional<std::string> mOutputDeviceName;
    int mInputVolume = 0;

    std::vector<NotificationCenter::Observation> mObservations;
};

} // namespace veltrano
