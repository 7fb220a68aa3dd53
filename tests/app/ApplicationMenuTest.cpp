// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar: who gets a command, what is shown of it, keys, recent files.
#include "app/ApplicationMenu.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>
#include <gtest/gtest.h>
#include <map>

namespace veltrano {
namespace {

/// Answers the commands that a test lists, and notes what it was told to do.
class RecordingHandler final : public CommandHandler {
public:
    std::optional<CommandState> commandState(MenuCommand command) const override {
        const auto found = states.find(command);
        if (found == states.end()) return std::nullopt;
        return found->second;
    }
    void perform(MenuCommand command) override { performed.push_back(command); }

    std::map<MenuCommand, CommandState> states;
    std::vector<MenuCommand> performed;
};

using Commands = std::vector<MenuCommand>;

class ApplicationMenuTest : public testing::Test {
protected:
    ApplicationMenuTest()
        : menu(*new ApplicationMenu(window, {&first, &second},
                                    {[this] { return recent; },
                                     [this](const std::string& path) { opened = path; },
                                     [this] { recent.clear(); }},
                                    {[this] { return documents; }})) {}

    QMenu* menuTitled(const char* title) {
        for (QAction* action : window.menuBar()->actions()) {
            if (action->text() == QLatin1String(title)) return action->menu();
        }
        return nullptr;
    }

    /// The last items of the Window menu as it opens.
    QList<QAction*> listedDocuments() {
        QMenu& windows = *menuTitled("&Window");
        emit windows.aboutToShow();
        const QList<QAction*> actions = windows.actions();
        qsizetype at = 0;
        for (qsizetype i = 0; i < actions.size(); ++i)
            if (actions[i]->isSeparator()) at = i + 1;
        return actions.mid(at);
    }

