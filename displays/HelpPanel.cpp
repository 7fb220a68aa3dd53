// SPDX-License-Identifier: GPL-3.0-or-later
// The help window.
#include "displays/HelpPanel.h"

#include "platform/desktop/InterfaceFile.h"
#include "platform/desktop/WindowPlacement.h"

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

bool HelpPanel::load() {
    QString error;
    mWindow = loadInterfaceFile(mResources.interfaceFile(QStringLiteral("Help")), {}, &error);
    if (mWindow) return true;
    mLog.line("Failed to load Help.nib");
    mLog.detail(error.toStdString());
    mBeep();
    return false;
}

} // namespace veltrano
