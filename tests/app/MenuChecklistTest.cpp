// SPDX-License-Identifier: GPL-3.0-or-later
// Every command of the tuner by the menus of its window: what is shown of it and what it does.
#include "tests/app/TunerDesk.h"

#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <functional>

namespace veltrano {
namespace {

using enum MenuCommand;
using Lines = std::vector<std::string>;

class MenuChecklist : public testing::Test {
protected:
    bool isVisible(AnalysisWindowKind kind) { return desk.window(kind).isVisible(); }
    EditorWindow& document(std::size_t index) { return *desk.documents.windows().at(index); }
    /// What a menu of a document window shows of an item.
    static bool isEnabledIn(EditorWindow& window, MenuCommand command) {
        const auto& menu = *window.findChild<ApplicationMenu*>();
        QAction& item = *menu.action(command);
        emit static_cast<QMenu*>(item.parent())->aboutToShow();
        return item.isEnabled();
    }

    TunerDesk desk;
    Preferences& prefs = desk.rig.preferences;
};

TEST_F(MenuChecklist, StepsAreEnabledInManualModeOnly) {
    for (const bool isManual : {false, true, false}) {
        prefs.setManualMode(isManual);
        for (const MenuCommand command : {noteUp, noteDown, octaveUp, octaveDown})
            EXPECT_EQ(desk.look(command).isEnabled, isManual) << static_cast<int>(command);
    }
}

TEST_F(MenuChecklist, CheckMarksAreThoseOfTheSettings) {
    const struct {
        MenuCommand command;
        void (Preferences::*set)(bool);
        bool isCheckedWhenSet;
    } kRows[] = {
        {autoManualToggle, &Preferences::setManualMode, true},
        {soundBackToggle, &Preferences::setSoundBack, true},
        {hilbertLine, &Preferences::setHilbertLine, true},
        {hilbertDots, &Preferences::setHilbertLine, false},
        {hilbertDecay, &Preferences::setHilbertDecay, true},
        {hilbertGrid, &Preferences::setHilbertGrid, true},
        {partialsHold, &Preferences::setPartialsHold, true},
        {speakTune, &Preferences::setTuneSpeech, true},
        {speakHertz, &Preferences::setHertzSpeech, true},
    };
    for (const auto& row : kRows) {
        for (const bool on : {true, false}) {
            SCOPED_TRACE(static_cast<int>(row.command));
            (prefs.*row.set)(on);
            const CommandState seen = desk.look(row.command);
            EXPECT_EQ(seen.isChecked, on == row.isCheckedWhenSet);
            EXPECT_TRUE(seen.isEnabled);
        }
    }
}

TEST_F(MenuChecklist, ScopeAndPartialsAreShownAndHiddenAndTheirItemsSaySo) {
    const struct {
        MenuCommand command;
        AnalysisWindowKind window;
        const char *show, *hide;
    } kRows[] = {
        {showHilbertScope, AnalysisWindowKind::hilbert, "Show Hilbert Scope", "Hide Hilbert Scope"},
        {showPartials, AnalysisWindowKind::partials, "Show Partials", "Hide Partials"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.show);
        ASSERT_TRUE(isVisible(row.window));
        EXPECT_EQ(desk.look(row.command).title, row.hide);
        desk.choose(row.command);
        EXPECT_FALSE(isVisible(row.window));
        EXPECT_EQ(desk.look(row.command).title, row.show);
        desk.choose(row.command);
        EXPECT_TRUE(isVisible(row.window));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&desk.window(row.window))) << "it has the focus";

        desk.window(row.window).showMinimized();
        EXPECT_EQ(desk.look(row.command).title, row.show);
        EXPECT_FALSE(desk.look(row.command).isChecked);
    }
}

TEST_F(MenuChecklist, KeyboardAndTunerComeToTheFrontAndNeverGo) {
    AnalysisWindow& piano = desk.window(AnalysisWindowKind::piano);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(desk.look(showPianoKeyboard).title, "Piano Keyboard");
        desk.choose(showPianoKeyboard);
        EXPECT_TRUE(piano.isVisible());
        EXPECT_TRUE(QTest::qWaitForWindowActive(&piano));
    }
    piano.hide();
    desk.choose(showPianoKeyboard);
    EXPECT_TRUE(piano.isVisible());

    TunerWindow& tuner = desk.windows->tuner();
    QTest::keyClick(&piano, Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&tuner));
    desk.choose(showTunerWindow);
    EXPECT_TRUE(tuner.isVisible());
    EXPECT_TRUE(tuner.isActiveWindow());
    TunerDesk::activate(piano);
    tuner.showMinimized();
    QTest::keyClick(&piano, Qt::Key_1, Qt::ControlModifier);
    EXPECT_FALSE(tuner.isMinimized());
}

