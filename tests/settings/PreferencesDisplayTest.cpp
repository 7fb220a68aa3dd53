// SPDX-License-Identifier: GPL-3.0-or-later
// How the panel's controls show the settings.
#include "tests/settings/PanelTestBase.h"

#include <functional>

namespace veltrano {
namespace {

class PreferencesDisplayTest : public PanelTestBase {};

struct ShownCase {
    const char* name;
    std::function<void(Preferences&)> prepare;
    void (PreferencesDisplay::*operation)();
    Names shown;
};

void youngOnD(Preferences& settings) {
    settings.setTuningForFileName("Young.temperament");
    settings.setTonic(2);
}

const ShownCase kShown[] = {
    {"reference pitch",
     [](auto& p) { p.setReferencePitch(442.5); },
     &PreferencesDisplay::updateReferencePitch,
     {"mReferencePitchText 442.5", "mReferencePitchStepper 442.5"}},
    {"a pitch is shown as it is stored, not as a 32-bit float",
     [](auto& p) { p.setReferencePitch(440.123456); },
     &PreferencesDisplay::updateReferencePitch,
     {"mReferencePitchText 440.123456", "mReferencePitchStepper 440.123456"}},
    {"equal temperament", {}, &PreferencesDisplay::updateTuning, {"mTuningPopUpButton select 0"}},
    {"second temperament of the library",
     [](auto& p) { p.setTuningForFileName("Vallotti.temperament"); },
     &PreferencesDisplay::updateTuning,
     {"mTuningPopUpButton select 3"}},
    {"root key", youngOnD, &PreferencesDisplay::updateTonic, {"mTonicPopUpButton select 2"}},
    {"no stretch", {}, &PreferencesDisplay::updateStretch, {"mStretchPopUpButton select 0"}},
    {"first stretch of the library",
     [](auto& p) { p.setStretchForFileName("Upright.stretch"); },
     &PreferencesDisplay::updateStretch,
     {"mStretchPopUpButton select 2"}},
    {"threshold 0 is one cent, too",
     [](auto& p) { p.setInTuneThreshold(0); },
     &PreferencesDisplay::updateInTuneThreshold,
     {"mInTuneThresholdText \u00B10 cent", "mInTuneThresholdSlider 0"}},
    {"threshold 1",
     [](auto& p) { p.setInTuneThreshold(1); },
     &PreferencesDisplay::updateInTuneThreshold,
     {"mInTuneThresholdText \u00B11 cent", "mInTuneThresholdSlider 1"}},
    {"threshold 2",
     [](auto& p) { p.setInTuneThreshold(2); },
     &PreferencesDisplay::updateInTuneThreshold,
     {"mInTuneThresholdText \u00B12 cents", "mInTuneThresholdSlider 2"}},
    {"threshold of a first run",
     {},
     &PreferencesDisplay::updateInTuneThreshold,
     {"mInTuneThresholdText \u00B13 cents", "mInTuneThresholdSlider 3"}},
    {"automatic mode",
     {},
     &PreferencesDisplay::updateManualMode,
     {"mManualModeCheckbox 0", "mNotePitchRadioButton enabled 0", "mNotePopUpButton enabled 0",
      "mOctavePopUpButton enabled 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"automatic mode, of type pitch",
     [](auto& p) { p.setManualType(1); },
     &PreferencesDisplay::updateManualMode,
     {"mManualModeCheckbox 0", "mNotePitchRadioButton enabled 0", "mNotePopUpButton enabled 0",
      "mOctavePopUpButton enabled 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"manual mode, of type note",
     [](auto& p) { p.setManualMode(true); },
     &PreferencesDisplay::updateManualMode,
     {"mManualModeCheckbox 1", "mNotePitchRadioButton enabled 1", "mNotePopUpButton enabled 1",
      "mOctavePopUpButton enabled 1", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"manual mode, of type pitch: note and octave can be chosen all the same",
     [](auto& p) {
         p.setManualMode(true);
         p.setManualType(1);
     },
     &PreferencesDisplay::updateManualMode,
     {"mManualModeCheckbox 1", "mNotePitchRadioButton enabled 1", "mNotePopUpButton enabled 1",
      "mOctavePopUpButton enabled 1", "mPitchText enabled 1", "mPitchTextStepper enabled 1"}},
    {"type note",
     [](auto& p) { p.setManualMode(true); },
     &PreferencesDisplay::updateManualType,
     {"mNotePitchRadioButton 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"type pitch outside manual mode",
     [](auto& p) { p.setManualType(1); },
     &PreferencesDisplay::updateManualType,
     {"mNotePitchRadioButton 1", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"type pitch in manual mode",
     [](auto& p) {
         p.setManualMode(true);
         p.setManualType(1);
     },
     &PreferencesDisplay::updateManualType,
     {"mNotePitchRadioButton 1", "mPitchText enabled 1", "mPitchTextStepper enabled 1"}},
    {"key 57 is A of octave 4",
     {},
     &PreferencesDisplay::updateManualNote,
     {"mNotePopUpButton select 9", "mOctavePopUpButton select 4"}},
    {"the lowest key",
     [](auto& p) { p.setManualNote(0); },
     &PreferencesDisplay::updateManualNote,
     {"mNotePopUpButton select 0", "mOctavePopUpButton select 8"}},
    {"the highest key",
     [](auto& p) { p.setManualNote(107); },
     &PreferencesDisplay::updateManualNote,
     {"mNotePopUpButton select 11", "mOctavePopUpButton select 0"}},
    {"the last key of an octave",
     [](auto& p) { p.setManualNote(11); },
     &PreferencesDisplay::updateManualNote,
     {"mNotePopUpButton select 11", "mOctavePopUpButton select 8"}},
    {"manual pitch",
     [](auto& p) { p.setManualPitch(27.5); },
     &PreferencesDisplay::updateManualPitch,
     {"mPitchText 27.5", "mPitchTextStepper 27.5"}},
    {"sound-back off", {}, &PreferencesDisplay::updateSoundBack, {"mSoundBackCheckbox 0"}},
    {"sound-back on",
     [](auto& p) { p.setSoundBack(true); },
     &PreferencesDisplay::updateSoundBack,
     {"mSoundBackCheckbox 1"}},
    {"duration of a first run",
     {},
     &PreferencesDisplay::updateSoundBackDuration,
     {"mSoundBackDurationText 1.0 sec", "mSoundBackDurationSlider 1"}},
    {"duration, the slider as a float",
     [](auto& p) { p.setSoundBackDuration(12.26F); },
     &PreferencesDisplay::updateSoundBackDuration,
     {"mSoundBackDurationText 12.3 sec", "mSoundBackDurationSlider 12.300000190734863"}},
    {"volume",
     [](auto& p) { p.setSoundBackVolume(35); },
     &PreferencesDisplay::updateSoundBackVolume,
     {"mSoundBackVolumeText 35", "mSoundBackVolumeSlider 35"}},
    {"waveform",
     [](auto& p) { p.setSoundBackWaveform(2); },
     &PreferencesDisplay::updateSoundBackWaveform,
     {"mSoundBackWaveformPopUpButton select 2"}},
};

TEST_F(PreferencesDisplayTest, EachOperationShowsItsField) {
    for (const ShownCase& row : kShown) {
        SCOPED_TRACE(row.name);
        Preferences& settings = open();
        if (row.prepare) row.prepare(settings);
        panel.calls.clear();
        (*display.*row.operation)();
        EXPECT_EQ(panel.takeCalls(), row.shown);
    }
}

TEST_F(PreferencesDisplayTest, UpdateUiShowsEveryFieldInOrder) {
    Preferences& settings = open();
    settings.setReferencePitch(442.5);
    settings.setTuningForFileName("Vallotti.temperament");
    settings.setTonic(11);
    settings.setStretchForFileName("Upright.stretch");
    settings.setInTuneThreshold(1);
    settings.setManualMode(true);
    settings.setManualNote(40);
    settings.setManualPitch(466.25);
    settings.setSoundBack(true);
    settings.setSoundBackDuration(2.5F);
    settings.setSoundBackVolume(35);
    settings.setSoundBackWaveform(3);
    panel.calls.clear();
    display->updateUI();
    EXPECT_EQ(panel.takeCalls(), (Names{"mReferencePitchText 442.5",
                                        "mReferencePitchStepper 442.5",
                                        "mTuningPopUpButton select 3",
                                        "mTonicPopUpButton select 11",
                                        "mStretchPopUpButton select 2",
                                        "mInTuneThresholdText \u00B11 cent",
                                        "mInTuneThresholdSlider 1",
                                        "mManualModeCheckbox 1",
                                        "mNotePitchRadioButton enabled 1",
                                        "mNotePopUpButton enabled 1",
                                        "mOctavePopUpButton enabled 1",
                                        "mPitchText enabled 0",
                                        "mPitchTextStepper enabled 0",
                                        "mNotePitchRadioButton 0",
                                        "mPitchText enabled 0",
                                        "mPitchTextStepper enabled 0",
                                        "mNotePopUpButton select 4",
                                        "mOctavePopUpButton select 5",
                                        "mPitchText 466.25",
                                        "mPitchTextStepper 466.25",
                                        "mSoundBackCheckbox 1",
                                        "mSoundBackDurationText 2.5 sec",
                                        "mSoundBackDurationSlider 2.5",
                                        "mSoundBackVolumeText 35",
                                        "mSoundBackVolumeSlider 35",
                                        "mSoundBackWaveformPopUpButton select 3"}));
}

TEST_F(PreferencesDisplayTest, MenusAreFilledByTheLibrariesAndTheRootKeyGoesWithATemperament) {
    Preferences& settings = open();
    display->setupPopUpMenus();
    EXPECT_EQ(panel.takeCalls(), (Names{"mTuningPopUpButton clear", "mStretchPopUpButton clear",
                                        "mTonicPopUpButton clear", "mTonicPopUpButton select 0",
                                        "mTonicPopUpButton enabled 0"}));
    EXPECT_EQ(panel.mTuningPopUpButton.titles,
              (Names{"Equal Tempered", "-", "Young.temperament", "Vallotti.temperament"}));
    EXPECT_EQ(panel.mStretchPopUpButton.titles,
              (Names{"None", "-", "Upright.stretch", "Grand.stretch"}));

    settings.setTuningForFileName("Young.temperament");
    settings.setTonic(7);
    display->setupPopUpMenus();
    EXPECT_TRUE(panel.mTonicPopUpButton.isEnabled);
    EXPECT_EQ(panel.mTonicPopUpButton.selected, 7);
}

TEST_F(PreferencesDisplayTest, WithoutLibrariesTheirMenusHoldTheBuiltInItemAlone) {
    open(false);
    EXPECT_EQ(panel.mTuningPopUpButton.titles, Names{"Equal Tempered"});
    EXPECT_EQ(panel.mStretchPopUpButton.titles, Names{"None"});
    EXPECT_FALSE(panel.mTuningPopUpButton.isEnabled);
    EXPECT_FALSE(panel.mStretchPopUpButton.isEnabled);
}

TEST_F(PreferencesDisplayTest, ControlsThatAreNotThereAreNotTold) {
    Preferences& settings = open();
    PreferencesDisplay blind(settings, &temperaments, &stretches, PreferencesControls{});
    settings.setDisplay(&blind);
    blind.setupPopUpMenus();
    blind.updateUI();
    settings.setManualMode(true);
    EXPECT_EQ(panel.takeCalls(), Names{"post " + std::string(notification::kManualModeChanged)});
    settings.setDisplay(nullptr);
}

TEST_F(PreferencesDisplayTest, NamesOfTheRootKeysAndNotes) {
    const Names names{"C",     "C#/Db", "D",     "D#/Eb", "E",     "F",
                      "F#/Gb", "G",     "G#/Ab", "A",     "A#/Bb", "B"};
    for (int k = 0; k < 12; ++k)
        EXPECT_EQ(rootKeyName(k), names[std::size_t(k)]);
}

struct TonicCase {
    const char* name;
    std::function<void(Preferences&)> prepare;
    Names titles;
};

// The library of these tests counts its cents up from 1.5 or -2.5 and adds the tonic to each.
const TonicCase kTonic[] = {
    {"equal temperament at 440 Hz",
     {},
     {"C (261.625565Hz)", "C#/Db (277.182631Hz)", "D (293.664768Hz)", "D#/Eb (311.126984Hz)",
      "E (329.627557Hz)", "F (349.228231Hz)", "F#/Gb (369.994423Hz)", "G (391.995436Hz)",
      "G#/Ab (415.304698Hz)", "A (440.000000Hz)", "A#/Bb (466.163762Hz)", "B (493.883301Hz)"}},
    {"the root key is of no account without a temperament",
     [](auto& p) {
         p.setReferencePitch(442);
         p.setTonic(5);
     },
     {"C (262.814772Hz)", "C#/Db (278.442552Hz)", "D (294.999608Hz)", "D#/Eb (312.541197Hz)",
      "E (331.125864Hz)", "F (350.815632Hz)", "F#/Gb (371.676216Hz)", "G (393.777233Hz)",
      "G#/Ab (417.192446Hz)", "A (442.000000Hz)", "A#/Bb (468.282688Hz)", "B (496.128225Hz)"}},
    {"a temperament on C",
     [](auto& p) { p.setTuningForFileName("Young.temperament"); },
     {"C (261.852345Hz)", "C#/Db (277.583188Hz)", "D (294.259064Hz)", "D#/Eb (311.936749Hz)",
      "E (330.676424Hz)", "F (350.541890Hz)", "F#/Gb (371.600778Hz)", "G (393.924785Hz)",
      "G#/Ab (417.589911Hz)", "A (442.676726Hz)", "A#/Bb (469.270637Hz)", "B (497.462183Hz)"}},
    {"its offsets go round with the root key",
     [](auto& p) {
         p.setTuningForFileName("Young.temperament");
         p.setTonic(9);
     },
     {"C (263.673672Hz)", "C#/Db (279.513931Hz)", "D (296.305798Hz)", "D#/Eb (314.106440Hz)",
      "E (332.976460Hz)", "F (352.980102Hz)", "F#/Gb (374.185466Hz)", "G (396.664748Hz)",
      "G#/Ab (420.494479Hz)", "A (442.676726Hz)", "A#/Bb (469.270637Hz)", "B (497.462183Hz)"}},
    {"another one on D at 442.5 Hz",
     [](auto& p) {
         p.setReferencePitch(442.5);
         p.setTonic(2);
         p.setTuningForFileName("Vallotti.temperament");
     },
     {"C (264.559848Hz)", "C#/Db (280.453345Hz)", "D (295.248034Hz)", "D#/Eb (312.985131Hz)",
      "E (331.787788Hz)", "F (351.720020Hz)", "F#/Gb (372.849685Hz)", "G (395.248719Hz)",
      "G#/Ab (418.993382Hz)", "A (444.164510Hz)", "A#/Bb (470.847800Hz)", "B (499.134095Hz)"}},
};

TEST_F(PreferencesDisplayTest, RootKeysAreTitledWithTheirFrequencyInOctaveFour) {
    for (const TonicCase& row : kTonic) {
        SCOPED_TRACE(row.name);
        Preferences& settings = open();
        if (row.prepare) row.prepare(settings);
        display->updateTonicMenu();
        EXPECT_EQ(panel.mTonicPopUpButton.titles, row.titles);
        EXPECT_EQ(panel.mTonicPopUpButton.selected, settings.tonic());
    }
}

} // namespace
} // namespace veltrano
