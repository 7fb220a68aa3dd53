// SPDX-License-Identifier: GPL-3.0-or-later
// The menus' commands for the tuner.
#include "app/TunerCommands.h"

#include "engine/Controller.h"
#include "settings/Preferences.h"

namespace veltrano {

namespace {

using Operation = void (Controller::*)();

/// null: not one of the tuner's commands
Operation operationOf(MenuCommand command) {
    switch (command) {
    case MenuCommand::showTunerWindow:
        return &Controller::showTunerWindow;
    case MenuCommand::showPartials:
        return &Controller::showPartials;
    case MenuCommand::showHilbertScope:
        return &Controller::showHilbertScope;
    case MenuCommand::showPianoKeyboard:
        return &Controller::showPianoKeyboard;
    case MenuCommand::hilbertLine:
        return &Controller::hilbertLine;
    case MenuCommand::hilbertDots:
        return &Controller::hilbertDots;
    case MenuCommand::hilbertDecay:
        return &Controller::hilbertDecay;
    case MenuCommand::hilbertGrid:
        return &Controller::hilbertGrid;
    case MenuCommand::partialsHold:
        return &Controller::partialsHold;
    case MenuCommand::autoManualToggle:
        return &Controller::autoManualToggle;
    case MenuCommand::noteUp:
        return &Controller::noteUp;
    case MenuCommand::noteDown:
        return &Controller::noteDown;
    case MenuCommand::octaveUp:
        return &Controller::octaveUp;
    case MenuCommand::octaveDown:
        return &Controller::octaveDown;
    case MenuCommand::soundBackToggle:
        return &Controller::soundBackToggle;
    case MenuCommand::playSoundBack:
        return &Controller::playSoundBack;
    case MenuCommand::speakStatus:
        return &Controller::iaSpeakStatus;
    case MenuCommand::speakDetails:
        return &Controller::iaSpeakDetails;
    case MenuCommand::speakTune:
        return &Controller::iaSpeakTune;
    case MenuCommand::speakHertz:
        return &Controller::iaSpeakHertz;
    default:
        return nullptr;
    }
}

} // namespace

std::optional<CommandState> TunerCommands::commandState(MenuCommand command) const {
    if (!operationOf(command)) return std::nullopt;
    const Preferences& prefs = mPreferences;
    switch (command) {
    case MenuCommand::showPartials:
        return CommandState{.title = mWindows.isVisible(AnalysisWindowKind::partials)
                                         ? QStringLiteral("Hide &Partials")
                                         : QString()};
    case MenuCommand::showHilbertScope:
        return CommandState{.title = mWindows.isVisible(AnalysisWindowKind::hilbert)
                                         ? QStringLiteral("Hide &Hilbert Scope")
                                         : QString()};
    case MenuCommand::noteUp:
    case MenuCommand::noteDown:
    case MenuCommand::octaveUp:
    case MenuCommand::octaveDown:
        return CommandState{.isEnabled = prefs.manualMode()};
    case MenuCommand::autoManualToggle:
        return CommandState{.isChecked = prefs.manualMode()};
    case MenuCommand::soundBackToggle:
        return CommandState{.isChecked = prefs.soundBack()};
    case MenuCommand::hilbertLine:
        return CommandState{.isChecked = prefs.hilbertLine()};
    case MenuCommand::hilbertDots:
        return CommandState{.isChecked = !prefs.hilbertLine()};
    case MenuCommand::hilbertDecay:
        return CommandState{.isChecked = prefs.hilbertDecay()};
    case MenuCommand::hilbertGrid:
        return CommandState{.isChecked = prefs.hilbertGrid()};
    case MenuCommand::partialsHold:
        return CommandState{.isChecked = prefs.partialsHold()};
    case MenuCommand::speakTune:
        return CommandState{.isChecked = prefs.tuneSpeech()};
    case MenuCommand::speakHertz:
        return CommandState{.isChecked = prefs.hertzSpeech()};
    default:
        return CommandState{};
    }
}

void TunerCommands::perform(MenuCommand command) {
    if (const Operation operation = operationOf(command)) (mController.*operation)();
}

} // namespace veltrano
