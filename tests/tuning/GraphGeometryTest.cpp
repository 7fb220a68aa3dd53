// SPDX-License-Identifier: GPL-3.0-or-later
// Where things stand in a graph, and which cell is edited next.
#include "tuning/GraphGeometry.h"
#include "tuning/CellMovement.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(GraphGeometry, ThePlotLeavesRoomForLabels) {
    // 3 all around, 19 more on the left, 10 more at the top.
    const GraphGeometry graph(265, 116, 12);
    EXPECT_EQ(graph.plot().left, 22);
    EXPECT_EQ(graph.plot().bottom, 3);
    EXPECT_EQ(graph.plot().width, 240);
    EXPECT_EQ(graph.plot().height, 100);
    EXPECT_EQ(graph.plot().top(), 103);
    EXPECT_EQ(graph.columnWidth(), 20);
    EXPECT_EQ(graph.columnCentre(0), 32);
    EXPECT_EQ(graph.columnCentre(11), 252);
    EXPECT_EQ(graph.scaleLabelEnd(), 28);
}

TEST(GraphGeometry, CentsAtTheLimitsTouchTheEdges) {
    const GraphGeometry graph(265, 216, 12); // two units per cent
    EXPECT_EQ(graph.heightOf(-50), graph.plot().bottom);
    EXPECT_EQ(graph.heightOf(50), graph.plot().top());
    EXPECT_EQ(graph.heightOf(0), 103);
    EXPECT_EQ(graph.heightOf(12.5), 128);
    EXPECT_EQ(graph.heightOf(60), 223) << "beyond the edge, not cut";
}

TEST(GraphGeometry, LabelsOfTheScale) {
    EXPECT_EQ(scaleLabel(40), "+40");
    EXPECT_EQ(scaleLabel(0), "±0");
    EXPECT_EQ(scaleLabel(-20), "-20");
}

using cell_movement::nextInColumns;
using cell_movement::rowAbove;
using cell_movement::rowBelow;

TEST(CellMovement, UpwardsPassesRowsThatMayNotBeEditedAndWraps) {
    const auto allBut = [](int closed) { return [closed](int row) { return row != closed; }; };
    struct Case {
        const char* name;
        int row, closed, expected;
    };
    constexpr Case kCases[] = {
        {"one row", 5, 9, 4},
        {"over a closed row", 10, 9, 8},
        {"from the first to the last", 0, 9, 11},
        {"from the first over a closed last", 0, 11, 10},
        {"row 0 is closed: from row 1 to the last", 1, 0, 11},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(rowAbove(c.row, 12, allBut(c.closed)), c.expected) << c.name;
    EXPECT_EQ(rowAbove(3, 12, [](int row) { return row == 3; }), 3) << "there is no other row";
    EXPECT_EQ(rowAbove(3, 12, [](int) { return false; }), 3);
}

TEST(CellMovement, DownwardsPassesRowsThatMayNotBeEditedAndEnds) {
    const auto allButNine = [](int row) { return row != 9; };
    EXPECT_EQ(rowBelow(0, 12, allButNine), 1);
    EXPECT_EQ(rowBelow(8, 12, allButNine), 10);
    EXPECT_EQ(rowBelow(11, 12, allButNine), std::nullopt);
    EXPECT_EQ(rowBelow(8, 10, allButNine), std::nullopt);
}

TEST(CellMovement, ColumnsAreWalkedOneAfterTheOther) {
    struct Case {
        const char* name;
        CellPosition at;
        bool isUp;
        std::optional<CellPosition> expected;
    };
    const Case kCases[] = {
        {"down", {3, 4}, false, CellPosition{4, 4}},
        {"up", {3, 4}, true, CellPosition{2, 4}},
        {"the last row of octave 3 goes on in octave 4", {11, 4}, false, CellPosition{0, 5}},
        {"the first row of octave 4 goes back to octave 3", {0, 5}, true, CellPosition{11, 4}},
        {"the last row of octave 8 ends", {11, 9}, false, std::nullopt},
        {"the first row of octave 0 ends, names are not entered", {0, 1}, true, std::nullopt},
    };
    for (const Case& c : kCases)
        EXPECT_EQ(nextInColumns(c.at, 12, 10, c.isUp), c.expected) << c.name;
}

} // namespace
} // namespace veltrano