TEST_F(MenuChecklist, ScopeItemsChangeTheirSetting) {
    desk.choose(hilbertLine);
    EXPECT_TRUE(prefs.hilbertLine());
    desk.choose(hilbertLine);
    EXPECT_TRUE(prefs.hilbertLine()) << "it is not switched";
    desk.choose(hilbertDots);
    EXPECT_FALSE(prefs.hilbertLine());
    const struct {
        MenuCommand command;
        bool (Preferences::*value)() const;
    } kRows[] = {{hilbertDecay, &Preferences::hilbertDecay},
                 {hilbertGrid, &Preferences::hilbertGrid},
                 {partialsHold, &Preferences::partialsHold}};
    for (const auto& row : kRows) {
        const bool before = (prefs.*row.value)();
        desk.choose(row.command);
        EXPECT_NE((prefs.*row.value)(), before);
        desk.choose(row.command);
        EXPECT_EQ((prefs.*row.value)(), before);
    }
}

TEST_F(MenuChecklist, ManualModeStepsAndSoundBack) {
    desk.choose(soundBackToggle);
    EXPECT_TRUE(prefs.soundBack());
    EXPECT_TRUE(desk.rig.tone.played.empty());
    desk.choose(autoManualToggle);
    EXPECT_TRUE(prefs.manualMode());
    EXPECT_EQ(desk.rig.tone.played.size(), 1u);
    const struct {
        MenuCommand command;
        int key;
        float hz;
    } kRows[] = {{noteUp, 58, 466.164f},
                 {octaveUp, 70, 932.328f},
                 {noteDown, 69, 880},
                 {octaveDown, 57, 440}};
    for (const auto& row : kRows) {
        desk.rig.tone.played.clear();
        desk.choose(row.command);
        EXPECT_EQ(prefs.manualNote(), row.key);
        ASSERT_EQ(desk.rig.tone.played.size(), 1u);
        EXPECT_NEAR(desk.rig.tone.played[0].first, row.hz, 0.001f);
    }
    desk.choose(soundBackToggle);
    EXPECT_FALSE(prefs.soundBack());
    desk.rig.tone.played.clear();
    desk.choose(playSoundBack);
    EXPECT_EQ(desk.rig.tone.played.size(), 1u) << "once, whatever the settings say";
    desk.choose(autoManualToggle);
    EXPECT_FALSE(prefs.manualMode());
}

TEST_F(MenuChecklist, ReportsAreSpoken) {
    desk.controller->updateUI(frameOf(toneSamples(100))); // 441 Hz
    desk.rig.speech.said.clear();
    desk.choose(speakStatus);
    EXPECT_EQ(desk.rig.speech.said, Lines{"ay  , +3.9 cent, 441.000 hertz"});
    desk.rig.speech.said.clear();
    desk.choose(speakDetails);
    ASSERT_EQ(desk.rig.speech.said.size(), 1u);
    EXPECT_NE(desk.rig.speech.said[0].find("Temperament: Equal Tempered"), std::string::npos)
        << desk.rig.speech.said[0];
    for (const bool on : {true, false}) {
        desk.choose(speakTune);
        desk.choose(speakHertz);
        EXPECT_EQ(prefs.tuneSpeech(), on);
        EXPECT_EQ(prefs.hertzSpeech(), on);
    }
}

