// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar of a window.
#include "app/ApplicationMenu.h"

#include <QApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenuBar>
#include <array>
#include <utility>

namespace veltrano {

namespace {

constexpr const char* kCommandProperty = "veltranoCommand";

} // namespace

/// One line of a menu. A null text is a separator.
struct MenuItem {
    const char* text;
    MenuCommand command{};
    QList<QKeySequence> keys{}; ///< the first one is shown
};

namespace {

using Items = std::vector<MenuItem>;

// The texts are taken by the translation tool from here.
#define VELTRANO_MENU_TEXT(text) QT_TRANSLATE_NOOP("veltrano::ApplicationMenu", text)

const Items& newAndOpenItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("&New Temperament"), MenuCommand::newTemperament, {QKeySequence::New}},
        {VELTRANO_MENU_TEXT("New Stretc&h"),
         MenuCommand::newStretch,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_N}},
        {VELTRANO_MENU_TEXT("&Open…"), MenuCommand::open, {QKeySequence::Open}}};
    return items;
}

const Items& restOfFileItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("&Import…"), MenuCommand::importScala, {Qt::CTRL | Qt::Key_I}},
        {VELTRANO_MENU_TEXT("&Export…"), // Ctrl+E goes to the end of a line
         MenuCommand::exportScala,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_E}},
        {nullptr},
        {VELTRANO_MENU_TEXT("&Close"), MenuCommand::closeWindow, {QKeySequence::Close}},
        {VELTRANO_MENU_TEXT("&Save"), MenuCommand::save, {QKeySequence::Save}},
        {VELTRANO_MENU_TEXT("Save &As…"), MenuCommand::saveAs, {Qt::CTRL | Qt::SHIFT | Qt::Key_S}},
        {VELTRANO_MENU_TEXT("Save a Cop&y…"), MenuCommand::saveTo, {}},
        {VELTRANO_MENU_TEXT("Revert to Save&d"), MenuCommand::revert, {}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Page Set&up…"),
         MenuCommand::pageSetup,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_P}},
        {VELTRANO_MENU_TEXT("Print Pre&view…"), MenuCommand::printPreview, {}},
        {VELTRANO_MENU_TEXT("&Print…"), MenuCommand::print, {QKeySequence::Print}},
        {nullptr},
        {VELTRANO_MENU_TEXT("&Quit"), MenuCommand::quit, {Qt::CTRL | Qt::Key_Q}}};
    return items;
}

const Items& editItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("&Undo"), MenuCommand::undo, {QKeySequence::Undo}},
        {VELTRANO_MENU_TEXT("&Redo"),
         MenuCommand::redo,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Cu&t"), MenuCommand::cut, {QKeySequence::Cut}},
        {VELTRANO_MENU_TEXT("&Copy"), MenuCommand::copy, {QKeySequence::Copy}},
        {VELTRANO_MENU_TEXT("&Paste"), MenuCommand::paste, {QKeySequence::Paste}},
        {VELTRANO_MENU_TEXT("&Delete"), MenuCommand::deleteAll, {}},
        {VELTRANO_MENU_TEXT("Select &All"), MenuCommand::selectAll, {QKeySequence::SelectAll}}};
    return items;
}

const Items& tunerItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("&Manual Mode"), MenuCommand::autoManualToggle, {}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Note &Up"), MenuCommand::noteUp, {}},
        {VELTRANO_MENU_TEXT("Note &Down"), MenuCommand::noteDown, {}},
        {VELTRANO_MENU_TEXT("&Octave Up"), MenuCommand::octaveUp, {}},
        {VELTRANO_MENU_TEXT("O&ctave Down"), MenuCommand::octaveDown, {}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Sound &Back"), MenuCommand::soundBackToggle, {}},
        {VELTRANO_MENU_TEXT("&Play"), MenuCommand::playSoundBack, {}}};
    return items;
}

