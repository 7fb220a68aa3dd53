// SPDX-License-Identifier: GPL-3.0-or-later
// The help window.
#include "displays/HelpPanel.h"

#include "displays/HelpNavigation.h"
#include "platform/desktop/InterfaceFile.h"
#include "platform/desktop/WindowPlacement.h"

#include <QAccessible>
#include <QApplication>
#include <utility>

namespace veltrano {

HelpPanel::HelpPanel(ResourceFolder resources, Log& log, std::function<void()> beep)
    : mResources(std::move(resources)), mLog(log),
      mBeep(beep ? std::move(beep) : QApplication::beep) {}

void HelpPanel::showHelpPanel() {
    if (!mWindow && !load()) return;
    // To Qt a minimised window is visible.
    if (!mWindow->isVisible() || mWindow->isMinimized()) centreOnScreen(*mWindow);
    mWindow->setWindowState(mWindow->windowState() & ~Qt::WindowMinimized);
    mWindow->show();
    mWindow->raise();
    mWindow->activateWindow();
}

void HelpPanel::showKeys() {
    showHelpPanel();
    if (mNavigation) mNavigation->showKeys();
}

bool HelpPanel::load() {
    const WidgetMakers makers{
        {QStringLiteral("HelpText"), [](QWidget* parent) { return new HelpText(parent); }}};
    QString error;
    mWindow = loadInterfaceFile(mResources.interfaceFile(QStringLiteral("Help")), makers, &error);
    if (mWindow) {
        showManual();
        return true;
    }
    mLog.line("Failed to load Help.nib");
    mLog.detail(error.toStdString());
    mBeep();
    return false;
}

void HelpPanel::showManual() {
    auto* text = dynamic_cast<HelpText*>(mWindow->findChild<QTextBrowser*>());
    if (!text) return;
    const HelpPages pages(mResources.path() + QStringLiteral("/help"), QLocale());
    auto* navigation = new HelpNavigation(*mWindow, *text, pages, mBeep);
    if (pages.isThere()) mNavigation = navigation;
    text->setCaretShown(QAccessible::isActive());
    text->setFocus();
    if (pages.isThere()) return navigation->showContents();
    mLog.detail("The pages of the manual are missing: " + pages.folder().toStdString());
    text->setPlainText(tr("The pages of the manual are missing. They belong into this folder:") +
                       u'\n' + pages.folder());
}

} // namespace veltrano
