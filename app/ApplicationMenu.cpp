// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of a window.
#include "app/ApplicationMenu.h"

#include "app/MenuItems.h"

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <array>
#include <utility>

namespace veltrano {

namespace {

constexpr const char* kCommandProperty = "veltranoCommand";
constexpr const char* kListedProperty = "veltranoListed"; ///< one of a list, made anew

QString translated(const char* text) { return QCoreApplication::translate("Menu", text); }

QMenuBar& barOf(QWidget& window) {
    if (auto* mainWindow = qobject_cast<QMainWindow*>(&window)) return *mainWindow->menuBar();
    return *new QMenuBar(&window);
}

/// Commands that a text field takes while something is typed into it.
bool isForText(MenuCommand command) {
    switch (command) {
    case MenuCommand::cut:
    case MenuCommand::copy:
    case MenuCommand::paste:
    case MenuCommand::deleteAll:
    case MenuCommand::selectAll:
        return true;
    default:
        return false;
    }
}

QString fileNameOf(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).fileName();
}

} // namespace

ApplicationMenu::ApplicationMenu(QWidget& window, CommandChain chain, RecentFiles recent,
                                 DocumentList documents)
    : QObject(&window), mChain(std::move(chain)), mRecent(std::move(recent)),
      mDocuments(std::move(documents)), mWindow(window), mBar(barOf(window)) {
    addMenus();
    connect(new QShortcut(Qt::Key_F10, &window), &QShortcut::activated, this, [this] {
        if (mBar.isVisible()) mBar.setActiveAction(mBar.actions().constFirst());
    });
    if (!qobject_cast<QMainWindow*>(&window)) keepShortcutsOnly();
}

void ApplicationMenu::addMenus() {
    for (const MenuTable& table : menuTables()) {
        QMenu* menu = mBar.addMenu(translated(table.title));
        connect(menu, &QMenu::aboutToShow, this, [this, menu] { validate(*menu); });
        connect(menu, &QMenu::aboutToHide, this, [this, menu] { release(*menu); });
        for (const MenuItem& item : table.items)
            addItem(*menu, item);
    }
}

void ApplicationMenu::addItem(QMenu& menu, const MenuItem& item) {
    switch (item.list) {
    case MenuList::recentFiles:
        mRecentMenu = menu.addMenu(translated(item.text));
        connect(mRecentMenu, &QMenu::aboutToShow, this, [this] { fillRecent(); });
        return;
    case MenuList::documents:
        mDocumentMenu = &menu;
        return;
    case MenuList::none:
        break;
    }
    if (!item.text) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(translated(item.text));
    action->setShortcuts(item.keys);
    action->setProperty(kCommandProperty, static_cast<int>(item.command));
    action->setData(action->text()); // the menu's own title
    if (item.command == MenuCommand::quit) action->setMenuRole(QAction::QuitRole);
    connect(action, &QAction::triggered, this,
            [this, command = item.command] { perform(command); });
}

void ApplicationMenu::keepShortcutsOnly() {
    mBar.hide();
    // The keys of what a hidden bar holds are dead, those of the window's own actions are not.
    for (QAction* action : mBar.findChildren<QAction*>()) {
        if (action->property(kCommandProperty).isValid()) mWindow.addAction(action);
    }
}

QAction* ApplicationMenu::action(MenuCommand command) const {
    for (QAction* action : mBar.findChildren<QAction*>()) {
        const QVariant its = action->property(kCommandProperty);
        if (its.isValid() && its.toInt() == static_cast<int>(command)) return action;
    }
    return nullptr;
}

void ApplicationMenu::fillRecent() {
    mRecentMenu->clear();
    const std::vector<std::string> paths =
        mRecent.paths ? mRecent.paths() : std::vector<std::string>{};
    for (const std::string& path : paths) {
        // A name may hold "&"; in a menu that would be a mnemonic.
        QAction* action =
            mRecentMenu->addAction(fileNameOf(path).replace(u'&', QStringLiteral("&&")));
        action->setToolTip(QString::fromStdString(path));
        connect(action, &QAction::triggered, this, [this, path] { mRecent.open(path); });
    }
    mRecentMenu->setToolTipsVisible(true);
    if (!paths.empty()) mRecentMenu->addSeparator();
    QAction* clear = mRecentMenu->addAction(tr("&Clear Menu"));
    clear->setEnabled(!paths.empty());
    connect(clear, &QAction::triggered, this, [this] { mRecent.clear(); });
}

void ApplicationMenu::fillDocuments(QMenu& menu) {
    for (QAction* action : menu.actions()) {
        if (action->property(kListedProperty).isValid()) delete action;
    }
    const auto documents =
        mDocuments.documents ? mDocuments.documents() : std::vector<DocumentList::Entry>{};
    const auto add = [&menu](const QString& text) {
        QAction* action = menu.addAction(text);
        action->setProperty(kListedProperty, true);
        return action;
    };
    if (documents.empty()) add(tr("No &Documents"))->setEnabled(false);
    int number = 0;
    for (const DocumentList::Entry& document : documents) {
        QString title = document.title;
        title.replace(u'&', QStringLiteral("&&"));
        const QString mnemonic = ++number < 10 ? u'&' + QString::number(number) + u' ' : QString();
        QAction* action = add(mnemonic + title);
        action->setCheckable(true);
        action->setChecked(document.isActive);
        connect(action, &QAction::triggered, this, document.show);
    }
}

void ApplicationMenu::validate(QMenu& menu) {
    if (&menu == mDocumentMenu) fillDocuments(menu);
    for (QAction* action : menu.actions()) {
        const QVariant its = action->property(kCommandProperty);
        if (!its.isValid()) continue;
        const auto command = static_cast<MenuCommand>(its.toInt());
        const CommandHandler* handler = handlerOf(command, mChain);
        const CommandState state =
            handler ? *handler->commandState(command) : CommandState{.isEnabled = false};
        action->setEnabled(state.isEnabled);
        action->setCheckable(state.isChecked.has_value());
        action->setChecked(state.isChecked.value_or(false));
        action->setText(state.title.isEmpty() ? action->data().toString() : state.title);
    }
}

/// The keys of an item work whenever its command does, not as the menu was seen last.
void ApplicationMenu::release(const QMenu& menu) {
    for (QAction* action : menu.actions()) {
        if (action->property(kCommandProperty).isValid()) action->setEnabled(true);
    }
}

void ApplicationMenu::perform(MenuCommand command) {
    if (!isForText(command)) endCellEditing();
    CommandHandler* handler = handlerOf(command, mChain);
    if (handler && handler->commandState(command)->isEnabled) {
        handler->perform(command);
    } else {
        QApplication::beep();
    }
}

} // namespace veltrano
