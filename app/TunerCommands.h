// SPDX-License-Identifier: GPL-3.0-or-later
// The menus' commands for the tuner.
#pragma once

#include "app/MenuCommands.h"

namespace veltrano {

class ApplicationWindows;
class Controller;
class Preferences;

/// What the menus show of the tuner and which of its operations a command is. Thread: main.
class TunerCommands final : public CommandHandler {
public:
    /// All of it outlives this.
    TunerCommands(Controller& controller, const Preferences& preferences,
                  const ApplicationWindows& windows)
        : mController(controller), mPreferences(preferences), mWindows(windows) {}

    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

private:
    Controller& mController;
    const Preferences& mPreferences;
    const ApplicationWindows& mWindows;
};

} // namespace veltrano
