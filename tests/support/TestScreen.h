// SPDX-License-Identifier: GPL-3.0-or-later
// A private X screen with a window manager for one test program.
#pragma once

#include "tests/support/TestProcess.h"

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace veltrano {

/// Xvfb on a display number of its own, and openbox, which keeps the keyboard focus; both are ended
/// with this object. Thread: main.
class TestScreen {
public:
    /// The reason why there cannot be one here, or nullopt.
    static std::optional<std::string> missing();

    /// @return whether the window manager answers within 20 s
    bool start();
    /// As in DISPLAY; after start().
    const QString& display() const { return mDisplay; }

    /// Whether a window whose title begins so is on the screen.
    bool shows(const QString& title) const;
    /// The title of the window with the keyboard focus; empty: none has it.
    QString active() const;
    /// Presses and releases keys, as "ctrl+2", wherever the focus is.
    void press(const QString& keys) const;
    void minimizeActive() const;

    /// Waits until @p condition holds. @return whether it did within 10 s
    static bool await(const std::function<bool()>& condition);

private:
    /// Runs xdotool. @return its output without the last line break; nullopt: it failed
    std::optional<QString> tool(const QStringList& arguments) const;

    QTemporaryDir mFolder;
    QString mDisplay;
    std::unique_ptr<TestProcess> mServer;
    std::unique_ptr<TestProcess> mWindowManager;
};

} // namespace veltrano
