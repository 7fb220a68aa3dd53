// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/desktop/SessionBus.h"

#include <QDBusArgument>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThread>
#include <utility>

namespace veltrano {

namespace {

std::vector<std::string> daemonOf(const QString& folder, const QString& address) {
    const QString path = folder + QStringLiteral("/bus.conf");
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write("<busconfig><type>session</type><listen>" + address.toUtf8() +
                   "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow "
                   "receive_sender=\"*\"/>"
                   "<allow own=\"*\"/></policy></busconfig>");
    }
    return {"dbus-daemon", "--nofork", "--nopidfile", "--print-address=1",
            "--config-file=" + path.toStdString()};
}

QString textOf(const QVariant& value) {
    if (value.canConvert<QDBusArgument>()) {
        QStringList entries;
        const auto map = qdbus_cast<QVariantMap>(value);
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            entries.append(entry.key() + u'=' + entry.value().toString());
        return entries.join(u',');
    }
    const QString type = QString::fromLatin1(value.typeName());
    return type == QLatin1String("QString") ? u'"' + value.toString() + u'"'
                                            : type + u' ' + value.toString();
}

} // namespace

bool SessionBus::isInstalled() {
    return !QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty();
}

SessionBus::SessionBus(const QString& folder)
    : mAddress(QStringLiteral("unix:path=") + folder + QStringLiteral("/bus")),
      mOutput(folder + QStringLiteral("/bus.address")),
      mDaemon(daemonOf(folder, mAddress), {}, mOutput.toStdString()) {}

QDBusConnection SessionBus::connect(const QString& name) const {
    QElapsedTimer timer;
    timer.start();
    while (QFileInfo(mOutput).size() == 0 && timer.elapsed() < 10000) // said when it listens
        QThread::msleep(5);
    return QDBusConnection::connectToBus(mAddress, name);
}

RecordingService::RecordingService(QDBusConnection bus, const QString& name, Answer answer)
    : mBus(std::move(bus)), mName(name), mAnswer(std::move(answer)) {
    mBus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    mBus.registerService(mName);
}

RecordingService::~RecordingService() {
    mBus.unregisterService(mName);
    mBus.unregisterObject(QStringLiteral("/"));
}

bool RecordingService::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
    QStringList words{message.path(), message.interface() + u'.' + message.member()};
    for (const QVariant& argument : message.arguments())
        words.append(textOf(argument));
    calls.push_back(words.join(u' ').toStdString());
    mHeld.append(message);
    if (!mHolds) answerNow();
    return true;
}

void RecordingService::answerNow() {
    mHolds = false;
    for (const QDBusMessage& message : std::exchange(mHeld, {})) {
        if (!message.isReplyRequired()) continue;
        const auto answer = mAnswer(message.member());
        mBus.send(answer
                      ? message.createReply(*answer)
                      : message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
    }
}

} // namespace veltrano
