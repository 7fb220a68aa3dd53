// SPDX-License-Identifier: GPL-3.0-or-later
// The editors: keys in their tables, their fields, what assistive technologies are told.
#include "tests/tuning/TuningTestBase.h"
#include "tuning/CellTable.h"
#include "tuning/StretchEditor.h"
#include "tuning/TemperamentEditor.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace veltrano {
namespace {

constexpr int kCent = 1, kRatio = 2, kHertz = 3; // columns of a temperament

class EditorsTest : public TuningTestBase {
protected:
    TemperamentEditor& temperament(int tonic = 0) {
        settings.key = tonic;
        document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
        auto made = TemperamentEditor::create(resources, *document, log);
        auto& shown = *made;
        show(std::move(made));
        return shown;
    }
    StretchEditor& stretch() {
        stretchDocument = std::make_unique<MVStretchDocument>(stretchPorts());
        auto made = StretchEditor::create(resources, *stretchDocument, log);
        auto& shown = *made;
        show(std::move(made));
        return shown;
    }
    void show(std::unique_ptr<QWidget> made) {
        editor = std::move(made);
        editor->show();
        editor->activateWindow();
        QApplication::processEvents();
        table().setFocus();
    }
    void TearDown() override {
        editor.reset();
        document.reset();
        stretchDocument.reset();
    }

    CellTable& table() { return *editor->findChild<CellTable*>("table"); }
    QString shown(int row, int column) {
        return table().model()->index(row, column).data().toString();
    }
    void select(int row, int column) {
        table().setCurrentIndex(table().model()->index(row, column));
    }
    /// The field of the cell that is being edited; null: none is.
    QLineEdit* field() {
        auto* focus = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return focus && table().isAncestorOf(focus) ? focus : nullptr;
    }
    /// "row column" of the cell being edited, "" when none is.
    std::string edited() {
        if (!field()) return {};
        const QModelIndex at = table().currentIndex();
        return std::to_string(at.row()) + " " + std::to_string(at.column());
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    void type(const char* text) {
        // The first letter may open a field that gets the others.
        for (const QChar letter : QString::fromUtf8(text))
            QTest::keyClicks(QApplication::focusWidget(), letter);
    }

    ResourceFolder resources{QStringLiteral(VELTRANO_SOURCE_RESOURCES)};
    std::unique_ptr<MVTemperamentDocument> document;
    std::unique_ptr<MVStretchDocument> stretchDocument;
    std::unique_ptr<QWidget> editor;
};

TEST_F(EditorsTest, ANewTemperamentShowsTwelveEqualRows) {
    temperament();
    ASSERT_EQ(table().model()->rowCount(), 12);
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(shown(row, kCent), "±0.000") << row;
    EXPECT_EQ(shown(0, 0), "C (PU)");
    EXPECT_EQ(shown(0, kRatio), "0.594603558");
    EXPECT_EQ(shown(0, kHertz), "261.625565");
}

TEST_F(EditorsTest, ReturnTakesTheTextOverAndEditsTheCellBelow) {
    temperament();
    select(1, kCent);
    press(Qt::Key_Return); // begins
    ASSERT_EQ(edited(), "1 1");
    EXPECT_EQ(field()->selectedText(), "±0.000");
    type("4.5");
    press(Qt::Key_Return);
    EXPECT_EQ(shown(1, kCent), "+4.500");
    EXPECT_EQ(edited(), "2 1");
    EXPECT_EQ(field()->selectedText(), "±0.000") << "its text is selected";
}

TEST_F(EditorsTest, TheRowOfAIsPassedOverAndNeverEdited) {
    temperament(3); // Eb: A is row 6
    for (const int column : {0, kCent, kRatio, kHertz}) {
        select(6, column);
        press(Qt::Key_Return);
        EXPECT_EQ(edited(), "") << column;
    }
    select(5, kCent);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(edited(), "7 1");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "5 1");
}

TEST_F(EditorsTest, ShiftReturnFromRowOneWrapsWhenTheFirstRowIsA) {
    temperament(9);
    select(1, kHertz);
    press(Qt::Key_F2);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "11 3");
    const auto chosen = table().selectionModel()->selectedIndexes();
    ASSERT_EQ(chosen.size(), 1) << "it alone is selected";
    EXPECT_EQ(chosen[0].row(), 11);
}

TEST_F(EditorsTest, ReturnInTheLastRowEndsEditingInTheTable) {
    temperament();
    select(11, kRatio);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(QApplication::focusWidget(), &table());
}

TEST_F(EditorsTest, TabGoesAlongTheRowAndEscapeGivesUp) {
    temperament();
    select(8, kHertz);
    press(Qt::Key_F2);
    press(Qt::Key_Tab);
    EXPECT_EQ(edited(), "10 1") << "over the row of A";
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "8 3");
    type("1");
    press(Qt::Key_Escape);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(document->changeCount(), 0);
}

