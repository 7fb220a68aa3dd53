// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one document: its commands, its title, closing, printing.
#include "app/EditorWindow.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/TextDocument.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QTableWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace veltrano {
namespace {

class EditorWindowTest : public testing::Test {
protected:
    EditorWindowTest() : document({log, pasteboard, panels}) {
        EditorContents contents;
        auto table = std::make_unique<QTableWidget>(2, 1);
        editor = table.get();
        contents.initialFocus = editor;
        contents.editor = std::move(table);
        const auto note = [this](const char* what) {
            return [this, what] { done.push_back(what); };
        };
        contents.commands = {
            note("copy"),
            note("cut"),
            note("paste"),
            note("delete"),
            [this](TuningDocument::Command command) { return !refused.contains(command); },
            note("export")};
        contents.paintPage = [](QPainter& painter, const QRectF& area) {
            painter.fillRect(area, Qt::black);
        };
        auto made = std::make_unique<EditorWindow>(document, std::move(contents),
                                                   [this] { ++closeRequests; });
        window = made.get();
        document.setWindow(std::move(made));
    }

    bool isEnabled(MenuCommand command) {
        const auto state = window->commandState(command);
        return state && state->isEnabled;
    }

    RecordingLog log;
    MemoryPasteboard pasteboard;
    RecordingPanels panels;
    QTemporaryDir folder;
    std::set<TuningDocument::Command> refused;
    std::vector<std::string> done;
    int closeRequests = 0;
    QTableWidget* editor = nullptr;
    EditorWindow* window = nullptr; // owned by the document
    TextDocument document;
};

TEST_F(EditorWindowTest, TheTitleIsTheNameAndAMark) {
    EXPECT_EQ(window->windowTitle(), "Untitled[*]");
    EXPECT_FALSE(window->isWindowModified());
    document.setText("a");
    EXPECT_TRUE(window->isWindowModified());
    const std::string path = folder.filePath("Grand.text").toStdString();
    ASSERT_TRUE(document.saveToFile(path, Document::SaveOperation::saveAs));
    EXPECT_EQ(window->windowTitle(), "Grand.text[*]");
    EXPECT_EQ(window->windowFilePath().toStdString(), path);
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(EditorWindowTest, TheDocumentDecidesOnItsCommands) {
    using Command = TuningDocument::Command;
    constexpr std::pair<MenuCommand, Command> kCases[] = {
        {MenuCommand::copy, Command::copy},
        {MenuCommand::cut, Command::cut},
        {MenuCommand::paste, Command::paste},
        {MenuCommand::deleteAll, Command::deleteAll},
        {MenuCommand::revert, Command::revertDocumentToSaved},
        {MenuCommand::save, Command::saveDocument},
        {MenuCommand::exportScala, Command::exportTemperament}};
    for (const auto& [item, command] : kCases) {
        refused = {command};
        for (const auto& [other, its] : kCases)
            EXPECT_EQ(isEnabled(other), other != item) << int(command) << " " << int(its);
        EXPECT_TRUE(isEnabled(MenuCommand::saveAs));
    }
}

TEST_F(EditorWindowTest, UndoAndRedoNameTheirStep) {
    EXPECT_FALSE(isEnabled(MenuCommand::undo));
    EXPECT_EQ(window->commandState(MenuCommand::undo)->title, "&Undo");
    document.setText("a");
    EXPECT_EQ(window->commandState(MenuCommand::undo)->title, "&Undo Typing");
    window->perform(MenuCommand::undo);
    EXPECT_EQ(document.text, "");
    EXPECT_FALSE(isEnabled(MenuCommand::undo));
    EXPECT_EQ(window->commandState(MenuCommand::redo)->title, "&Redo Typing");
    window->perform(MenuCommand::redo);
    EXPECT_EQ(document.text, "a");
}

TEST_F(EditorWindowTest, EditCommandsGoToTheDocument) {
    for (const MenuCommand command : {MenuCommand::copy, MenuCommand::cut, MenuCommand::paste,
                                      MenuCommand::deleteAll, MenuCommand::exportScala}) {
        EXPECT_TRUE(isEnabled(command));
        window->perform(command);
    }
    EXPECT_EQ(done, (std::vector<std::string>{"copy", "cut", "paste", "delete", "export"}));
    EXPECT_FALSE(window->commandState(MenuCommand::quit)) << "the application's";
}

TEST_F(EditorWindowTest, ClosingAsksAndLeavesTheWindowToWhoeverAnswers) {
    window->showWindow();
    QCloseEvent event;
    QApplication::sendEvent(window, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(closeRequests, 1);
    EXPECT_TRUE(window->isVisible());
    window->perform(MenuCommand::closeWindow);
    EXPECT_EQ(closeRequests, 2);
}

TEST_F(EditorWindowTest, ACellThatIsBeingTypedIntoIsTakenOverBeforeTheWindowCloses) {
    editor->setItem(0, 0, new QTableWidgetItem("old"));
    window->showWindow();
    window->activateWindow();
    QApplication::processEvents();
    editor->setCurrentCell(0, 0);
    editor->editItem(editor->item(0, 0));
    auto* line = editor->findChild<QLineEdit*>();
    ASSERT_TRUE(line);
    line->setFocus();
    line->setText("new");
    window->close();
    EXPECT_EQ(editor->item(0, 0)->text(), "new");
    EXPECT_EQ(QApplication::focusWidget(), editor);
}

TEST_F(EditorWindowTest, APageBecomesAPdfFile) {
    const QString path = folder.filePath("page.pdf");
    PrintInfo info;
    info.isLandscape = true;
    QRectF painted;
    ASSERT_TRUE(PagePrinter::writePdf(
        info, path.toStdString(), [&painted](QPainter&, const QRectF& area) { painted = area; }));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF-"));
    // A4 on its side less 15 mm all around, in points.
    EXPECT_NEAR(painted.width(), (297 - 30) * 72 / 25.4, 2.0);
    EXPECT_NEAR(painted.height(), (210 - 30) * 72 / 25.4, 2.0);
    EXPECT_FALSE(PagePrinter::writePdf(info, "/nowhere/page.pdf", [](QPainter&, const QRectF&) {}));
}

} // namespace
} // namespace veltrano
