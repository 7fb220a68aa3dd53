// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of a window.
#pragma once

#include "app/MenuCommands.h"

#include <QMenu>
#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QMenuBar;
class QWidget;

namespace veltrano {

struct MenuItem;

/// The recently opened files as the menu needs them; an empty function is never called.
struct RecentFiles {
    std::function<std::vector<std::string>()> paths;
    std::function<void(const std::string& path)> open;
    std::function<void()> clear;
};

/// The open documents as the menu needs them; an empty function is never called.
struct DocumentList {
    struct Entry {
        QString title;
        bool isActive = false; ///< its window has the focus
        std::function<void()> show;
    };
    std::function<std::vector<Entry>()> documents;
};

/// Fills the menu bar of a window. Every command goes along the window's chain when it is chosen;
/// what nobody answers, or is not enabled just now, beeps. Items are shown as enabled, checked and
/// titled as their handler says when their menu opens. Thread: main. Owned by the window.
class ApplicationMenu final : public QObject {
    Q_OBJECT
public:
    /// A window that is no QMainWindow keeps the keys only.
    /// @param chain its handlers live as long as the window
    ApplicationMenu(QWidget& window, CommandChain chain, RecentFiles recent,
                    DocumentList documents = {});

    /// Hides the bar; the keys go on working.
    void keepShortcutsOnly();

    /// The item of a command; null for one that this bar has not.
    QAction* action(MenuCommand command) const;

private:
    void addMenus();
    void addItem(QMenu& menu, const MenuItem& item);
    void fillRecent();
    void fillDocuments(QMenu& menu);
    void validate(QMenu& menu);
    void release(const QMenu& menu);
    void perform(MenuCommand command);

    const CommandChain mChain;
    const RecentFiles mRecent;
    const DocumentList mDocuments;
    QWidget& mWindow;               ///< parent
    QMenuBar& mBar;                 ///< child of the window
    QMenu* mRecentMenu = nullptr;   ///< child of the menu bar
    QMenu* mDocumentMenu = nullptr; ///< likewise
};

} // namespace veltrano
