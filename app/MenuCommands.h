// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the menus, and who carries them out.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace veltrano {

enum class MenuCommand {
    newTemperament,
    newStretch,
    open,
    importScala,
    exportScala,
    closeWindow,
    save,
    saveAs,
    saveTo,
    revert,
    pageSetup,
    printPreview,
    print,
    quit, // File
    undo,
    redo,
    cut,
    copy,
    paste,
    deleteAll,
    selectAll,
    preferences, // Edit
    autoManualToggle,
    noteUp,
    noteDown,
    octaveUp,
    octaveDown,
    soundBackToggle,
    playSoundBack,
    soundSettings, // Tuner
    showTunerWindow,
    showPartials,
    showHilbertScope,
    showPianoKeyboard,
    partialsHold,
    hilbertLine,
    hilbertDots,
    hilbertDecay,
    hilbertGrid,
    reduceMotion,
    fullScreen, // View
    speakStatus,
    speakDetails,
    speakTune,
    speakHertz, // Speech
    minimise,   // Window
    help,
    shortcuts,
    copyDiagnostics,
    about // Help
};

/// What a menu shows of a command.
struct CommandState {
    bool isEnabled = true;
    std::optional<bool> isChecked{}; ///< nullopt: it has no check mark
    QString title{};                 ///< empty: the menu's own
};

/// Carries out some of the commands. Thread: main.
class CommandHandler {
public:
    virtual ~CommandHandler() = default;
    /// nullopt: not a command of this handler, the next one is asked.
    virtual std::optional<CommandState> commandState(MenuCommand command) const = 0;
    /// Only for a command that commandState() answers, enabled.
    virtual void perform(MenuCommand command) = 0;
};

/// The handlers that a command of one window goes to, the first one first. Not owned.
using CommandChain = std::vector<CommandHandler*>;

/// The first handler of @p chain that answers @p command; null: none.
CommandHandler* handlerOf(MenuCommand command, const CommandChain& chain);

/// Ends what is being typed into a cell of a table: the cell takes it over, the table gets the
/// focus. A number field takes over its number, too.
void endCellEditing();

/// Edit commands for whatever text has the focus: a cell's editor, a name, a page of the manual.
class FocusedTextHandler final : public CommandHandler {
public:
    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;
};

} // namespace veltrano
