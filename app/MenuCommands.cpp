// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the menus, and who carries them out.
#include "app/MenuCommands.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace veltrano {

namespace {

/// The text that has the focus, whichever kind of field it is.
struct FocusedText {
    QLineEdit* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QPlainTextEdit* plain = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
    QTextEdit* page = qobject_cast<QTextEdit*>(QApplication::focusWidget());

    explicit operator bool() const { return line || plain || page; }
    bool isReadOnly() const {
        if (line) return line->isReadOnly();
        return plain ? plain->isReadOnly() : page->isReadOnly();
    }
    bool hasSelection() const { return line ? line->hasSelectedText() : cursor().hasSelection(); }
    void remove() const { line ? line->del() : cursor().removeSelectedText(); }

private:
    QTextCursor cursor() const { return plain ? plain->textCursor() : page->textCursor(); }
};

} // namespace

CommandHandler* handlerOf(MenuCommand command, const CommandChain& chain) {
    for (CommandHandler* handler : chain) {
        if (handler->commandState(command)) return handler;
    }
    return nullptr;
}

void endCellEditing() {
    QWidget* const focus = QApplication::focusWidget();
    if (auto* number = qobject_cast<QAbstractSpinBox*>(focus)) number->interpretText();
    for (QWidget* at = focus ? focus->parentWidget() : nullptr; at; at = at->parentWidget()) {
        auto* table = qobject_cast<QAbstractItemView*>(at);
        if (!table) continue;
        table->setFocus();
        return;
    }
}

std::optional<CommandState> FocusedTextHandler::commandState(MenuCommand command) const {
    const FocusedText text;
    if (!text) return std::nullopt;
    switch (command) {
    case MenuCommand::copy:
        return CommandState{text.hasSelection()};
    case MenuCommand::cut:
    case MenuCommand::deleteAll:
        return CommandState{text.hasSelection() && !text.isReadOnly()};
    case MenuCommand::paste:
        return CommandState{!text.isReadOnly()};
    case MenuCommand::selectAll:
        return CommandState{};
    default:
        return std::nullopt;
    }
}

void FocusedTextHandler::perform(MenuCommand command) {
    const FocusedText text;
    const auto tell = [](const char* operation) {
        QMetaObject::invokeMethod(QApplication::focusWidget(), operation);
    };
    switch (command) {
    case MenuCommand::copy:
        tell("copy");
        break;
    case MenuCommand::cut:
        tell("cut");
        break;
    case MenuCommand::paste:
        tell("paste");
        break;
    case MenuCommand::selectAll:
        tell("selectAll");
        break;
    case MenuCommand::deleteAll:
        text.remove();
        break;
    default:
        break;
    }
}

} // namespace veltrano