TEST_F(EditorsTest, ATextThatWasNotTouchedIsNoEdit) {
    temperament();
    select(0, kCent);
    press(Qt::Key_F2);
    type("1.23456");
    press(Qt::Key_Return);
    ASSERT_EQ(document->changeCount(), 1);
    press(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_EQ(document->values().cents()[0], 1.23456);
}

TEST_F(EditorsTest, ARefusedTextBeepsAndEditingGoesOn) {
    temperament();
    select(0, kCent);
    press(Qt::Key_F2);
    type("50.0001");
    press(Qt::Key_Return);
    EXPECT_EQ(panels.beeps, 1);
    EXPECT_EQ(shown(0, kCent), "±0.000");
    EXPECT_EQ(edited(), "1 1");
}

TEST_F(EditorsTest, OctavesAreWalkedByReturn) {
    stretch();
    ASSERT_EQ(table().model()->columnCount(), 10);
    EXPECT_EQ(shown(9, 0), "A");
    select(11, 4);
    press(Qt::Key_F2);
    type("2.5");
    press(Qt::Key_Return);
    EXPECT_EQ(stretchDocument->stretchDoubles()[3 * 12 + 11], 2.5);
    EXPECT_EQ(edited(), "0 5") << "octave 4";
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "11 4");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "10 4");
}

TEST_F(EditorsTest, TheCellOfA4IsIndex57) {
    stretch();
    select(9, 5);
    press(Qt::Key_F2);
    type("1.5");
    press(Qt::Key_Return);
    EXPECT_EQ(stretchDocument->stretchDoubles()[57], 1.5);
    EXPECT_EQ(shown(9, 5), "+1.500");
    press(Qt::Key_Return, Qt::ShiftModifier);
    type("±0.000");
    press(Qt::Key_Return);
    EXPECT_EQ(stretchDocument->stretchDoubles()[57], 0.0);
}

TEST_F(EditorsTest, PastTheFirstAndLastOctaveEditingEndsInTheTable) {
    stretch();
    select(11, 9);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(QApplication::focusWidget(), &table());
    select(0, 1);
    press(Qt::Key_F2);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(table().currentIndex().column(), 1) << "not the names";
    select(0, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(edited(), "");
}

TEST_F(EditorsTest, TypingReplacesTheSelectedCell) {
    stretch();
    select(2, 3);
    type("-7");
    press(Qt::Key_Enter);
    EXPECT_EQ(shown(2, 3), "-7.000");
}

TEST_F(EditorsTest, FieldsShowAndTakeTexts) {
    temperament();
    auto* description = editor->findChild<QPlainTextEdit*>("descriptionField");
    ASSERT_TRUE(document->readData("\"Name\"=\"x\";\"Description\"=\"two\\nlines\";"));
    document->loadDataRepresentation(document->data(), kTemperamentTypeName);
    description->setFocus();
    type("My ");
    EXPECT_EQ(document->description().substr(0, 3), "My ");
    EXPECT_TRUE(document->isDocumentEdited());
    document->undo();
    EXPECT_EQ(description->toPlainText(), "");
    EXPECT_FALSE(document->isDocumentEdited());
    press(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), description) << "Tab leaves the field";
}

TEST_F(EditorsTest, ATextThatNobodyTouchedReadsBackAsItIs) {
    const std::string oddName = "a\u00A0b\r\nc\td"; // in a comment, too: no Unicode line ends
    const std::string odd = "a\u00A0b\r\nc\rd\u2028e\u2029f";
    temperament();
    ASSERT_TRUE(document->loadDataRepresentation(temperament_file::data({}, oddName, odd),
                                                 kTemperamentTypeName));
    EXPECT_EQ(document->name(), oddName);
    EXPECT_EQ(document->description(), odd);
    // One letter more changes nothing but line ends.
    editor->findChild<QWidget*>("descriptionField")->setFocus();
    press(Qt::Key_End, Qt::ControlModifier);
    type("!");
    EXPECT_EQ(document->description(), "a\u00A0b\nc\nd\u2028e\nf!");
    document->undo();
    EXPECT_EQ(document->description(), odd);
}

