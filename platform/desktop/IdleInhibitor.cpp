// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the screen from going dark.
#include "platform/desktop/IdleInhibitor.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <utility>

namespace veltrano {

namespace {

constexpr unsigned int kIdle = 8; ///< the portal's flag for an idle session

QString reason() { return IdleInhibitor::tr("Listening to a piano"); }

QDBusMessage portalCall() {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                               QStringLiteral("/org/freedesktop/portal/desktop"),
                                               QStringLiteral("org.freedesktop.portal.Inhibit"),
                                               QStringLiteral("Inhibit"));
    call << QString() << kIdle << QVariantMap{{QStringLiteral("reason"), reason()}};
    return call;
}

QDBusMessage screenSaverCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          QStringLiteral("org.freedesktop.ScreenSaver"), method);
}

} // namespace

IdleInhibitor::IdleInhibitor(QDBusConnection bus) : mBus(std::move(bus)) {}

IdleInhibitor::~IdleInhibitor() { withdraw(); }

void IdleInhibitor::setInhibits(bool inhibits) {
    if (std::exchange(mInhibits, inhibits) == inhibits || mIsAsking) return;
    askAgainOrWithdraw();
}

/// Brings what was granted in line with what is wanted now.
void IdleInhibitor::askAgainOrWithdraw() {
    const bool isGranted = !mRequest.isEmpty() || mCookie;
    if (mInhibits && !isGranted) {
        if (mBus.isConnected()) askPortal();
    } else if (!mInhibits) {
        withdraw();
    }
}

void IdleInhibitor::askPortal() {
    mIsAsking = true;
    auto* answer = new QDBusPendingCallWatcher(mBus.asyncCall(portalCall()), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> reply = *answer;
        if (reply.isError() && mInhibits) return askScreenSaver();
        mIsAsking = false;
        if (!reply.isError()) mRequest = reply.value().path();
        if (!mInhibits) withdraw(); // changed meanwhile
    });
}

void IdleInhibitor::askScreenSaver() {
    QDBusMessage call = screenSaverCall(QStringLiteral("Inhibit"));
    call << QStringLiteral("Veltrano") << reason();
    auto* answer = new QDBusPendingCallWatcher(mBus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<unsigned int> reply = *answer;
        mIsAsking = false;
        if (!reply.isError()) mCookie = reply.value();
        if (!mInhibits) withdraw();
    });
}

void IdleInhibitor::withdraw() {
    if (!mRequest.isEmpty()) {
        mBus.send(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.portal.Desktop"), std::exchange(mRequest, {}),
            QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
    }
    if (mCookie) {
        QDBusMessage call = screenSaverCall(QStringLiteral("UnInhibit"));
        call << *std::exchange(mCookie, std::nullopt);
        mBus.send(call);
    }
}

} // namespace veltrano
