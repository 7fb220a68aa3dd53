// SPDX-License-Identifier: GPL-3.0-or-later
// What the menus hold.
#pragma once

#include "app/MenuCommands.h"

#include <QKeySequence>
#include <QList>
#include <vector>

namespace veltrano {

/// What a menu lists besides its commands, anew each time it opens.
enum class MenuList { none, recentFiles, documents };

/// One line of a menu. A null text without a list is a separator.
struct MenuItem {
    const char* text = nullptr; ///< to be translated in the context "Menu"
    MenuCommand command{};
    QList<QKeySequence> keys{}; ///< the first one is shown
    MenuList list = MenuList::none;
};

struct MenuTable {
    const char* title; ///< to be translated likewise
    std::vector<MenuItem> items;
};

/// The menus of the bar, from the left.
const std::vector<MenuTable>& menuTables();

} // namespace veltrano
