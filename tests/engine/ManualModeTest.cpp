// SPDX-License-Identifier: GPL-3.0-or-later
// Manual mode: the keys that choose a note, the placeholders, the tone that gives the pitch.
#include "tests/engine/ControllerRig.h"
#include "tuning/PitchClass.h"

#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Played = std::vector<std::pair<float, float>>;

class ManualMode : public testing::Test {
protected:
    ManualMode() : controller(rig.start()) {
        rig.preferences.setManualMode(true);
        rig.display.takeCalls();
    }

    void chooseNote(int key) { rig.preferences.setManualNote(key); }

    ControllerRig rig;
    Controller& controller;
};

struct StepCase {
    const char* name;
    void (Controller::*step)();
    int from;
    int to;
};

const StepCase kSteps[] = {
    {"a note up", &Controller::noteUp, 57, 58},
    {"a note down", &Controller::noteDown, 57, 56},
    {"an octave up", &Controller::octaveUp, 57, 69},
    {"an octave down", &Controller::octaveDown, 57, 45},
    {"a note up at the highest key stays", &Controller::noteUp, 107, 107},
    {"a note down at the lowest key stays", &Controller::noteDown, 0, 0},
    {"an octave up near the top stays", &Controller::octaveUp, 96, 96},
    {"an octave down at key 5 stays", &Controller::octaveDown, 5, 5},
};

TEST_F(ManualMode, KeysStepAndPlayWithSoundBack) {
    rig.preferences.setSoundBack(true);
    for (const StepCase& test : kSteps) {
        SCOPED_TRACE(test.name);
        chooseNote(test.from);
        rig.tone.played.clear();
        std::invoke(test.step, controller);
        EXPECT_EQ(rig.preferences.manualNote(), test.to);
        const auto hz = float(440 * std::exp2((test.to - 57) / 12.0));
        ASSERT_EQ(rig.tone.played.size(), 1u) << "played, also when the key stays";
        EXPECT_NEAR(rig.tone.played[0].first, hz, hz * 1e-6f);
        EXPECT_EQ(rig.tone.played[0].second, 1.0f) << "as long as the settings say";
        EXPECT_EQ(rig.text(TunerText::octave), std::to_string(test.to / 12));
    }
}

TEST_F(ManualMode, KeysArePlayedOnlyWithSoundBack) {
    controller.noteUp();
    EXPECT_EQ(rig.preferences.manualNote(), 58);
    EXPECT_TRUE(rig.tone.played.empty());
}

TEST_F(ManualMode, StepsLeaveTheFreePitch) {
    rig.preferences.setManualType(1);
    controller.noteUp();
    EXPECT_EQ(rig.preferences.manualType(), 0);
    EXPECT_EQ(rig.preferences.manualNote(), 58);
    EXPECT_EQ(rig.text(TunerText::note), "B");
}

TEST_F(ManualMode, InAutomaticModeStepsDoNothing) {
    rig.preferences.setManualMode(false);
    rig.preferences.setManualType(1);
    rig.preferences.setSoundBack(true);
    rig.display.takeCalls();
    for (const auto step : {&Controller::noteUp, &Controller::noteDown, &Controller::octaveUp,
                            &Controller::octaveDown}) {
        std::invoke(step, controller);
        EXPECT_EQ(rig.preferences.manualNote(), 57);
        EXPECT_EQ(rig.preferences.manualType(), 1);
    }
    EXPECT_TRUE(rig.tone.played.empty());
    EXPECT_TRUE(rig.display.takeCalls().empty());
}

TEST_F(ManualMode, TogglingPlaysWhenManualModeBegins) {
    rig.preferences.setSoundBack(true);
    controller.autoManualToggle();
    EXPECT_FALSE(rig.preferences.manualMode());
    EXPECT_TRUE(rig.tone.played.empty());
    controller.autoManualToggle();
    EXPECT_TRUE(rig.preferences.manualMode());
    EXPECT_EQ(rig.tone.played, (Played{{440.0f, 1.0f}}));
}

TEST_F(ManualMode, TogglingIsSilentWithoutSoundBack) {
    controller.autoManualToggle();
    controller.autoManualToggle();
    EXPECT_TRUE(rig.tone.played.empty());
}

TEST_F(ManualMode, PlaySoundBackPlaysOnceWithSoundBackOff) {
    controller.playSoundBack();
    EXPECT_EQ(rig.tone.played, (Played{{440.0f, 1.0f}}));
}