TEST_F(MenuChecklist, HelpPreferencesAndSoundSettingsAreOpened) {
    desk.windows->help().window()->close(); // shown on the first launch
    desk.choose(help);
    ASSERT_TRUE(desk.windows->help().window());
    EXPECT_TRUE(desk.windows->help().window()->isVisible());
    EXPECT_EQ(desk.panel->window(), nullptr);
    desk.choose(preferences);
    ASSERT_TRUE(desk.panel->window());
    EXPECT_TRUE(QTest::qWaitForWindowActive(desk.panel->window()));
    desk.choose(soundSettings);
    EXPECT_EQ(desk.soundSettingsOpened, 1);
    // The panel has the same keys.
    TunerDesk::activate(*desk.panel->window());
    QTest::keyClick(desk.panel->window(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(isVisible(AnalysisWindowKind::hilbert));
}

TEST_F(MenuChecklist, NewDocumentsAreShownUntitled) {
    desk.choose(newTemperament);
    ASSERT_EQ(desk.documents.windows().size(), 1u);
    EXPECT_TRUE(document(0).isVisible());
    EXPECT_EQ(document(0).windowFilePath(), "");
    EXPECT_TRUE(isEnabledIn(document(0), exportScala)) << "a temperament";
    desk.choose(newStretch);
    ASSERT_EQ(desk.documents.windows().size(), 2u);
    EXPECT_TRUE(document(1).isVisible());
    EXPECT_EQ(document(1).windowFilePath(), "");
    EXPECT_FALSE(isEnabledIn(document(1), exportScala)) << "a stretch";
}

TEST_F(MenuChecklist, ExportIsEnabledWhereTheCurrentDocumentIsATemperament) {
    EXPECT_FALSE(desk.look(exportScala).isEnabled);
    desk.choose(newTemperament);
    desk.choose(newStretch);
    EXPECT_FALSE(desk.look(exportScala).isEnabled) << "the tuner window is none of a document";
    EXPECT_TRUE(isEnabledIn(document(0), exportScala));
    EXPECT_FALSE(isEnabledIn(document(1), exportScala));
    TunerDesk::activate(document(0));
    QTest::keyClick(&document(0), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(desk.panels.savePanels.size(), 1u);
}

TEST_F(MenuChecklist, AFailedImportTellsWhyAndLeavesNoDocumentBehindAndTheNextFileIsImported) {
    QTemporaryDir folder;
    const auto file = [&folder](const char* name, const char* bytes) {
        QFile written(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
        return written.fileName().toStdString();
    };
    const std::string bad = file("bad.scl", "bad\n7\n");
    const std::string good =
        file("good.scl", "! good.scl\n!\n A scale\n 12\n!\n100.\n200.\n300.\n400.\n500.\n600.\n"
                         "700.\n800.\n900.\n1000.\n1100.\n2/1\n");
    desk.panels.chosen = {bad, good};
    desk.choose(importScala);
    ASSERT_EQ(desk.panels.openPanels.size(), 1u);
    EXPECT_EQ(desk.panels.openPanels[0].title, "Import");
    EXPECT_EQ(desk.panels.openPanels[0].prompt, "Import");
    EXPECT_TRUE(desk.panels.openPanels[0].allowsSeveral);
    ASSERT_EQ(desk.panels.openPanels[0].types.size(), 1u);
    EXPECT_EQ(desk.panels.openPanels[0].types[0].extension, "scl");
    EXPECT_EQ(desk.panels.alerts,
              Lines{"Unable to import the Scala Scale File (.scl).\nVeltrano failed to import the "
                    "Scala Scale File (.scl): " +
                    bad + "."});
    ASSERT_EQ(desk.documents.windows().size(), 1u);
    EXPECT_EQ(document(0).findChild<QLineEdit*>("nameField")->text(), "good.scl");
    EXPECT_TRUE(document(0).isVisible());
}

TEST_F(MenuChecklist, WhatNobodyAnswersIsDisabledAndTheRestEnabled) {
    for (const MenuCommand command : {save, saveAs, revert, print, undo, redo})
        EXPECT_FALSE(desk.look(command).isEnabled) << static_cast<int>(command);
    for (const MenuCommand command : {newTemperament,
                                      newStretch,
                                      open,
                                      importScala,
                                      closeWindow,
                                      copy,
                                      preferences,
                                      autoManualToggle,
                                      soundBackToggle,
                                      playSoundBack,
                                      soundSettings,
                                      showTunerWindow,
                                      showPartials,
                                      showHilbertScope,
                                      showPianoKeyboard,
                                      partialsHold,
                                      hilbertLine,
                                      hilbertDots,
                                      hilbertDecay,
                                      hilbertGrid,
                                      speakStatus,
                                      speakDetails,
                                      speakTune,
                                      speakHertz,
                                      help}) {
        const bool isQuit = command == closeWindow; // not there in this test
        EXPECT_NE(desk.look(command).isEnabled, isQuit) << static_cast<int>(command);
    }
}

} // namespace
} // namespace veltrano
