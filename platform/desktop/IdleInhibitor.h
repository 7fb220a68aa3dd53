// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the screen from going dark.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <optional>

class QDBusPendingCallWatcher;

namespace veltrano {

/// Whoever turns a pin has no hand for the keyboard, so the desktop would take the user for gone.
/// Asks the desktop's portal, and where there is none the screen saver, not to take the session for
/// idle. Without a session bus, or when both refuse, nothing happens.
///
/// Thread: main; no call waits. What was asked for ends with the connection, so a crash leaves
/// nothing behind.
class IdleInhibitor final : public QObject {
    Q_OBJECT
public:
    /// @param bus the session's, but for tests
    explicit IdleInhibitor(QDBusConnection bus = QDBusConnection::sessionBus());
    ~IdleInhibitor() override; ///< withdraws

    /// The same again does nothing.
    void setInhibits(bool inhibits);
    bool inhibits() const { return mInhibits; }

private:
    void askPortal();
    void askScreenSaver();
    void withdraw();
    void askAgainOrWithdraw();

    QDBusConnection mBus;
    bool mInhibits = false;
    bool mIsAsking = false;                ///< an answer is on its way
    QString mRequest;                      ///< object of the portal; empty: none
    std::optional<unsigned int> mCookie{}; ///< of the screen saver
};

} // namespace veltrano
