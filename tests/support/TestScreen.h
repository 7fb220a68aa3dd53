// SPDX-License-Identifier: GPL-3.0-or-later
// A private X screen with a window manager for one test program.
#pragma once

#include "tests/support/TestProcess.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
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

    /// Whether a window whose title begins so, a regular expression, is on the screen.
    bool shows(const QString& title) const;
    /// The title of the window with the keyboard focus; empty: none has it.
    QString active() const;
    /// Presses and releases keys, as "ctrl+2", wherever the focus is.
    void press(const QString& keys) const;
    /// Types a text of ASCII letters wherever the focus is.
    void type(const QString& text) const;
    /// Clicks with the main button.
    void click(QPoint at) const;
    void minimizeActive() const;

    /// Numbers of the windows on the screen whose title begins so; ".": of all with a title.
    QStringList windows(const QString& title) const;
    void minimize(const QString& window) const;
    void activate(const QString& window) const; ///< brings it back when it is minimized
    /// The window manager puts its frame there.
    void move(const QString& window, QPoint to) const;
    /// Where a window is, as the window manager has it.
    QRect place(const QString& window) const;

    /// Whether ImageMagick's import is there.
    static bool hasPictures();
    /// A picture of the whole screen. @return whether it was written
    bool takePicture(const QString& path) const;

    /// Waits until @p condition holds. @return whether it did within 10 s
    static bool await(const std::function<bool()>& condition);

private:
    /// Runs xdotool. @return its output without the last line break; nullopt: it failed
    std::optional<QString> tool(const QStringList& arguments) const;
    std::optional<QString> run(const QString& program, const QStringList& arguments) const;

    QTemporaryDir mFolder;
    QString mDisplay;
    std::unique_ptr<TestProcess> mServer;
    std::unique_ptr<TestProcess> mWindowManager;
};

} // namespace veltrano
