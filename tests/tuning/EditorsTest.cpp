// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and typing in the tables of the editors.
#include "tests/tuning/EditorsTestBase.h"

namespace veltrano {
namespace {

class EditorsTest : public EditorsTestBase {};

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

TEST_F(EditorsTest, TheFirstCellThatMayBeEditedIsWhereKeysBegin) {
    struct Case {
        const char* name;
        int tonic;
        int row;
    };
    constexpr Case kCases[] = {{"C", 0, 0}, {"the first row is A", 9, 1}};
    for (const Case& c : kCases) {
        TearDown();
        temperament(c.tonic);
        EXPECT_EQ(table().currentIndex().row(), c.row) << c.name;
        EXPECT_EQ(table().currentIndex().column(), kCent) << c.name;
        type("2");
        press(Qt::Key_Return);
        EXPECT_EQ(shown(c.row, kCent), "+2.000") << c.name;
    }
    TearDown();
    stretch();
    press(Qt::Key_F2);
    EXPECT_EQ(edited(), "0 1");
}

TEST_F(EditorsTest, EscapeLeavesTheStretchCellAsItWas) {
    stretch();
    select(4, 4);
    press(Qt::Key_F2);
    type("9");
    press(Qt::Key_Escape);
    EXPECT_EQ(edited(), "");
    EXPECT_EQ(shown(4, 4), "±0.000");
    EXPECT_EQ(stretchDocument->changeCount(), 0);
    EXPECT_EQ(QApplication::focusWidget(), &table());
}

TEST_F(EditorsTest, AColumnIsWalkedToItsEndsByKeysAlone) {
    // The A row of tonic C is 9; up wraps, down ends.
    temperament();
    press(Qt::Key_F2);
    std::string down, up;
    for (int i = 0; i < 13 && field(); ++i) {
        down += std::to_string(table().currentIndex().row()) + " ";
        press(Qt::Key_Return);
    }
    EXPECT_EQ(down, "0 1 2 3 4 5 6 7 8 10 11 ");
    EXPECT_EQ(edited(), "");
    press(Qt::Key_F2);
    for (int i = 0; i < 13; ++i) {
        up += std::to_string(table().currentIndex().row()) + " ";
        press(Qt::Key_Return, Qt::ShiftModifier);
    }
    EXPECT_EQ(up, "11 10 8 7 6 5 4 3 2 1 0 11 10 ");
    EXPECT_EQ(table().selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(EditorsTest, AllKeysAreWalkedForthAndBack) {
    stretch();
    press(Qt::Key_F2);
    const auto key = [this] {
        return (table().currentIndex().column() - 1) * 12 + table().currentIndex().row();
    };
    for (int expected = 0; expected < 108; ++expected) {
        ASSERT_TRUE(field()) << expected;
        ASSERT_EQ(key(), expected);
        press(Qt::Key_Return);
    }
    EXPECT_FALSE(field()) << "past B8";
    press(Qt::Key_F2);
    for (int expected = 107; expected >= 0; --expected) {
        ASSERT_TRUE(field()) << expected;
        ASSERT_EQ(key(), expected);
        EXPECT_EQ(field()->selectedText(), "±0.000");
        press(Qt::Key_Return, Qt::ShiftModifier);
    }
    EXPECT_FALSE(field()) << "before C0";
    EXPECT_EQ(stretchDocument->changeCount(), 0);
}

TEST_F(EditorsTest, LeavingTheCellTakesItsTextOver) {
    temperament();
    press(Qt::Key_F2);
    type("3");
    editor->findChild<QWidget*>("nameField")->setFocus();
    EXPECT_EQ(shown(0, kCent), "+3.000");
    EXPECT_FALSE(table().findChild<QLineEdit*>()->isVisible() && field());
}

TEST_F(EditorsTest, ATextIsEditedWhereItStands) {
    temperament();
    press(Qt::Key_F2);
    EXPECT_TRUE(field()->alignment() & Qt::AlignRight);
}

TEST_F(EditorsTest, TheRowOfASaysWhyItIsNotEdited) {
    temperament(9);
    const auto tip = [this](int row, int column) {
        return table().model()->index(row, column).data(Qt::ToolTipRole).toString();
    };
    EXPECT_NE(tip(0, kCent), "");
    EXPECT_EQ(tip(0, 0), "");
    EXPECT_EQ(tip(1, kCent), "");
}

} // namespace
} // namespace veltrano
