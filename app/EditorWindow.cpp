// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one document.
#include "app/EditorWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <array>
#include <utility>

namespace veltrano {

namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A command whose state the document itself decides on; nullopt: another one.
std::optional<TuningDocument::Command> validatedCommand(MenuCommand command) {
    using Command = TuningDocument::Command;
    switch (command) {
    case MenuCommand::copy:
        return Command::copy;
    case MenuCommand::cut:
        return Command::cut;
    case MenuCommand::paste:
        return Command::paste;
    case MenuCommand::deleteAll:
        return Command::deleteAll;
    case MenuCommand::revert:
        return Command::revertDocumentToSaved;
    case MenuCommand::save:
        return Command::saveDocument;
    case MenuCommand::exportScala:
        return Command::exportTemperament;
    default:
        return std::nullopt;
    }
}

/// What the documents call their edits, for the translators.
[[maybe_unused]] constexpr std::array kEditNames{
    QT_TRANSLATE_NOOP("EditHistory", "Typing"), QT_TRANSLATE_NOOP("EditHistory", "Edit"),
    QT_TRANSLATE_NOOP("EditHistory", "Cut"), QT_TRANSLATE_NOOP("EditHistory", "Paste"),
    QT_TRANSLATE_NOOP("EditHistory", "Delete")};

/// "&Undo" with the edit that it takes back, if there is one.
CommandState historyState(const QString& verb, const QString& verbWithEdit, const std::string& edit,
                          bool isEnabled) {
    const QString name = QCoreApplication::translate("EditHistory", edit.c_str());
    return {isEnabled, std::nullopt, edit.empty() ? verb : verbWithEdit.arg(name)};
}

} // namespace

EditorWindow::EditorWindow(Document& document, EditorContents contents, std::function<void()> close)
    : mDocument(document), mContents(std::move(contents)), mClose(std::move(close)) {
    QWidget* editor = mContents.editor.release(); // the window owns it from here
    const QSize size = editor->size();            // as its interface file has it
    setCentralWidget(editor);
    resize(size.expandedTo(sizeHint()));
    if (mContents.initialFocus) mContents.initialFocus->setFocus();
    // The program ends with the tuner window.
    setAttribute(Qt::WA_QuitOnClose, false);
}

void EditorWindow::showWindow() {
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
}

void EditorWindow::setTitle(std::string_view displayName, std::string_view path, bool isEdited) {
    // The marker stands where the desktop's style shows that a document is edited.
    setWindowTitle(fromUtf8(displayName) + QStringLiteral("[*]"));
    setWindowFilePath(fromUtf8(path));
    setWindowModified(isEdited);
}

std::optional<PrintInfo> EditorWindow::runPageSetup(const PrintInfo& current) {
    return mPrinter.runPageSetup(current);
}

void EditorWindow::print(const PrintInfo& info, bool showsPanel) {
    mPrinter.print(info, showsPanel, mDocument.displayName(), mContents.paintPage);
}

std::optional<CommandState> EditorWindow::commandState(MenuCommand command) const {
    if (command == MenuCommand::exportScala && !mContents.commands.exportScala) return std::nullopt;
    if (const auto validated = validatedCommand(command)) {
        return CommandState{mContents.commands.validateMenuItem(*validated)};
    }
    const EditHistory& history = mDocument.history();
    switch (command) {
    case MenuCommand::undo:
        return historyState(tr("&Undo"), tr("&Undo %1"), history.undoName(), history.canUndo());
    case MenuCommand::redo:
        return historyState(tr("&Redo"), tr("&Redo %1"), history.redoName(), history.canRedo());
    case MenuCommand::closeWindow:
    case MenuCommand::saveAs:
    case MenuCommand::saveTo:
    case MenuCommand::pageSetup:
    case MenuCommand::printPreview:
    case MenuCommand::print:
        return CommandState{};
    default:
        return std::nullopt;
    }
}

void EditorWindow::perform(MenuCommand command) {
    if (!performEdit(command)) performFile(command);
}

bool EditorWindow::performEdit(MenuCommand command) {
    switch (command) {
    case MenuCommand::undo:
        mDocument.undo();
        return true;
    case MenuCommand::redo:
        mDocument.redo();
        return true;
    case MenuCommand::copy:
        mContents.commands.copy();
        return true;
    case MenuCommand::cut:
        mContents.commands.cut();
        return true;
    case MenuCommand::paste:
        mContents.commands.paste();
        return true;
    case MenuCommand::deleteAll:
        mContents.commands.deleteAll();
        return true;
    default:
        return false;
    }
}

void EditorWindow::performFile(MenuCommand command) {
    switch (command) {
    case MenuCommand::closeWindow:
        close();
        break;
    case MenuCommand::save:
        mDocument.saveDocument();
        break;
    case MenuCommand::saveAs:
        mDocument.saveDocumentAs();
        break;
    case MenuCommand::saveTo:
        mDocument.saveDocumentTo();
        break;
    case MenuCommand::revert:
        mDocument.revertDocumentToSaved();
        break;
    case MenuCommand::pageSetup:
        mDocument.runPageSetup();
        break;
    case MenuCommand::printPreview:
        mPrinter.preview(mDocument.printInfo(), mDocument.displayName(), mContents.paintPage);
        break;
    case MenuCommand::print:
        mDocument.printShowingPrintPanel(true);
        break;
    case MenuCommand::exportScala:
        mContents.commands.exportScala();
        break;
    default:
        break;
    }
}

void EditorWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (isVisible()) emit wasResized();
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    endCellEditing();
    event->ignore();
    mClose();
}

} // namespace veltrano
