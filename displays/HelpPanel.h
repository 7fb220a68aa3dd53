// SPDX-License-Identifier: GPL-3.0-or-later
// The help window.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace veltrano {

/// Loads the interface file "Help" when help is first asked for. Thread: main. Owns: the window.
/// Errors: without the interface file each call logs one line and beeps.
class HelpPanel {
public:
    /// @param log must outlive the panel  @param beep the desktop's when empty
    HelpPanel(ResourceFolder resources, Log& log, std::function<void()> beep = {});

    /// Centres the window unless it is visible, and brings it to the front with the focus.
    void showHelpPanel();

    QWidget* window() const { return mWindow.get(); } ///< null until it was loaded

private:
    bool load();

    const ResourceFolder mResources;
    Log& mLog;
    const std::function<void()> mBeep;
    std::unique_ptr<QWidget> mWindow;
};

} // namespace veltrano
