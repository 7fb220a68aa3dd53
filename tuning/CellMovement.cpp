// SPDX-License-Identifier: GPL-3.0-or-later
// Which cell is edited next.
#include "tuning/CellMovement.h"

namespace veltrano::cell_movement {

int rowAbove(int row, int rows, const std::function<bool(int)>& mayEdit) {
    int target = row;
    do {
        target = target > 0 ? target - 1 : rows - 1;
    } while (target != row && !mayEdit(target));
    return target;
}

std::optional<int> rowBelow(int row, int rows, const std::function<bool(int)>& mayEdit) {
    for (int target = row + 1; target < rows; ++target) {
        if (mayEdit(target)) return target;
    }
    return std::nullopt;
}

std::optional<CellPosition> nextInColumns(CellPosition at, int rows, int columns, bool isUp) {
    const int step = isUp ? -1 : 1;
    const int row = at.row + step;
    if (row >= 0 && row < rows) return CellPosition{row, at.column};
    const int column = at.column + step;
    if (column < 1 || column >= columns) return std::nullopt;
    return CellPosition{isUp ? rows - 1 : 0, column};
}

} // namespace veltrano::cell_movement
