// SPDX-License-Identifier: GPL-3.0-or-later
// One running program for one set of settings.
#include "platform/desktop/SingleInstance.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>

namespace veltrano {

namespace {

constexpr int kPatienceMilliseconds = 5000;
constexpr int kRetryMilliseconds = 50;
constexpr char kTaken = '+'; ///< the answer

QString socketPath(const QString& identity) {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QDir::tempPath();
    const QByteArray hash =
        QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return folder + QStringLiteral("/veltrano-") + QString::fromLatin1(hash);
}

QStringList listOf(const SingleInstance::Files& files) {
    QStringList list;
    for (const std::string& file : files)
        list.append(QString::fromStdString(file));
    return list;
}

SingleInstance::Files filesOf(const QStringList& list) {
    SingleInstance::Files files;
    for (const QString& file : list)
        files.push_back(file.toStdString());
    return files;
}

/// The first process may be on its way to listening.
bool connectTo(QLocalSocket& socket, const QString& path, const QDeadlineTimer& deadline) {
    while (!deadline.hasExpired()) {
        socket.connectToServer(path);
        if (socket.waitForConnected(kRetryMilliseconds)) return true;
        QThread::msleep(kRetryMilliseconds);
    }
    return false;
}

} // namespace

SingleInstance::SingleInstance(const QString& identity)
    : mPath(socketPath(identity)), mLock(mPath + QStringLiteral(".lock")) {
    mLock.setStaleLockTime(0); // held for the whole life; one of a dead process is taken over
    if (mLock.tryLock()) listen();
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::listen() {
    mServer = std::make_unique<QLocalServer>();
    mServer->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(mServer.get(), &QLocalServer::newConnection, mServer.get(), [this] {
        while (QLocalSocket* socket = mServer->nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::readyRead, socket,
                             [this, socket] { serve(*socket); });
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
    QLocalServer::removeServer(mPath); // of a process that crashed: the lock is ours
    mServer->listen(mPath);            // when that fails, later processes run by themselves
}

void SingleInstance::serve(QLocalSocket& socket) {
    QDataStream stream(&socket);
    stream.startTransaction();
    QStringList list;
    stream >> list;
    if (!stream.commitTransaction()) return; // the rest is on its way
    socket.putChar(kTaken);
    socket.flush();
    if (mReceiver) {
        mReceiver(filesOf(list));
    } else {
        mWaiting.push_back(filesOf(list));
    }
}

bool SingleInstance::handOver(const Files& files) const {
    const QDeadlineTimer deadline(kPatienceMilliseconds);
    QLocalSocket socket;
    if (!connectTo(socket, mPath, deadline)) return false;
    QDataStream stream(&socket);
    stream << listOf(files);
    char answer = 0;
    while (!deadline.hasExpired() && socket.state() == QLocalSocket::ConnectedState) {
        if (socket.getChar(&answer)) break;
        socket.waitForReadyRead(kRetryMilliseconds);
    }
    if (answer == 0) socket.getChar(&answer);
    return answer == kTaken;
}

void SingleInstance::setReceiver(std::function<void(const Files&)> receiver) {
    mReceiver = std::move(receiver);
    if (!mReceiver) return;
    for (const Files& files : std::exchange(mWaiting, {}))
        mReceiver(files);
}

} // namespace veltrano
