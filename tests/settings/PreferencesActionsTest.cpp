// SPDX-License-Identifier: GPL-3.0-or-later
// What each control of the panel does: settings, then controls, then notifications, in order.
#include "tests/settings/PanelTestBase.h"

#include <functional>

namespace veltrano {
namespace {

class PreferencesActionsTest : public PanelTestBase {};

const std::string kPostPitch = "post " + std::string(notification::kReferencePitch);
const std::string kPostTemperament = "post " + std::string(notification::kTemperamentChanged);
const std::string kPostRootKey = "post " + std::string(notification::kRootKeyChanged);
const std::string kPostStretch = "post " + std::string(notification::kStretchChanged);
const std::string kPostThreshold = "post " + std::string(notification::kInTuneThresholdChanged);
const std::string kPostManual = "post " + std::string(notification::kManualModeChanged);
const Names kNothing;

struct ActionCase {
    const char* name;
    std::function<void(Preferences&)> prepare;
    std::function<void(PreferencesActions&)> act;
    Names calls; ///< of controls and notifications
    std::function<bool(const Preferences&)> isStored;
};

const ActionCase kActions[] = {
    {"a reference pitch retitles the root keys",
     {},
     [](auto& a) { a.referencePitchChanged(442); },
     {"mReferencePitchText 442", "mReferencePitchStepper 442", kPostPitch,
      "mTonicPopUpButton clear", "mTonicPopUpButton select 0"},
     [](auto& p) { return p.referencePitch() == 442; }},
    {"a temperament has its file name before it is selected, then the root key can be chosen",
     {},
     [](auto& a) { a.tuningPopUpChanged(3); },
     {"mTuningPopUpButton select 3", kPostTemperament, "mTonicPopUpButton clear",
      "mTonicPopUpButton select 0", "mTonicPopUpButton enabled 1"},
     [](auto& p) {
         return p.tuning() == 3 && p.tuningNameString() == "name of Vallotti.temperament" &&
                p.temperamentTable()[0] == -2.5;
     }},
    {"equal temperament: the root key cannot be chosen",
     [](auto& p) { p.setTuningForFileName("Young.temperament"); },
     [](auto& a) { a.tuningPopUpChanged(0); },
     {"mTuningPopUpButton select 0", kPostTemperament, "mTonicPopUpButton clear",
      "mTonicPopUpButton select 0", "mTonicPopUpButton enabled 0"},
     [](auto& p) { return p.tuning() == 0 && p.tuningNameString() == "Equal Tempered"; }},
    {"root key",
     [](auto& p) { p.setTuningForFileName("Young.temperament"); },
     [](auto& a) { a.tonicPopUpChanged(7); },
     {"mTonicPopUpButton select 7", kPostTemperament, kPostRootKey, "mTonicPopUpButton clear",
      "mTonicPopUpButton select 7"},
     [](auto& p) { return p.tonic() == 7; }},
    {"a stretch has its file name before it is selected",
     {},
     [](auto& a) { a.stretchPopUpChanged(2); },
     {"mStretchPopUpButton select 2", kPostStretch},
     [](auto& p) {
         return p.stretch() == 2 && p.stretchNameString() == "name of Upright.stretch" &&
                p.stretchTable()[0] == 0.25;
     }},
    {"no stretch",
     [](auto& p) { p.setStretchForFileName("Upright.stretch"); },
     [](auto& a) { a.stretchPopUpChanged(0); },
     {"mStretchPopUpButton select 0", kPostStretch},
     [](auto& p) { return p.stretch() == 0 && p.stretchTable()[0] == 0; }},
    {"threshold",
     {},
     [](auto& a) { a.inTuneThresholdSliderChanged(1); },
     {"mInTuneThresholdText \u00B11 cent", "mInTuneThresholdSlider 1", kPostThreshold},
     [](auto& p) { return p.inTuneThreshold() == 1; }},
    {"manual mode on",
     {},
     [](auto& a) { a.manualModeCheckboxChanged(true); },
     {"mManualModeCheckbox 1", "mNotePitchRadioButton enabled 1", "mNotePopUpButton enabled 1",
      "mOctavePopUpButton enabled 1", "mPitchText enabled 0", "mPitchTextStepper enabled 0",
      kPostManual},
     [](auto& p) { return p.manualMode(); }},
    {"manual mode off",
     [](auto& p) { p.setManualMode(true); },
     [](auto& a) { a.manualModeCheckboxChanged(false); },
     {"mManualModeCheckbox 0", "mNotePitchRadioButton enabled 0", "mNotePopUpButton enabled 0",
      "mOctavePopUpButton enabled 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0",
      kPostManual},
     [](auto& p) { return !p.manualMode(); }},
    {"type of the manual target",
     [](auto& p) { p.setManualMode(true); },
     [](auto& a) { a.notePitchRadioButtonChanged(1); },
     {"mNotePitchRadioButton 1", "mPitchText enabled 1", "mPitchTextStepper enabled 1",
      kPostManual},
     [](auto& p) { return p.manualType() == 1; }},
    {"a note makes the target a note first",
     [](auto& p) {
         p.setManualMode(true);
         p.setManualType(1);
     },
     [](auto& a) { a.noteOctavePopUpChanged(4, 5); },
     {"mNotePitchRadioButton 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0", kPostManual,
      "mNotePopUpButton select 4", "mOctavePopUpButton select 5", kPostManual},
     [](auto& p) { return p.manualType() == 0 && p.manualNote() == 40; }},
    {"the note there is makes the target a note all the same",
     [](auto& p) {
         p.setManualMode(true);
         p.setManualType(1);
     },
     [](auto& a) { a.noteOctavePopUpChanged(9, 4); },
     {"mNotePitchRadioButton 0", "mPitchText enabled 0", "mPitchTextStepper enabled 0",
      kPostManual},
     [](auto& p) { return p.manualType() == 0 && p.manualNote() == 57; }},
    {"octave index 0 and note index 11 are key 107",
     {},
     [](auto& a) { a.noteOctavePopUpChanged(11, 0); },
     {"mNotePopUpButton select 11", "mOctavePopUpButton select 0"},
     [](auto& p) { return p.manualNote() == 107; }},
    {"octave index 8 and note index 0 are key 0",
     {},
     [](auto& a) { a.noteOctavePopUpChanged(0, 8); },
     {"mNotePopUpButton select 0", "mOctavePopUpButton select 8"},
     [](auto& p) { return p.manualNote() == 0; }},
    {"a pitch makes the target a pitch first",
     [](auto& p) { p.setManualMode(true); },
     [](auto& a) { a.pitchTextChanged(27.5); },
     {"mNotePitchRadioButton 1", "mPitchText enabled 1", "mPitchTextStepper enabled 1", kPostManual,
      "mPitchText 27.5", "mPitchTextStepper 27.5", kPostManual},
     [](auto& p) { return p.manualType() == 1 && p.manualPitch() == 27.5; }},
    {"sound-back on",
     {},
     [](auto& a) { a.soundBackCheckboxChanged(true); },
     {"mSoundBackCheckbox 1"},
     [](auto& p) { return p.soundBack(); }},
    {"sound-back off",
     [](auto& p) { p.setSoundBack(true); },
     [](auto& a) { a.soundBackCheckboxChanged(false); },
     {"mSoundBackCheckbox 0"},
     [](auto& p) { return !p.soundBack(); }},
    {"a duration is rounded and shown so",
     {},
     [](auto& a) { a.soundBackDurationSliderChanged(2.54F); },
     {"mSoundBackDurationText 2.5 sec", "mSoundBackDurationSlider 2.5"},
     [](auto& p) { return p.soundBackDuration() == 2.5F; }},
    {"volume",
     {},
     [](auto& a) { a.soundBackVolumeSliderChanged(35); },
     {"mSoundBackVolumeText 35", "mSoundBackVolumeSlider 35"},
     [](auto& p) { return p.soundBackVolume() == 35; }},
    {"waveform",
     {},
     [](auto& a) { a.soundBackWaveformPopUpChanged(3); },
     {"mSoundBackWaveformPopUpButton select 3"},
     [](auto& p) { return p.soundBackWaveform() == 3; }},
    {"devices without units: nothing",
     {},
     [](auto& a) {
         a.outputDevicePopupChanged(1);
         a.inputDevicePopupChanged(1);
     },
     kNothing,
     [](auto&) { return true; }},
    {"input volume without a unit is shown",
     {},
     [](auto& a) { a.inputVolumeSliderChanged(35); },
     {"mInputVolumeText 35"},
     [](auto& p) { return p.inputVolume() == 35; }},
};

TEST_F(PreferencesActionsTest, EachControlHasItsEffectInOrder) {
    for (const ActionCase& row : kActions) {
        SCOPED_TRACE(row.name);
        Preferences& settings = open();
        if (row.prepare) row.prepare(settings);
        panel.calls.clear();
        row.act(*actions);
        EXPECT_EQ(panel.takeCalls(), row.calls);
        EXPECT_TRUE(row.isStored(settings));
    }
}

TEST_F(PreferencesActionsTest, AControlThatIsUsedWithoutAChangeAnnouncesNothing) {
    for (const ActionCase& row : kActions) {
        SCOPED_TRACE(row.name);
        Preferences& settings = open();
        if (row.prepare) row.prepare(settings);
        row.act(*actions);
        panel.calls.clear();
        row.act(*actions);
        for (const std::string& call : panel.takeCalls())
            EXPECT_FALSE(call.starts_with("post ")) << call;
        EXPECT_TRUE(row.isStored(settings));
    }
}

TEST_F(PreferencesActionsTest, AReferencePitchRetitlesAllTwelveRootKeysAtOnce) {
    open();
    const Names before = panel.mTonicPopUpButton.titles;
    EXPECT_EQ(before[0], "C (261.625565Hz)");
    EXPECT_EQ(before[9], "A (440.000000Hz)");
    EXPECT_EQ(before[11], "B (493.883301Hz)");
    actions->referencePitchChanged(442);
    const Names& after = panel.mTonicPopUpButton.titles;
    ASSERT_EQ(after.size(), 12u);
    for (std::size_t k = 0; k < 12; ++k)
        EXPECT_NE(after[k], before[k]);
    EXPECT_EQ(after[0], "C (262.814772Hz)");
    EXPECT_EQ(after[9], "A (442.000000Hz)");
    EXPECT_EQ(after[11], "B (496.128225Hz)");
}

TEST_F(PreferencesActionsTest, TheRootKeyCanBeChosenExactlyWithATemperament) {
    open();
    EXPECT_FALSE(panel.mTonicPopUpButton.isEnabled);
    actions->tuningPopUpChanged(2);
    EXPECT_TRUE(panel.mTonicPopUpButton.isEnabled);
    actions->tuningPopUpChanged(0);
    EXPECT_FALSE(panel.mTonicPopUpButton.isEnabled);
}

TEST_F(PreferencesActionsTest, TheChosenFilesAreWhatTheNextStartFinds) {
    Preferences& settings = open();
    actions->tuningPopUpChanged(3);
    actions->stretchPopUpChanged(3);
    settings.savePreferences();
    EXPECT_EQ(defaults->stringForKey(preference_key::kTuning), "Vallotti.temperament");
    EXPECT_EQ(defaults->stringForKey(preference_key::kStretch), "Grand.stretch");
    actions->tuningPopUpChanged(0);
    actions->stretchPopUpChanged(0);
    settings.savePreferences();
    EXPECT_FALSE(defaults->stringForKey(preference_key::kTuning));
    EXPECT_FALSE(defaults->stringForKey(preference_key::kStretch));
}

TEST_F(PreferencesActionsTest, MenuItemsBelowTheLibrariesHaveNoFile) {
    open();
    const Names temperamentFiles{"", "", "Young.temperament", "Vallotti.temperament"};
    const Names stretchFiles{"", "", "Upright.stretch", "Grand.stretch"};
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(actions->temperamentFileNameAtIndex(index), temperamentFiles[std::size_t(index)]);
        EXPECT_EQ(actions->stretchFileNameAtIndex(index), stretchFiles[std::size_t(index)]);
    }
    EXPECT_EQ(actions->temperamentFileNameAtIndex(-1), "");
    open(false);
    EXPECT_EQ(actions->temperamentFileNameAtIndex(2), "");
    EXPECT_EQ(actions->stretchFileNameAtIndex(2), "");
}

TEST_F(PreferencesActionsTest, ATemperamentIsTitledFromItsOwnOffsetsAtOnce) {
    open();
    actions->tuningPopUpChanged(2);
    EXPECT_EQ(panel.mTonicPopUpButton.titles[0], "C (261.852345Hz)");
    EXPECT_EQ(panel.mTonicPopUpButton.titles[9], "A (442.676726Hz)");
    actions->tonicPopUpChanged(9);
    EXPECT_EQ(panel.mTonicPopUpButton.titles[0], "C (263.673672Hz)");
    actions->tuningPopUpChanged(0);
    EXPECT_EQ(panel.mTonicPopUpButton.titles[0], "C (261.625565Hz)");
    EXPECT_EQ(panel.mTonicPopUpButton.selected, 9) << "kept for the next temperament";
}

} // namespace
} // namespace veltrano
