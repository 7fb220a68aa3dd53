// SPDX-License-Identifier: GPL-3.0-or-later
// The menus' commands for the application as a whole.
#pragma once

#include "app/MenuCommands.h"

#include <functional>
#include <utility>

class QWidget;

namespace veltrano {

/// The last of every window's chain: what is not the tuner's is the application's. Thread: main.
class ApplicationCommands final : public CommandHandler {
public:
    /// What each command does; an empty function: the command is not there.
    struct Operations {
        std::function<void()> help;
        std::function<void()> shortcuts;
        std::function<void()> copyDiagnostics;
        std::function<void()> about;
        std::function<void()> preferences;
        std::function<void()> soundSettings;
        std::function<void()> quit;
        std::function<bool()> reducesMotion;
        std::function<void(bool)> setReducesMotion;
    };

    explicit ApplicationCommands(Operations operations) : mOperations(std::move(operations)) {}

    /// Who answers what is no command of the application's. Not owned; null: nobody.
    void setTuner(CommandHandler* tuner) { mTuner = tuner; }

    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

private:
    const std::function<void()>* operationOf(MenuCommand command) const;

    const Operations mOperations;
    CommandHandler* mTuner = nullptr;
};

/// Closing and sizing of one window that is neither the tuner's nor a document's. Owned by whoever
/// makes it; the window outlives it.
class PanelCommands final : public CommandHandler {
public:
    explicit PanelCommands(QWidget& window) : mWindow(window) {}
    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

private:
    QWidget& mWindow;
};

} // namespace veltrano
