// SPDX-License-Identifier: GPL-3.0-or-later
// The editors: what mouse, menus and focus do to their controls.
#include "tests/tuning/EditorsTestBase.h"
#include "tuning/EditorFields.h"

#include <QAction>

namespace veltrano {
namespace {

constexpr int kA = 9; // its row at the tonic C

class EditorControlsTest : public EditorsTestBase {
protected:
    void doubleClick(int row, int column) {
        // A double click follows a click.
        const QPoint place = table().visualRect(cell(row, column)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
    }
    /// Puts the commands of a window's menu behind their usual keys.
    void addUndoCommands(TuningDocument& changed) {
        const auto add = [this](QKeySequence::StandardKey keys, auto command) {
            auto* action = new QAction(editor.get());
            action->setShortcut(keys);
            QObject::connect(action, &QAction::triggered, command);
            editor->addAction(action);
        };
        add(QKeySequence::Undo, [&changed] { changed.undo(); });
        add(QKeySequence::Redo, [&changed] { changed.redo(); });
    }
};

TEST_F(EditorControlsTest, ADoubleClickEditsACell) {
    temperament();
    doubleClick(2, kRatio);
    EXPECT_EQ(edited(), "2 2");
    doubleClick(kA, kRatio);
    EXPECT_EQ(edited(), "") << "the row of A";
    doubleClick(2, 0);
    EXPECT_EQ(edited(), "") << "a label";
    editor.reset();
    stretch();
    doubleClick(kA, 5);
    EXPECT_EQ(edited(), "9 5");
    doubleClick(kA, 0);
    EXPECT_EQ(edited(), "") << "a name";
}

TEST_F(EditorControlsTest, AClickElsewhereTakesTheTextOver) {
    temperament();
    select(0, kCent);
    type("7");
    ASSERT_EQ(edited(), "0 1");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                      table().visualRect(cell(4, kHertz)).center());
    EXPECT_EQ(shown(0, kCent), "+7.000");
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(table().currentIndex(), cell(4, kHertz)) << "not the cell below";
}

TEST_F(EditorControlsTest, TabGoesRoundTheControls) {
    const auto check = [this] {
        for (const char* next : {"graph", "nameField", "descriptionField", "table"}) {
            press(Qt::Key_Tab);
            EXPECT_EQ(focused(), next);
        }
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focused(), "descriptionField");
    };
    temperament();
    check();
    editor.reset();
    stretch();
    check();
}

TEST_F(EditorControlsTest, TabEndsBehindTheLastCellAndBeforeTheFirst) {
    temperament();
    select(0, kCent);
    press(Qt::Key_F2);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(focused(), "table");
    editor.reset();
    stretch();
    select(11, 8);
    press(Qt::Key_F2);
    press(Qt::Key_Tab);
    EXPECT_EQ(edited(), "11 9");
    press(Qt::Key_Tab);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(focused(), "table");
}

TEST_F(EditorControlsTest, CaptionsLeadToTheirFields) {
    const auto check = [this] {
        press(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(focused(), "nameField");
        press(Qt::Key_D, Qt::AltModifier);
        EXPECT_EQ(focused(), "descriptionField");
    };
    temperament();
    check();
    editor.reset();
    stretch();
    check();
}

TEST_F(EditorControlsTest, TheMenusUndoAndRedoWorkWhileTyping) {
    temperament();
    addUndoCommands(*document);
    for (const char* name : {"nameField", "descriptionField"}) {
        control(name).setFocus();
        type("abc");
        press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(document->name() + document->description(), "") << name;
        EXPECT_EQ(document->changeCount(), 0) << name;
        QTest::keySequence(&control(name), QKeySequence::Redo);
        EXPECT_EQ(document->name() + document->description(), "abc") << name;
        EXPECT_EQ(focused(), name);
        document->undo();
    }
}

TEST_F(EditorControlsTest, InACellThatNobodyTypedIntoTheyAreTheDocuments) {
    temperament();
    addUndoCommands(*document);
    select(0, kCent);
    type("3");
    press(Qt::Key_Return);
    ASSERT_TRUE(field()) << "Return goes on to the next cell";
    EXPECT_EQ(document->changeCount(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document->changeCount(), 0);
    QTest::keySequence(QApplication::focusWidget(), QKeySequence::Redo);
    EXPECT_EQ(document->changeCount(), 1);
    // What is being typed is the field's.
    ASSERT_TRUE(field());
    const QString before = field()->text();
    type("4");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_EQ(field()->text(), before);
    QTest::keySequence(field(), QKeySequence::Redo);
    EXPECT_EQ(field()->text(), "4");
}

TEST_F(EditorControlsTest, OneCellIsSelectedAtATime) {
    stretch();
    select(3, 3);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(table().selectionModel()->selectedIndexes().size(), 1);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table().selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(EditorControlsTest, FieldsHaveTipsAndHide) {
    for (QWidget* shown :
         {static_cast<QWidget*>(new QLineEdit), static_cast<QWidget*>(new QPlainTextEdit)}) {
        const std::unique_ptr<QWidget> owner(shown);
        const auto ignore = [](const TextOutlet&) {};
        auto* line = qobject_cast<QLineEdit*>(shown);
        auto* field = line ? new EditorField(*line, ignore)
                           : new EditorField(*qobject_cast<QPlainTextEdit*>(shown), ignore);
        shown->show();
        field->setTip("what it is");
        EXPECT_EQ(shown->toolTip(), "what it is");
        field->setHidden(true);
        EXPECT_FALSE(shown->isVisible());
        field->setHidden(false);
        EXPECT_TRUE(shown->isVisible());
    }
}

TEST_F(EditorControlsTest, ADocumentOutlivesItsEditor) {
    temperament();
    control("nameField").setFocus();
    type("Mine");
    editor.reset();
    EXPECT_EQ(document->name(), "Mine");
    document->setCell(Temperament::Column::cent, 0, "5");
    setTonic(7);
    EXPECT_EQ(document->cell(Temperament::Column::cent, 0), "+5.000");
    stretch();
    control("descriptionField").setFocus();
    type("ours");
    editor.reset();
    EXPECT_EQ(stretchDocument->description(), "ours");
    stretchDocument->setCell(0, 0, "5");
    EXPECT_EQ(stretchDocument->cell(0, 0), "+5.000");
}

TEST_F(EditorControlsTest, ASecondEditorOfADocumentShowsWhatTheFirstDid) {
    temperament();
    control("nameField").setFocus();
    type("Mine");
    document->setCell(Temperament::Column::cent, 0, "5");
    editor.reset();
    show(TemperamentEditor::create(resources, *document, log));
    EXPECT_EQ(control<QLineEdit>("nameField").text(), "Mine");
    EXPECT_EQ(shown(0, kCent), "+5.000");
}

} // namespace
} // namespace veltrano
