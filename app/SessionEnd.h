// SPDX-License-Identifier: GPL-3.0-or-later
// Hears of the end of the desktop's session.
#pragma once

#include <QObject>
#include <functional>

namespace veltrano {

/// Tells when the session manager is about to save or end the session, and when it asks the program
/// to quit. Without it Qt would close window by window, and each edited document would ask. A
/// session that is saved need not end: the user may go on. Thread: main, with a QApplication.
class SessionEnd final : public QObject {
    Q_OBJECT
public:
    /// @param mayEnd to write what must not be lost: the next thing may be that the windows are
    /// gone
    /// @param ends to quit, without a question
    SessionEnd(std::function<void()> mayEnd, std::function<void()> ends);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::function<void()> mEnds;
};

} // namespace veltrano
