// SPDX-License-Identifier: GPL-3.0-or-later
// The table of a temperament document and what it follows.
#include "tests/tuning/TemperamentDocumentTestBase.h"

namespace veltrano {
namespace {

using Column = Temperament::Column;
using MVTemperamentDocumentTest = TemperamentDocumentTestBase;

TEST_F(MVTemperamentDocumentTest, NewDocumentIsEquallyTempered) {
    const auto& document = open();
    ASSERT_EQ(document.numberOfRows(), 12);
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(document.cell(Column::cent, row), "\u00B10.000");
    EXPECT_EQ(document.cell(Column::label, 0), "C (PU)");
    EXPECT_EQ(document.cell(Column::ratio, 0), "0.594603558");
    EXPECT_EQ(document.cell(Column::hertz, 0), "261.625565");
    EXPECT_EQ(document.fileType().name, "Veltrano Temperament");
    EXPECT_EQ(document.fileType().extension, "temperament");
    EXPECT_EQ(document.fileName(), "");
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(MVTemperamentDocumentTest, ReferencePitchAndRootKeyAreThoseOfTheSettings) {
    settings.pitch = 442;
    const auto& document = open(3);
    EXPECT_EQ(document.cell(Column::hertz, 6), "442.000000");
    EXPECT_EQ(document.cell(Column::label, 0), "Eb (PU)");
}

TEST_F(MVTemperamentDocumentTest, AcceptedEditMarksPostsAndRefreshes) {
    auto& document = open();
    document.setCell(Column::cent, 0, "\u00B11.25");
    EXPECT_EQ(document.temperamentCents()[0], 1.25);
    EXPECT_EQ(document.cell(Column::cent, 0), "+1.250");
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_EQ(postedCents[0], 1.25);
    EXPECT_GE(editor.graph.refreshes, 1);
    EXPECT_GE(editor.table.refreshes, 1) << "the row's other columns have changed";
    EXPECT_EQ(panels.beeps, 0);
}

TEST_F(MVTemperamentDocumentTest, RefusedEditBeepsAndChangesNothing) {
    const struct {
        Column column;
        const char* text;
    } kCases[] = {
        {Column::cent, "50.0001"}, {Column::cent, "-51"},  {Column::ratio, "0.5"},
        {Column::ratio, "2.0"},    {Column::ratio, "0.7"}, {Column::hertz, "0"},
        {Column::hertz, "no"},     {Column::hertz, "440"},
    };
    auto& document = open();
    const Temperament before = document.values();
    int beeps = 0;
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.text);
        document.setCell(each.column, 0, each.text);
        EXPECT_EQ(panels.beeps, ++beeps);
    }
    EXPECT_EQ(document.values(), before);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_FALSE(document.history().canUndo());
    EXPECT_EQ(takePosted(), Texts{});
}

TEST_F(MVTemperamentDocumentTest, LabelAndTheRowOfAAreNotEdited) {
    for (int tonic = 0; tonic < 12; ++tonic) {
        SCOPED_TRACE(tonic);
        auto& document = open(tonic);
        const int rowOfA = (9 - tonic + 12) % 12;
        for (int row = 0; row < 12; ++row) {
            EXPECT_EQ(document.shouldEdit(Column::cent, row), row != rowOfA);
            EXPECT_FALSE(document.shouldEdit(Column::label, row));
        }
        document.setCell(Column::cent, rowOfA, "5");
        document.setCell(Column::label, 0, "5");
        EXPECT_EQ(document.temperamentCents(), CentTable{});
        EXPECT_EQ(document.changeCount(), 0);
    }
    EXPECT_FALSE(open(3).shouldEdit(Column::hertz, 6)) << "with Eb as the tonic A is row 6";
    EXPECT_EQ(panels.beeps, 0);
}

TEST_F(MVTemperamentDocumentTest, TypedHertzAreKept) {
    auto& document = open();
    document.setCell(Column::hertz, 0, "262.1");
    EXPECT_EQ(document.values().hertz()[0], 262.1);
    EXPECT_EQ(document.cell(Column::hertz, 0), "262.100000");
}

TEST_F(MVTemperamentDocumentTest, RootKeyCarriesThePatternAndKeepsA) {
    auto& document = open();
    document.setCell(Column::cent, 0, "5");
    document.setCell(Column::cent, 2, "-3");
    takePosted();
    setTonic(7);
    // With G as the tonic row 0 is G, and A is row 2, which held -3.
    EXPECT_EQ(document.cell(Column::label, 0), "G (PU)");
    EXPECT_EQ(document.temperamentCents()[0], 8);
    EXPECT_EQ(document.temperamentCents()[2], 0);
    EXPECT_EQ(document.temperamentCents()[9], 3);
    EXPECT_EQ(document.changeCount(), 2) << "no edit";
    EXPECT_EQ(takePosted(), Texts{});
    EXPECT_EQ(document.cell(Column::hertz, 2), "440.000000");
}

TEST_F(MVTemperamentDocumentTest, ReferencePitchMovesHertzAlone) {
    auto& document = open();
    document.setCell(Column::cent, 0, "5");
    const CentTable cents = document.temperamentCents();
    const RatioTable ratios = document.temperament();
    editor.table.refreshes = editor.graph.refreshes = 0;
    setReferencePitch(415);
    EXPECT_EQ(document.temperamentCents(), cents);
    EXPECT_EQ(document.temperament(), ratios);
    EXPECT_EQ(document.cell(Column::hertz, 9), "415.000000");
    EXPECT_EQ(editor.table.refreshes, 1);
    EXPECT_EQ(editor.graph.refreshes, 1);
}

TEST_F(MVTemperamentDocumentTest, NothingIsFollowedAfterTheEnd) {
    editor.table.refreshes = 0;
    {
        MVTemperamentDocument document(temperamentPorts());
        document.windowControllerDidLoadNib(editor.outlets());
    }
    setTonic(5);
    setReferencePitch(444);
    EXPECT_EQ(editor.table.refreshes, 1) << "only the first filling";
}

TEST_F(MVTemperamentDocumentTest, FileIsLaidOntoTheRootKey) {
    auto& document = open(7);
    ASSERT_TRUE(document.loadDataRepresentation(temperamentFile("x", "C", 10), "any type"));
    EXPECT_EQ(document.temperamentCents()[0], 10) << "the tonic, which is G now";
    EXPECT_EQ(document.cell(Column::label, 0), "G (PU)");
}

} // namespace
} // namespace veltrano