const Items& viewItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("&Tuner"), MenuCommand::showTunerWindow, {Qt::CTRL | Qt::Key_1}},
        {VELTRANO_MENU_TEXT("Show &Partials"), MenuCommand::showPartials, {Qt::CTRL | Qt::Key_2}},
        {VELTRANO_MENU_TEXT("Show &Hilbert Scope"),
         MenuCommand::showHilbertScope,
         {Qt::CTRL | Qt::Key_3}},
        {VELTRANO_MENU_TEXT("Piano &Keyboard"),
         MenuCommand::showPianoKeyboard,
         {Qt::CTRL | Qt::Key_4}},
        {nullptr},
        {VELTRANO_MENU_TEXT("H&old Partials"), MenuCommand::partialsHold, {}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Scope with &Line"), MenuCommand::hilbertLine, {}},
        {VELTRANO_MENU_TEXT("Scope with &Dots"), MenuCommand::hilbertDots, {}},
        {VELTRANO_MENU_TEXT("Scope D&ecays"), MenuCommand::hilbertDecay, {}},
        {VELTRANO_MENU_TEXT("Scope &Grid"), MenuCommand::hilbertGrid, {}}};
    return items;
}

const Items& speechItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("Speak &Status"), MenuCommand::speakStatus, {Qt::CTRL | Qt::Key_D}},
        {VELTRANO_MENU_TEXT("Speak &Details"),
         MenuCommand::speakDetails,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_D}},
        {nullptr},
        {VELTRANO_MENU_TEXT("Speak &Tune"), MenuCommand::speakTune, {Qt::CTRL | Qt::Key_T}},
        {VELTRANO_MENU_TEXT("Speak &Hertz"), MenuCommand::speakHertz, {Qt::CTRL | Qt::Key_H}}};
    return items;
}

const Items& helpItems() {
    static const Items items{
        {VELTRANO_MENU_TEXT("Veltrano &Help"), MenuCommand::help, {QKeySequence::HelpContents}}};
    return items;
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

ApplicationMenu::ApplicationMenu(QMainWindow& window, CommandChain chain, RecentFiles recent)
    : QObject(&window), mChain(std::move(chain)), mRecent(std::move(recent)) {
    addMenus(window);
}

void ApplicationMenu::addMenus(QMainWindow& window) {
    const auto add = [this, &window](const QString& title) {
        QMenu* menu = window.menuBar()->addMenu(title);
        connect(menu, &QMenu::aboutToShow, this, [this, menu] { validate(*menu); });
        connect(menu, &QMenu::aboutToHide, this, [this, menu] { release(*menu); });
        return menu;
    };
    const auto fill = [this](QMenu& menu, const Items& items) {
        for (const MenuItem& item : items)
            addItem(menu, item);
    };
    QMenu* file = add(tr("&File"));
    fill(*file, newAndOpenItems());
    mRecentMenu = file->addMenu(tr("Open Recen&t"));
    connect(mRecentMenu, &QMenu::aboutToShow, this, [this] { fillRecent(); });
    file->addSeparator();
    fill(*file, restOfFileItems());
    fill(*add(tr("&Edit")), editItems());
    fill(*add(tr("&Tuner")), tunerItems());
    fill(*add(tr("&Speech")), speechItems());
    fill(*add(tr("&View")), viewItems());
    fill(*add(tr("&Help")), helpItems());
}

void ApplicationMenu::addItem(QMenu& menu, const MenuItem& item) {
    if (!item.text) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(tr(item.text));
    action->setShortcuts(item.keys);
    action->setProperty(kCommandProperty, static_cast<int>(item.command));
    action->setData(action->text()); // the menu's own title
    if (item.command == MenuCommand::quit) action->setMenuRole(QAction::QuitRole);
    connect(action, &QAction::triggered, this,
            [this, command = item.command] { perform(command); });
}

void ApplicationMenu::keepShortcutsOnly() {
    auto* window = static_cast<QMainWindow*>(parent());
    window->menuBar()->hide();
    // The keys of what a hidden bar holds are dead, those of the window's own actions are not.
    for (QAction* action : window->menuBar()->findChildren<QAction*>()) {
        if (action->property(kCommandProperty).isValid()) window->addAction(action);
    }
}

QAction* ApplicationMenu::action(MenuCommand command) const {
    const auto* window = static_cast<const QMainWindow*>(parent());
    for (QAction* action : window->menuWidget()->findChildren<QAction*>()) {
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

void ApplicationMenu::validate(const QMenu& menu) {
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
    for (QAction* action : menu.actions())
        action->setEnabled(true);
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
