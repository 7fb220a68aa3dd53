// SPDX-License-Identifier: GPL-3.0-or-later
// The menus' commands for the application as a whole.
#include "app/ApplicationCommands.h"

#include <QApplication>
#include <QWidget>

namespace veltrano {

namespace {

void toggleFullScreen(QWidget& window) {
    window.setWindowState(window.windowState() ^ Qt::WindowFullScreen);
}

} // namespace

const std::function<void()>* ApplicationCommands::operationOf(MenuCommand command) const {
    switch (command) {
    case MenuCommand::help:
        return &mOperations.help;
    case MenuCommand::shortcuts:
        return &mOperations.shortcuts;
    case MenuCommand::copyDiagnostics:
        return &mOperations.copyDiagnostics;
    case MenuCommand::about:
        return &mOperations.about;
    case MenuCommand::preferences:
        return &mOperations.preferences;
    case MenuCommand::soundSettings:
        return &mOperations.soundSettings;
    case MenuCommand::quit:
    case MenuCommand::closeWindow: // the tuner window's: it quits
        return &mOperations.quit;
    default:
        return nullptr;
    }
}

std::optional<CommandState> ApplicationCommands::commandState(MenuCommand command) const {
    const QWidget* window = QApplication::activeWindow();
    switch (command) {
    case MenuCommand::minimise:
        return CommandState{.isEnabled = window != nullptr};
    case MenuCommand::fullScreen:
        return CommandState{.isEnabled = window != nullptr,
                            .isChecked = window && window->isFullScreen()};
    case MenuCommand::reduceMotion:
        if (!mOperations.reducesMotion) return std::nullopt;
        return CommandState{.isChecked = mOperations.reducesMotion()};
    default:
        break;
    }
    if (const auto* operation = operationOf(command)) {
        return *operation ? std::optional(CommandState{}) : std::nullopt;
    }
    return mTuner ? mTuner->commandState(command) : std::nullopt;
}

void ApplicationCommands::perform(MenuCommand command) {
    QWidget* window = QApplication::activeWindow();
    switch (command) {
    case MenuCommand::minimise:
        window->showMinimized();
        return;
    case MenuCommand::fullScreen:
        toggleFullScreen(*window);
        return;
    case MenuCommand::reduceMotion:
        mOperations.setReducesMotion(!mOperations.reducesMotion());
        return;
    default:
        break;
    }
    if (const auto* operation = operationOf(command)) {
        (*operation)();
    } else if (mTuner) {
        mTuner->perform(command);
    }
}

std::optional<CommandState> PanelCommands::commandState(MenuCommand command) const {
    if (command == MenuCommand::closeWindow) return CommandState{};
    return std::nullopt;
}

void PanelCommands::perform(MenuCommand) { mWindow.close(); }

} // namespace veltrano
