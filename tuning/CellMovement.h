// SPDX-License-Identifier: GPL-3.0-or-later
// Which cell is edited next.
#pragma once

#include <functional>
#include <optional>

namespace veltrano {

struct CellPosition {
    int row = 0;
    int column = 0;
    bool operator==(const CellPosition&) const = default;
};

namespace cell_movement {

/// The row to edit after one that ended with Shift-Return: the next one above that may be edited;
/// above row 0 it goes on from the last row. @p row itself when no other may be.
int rowAbove(int row, int rows, const std::function<bool(int row)>& mayEdit);

/// The row to edit after one that ended with Return: the next one below that may be edited;
/// nullopt past the last row.
std::optional<int> rowBelow(int row, int rows, const std::function<bool(int row)>& mayEdit);

/// Where editing goes on in a table whose columns are walked one after the other; column 0 holds
/// names and is never entered. nullopt: past either end, editing ends.
/// @param isUp with Shift
std::optional<CellPosition> nextInColumns(CellPosition at, int rows, int columns, bool isUp);

} // namespace cell_movement

} // namespace veltrano
