// SPDX-License-Identifier: GPL-3.0-or-later
// Hears of the end of the desktop's session.
#pragma once

#include <QObject>
#include <functional>

namespace veltrano {

/// Calls a function when the session manager is about to end the session, or asks the program to
/// quit. Without it Qt would close window by window, and each edited document would ask. Thread:
/// main, with a QApplication.
class SessionEnd final : public QObject {
    Q_OBJECT
public:
    explicit SessionEnd(std::function<void()> ends);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::function<void()> mEnds;
};

} // namespace veltrano