    QMainWindow window;
    RecordingHandler first, second;
    std::vector<DocumentList::Entry> documents;
    std::vector<std::string> recent;
    std::string opened;
    ApplicationMenu& menu; // owned by the window
};

TEST_F(ApplicationMenuTest, TheFirstHandlerThatAnswersGetsTheCommand) {
    second.states = {{MenuCommand::save, {}}, {MenuCommand::open, {}}};
    first.states = {{MenuCommand::save, {}}};
    menu.action(MenuCommand::save)->trigger();
    menu.action(MenuCommand::open)->trigger();
    EXPECT_EQ(first.performed, Commands{MenuCommand::save});
    EXPECT_EQ(second.performed, Commands{MenuCommand::open});
}

TEST_F(ApplicationMenuTest, ADisabledCommandIsNotHandedToTheNextHandler) {
    first.states = {{MenuCommand::save, {.isEnabled = false}}};
    second.states = {{MenuCommand::save, {}}};
    menu.action(MenuCommand::save)->trigger();
    EXPECT_TRUE(first.performed.empty());
    EXPECT_TRUE(second.performed.empty());
}

TEST_F(ApplicationMenuTest, OpeningAMenuShowsWhatItsHandlersSay) {
    first.states = {{MenuCommand::undo, {.title = "&Undo Paste"}},
                    {MenuCommand::paste, {.isEnabled = false}},
                    {MenuCommand::copy, {.isChecked = true}}};
    QMenu* edit = menuTitled("&Edit");
    ASSERT_TRUE(edit);
    emit edit->aboutToShow();
    EXPECT_EQ(menu.action(MenuCommand::undo)->text(), "&Undo Paste");
    EXPECT_FALSE(menu.action(MenuCommand::paste)->isEnabled());
    EXPECT_FALSE(menu.action(MenuCommand::redo)->isEnabled()) << "nobody answers it";
    EXPECT_TRUE(menu.action(MenuCommand::copy)->isChecked());

    first.states = {};
    emit edit->aboutToHide();
    EXPECT_TRUE(menu.action(MenuCommand::paste)->isEnabled()) << "its key must reach its handler";
    emit edit->aboutToShow();
    EXPECT_EQ(menu.action(MenuCommand::undo)->text(), "&Undo");
    EXPECT_FALSE(menu.action(MenuCommand::copy)->isCheckable());
}

TEST_F(ApplicationMenuTest, EveryItemHasAMnemonicOfItsOwnAndNoKeysClash) {
    QStringList keys;
    for (QAction* title : window.menuBar()->actions()) {
        QString mnemonics;
        for (QAction* action : title->menu()->actions()) {
            if (action->isSeparator()) continue;
            const auto at = action->text().indexOf(u'&');
            ASSERT_GE(at, 0) << action->text().toStdString();
            const QChar letter = action->text().at(at + 1).toLower();
            EXPECT_FALSE(mnemonics.contains(letter)) << action->text().toStdString();
            mnemonics.append(letter);
            if (!action->shortcut().isEmpty()) keys.append(action->shortcut().toString());
        }
    }
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_TRUE(keys.contains("Ctrl+S") && keys.contains("Ctrl+Q") && keys.contains("Ctrl+Z"));
}

TEST_F(ApplicationMenuTest, ACellThatIsBeingTypedIntoIsTakenOverBeforeACommand) {
    auto* table = new QTableWidget(1, 1);
    table->setItem(0, 0, new QTableWidgetItem("old"));
    window.setCentralWidget(table);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    const auto typeInto = [table](const char* text) {
        table->editItem(table->item(0, 0));
        auto* line = table->findChild<QLineEdit*>();
        line->setFocus();
        line->setText(text);
    };
    first.states = {{MenuCommand::save, {}}, {MenuCommand::copy, {}}};
    typeInto("new");
    menu.action(MenuCommand::save)->trigger();
    EXPECT_EQ(table->item(0, 0)->text(), "new");
    typeInto("newer");
    menu.action(MenuCommand::copy)->trigger();
    EXPECT_EQ(table->item(0, 0)->text(), "new") << "the field may want to be copied from";
}

TEST_F(ApplicationMenuTest, RecentFilesAreListedOpenedAndForgotten) {
    recent = {"/a/Rock & Roll.temperament", "/b/Grand.stretch"};
    QMenu* list = nullptr;
    for (QAction* action : menuTitled("&File")->actions()) {
        if (action->menu()) list = action->menu();
    }
    ASSERT_TRUE(list);
    emit list->aboutToShow();
    ASSERT_EQ(list->actions().size(), 4); // two files, a separator, the last item
    EXPECT_EQ(list->actions()[0]->text(), "Rock && Roll.temperament");
    EXPECT_EQ(list->actions()[1]->toolTip(), "/b/Grand.stretch");
    list->actions()[0]->trigger();
    EXPECT_EQ(opened, "/a/Rock & Roll.temperament");
    list->actions()[3]->trigger();
    emit list->aboutToShow();
    ASSERT_EQ(list->actions().size(), 1);
    EXPECT_FALSE(list->actions()[0]->isEnabled());
}

TEST_F(ApplicationMenuTest, DocumentsAreListedUnderTheirTitles) {
    QStringList shown;
    const auto entry = [&](const char* title, bool isActive) {
        return DocumentList::Entry{title, isActive, [&shown, title] { shown.append(title); }};
    };
    documents = {entry("Rock & Roll.temperament*", false), entry("Grand.stretch", true)};
    auto actions = listedDocuments();
    ASSERT_EQ(actions.size(), 2);
    EXPECT_EQ(actions[0]->text(), "&1 Rock && Roll.temperament*");
    EXPECT_EQ(actions[1]->text(), "&2 Grand.stretch");
    EXPECT_FALSE(actions[0]->isChecked());
    EXPECT_TRUE(actions[1]->isChecked()) << "the active window";
    actions[0]->trigger();
    EXPECT_EQ(shown, QStringList{"Rock & Roll.temperament*"});

    documents = {entry("Untitled", false)};
    actions = listedDocuments();
    ASSERT_EQ(actions.size(), 1) << "listed anew";
    EXPECT_EQ(actions[0]->text(), "&1 Untitled");
    EXPECT_TRUE(actions[0]->isCheckable() && !actions[0]->isChecked());
}

TEST_F(ApplicationMenuTest, NoDocumentIsSaidSo) {
    documents.clear();
    for (int i = 0; i < 2; ++i) {
        const auto actions = listedDocuments();
        ASSERT_EQ(actions.size(), 1);
        EXPECT_EQ(actions[0]->text(), "No &Documents");
        EXPECT_FALSE(actions[0]->isEnabled());
        EXPECT_FALSE(actions[0]->isCheckable());
    }
}

TEST_F(ApplicationMenuTest, NineDocumentsHaveADigit) {
    for (int i = 1; i <= 11; ++i)
        documents.push_back({QStringLiteral("Document %1").arg(i), false, [] {}});
    const auto actions = listedDocuments();
    ASSERT_EQ(actions.size(), 11);
    EXPECT_EQ(actions[8]->text(), "&9 Document 9");
    EXPECT_EQ(actions[9]->text(), "Document 10");
}

TEST_F(ApplicationMenuTest, AWindowWithoutItsBarKeepsTheKeys) {
    using enum MenuCommand;
    first.states = {{showPartials, {}}, {speakStatus, {}}, {speakDetails, {}}, {redo, {}}};
    menu.keepShortcutsOnly();
    window.resize(200, 100);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(window.menuBar()->isVisible());
    QTest::keyClick(&window, Qt::Key_2, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier); // the second key of an item
    EXPECT_EQ(first.performed, (Commands{showPartials, speakStatus, speakDetails, redo}));
    EXPECT_TRUE(menu.action(quit)) << "its items are still there";
}

TEST(FocusedTextHandlerTest, EditCommandsBelongToTheFieldWithTheFocus) {
    FocusedTextHandler handler;
    QLineEdit field;
    field.setText("Young");
    EXPECT_FALSE(handler.commandState(MenuCommand::copy)) << "no field has the focus";
    field.show();
    field.activateWindow();
    field.setFocus();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::focusWidget(), &field);
    EXPECT_FALSE(handler.commandState(MenuCommand::copy)->isEnabled) << "nothing is selected";
    EXPECT_FALSE(handler.commandState(MenuCommand::undo)) << "undo is the document's";
    handler.perform(MenuCommand::selectAll);
    EXPECT_TRUE(handler.commandState(MenuCommand::copy)->isEnabled);
    handler.perform(MenuCommand::copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "Young");
    handler.perform(MenuCommand::deleteAll);
    EXPECT_EQ(field.text(), "");
    handler.perform(MenuCommand::paste);
    handler.perform(MenuCommand::paste);
    EXPECT_EQ(field.text(), "YoungYoung");
    field.setReadOnly(true);
    EXPECT_FALSE(handler.commandState(MenuCommand::paste)->isEnabled);
    EXPECT_FALSE(handler.commandState(MenuCommand::cut)->isEnabled);
}

TEST(FocusedTextHandlerTest, APageIsCopiedFromAndNotChanged) {
    FocusedTextHandler handler;
    QTextBrowser page;
    page.setPlainText("Vallotti");
    page.show();
    page.activateWindow();
    page.setFocus();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::focusWidget(), &page);
    ASSERT_TRUE(handler.commandState(MenuCommand::copy));
    EXPECT_FALSE(handler.commandState(MenuCommand::copy)->isEnabled) << "nothing is selected";
    handler.perform(MenuCommand::selectAll);
    EXPECT_TRUE(handler.commandState(MenuCommand::copy)->isEnabled);
    handler.perform(MenuCommand::copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "Vallotti");
    for (const MenuCommand change : {MenuCommand::cut, MenuCommand::paste, MenuCommand::deleteAll})
        EXPECT_FALSE(handler.commandState(change)->isEnabled) << static_cast<int>(change);
}

} // namespace
} // namespace veltrano
