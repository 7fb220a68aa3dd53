// SPDX-License-Identifier: GPL-3.0-or-later
// The editors: what they show, when they show it anew, and that there is room for it.
#include "tests/support/Pictures.h"
#include "tests/tuning/EditorsTestBase.h"

#include <QAccessible>

namespace veltrano {
namespace {

constexpr int kEb = 3; // rows at the tonic C
constexpr int kA = 9;

class EditorContentsTest : public EditorsTestBase {
protected:
    void makeSmall() {
        editor->resize(editor->minimumSizeHint());
        QApplication::processEvents();
    }
    void expectEveryCellHasRoom(const char* when) {
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            for (int column = 0; column < table().model()->columnCount(); ++column) {
                const QSize room = table().visualRect(cell(row, column)).size();
                const QSize text = table().fontMetrics().size(0, shown(row, column));
                EXPECT_GE(room.width(), text.width()) << when << " " << row << " " << column;
                EXPECT_GE(room.height(), text.height()) << when << " " << row << " " << column;
            }
        }
    }
};

TEST_F(EditorContentsTest, RowsAlternate) {
    temperament();
    const QImage picture = pictureOf(*table().viewport());
    const auto ground = [&](int row) {
        return picture.pixel(table().visualRect(cell(row, 0)).bottomRight() - QPoint(4, 4));
    };
    EXPECT_NE(ground(1), ground(2));
    EXPECT_EQ(ground(1), ground(3));
}

TEST_F(EditorContentsTest, WhatChangesElsewhereIsShownAtOnce) {
    temperament();
    PaintCounter rows(*table().viewport()), graph(control("graph"));
    const auto expectPainted = [&](const char* after) {
        EXPECT_GT(rows.take(), 0) << after;
        EXPECT_GT(graph.take(), 0) << after;
    };
    rows.take();
    graph.take();
    setReferencePitch(442);
    expectPainted("another reference pitch");
    EXPECT_EQ(shown(kA, kHertz), "442.000000");
    setTonic(7);
    expectPainted("another root key");
    EXPECT_EQ(shown(0, 0), "G (PU)");
    document->setCell(Temperament::Column::cent, 0, "10");
    expectPainted("an edit");
    document->undo();
    expectPainted("its undo");
    document->deleteAll();
    expectPainted("a deletion");
}

TEST_F(EditorContentsTest, AnEditIsShownInTheWholeRowAndInTheGraph) {
    temperament();
    const QImage rowBefore = pictureOf(*table().viewport());
    const QImage graphBefore = pictureOf(control("graph"));
    select(kEb, kCent);
    type("20");
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(kEb, kRatio), "0.715322966");
    EXPECT_EQ(shown(kEb, kHertz), "314.742105");
    const QRect hertz = table().visualRect(cell(kEb, kHertz));
    EXPECT_NE(pictureOf(*table().viewport()).copy(hertz), rowBefore.copy(hertz));
    EXPECT_NE(pictureOf(control("graph")), graphBefore);
}

TEST_F(EditorContentsTest, EveryCellHasRoomForItsTextInEveryFont) {
    const QFont font = QApplication::font();
    for (const int points : {0, 18, 24}) {
        QFont larger = font;
        if (points > 0) larger.setPointSize(points);
        QApplication::setFont(larger);
        temperament();
        makeSmall();
        expectEveryCellHasRoom("temperament");
        editor.reset();
        stretch();
        makeSmall();
        expectEveryCellHasRoom("stretch");
        stretchDocument->setCell(11, 8, "-49.999");
        expectEveryCellHasRoom("a longer text");
        editor.reset();
    }
    QApplication::setFont(font);
}

TEST_F(EditorContentsTest, EveryCellHasRoomWhenTheFontGrows) {
    stretch();
    makeSmall();
    const QFont font = QApplication::font();
    QFont larger = font;
    larger.setPointSize(2 * font.pointSize());
    QApplication::setFont(larger);
    QApplication::processEvents();
    expectEveryCellHasRoom("while it is shown");
    QApplication::setFont(font);
}

TEST_F(EditorContentsTest, NumbersEndAtTheRightAndNamesBeginAtTheLeft) {
    temperament();
    const auto side = [this](int column) {
        return cell(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(side(0), Qt::AlignLeft);
    for (const int column : {kCent, kRatio, kHertz})
        EXPECT_EQ(side(column), Qt::AlignRight) << column;
    const char* const kTitles[] = {"Note", "Cent", "Ratio", "Hertz"};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(table().model()->headerData(column, Qt::Horizontal).toString(), kTitles[column]);
}

TEST_F(EditorContentsTest, NamesForThoseWhoDoNotSee) {
    const auto nameOf = [this](const char* control) {
        return QAccessible::queryAccessibleInterface(&this->control(control))
            ->text(QAccessible::Name)
            .toStdString();
    };
    temperament();
    document->setCell(Temperament::Column::cent, 0, "11.73");
    EXPECT_EQ(nameOf("nameField"), "Name");
    EXPECT_EQ(nameOf("descriptionField"), "Description");
    EXPECT_EQ(nameOf("table"), "Temperament");
    EXPECT_EQ(nameOf("graph").find("Deviation from equal temperament"), 0u) << nameOf("graph");
    EXPECT_NE(nameOf("graph").find("lowest C# +0.0 cents, highest C +11.7 cents"),
              std::string::npos)
        << nameOf("graph");
    editor.reset();
    stretch();
    EXPECT_EQ(nameOf("nameField"), "Name");
    EXPECT_EQ(nameOf("descriptionField"), "Description");
    EXPECT_EQ(nameOf("table"), "Stretch offsets");
    EXPECT_EQ(nameOf("graph").find("Stretch across the keyboard"), 0u) << nameOf("graph");
}

TEST_F(EditorContentsTest, ThePrintPageHoldsWhatTheEditorShows) {
    const auto& first = temperament(9);
    ASSERT_TRUE(document->loadDataRepresentation(
        "\"Name\"=\"Mine\";\"Description\"=\"two\\nlines\";\"C\"=\"12\";", kTemperamentTypeName));
    const PrintPage page = first.printPage();
    EXPECT_EQ(page.printName, "Mine");
    EXPECT_EQ(page.printDescription, "two\nlines");
    ASSERT_EQ(page.rows.size(), 12u);
    EXPECT_EQ(page.rows[0], QStringList({"A (PU)", "±0.000", "1.000000000", "440.000000"}));
    ASSERT_EQ(page.printGraph.columns.size(), 12u);
    EXPECT_EQ(page.printGraph.columns[0].label, "A");
    EXPECT_EQ(page.printGraph.cents.size(), 12u);

    const auto& second = stretch();
    ASSERT_TRUE(stretchDocument->loadDataRepresentation(
        "\"Name\"=\"Ours\";\"Description\"=\"one\";\"A4\"=\"12\";", kStretchTypeName));
    const PrintPage other = second.printPage();
    EXPECT_EQ(other.printName, "Ours");
    EXPECT_EQ(other.printDescription, "one");
    EXPECT_EQ(other.columnTitles.size(), 10);
    ASSERT_EQ(other.rows.size(), 12u);
    EXPECT_EQ(other.rows[kA][5], "+12.000");
    EXPECT_EQ(other.printGraph.columns.size(), 108u);
    EXPECT_EQ(other.printGraph.cents.size(), 108u);
}

} // namespace
} // namespace veltrano
