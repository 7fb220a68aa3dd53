// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop's settings say of light and dark.
#include "platform/desktop/DesktopColorScheme.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace veltrano {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

/// Some portals wrap the number once more.
ColorScheme schemeOf(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::dark;
    case 2:
        return ColorScheme::light;
    default:
        return ColorScheme::noPreference;
    }
}

} // namespace

DesktopColorScheme::DesktopColorScheme(std::function<void(ColorScheme)> changed,
                                       QDBusConnection bus)
    : mChanged(std::move(changed)), mBus(std::move(bus)) {
    if (!mBus.isConnected()) return;
    mBus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void DesktopColorScheme::ask() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    call << kGroup << kKey;
    auto* answer = new QDBusPendingCallWatcher(mBus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError()) mChanged(schemeOf(reply.value().variant()));
    });
}

void DesktopColorScheme::settingChanged(const QString& group, const QString& key,
                                        const QDBusVariant& value) {
    if (group == kGroup && key == kKey) mChanged(schemeOf(value.variant()));
}

} // namespace veltrano
