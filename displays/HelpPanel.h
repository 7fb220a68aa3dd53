// SPDX-License-Identifier: GPL-3.0-or-later
// The help window.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <memory>

namespace veltrano {

class HelpNavigation;

/// Loads the interface file "Help" when help is first asked for, and shows the manual in it, in
/// German or English as the user's locale has it. Thread: main. Owns: the window. Errors: without
/// the interface file each call logs one line and beeps; without the manual its window says so.
class HelpPanel {
    Q_DECLARE_TR_FUNCTIONS(veltrano::HelpPanel)

public:
    /// @param log must outlive the panel  @param beep the desktop's when empty
    HelpPanel(ResourceFolder resources, Log& log, std::function<void()> beep = {});

    /// Centres the window unless it is visible, and brings it to the front with the focus.
    void showHelpPanel();
    /// The same, at the page of the manual that lists all keys.
    void showKeys();

    QWidget* window() const { return mWindow.get(); } ///< null until it was loaded

private:
    bool load();
    void showManual();

    const ResourceFolder mResources;
    Log& mLog;
    const std::function<void()> mBeep;
    std::unique_ptr<QWidget> mWindow;
    HelpNavigation* mNavigation = nullptr; ///< child of the window; null without the manual
};

} // namespace veltrano
