// SPDX-License-Identifier: GPL-3.0-or-later
// The panel follows the settings and the libraries: what is shown when, and what is announced then.
#include "tests/settings/PanelTestBase.h"

#include <algorithm>
#include <functional>

namespace veltrano {
namespace {

class PreferencesRefresh : public PanelTestBase {};

struct RefreshCase {
    const char* name;
    std::function<void(Preferences&)> prepare;
    std::function<void(Preferences&)> set;
    Names calls; ///< of the controls and notifications
};

const std::string kPostTemperament = "post " + std::string(notification::kTemperamentChanged);
const std::string kPostStretch = "post " + std::string(notification::kStretchChanged);
const std::string kPostManual = "post " + std::string(notification::kManualModeChanged);
const Names kNothing;

const RefreshCase kRefreshed[] = {
    {"reference pitch",
     {},
     [](auto& p) { p.setReferencePitch(442.5); },
     {"mReferencePitchText 442.5", "mReferencePitchStepper 442.5",
      "post " + std::string(notification::kReferencePitch)}},
    {"temperament",
     [](auto& p) { p.setTuningFileName("Young.temperament"); },
     [](auto& p) { p.setTuning(2); },
     {"mTuningPopUpButton select 2", kPostTemperament}},
    {"root key",
     {},
     [](auto& p) { p.setTonic(11); },
     {"mTonicPopUpButton select 11", kPostTemperament,
      "post " + std::string(notification::kRootKeyChanged)}},
    {"stretch",
     [](auto& p) { p.setStretchFileName("Grand.stretch"); },
     [](auto& p) { p.setStretch(3); },
     {"mStretchPopUpButton select 3", kPostStretch}},
    {"threshold",
     {},
     [](auto& p) { p.setInTuneThreshold(1); },
     {"mInTuneThresholdText \u00B11 cent", "mInTuneThresholdSlider 1",
      "post " + std::string(notification::kInTuneThresholdChanged)}},
    {"manual mode",
     {},
     [](auto& p) { p.setManualMode(true); },
     {"mManualModeCheckbox 1", "mNotePitchRadioButton enabled 1", "mNotePopUpButton enabled 1",
      "mOctavePopUpButton enabled 1", "mPitchText enabled 0", "mPitchTextStepper enabled 0",
      kPostManual}},
    {"type in manual mode",
     [](auto& p) { p.setManualMode(true); },
     [](auto& p) { p.setManualType(1); },
     {"mNotePitchRadioButton 1", "mPitchText enabled 1", "mPitchTextStepper enabled 1",
      kPostManual}},
    {"type in automatic mode is shown and not announced",
     {},
     [](auto& p) { p.setManualType(1); },
     {"mNotePitchRadioButton 1", "mPitchText enabled 0", "mPitchTextStepper enabled 0"}},
    {"note in manual mode",
     [](auto& p) { p.setManualMode(true); },
     [](auto& p) { p.setManualNote(58); },
     {"mNotePopUpButton select 10", "mOctavePopUpButton select 4", kPostManual}},
    {"note in automatic mode is shown and not announced",
     {},
     [](auto& p) { p.setManualNote(58); },
     {"mNotePopUpButton select 10", "mOctavePopUpButton select 4"}},
    {"a note past the ends is neither", {}, [](auto& p) { p.setManualNote(108); }, kNothing},
    {"pitch",
     {},
     [](auto& p) { p.setManualPitch(27.5); },
     {"mPitchText 27.5", "mPitchTextStepper 27.5", kPostManual}},
    {"sound-back", {}, [](auto& p) { p.setSoundBack(true); }, {"mSoundBackCheckbox 1"}},
    {"duration",
     {},
     [](auto& p) { p.setSoundBackDuration(2.54F); },
     {"mSoundBackDurationText 2.5 sec", "mSoundBackDurationSlider 2.5"}},
    {"volume",
     {},
     [](auto& p) { p.setSoundBackVolume(35); },
     {"mSoundBackVolumeText 35", "mSoundBackVolumeSlider 35"}},
    {"waveform",
     {},
     [](auto& p) { p.setSoundBackWaveform(2); },
     {"mSoundBackWaveformPopUpButton select 2"}},
    {"what has no control is not shown",
     {},
     [](auto& p) {
         p.setTuneSpeech(true);
         p.setHertzSpeech(true);
         p.setPianoKeyboard(false);
         p.setHilbertScope(false);
         p.setHilbertLine(true);
         p.setHilbertDecay(true);
         p.setHilbertGrid(false);
         p.setPartials(false);
         p.setPartialsHold(false);
         p.setInputDeviceName("Mic");
         p.setOutputDeviceName("Speaker");
         p.setTuningFileName("Young.temperament");
         p.setStretchFileName("Grand.stretch");
     },
     kNothing},
};

TEST_F(PreferencesRefresh, ASetterShowsItsValueBeforeItIsAnnounced) {
    for (const RefreshCase& row : kRefreshed) {
        SCOPED_TRACE(row.name);
        Preferences& settings = open();
        if (row.prepare) row.prepare(settings);
        panel.calls.clear();
        row.set(settings);
        EXPECT_EQ(panel.takeCalls(), row.calls);
        row.set(settings);
        EXPECT_EQ(panel.takeCalls(), kNothing) << "nothing is new";
    }
}

TEST_F(PreferencesRefresh, WithoutAPanelNothingIsShown) {
    Preferences& settings = open();
    settings.setDisplay(nullptr);
    settings.setInTuneThreshold(9);
    settings.setSoundBackVolume(35);
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(panel.takeCalls(),
              Names{"post " + std::string(notification::kInTuneThresholdChanged)});
}

TEST_F(PreferencesRefresh, ASavedTemperamentIsInTheMenuAndTheSelectedOneStaysSelected) {
    Preferences& settings = open();
    settings.setTuningForFileName("Young.temperament");
    temperaments.entries.insert(temperaments.entries.begin(),
                                {"Kirnberger.temperament", filled<CentTable>(4)});
    panel.calls.clear();
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(panel.mTuningPopUpButton.titles,
              (Names{"Equal Tempered", "-", "Kirnberger.temperament", "Young.temperament",
                     "Vallotti.temperament"}));
    EXPECT_EQ(panel.mTuningPopUpButton.selected, 3);
    EXPECT_EQ(panel.mTonicPopUpButton.titles[9], "A (442.676726Hz)");
    EXPECT_TRUE(panel.mTonicPopUpButton.isEnabled);
    // Announced first, shown then.
    const Names calls = panel.takeCalls();
    const auto lastPost = std::find(calls.rbegin(), calls.rend(), kPostTemperament);
    const auto rebuilt = std::find(calls.rbegin(), calls.rend(), "mTuningPopUpButton clear");
    ASSERT_NE(lastPost, calls.rend());
    ASSERT_NE(rebuilt, calls.rend());
    EXPECT_LT(rebuilt, lastPost) << "in reverse";
}

TEST_F(PreferencesRefresh, ASelectedTemperamentThatIsGoneLeavesEqualTemperament) {
    Preferences& settings = open();
    settings.setTuningForFileName("Vallotti.temperament");
    display->updateTonicMenu();
    display->enableTonic();
    temperaments.entries.pop_back();
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(panel.mTuningPopUpButton.titles, (Names{"Equal Tempered", "-", "Young.temperament"}));
    EXPECT_EQ(panel.mTuningPopUpButton.selected, 0);
    EXPECT_FALSE(panel.mTonicPopUpButton.isEnabled);
    EXPECT_EQ(panel.mTonicPopUpButton.titles[0], "C (261.625565Hz)");
}

TEST_F(PreferencesRefresh, MenusFollowTheLibraryAlsoWithNothingSelected) {
    open();
    temperaments.entries.pop_back();
    stretches.entries.pop_back();
    center.post(notification::kTemperamentSaved);
    center.post(notification::kStretchSaved);
    EXPECT_EQ(panel.mTuningPopUpButton.titles, (Names{"Equal Tempered", "-", "Young.temperament"}));
    EXPECT_EQ(panel.mTuningPopUpButton.selected, 0);
    EXPECT_EQ(panel.mStretchPopUpButton.titles, (Names{"None", "-", "Upright.stretch"}));
    EXPECT_EQ(panel.mStretchPopUpButton.selected, 0);
}

TEST_F(PreferencesRefresh, ASavedStretchIsInTheMenuAndTheSelectedOneStaysSelected) {
    Preferences& settings = open();
    settings.setStretchForFileName("Grand.stretch");
    stretches.entries.push_back({"Baby.stretch", filled<StretchTable>(1)});
    std::rotate(stretches.entries.begin(), stretches.entries.end() - 1, stretches.entries.end());
    panel.calls.clear();
    center.post(notification::kStretchSaved);
    EXPECT_EQ(panel.mStretchPopUpButton.titles,
              (Names{"None", "-", "Baby.stretch", "Upright.stretch", "Grand.stretch"}));
    EXPECT_EQ(panel.takeCalls(),
              (Names{"mStretchPopUpButton select 4", kPostStretch, kPostStretch,
                     "mStretchPopUpButton clear", "mStretchPopUpButton select 4"}));

    stretches.entries.pop_back();
    center.post(notification::kStretchSaved);
    EXPECT_EQ(panel.mStretchPopUpButton.selected, 0);
}

TEST_F(PreferencesRefresh, EditsOfTheSelectedTemperamentRetitleTheRootKeys) {
    Preferences& settings = open();
    settings.setTuningForFileName("Young.temperament");
    ScriptedTemperament document;
    document.path = "/library/Young.temperament";
    document.cents = filled<CentTable>(-2.5);
    center.post(notification::kTemperamentEdited,
                std::any(static_cast<const EditedTemperament*>(&document)));
    // 440 Hz x 2^(6.5 / 1200)
    EXPECT_EQ(panel.mTonicPopUpButton.titles[9], "A (441.655106Hz)");
}

} // namespace
} // namespace veltrano