TEST_F(ManualMode, SoundBackToggleFlipsTheSetting) {
    controller.soundBackToggle();
    EXPECT_TRUE(rig.preferences.soundBack());
    controller.soundBackToggle();
    EXPECT_FALSE(rig.preferences.soundBack());
}

TEST_F(ManualMode, AFreePitchShowsPlaceholdersAndMarksNoKey) {
    rig.preferences.setManualType(1);
    rig.preferences.setManualPitch(432.5);
    EXPECT_EQ(rig.text(TunerText::note), "-");
    EXPECT_EQ(rig.text(TunerText::accidental), "");
    EXPECT_EQ(rig.text(TunerText::octave), "-");
    EXPECT_EQ(rig.text(TunerText::stretchOffset), "--.---");
    EXPECT_EQ(rig.text(TunerText::cent), "--.-");
    EXPECT_EQ(rig.text(TunerText::frequency), "---.---");
    EXPECT_EQ(rig.text(TunerText::frequencyDiff), "---.---");
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "432.500");
    EXPECT_EQ(rig.display.pianoNote, kNoKey);
    controller.playSoundBack();
    EXPECT_EQ(rig.tone.played.back().first, 432.5f);
}

TEST_F(ManualMode, AKeyShowsItsTargetAndLeavesItAsTheFreePitch) {
    rig.stretchKey(58, 5);
    chooseNote(58);
    EXPECT_EQ(rig.text(TunerText::note), "B");
    EXPECT_EQ(rig.text(TunerText::accidental), "\u266d");
    EXPECT_EQ(rig.text(TunerText::octave), "4");
    EXPECT_EQ(rig.text(TunerText::stretchOffset), "+5.000");
    EXPECT_EQ(rig.display.pianoNote, 58);
    const double hz = 440 * std::exp2(105 / 1200.0);
    EXPECT_NEAR(rig.preferences.manualPitch(), hz, 1e-6);
    rig.preferences.setManualType(1);
    EXPECT_NEAR(rig.preferences.manualPitch(), hz, 1e-6) << "free pitch starts from the last key";
}

TEST_F(ManualMode, EveryDisplayIsBroughtUpToDateInBothKinds) {
    const std::vector<std::string> rest{"light inTune gray28x28",      "light flat gray24x24",
                                        "light sharp gray24x24",       "text cent --.-",
                                        "text frequency ---.---",      "text frequencyDiff ---.---",
                                        "text idealFrequency 440.000", "strobeFrequency 440"};
    const auto shown = [&](std::vector<std::string> first) {
        first.insert(first.end(), rest.begin(), rest.end());
        return first;
    };
    controller.manualModeUI();
    EXPECT_EQ(rig.display.takeCalls(),
              shown({"text note A", "text accidental  ", "hidden accidental yes", "text octave 4",
                     "pianoNote 57", "text stretchOffset \u00B10.000"}));
    rig.preferences.setManualType(1);
    rig.display.takeCalls();
    controller.manualModeUI();
    EXPECT_EQ(rig.display.takeCalls(), shown({"text note -", "text accidental ", "text octave -",
                                              "pianoNote -1", "text stretchOffset --.---"}));
}

TEST_F(ManualMode, AfterManualModeTheCentTextWaitsForOtherTenths) {
    ControllerRig fresh;
    Controller& tuner = fresh.start();
    tuner.updateUI(frameOf(toneSamples(100))); // 441 Hz
    const std::string before = fresh.text(TunerText::cent);
    fresh.preferences.setManualMode(true);
    EXPECT_EQ(fresh.text(TunerText::cent), "--.-");
    fresh.preferences.setManualMode(false);
    EXPECT_EQ(fresh.text(TunerText::cent), "--.-") << "kept: the tenths are those of before";
    tuner.updateUI(frameOf(toneSamples(99)));
    EXPECT_NE(fresh.text(TunerText::cent), "--.-");
    EXPECT_NE(before, "--.-");
}

TEST_F(ManualMode, TheStrobeGoesOnWithTheManualTarget) {
    chooseNote(69);
    rig.display.takeCalls();
    controller.updateUI(frameOf(toneSamples(100)));
    EXPECT_EQ(rig.display.callsOf("strobeData").size(), 1u);
    EXPECT_EQ(rig.text(TunerText::frequency), "---.---");
}

} // namespace
} // namespace veltrano
