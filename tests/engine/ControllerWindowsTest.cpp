// SPDX-License-Identifier: GPL-3.0-or-later
// The windows beside the tuner window: at the start, at the end, by the menus; their settings.
#include "tests/engine/ControllerRig.h"

#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

/// Settings of a later launch.
UserDefaults storedVisibility(bool partials, bool hilbert, bool piano) {
    UserDefaults stored = UserDefaults::inMemory();
    stored.setBool("morvane.key.Partials", partials);
    stored.setBool("morvane.key.HilbertScope", hilbert);
    stored.setBool("morvane.key.PianoKeyboard", piano);
    stored.setInteger("morvane.key.Tonic", 0);
    return stored;
}

bool& visible(ControllerRig& rig, AnalysisWindowKind window) {
    return rig.windows.visible[static_cast<std::size_t>(window)];
}

TEST(ControllerWindows, TheSettingsSayWhichComeBehindTheTunerWindowAtTheStart) {
    struct Case {
        bool partials, hilbert, piano;
        Lines calls;
    };
    const Case cases[] = {
        {false, false, false, {"tuner"}},
        {true, false, false, {"front partials", "tuner"}},
        {false, true, false, {"front hilbert", "tuner"}},
        {false, false, true, {"front piano", "tuner"}},
        {true, false, true, {"front partials", "front piano", "tuner"}},
        {true, true, true, {"front partials", "front hilbert", "front piano", "tuner"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.calls));
        ControllerRig rig(storedVisibility(row.partials, row.hilbert, row.piano));
        Controller& controller = rig.make();
        controller.awakeFromNib();
        EXPECT_EQ(rig.windows.calls, Lines{}) << "not before the launch is finished";
        controller.applicationDidFinishLaunching();
        EXPECT_EQ(rig.windows.calls, row.calls);
    }
}

TEST(ControllerWindows, TheEndStoresWhichAreVisibleAndThenSaves) {
    for (int visibleOnes = 0; visibleOnes < 1 << kAnalysisWindows; ++visibleOnes) {
        SCOPED_TRACE(visibleOnes);
        const bool partials = visibleOnes & 1;
        const bool hilbert = visibleOnes & 2;
        const bool piano = visibleOnes & 4;
        // Everything the other way round in the settings.
        ControllerRig rig(storedVisibility(!partials, !hilbert, !piano));
        Controller& controller = rig.start();
        rig.windows.visible = {partials, hilbert, piano};
        controller.applicationWillTerminate();
        EXPECT_EQ(rig.defaults.boolForKey("morvane.key.Partials"), partials);
        EXPECT_EQ(rig.defaults.boolForKey("morvane.key.HilbertScope"), hilbert);
        EXPECT_EQ(rig.defaults.boolForKey("morvane.key.PianoKeyboard"), piano);
    }
}

TEST(ControllerWindows, WhatIsSeenMeanwhileIsNotStored) {
    ControllerRig rig(storedVisibility(true, false, true));
    Controller& controller = rig.start();
    controller.applicationDidFinishLaunching();
    controller.showPartials();
    controller.showHilbertScope();
    EXPECT_TRUE(rig.preferences.partials());
    EXPECT_FALSE(rig.preferences.hilbertScope());
}

TEST(ControllerWindows, PartialsAndScopeAreSwitchedKeyboardAndTunerComeToTheFront) {
    struct Case {
        const char* name;
        void (Controller::*show)();
        AnalysisWindowKind window;
        Lines whenHidden, whenVisible;
    };
    const Case cases[] = {
        {"partials",
         &Controller::showPartials,
         AnalysisWindowKind::partials,
         {"key partials"},
         {"out partials"}},
        {"hilbert",
         &Controller::showHilbertScope,
         AnalysisWindowKind::hilbert,
         {"key hilbert"},
         {"out hilbert"}},
        {"piano",
         &Controller::showPianoKeyboard,
         AnalysisWindowKind::piano,
         {"key piano"},
         {"key piano"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        ControllerRig rig;
        Controller& controller = rig.start();
        rig.windows.visible.fill(true); // the others' visibility is of no account
        rig.windows.calls.clear();
        visible(rig, row.window) = false;
        std::invoke(row.show, controller);
        EXPECT_EQ(rig.windows.calls, row.whenHidden);

        rig.windows.visible.fill(false);
        rig.windows.calls.clear();
        visible(rig, row.window) = true;
        std::invoke(row.show, controller);
        EXPECT_EQ(rig.windows.calls, row.whenVisible);
    }
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.windows.calls.clear();
    controller.showTunerWindow();
    controller.showTunerWindow();
    EXPECT_EQ(rig.windows.calls, (Lines{"tuner", "tuner"}));
}

TEST(ControllerWindows, DecayGridAndHoldChangeTheirOwnSettingToAndFro) {
    struct Case {
        const char* name;
        void (Controller::*change)();
        bool (Preferences::*value)() const;
    };
    const Case cases[] = {
        {"decay", &Controller::hilbertDecay, &Preferences::hilbertDecay},
        {"grid", &Controller::hilbertGrid, &Preferences::hilbertGrid},
        {"hold", &Controller::partialsHold, &Preferences::partialsHold},
    };
    ControllerRig rig;
    Controller& controller = rig.start();
    const auto values = [&] {
        std::vector<bool> all;
        for (const Case& row : cases)
            all.push_back((rig.preferences.*row.value)());
        return all;
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const Case& row = cases[i];
        SCOPED_TRACE(row.name);
        const std::vector<bool> before = values();
        std::vector<bool> changed = before;
        changed[i] = !changed[i];
        std::invoke(row.change, controller);
        EXPECT_EQ(values(), changed);
        std::invoke(row.change, controller);
        EXPECT_EQ(values(), before);
    }
}

TEST(ControllerWindows, LineAndDotsSayWhichHoweverOften) {
    ControllerRig rig;
    Controller& controller = rig.start();
    for (int i = 0; i < 2; ++i) {
        controller.hilbertLine();
        EXPECT_TRUE(rig.preferences.hilbertLine());
    }
    for (int i = 0; i < 2; ++i) {
        controller.hilbertDots();
        EXPECT_FALSE(rig.preferences.hilbertLine());
    }
}

TEST(ControllerWindows, WithoutWindowsTheirCommandsDoNothingAndTheEndKeepsTheSettings) {
    ControllerRig rig(storedVisibility(true, false, true));
    rig.controller = std::make_unique<Controller>(rig.ports);
    Controller& controller = *rig.controller;
    controller.awakeFromNib();
    controller.applicationDidFinishLaunching();
    controller.showTunerWindow();
    controller.showPartials();
    controller.showHilbertScope();
    controller.showPianoKeyboard();
    controller.applicationWillTerminate();
    EXPECT_TRUE(rig.defaults.boolForKey("morvane.key.Partials"));
    EXPECT_FALSE(rig.defaults.boolForKey("morvane.key.HilbertScope"));
    EXPECT_TRUE(rig.defaults.boolForKey("morvane.key.PianoKeyboard"));
}

} // namespace
} // namespace veltrano
