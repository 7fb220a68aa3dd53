// SPDX-License-Identifier: GPL-3.0-or-later
// The menus' commands for the tuner: titles, check marks, what they do.
#include "app/TunerCommands.h"

#include "app/ApplicationMenu.h"
#include "tests/engine/ControllerRig.h"

#include <QMainWindow>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

class TunerCommandsTest : public testing::Test {
protected:
    bool& visible(AnalysisWindowKind window) {
        return rig.windows.visible[static_cast<std::size_t>(window)];
    }
    /// nullopt: no check mark
    std::optional<bool> mark(MenuCommand command) {
        const auto state = commands.commandState(command);
        return state ? state->isChecked : std::nullopt;
    }

    ControllerRig rig;
    TunerCommands commands{rig.start(), rig.preferences, rig.windows};
};

TEST_F(TunerCommandsTest, MenusSayHideOfWhatIsVisible) {
    QMainWindow window;
    const auto& menu = *new ApplicationMenu(window, {&commands}, {}); // owned by the window
    struct Case {
        MenuCommand command;
        AnalysisWindowKind window;
        const char *whenHidden, *whenVisible;
    };
    const Case cases[] = {
        {MenuCommand::showPartials, AnalysisWindowKind::partials, "Show Partials", "Hide Partials"},
        {MenuCommand::showHilbertScope, AnalysisWindowKind::hilbert, "Show Hilbert Scope",
         "Hide Hilbert Scope"},
        {MenuCommand::showPianoKeyboard, AnalysisWindowKind::piano, "Piano Keyboard",
         "Piano Keyboard"},
    };
    for (const Case& row : cases) {
        for (const bool isVisible : {false, true, false}) {
            SCOPED_TRACE(row.whenVisible);
            rig.windows.visible.fill(!isVisible); // the others' visibility is of no account
            visible(row.window) = isVisible;
            QAction* item = menu.action(row.command);
            emit static_cast<QMenu*>(item->parent())->aboutToShow();
            QString title = item->text();
            EXPECT_EQ(title.count(u'&'), 1) << "a mnemonic";
            EXPECT_EQ(title.remove(u'&'), isVisible ? row.whenVisible : row.whenHidden);
        }
    }
}

TEST_F(TunerCommandsTest, CheckMarksFollowTheSettings) {
    using enum MenuCommand;
    struct Case {
        const char* name;
        MenuCommand command;
        void (Preferences::*set)(bool);
        bool isCheckedWhenSet;
    };
    const Case cases[] = {
        {"line", hilbertLine, &Preferences::setHilbertLine, true},
        {"dots", hilbertDots, &Preferences::setHilbertLine, false},
        {"decay", hilbertDecay, &Preferences::setHilbertDecay, true},
        {"grid", hilbertGrid, &Preferences::setHilbertGrid, true},
        {"hold", partialsHold, &Preferences::setPartialsHold, true},
        {"tune", speakTune, &Preferences::setTuneSpeech, true},
        {"hertz", speakHertz, &Preferences::setHertzSpeech, true},
    };
    const auto setAll = [&](bool on) {
        for (const Case& row : cases)
            (rig.preferences.*row.set)(on);
    };
    for (const Case& row : cases) {
        for (const bool on : {false, true, false}) {
            SCOPED_TRACE(row.name);
            setAll(!on);
            (rig.preferences.*row.set)(on);
            EXPECT_EQ(mark(row.command), on == row.isCheckedWhenSet);
        }
    }
}

TEST_F(TunerCommandsTest, EachChangesItsSettingOrWindow) {
    using enum MenuCommand;
    const Preferences& prefs = rig.preferences;
    const bool decay = prefs.hilbertDecay(), grid = prefs.hilbertGrid(),
               hold = prefs.partialsHold(), tune = prefs.tuneSpeech(), hertz = prefs.hertzSpeech();
    for (const MenuCommand command :
         {hilbertLine, hilbertDecay, hilbertGrid, partialsHold, speakTune, speakHertz})
        commands.perform(command);
    EXPECT_TRUE(prefs.hilbertLine());
    EXPECT_NE(prefs.hilbertDecay(), decay);
    EXPECT_NE(prefs.hilbertGrid(), grid);
    EXPECT_NE(prefs.partialsHold(), hold);
    EXPECT_NE(prefs.tuneSpeech(), tune);
    EXPECT_NE(prefs.hertzSpeech(), hertz);
    commands.perform(hilbertDots);
    EXPECT_FALSE(prefs.hilbertLine());

    rig.windows.calls.clear();
    visible(AnalysisWindowKind::hilbert) = true;
    for (const MenuCommand command :
         {showTunerWindow, showPartials, showHilbertScope, showPianoKeyboard})
        commands.perform(command);
    EXPECT_EQ(rig.windows.calls, (Lines{"tuner", "key partials", "out hilbert", "key piano"}));
}

TEST_F(TunerCommandsTest, AllOfThemAreEnabledAndTheOthersAreNotAnswered) {
    using enum MenuCommand;
    for (const MenuCommand command :
         {showTunerWindow, showPartials, showHilbertScope, showPianoKeyboard, partialsHold,
          hilbertLine, hilbertDots, hilbertDecay, hilbertGrid, speakStatus, speakDetails, speakTune,
          speakHertz}) {
        const auto state = commands.commandState(command);
        ASSERT_TRUE(state) << static_cast<int>(command);
        EXPECT_TRUE(state->isEnabled) << static_cast<int>(command);
    }
    for (const MenuCommand command : {showTunerWindow, showPartials, speakStatus})
        EXPECT_EQ(mark(command), std::nullopt);
    for (const MenuCommand command : {newTemperament, closeWindow, save, quit, copy, help})
        EXPECT_FALSE(commands.commandState(command)) << static_cast<int>(command);
}

} // namespace
} // namespace veltrano
