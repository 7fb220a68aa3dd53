// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the program with their menus, over a whole tuner of a test.
#pragma once

#include "app/ApplicationCommands.h"
#include "app/DocumentDesk.h"
#include "app/TunerCommands.h"
#include "app/WindowDesk.h"
#include "app/WindowsInSight.h"
#include "settings/PreferencesPanel.h"
#include "tests/engine/ControllerRig.h"
#include "tests/support/RecordingDesktop.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace veltrano {

/// Put together as the program does it, with virtual devices, scripted libraries and questions.
/// Thread: main, with a QApplication.
class TunerDesk {
public:
    explicit TunerDesk(UserDefaults stored = UserDefaults::inMemory()) : rig(std::move(stored)) {
        documents.setApplication(&commands);
        documents.setDidFurnish([this](QWidget& window) { inSight.add(window); });
        TunerWindow& tuner = windows->tuner();
        menu = &documents.furnish(tuner, &tuner);
        windows->analysis().forEach([this](AnalysisWindow& window) {
            documents.furnish(window, &window).keepShortcutsOnly();
        });
        windows->setDidMakeWindow([this](QWidget& window) {
            panelCommands.push_back(std::make_unique<PanelCommands>(window));
            documents.furnish(window, panelCommands.back().get());
        });
        makeController();
        makePanel();
        isRunning = true;
    }
    ~TunerDesk() { isRunning = false; } // the windows are hidden when they go
    TunerDesk(const TunerDesk&) = delete;
    TunerDesk& operator=(const TunerDesk&) = delete;

    /// What an item shows once its menu was opened by its key.
    CommandState look(MenuCommand command) {
        QMenu& opened = open(command);
        const QAction& item = *menu->action(command);
        const CommandState state{
            item.isEnabled(), item.isCheckable() ? std::optional(item.isChecked()) : std::nullopt,
            item.text().remove(u'&')};
        opened.close();
        QTest::keyClick(windows->tuner().menuBar(), Qt::Key_Escape);
        return state;
    }
    /// Opens the menu of an item and presses the item's letter, as a user without a mouse does.
    void choose(MenuCommand command) {
        QMenu& opened = open(command);
        QTest::keyClick(&opened, letterOf(menu->action(command)->text()));
        EXPECT_FALSE(opened.isVisible()) << menu->action(command)->text().toStdString();
        QApplication::processEvents();
    }
    /// A window comes to the front.
    static void activate(QWidget& window) {
        window.activateWindow();
        // A menu that was just closed may still have the focus of its window.
        EXPECT_TRUE(QTest::qWaitFor(
            [&window] { return QGuiApplication::focusWindow() == window.windowHandle(); }));
    }
    AnalysisWindow& window(AnalysisWindowKind kind) { return *windows->analysis().window(kind); }

    ControllerRig rig;
    const ResourceFolder resources{QStringLiteral(VELTRANO_SOURCE_RESOURCES)};
    ImageLibrary images{resources.images(), rig.log};
    RecordingPanels panels;
    LibrariesInUse libraries;
    int soundSettingsOpened = 0;
    bool isRunning = false; ///< neither starting nor ending
    ApplicationCommands commands{operations()};
    std::vector<std::unique_ptr<PanelCommands>> panelCommands;
    WindowsInSight inSight{[this](bool isAny) {
        if (!isRunning) return;
        isAny ? controller->applicationDidUnhide() : controller->applicationDidHide();
    }};
    std::unique_ptr<WindowDesk> windows = WindowDesk::create(
        {resources, images, rig.defaults,
         PartialView::Ports{rig.preferences, rig.notifications, &rig.speech}, rig.log});
    DocumentDesk documents{
        {resources, rig.defaults, rig.notifications, rig.preferences, libraries, panels, rig.log}};
    ApplicationMenu* menu = nullptr; ///< of the tuner window, which owns it
    std::unique_ptr<Controller> controller;
    std::unique_ptr<TunerCommands> tunerCommands;
    std::unique_ptr<PreferencesPanel> panel; ///< goes before the units

private:
    ApplicationCommands::Operations operations() {
        return {.help = [this] { windows->showHelp(); },
                .shortcuts = {},
                .copyDiagnostics = {},
                .about = {},
                .preferences = [this] { windows->showPreferences(); },
                .soundSettings = [this] { ++soundSettingsOpened; },
                .quit = {},
                .reducesMotion = {},
                .setReducesMotion = {}};
    }
    void makeController() {
        ControllerPorts ports{rig.registry, rig.preferences, rig.notifications,
                              rig.clock,    rig.log,         windows->tuner()};
        ports.windows = windows.get();
        ports.speech = &rig.speech;
        ports.soundGen = &rig.tone;
        controller = std::make_unique<Controller>(ports);
        tunerCommands = std::make_unique<TunerCommands>(*controller, rig.preferences, *windows);
        commands.setTuner(tunerCommands.get());
        controller->awakeFromNib();
        controller->applicationDidFinishLaunching();
        activate(windows->tuner());
    }
    void makePanel() {
        PreferencesPanel::Ports ports{.preferences = rig.preferences,
                                      .temperaments = &rig.temperaments,
                                      .stretches = &rig.stretches,
                                      .inputUnit = &controller->inputUnit(),
                                      .resources = resources,
                                      .log = rig.log};
        ports.didLoad = [this](QWidget& window) { windows->didLoadPreferences(window); };
        panel = std::make_unique<PreferencesPanel>(std::move(ports));
        windows->setPreferencesPanel(panel.get());
    }
    static char letterOf(const QString& text) {
        return text.at(text.indexOf(u'&') + 1).toLower().toLatin1();
    }
    QMenu& open(MenuCommand command) {
        TunerWindow& tuner = windows->tuner();
        activate(tuner);
        auto& wanted = *qobject_cast<QMenu*>(menu->action(command)->parent());
        QTest::keyClick(&tuner, letterOf(wanted.title()), Qt::AltModifier);
        EXPECT_TRUE(wanted.isVisible()) << wanted.title().toStdString();
        return wanted;
    }
};

} // namespace veltrano
