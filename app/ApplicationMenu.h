// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of a window.
#pragma once

#include "app/MenuCommands.h"

#include <QMenu>
#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QMainWindow;

namespace veltrano {

struct MenuItem;

/// The recently opened files as the menu needs them; an empty function is never called.
struct RecentFiles {
    std::function<std::vector<std::string>()> paths;
    std::function<void(const std::string& path)> open;
    std::function<void()> clear;
};

/// Fills the menu bar of a window. Every command goes along the window's chain when it is chosen;
/// what nobody answers, or is not enabled just now, beeps. Items are shown as enabled, checked and
/// titled as their handler says when their menu opens. Thread: main. Owned by the window.
class ApplicationMenu final : public QObject {
    Q_OBJECT
public:
    /// @param chain its handlers live as long as the window
    ApplicationMenu(QMainWindow& window, CommandChain chain, RecentFiles recent);

    /// Hides the bar; the keys go on working.
    void keepShortcutsOnly();

    /// The item of a command; null for one that this bar has not.
    QAction* action(MenuCommand command) const;

private:
    void addMenus(QMainWindow& window);
    void addItem(QMenu& menu, const MenuItem& item);
    void fillRecent();
    void validate(const QMenu& menu);
    void release(const QMenu& menu);
    void perform(MenuCommand command);

    const CommandChain mChain;
    const RecentFiles mRecent;
    QMenu* mRecentMenu = nullptr; ///< child of the menu bar
};

} // namespace veltrano