TEST_F(EditorsTest, NoTextIsTooLong) {
    temperament();
    const std::string longText(100'000, 'x');
    document->setName(longText);
    EXPECT_EQ(document->name(), longText);
}

TEST_F(EditorsTest, DroppedFilesAreLeftToTheWindow) {
    temperament();
    select(0, kCent);
    press(Qt::Key_F2);
    for (QWidget* widget : editor->findChildren<QWidget*>())
        EXPECT_FALSE(widget->acceptDrops()) << widget->metaObject()->className();
}

TEST_F(EditorsTest, AnAcceptedTextIsStoredAlsoWhenItLooksLikeTheValue) {
    stretch();
    stretchDocument->setCell(0, 0, "0.0004");
    select(0, 1);
    ASSERT_EQ(shown(0, 1), "±0.000");
    press(Qt::Key_F2);
    type("±0.000");
    press(Qt::Key_Return);
    EXPECT_EQ(stretchDocument->stretchDoubles()[0], 0.0);
    EXPECT_EQ(stretchDocument->changeCount(), 2);
}

TEST_F(EditorsTest, AChangeFromElsewhereDoesNotDisturbWhoTypes) {
    temperament();
    select(0, kHertz);
    press(Qt::Key_F2);
    type("26");
    settings.pitch = 442;
    center.post(notification::kReferencePitch);
    EXPECT_EQ(field()->text(), "26");
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(9, kHertz), "442.000000");
}

TEST_F(EditorsTest, UndoAndRedoPutTheCursorBehindWhatChanged) {
    temperament();
    ASSERT_TRUE(document->loadDataRepresentation("\"Name\"=\"Young\";\"Description\"=\"Young\";",
                                                 kTemperamentTypeName));
    for (const char* name : {"nameField", "descriptionField"}) {
        auto* field = editor->findChild<QWidget*>(name);
        field->setFocus();
        press(Qt::Key_Home);
        type("A");
        document->undo();
        document->redo();
        type("n ");
    }
    EXPECT_EQ(document->name(), "An Young");
    EXPECT_EQ(document->description(), "An Young");
}

TEST_F(EditorsTest, UndoWhileTypingIsTheDocuments) {
    temperament();
    EXPECT_FALSE(editor->findChild<QPlainTextEdit*>("descriptionField")->isUndoRedoEnabled());
    for (const char* name : {"nameField", "descriptionField"}) {
        auto* field = editor->findChild<QWidget*>(name);
        field->setFocus();
        type("x");
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Right);
    }
    EXPECT_EQ(document->name() + document->description(), "xx") << "the keys are left to a menu";
}

TEST_F(EditorsTest, EverythingHasAName) {
    temperament();
    for (QWidget* widget : editor->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith("qt_"))
            continue;
        EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), "")
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
    EXPECT_EQ(table().model()->index(3, kCent).data(Qt::AccessibleTextRole).toString(),
              "Eb (m3), Cent: ±0.000");
    select(0, kCent);
    press(Qt::Key_F2);
    EXPECT_EQ(field()->accessibleName(), "C (PU), Cent: ±0.000");
    editor.reset();
    stretch();
    EXPECT_EQ(table().model()->index(3, 5).data(Qt::AccessibleTextRole).toString(),
              "Eb4: ±0.000 cents");
    auto* graph = editor->findChild<QWidget*>("graph");
    stretchDocument->setCell(0, 0, "-12.3");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(graph)->text(QAccessible::Value),
              "-12.3 to +0.0 cents");
}

TEST_F(EditorsTest, BothFitALaptopWithEveryCellInSight) {
    temperament();
    EXPECT_LE(editor->width(), 1000);
    EXPECT_LE(editor->height(), 640);
    const auto lastCellIsSeen = [this] {
        const QModelIndex last = table().model()->index(table().model()->rowCount() - 1,
                                                        table().model()->columnCount() - 1);
        return table().viewport()->rect().contains(table().visualRect(last));
    };
    EXPECT_TRUE(lastCellIsSeen());
    editor.reset();
    stretch();
    EXPECT_LE(editor->width(), 1000);
    EXPECT_LE(editor->height(), 640);
    EXPECT_TRUE(lastCellIsSeen());
}

TEST_F(EditorsTest, WithoutItsInterfaceFileThereIsOneLogLineAndNoEditor) {
    document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
    EXPECT_FALSE(
        TemperamentEditor::create(ResourceFolder(QStringLiteral("/nowhere")), *document, log));
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(EditorsTest, AnInterfaceFileThatLacksAControlIsRefused) {
    document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
    std::ifstream shipped(VELTRANO_SOURCE_RESOURCES "/TemperamentDocument.ui");
    const std::string whole((std::istreambuf_iterator<char>(shipped)), {});
    for (const char* name : {"nameField", "descriptionField", "table", "graph"}) {
        std::string lacking = whole;
        const std::string quoted = std::string("name=\"") + name + '"';
        const auto at = lacking.find(quoted);
        ASSERT_NE(at, std::string::npos);
        lacking.replace(at, quoted.size(), "name=\"other\"");
        write("TemperamentDocument.ui", lacking);
        const ResourceFolder folder(QString::fromStdString(path("")));
        EXPECT_FALSE(TemperamentEditor::create(folder, *document, log)) << name;
        ASSERT_FALSE(log.lines.empty());
        EXPECT_NE(log.lines.back().find(name), std::string::npos) << log.lines.back();
    }
}

} // namespace
} // namespace veltrano
