// SPDX-License-Identifier: GPL-3.0-or-later
// A private session bus, and services on it that answer as a test says.
#pragma once

#include "tests/support/TestProcess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// A bus daemon that starts no services. Ended with this object. Thread: main.
class SessionBus {
public:
    static bool isInstalled();
    /// @param folder outlives this
    explicit SessionBus(const QString& folder);

    /// Waits until it answers, 10 s at most; each name is a connection of its own.
    QDBusConnection connect(const QString& name) const;
    void kill() { mDaemon.kill(); }

private:
    const QString mAddress;
    const QString mOutput;
    TestProcess mDaemon;
};

/// A service that notes every call of any object as "path member arguments".
class RecordingService final : public QDBusVirtualObject {
public:
    /// Empty: an error.
    using Answer = std::function<std::optional<QVariant>(const QString& member)>;

    RecordingService(QDBusConnection bus, const QString& name, Answer answer);
    ~RecordingService() override;

    /// From now on answers wait for answerNow().
    void hold() { mHolds = true; }
    void answerNow();

    std::vector<std::string> calls;

    // QDBusVirtualObject
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    QDBusConnection mBus;
    const QString mName;
    const Answer mAnswer;
    bool mHolds = false;
    QList<QDBusMessage> mHeld;
};

} // namespace veltrano
