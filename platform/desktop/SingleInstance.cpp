// SPDX-License-Identifier: GPL-3.0-or-later
// One running program for one set of settings.
#include "platform/desktop/SingleInstance.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace veltrano {

namespace {

constexpr int kPatienceMilliseconds = 5000;
constexpr int kRetryMilliseconds = 50;
constexpr qsizetype kLongestMessage = 8 << 20; ///< [bytes] more than a command line may hold
// What the first process says. A later one tells nothing before the greeting, so that one that
// hangs does not come back to files that are being worked on elsewhere.
constexpr char kGreeting = '?';
constexpr char kTaken = '+';

QString socketPath(const QString& identity) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) return {};
    const QByteArray hash =
        QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return folder + QStringLiteral("/veltrano-") + QString::fromLatin1(hash);
}

/// Each path ends with a NUL, the message with an empty path.
QByteArray messageOf(const SingleInstance::Files& files) {
    QByteArray message;
    for (const std::string& file : files)
        message.append(file.data(), qsizetype(file.size())).append('\0');
    return message.append('\0');
}

qsizetype endOf(const QByteArray& message) {
    if (message.startsWith('\0')) return 0;
    const qsizetype lastPath = message.indexOf(QByteArrayView("\0\0", 2));
    return lastPath < 0 ? -1 : lastPath + 1;
}

/// Nullopt when it is none of ours.
std::optional<SingleInstance::Files> filesOf(const QByteArray& paths) {
    SingleInstance::Files files;
    for (qsizetype at = 0; at < paths.size();) {
        const qsizetype end = paths.indexOf('\0', at);
        files.push_back(paths.mid(at, end - at).toStdString());
        if (files.back().front() != '/') return std::nullopt;
        at = end + 1;
    }
    return files;
}

bool hears(QLocalSocket& socket, char wanted, const QDeadlineTimer& deadline) {
    while (socket.bytesAvailable() == 0) {
        if (deadline.hasExpired() || socket.state() != QLocalSocket::ConnectedState) return false;
        socket.waitForReadyRead(kRetryMilliseconds);
    }
    char heard = 0;
    return socket.getChar(&heard) && heard == wanted;
}

} // namespace

SingleInstance::SingleInstance(const QString& identity) : mPath(socketPath(identity)) {
    tryToBeFirst();
}

SingleInstance::~SingleInstance() {
    mServer.reset(); // its socket goes while the lock still keeps others from making theirs
    if (mLock >= 0) ::close(mLock);
}

/// The system lets a lock go with its process, however that ended.
void SingleInstance::tryToBeFirst() {
    mIsOtherFirst = false;
    if (mPath.isEmpty()) return;
    const QByteArray path = QFile::encodeName(mPath) + ".lock";
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return;
    const bool isLocked = ::flock(file, LOCK_EX | LOCK_NB) == 0;
    mIsOtherFirst = !isLocked && errno == EWOULDBLOCK;
    if (isLocked && listen()) {
        mLock = file;
    } else {
        ::close(file);
    }
}

bool SingleInstance::listen() {
    mServer = std::make_unique<QLocalServer>();
    mServer->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(mServer.get(), &QLocalServer::newConnection, mServer.get(), [this] {
        while (QLocalSocket* socket = mServer->nextPendingConnection())
            greet(*socket);
    });
    QLocalServer::removeServer(mPath); // of a process that crashed: the lock is ours
    if (!mServer->listen(mPath)) mServer.reset();
    return isFirst();
}

void SingleInstance::greet(QLocalSocket& socket) {
    QObject::connect(&socket, &QLocalSocket::readyRead, &socket,
                     [this, &socket] { serve(socket); });
    QObject::connect(&socket, &QLocalSocket::disconnected, &socket, &QObject::deleteLater);
    socket.putChar(kGreeting);
    socket.flush();
}

void SingleInstance::serve(QLocalSocket& socket) {
    const QByteArray message = socket.peek(kLongestMessage);
    const qsizetype end = endOf(message);
    if (end < 0 && message.size() < kLongestMessage) return; // the rest is on its way
    QObject::disconnect(&socket, &QLocalSocket::readyRead, nullptr, nullptr);
    const auto files = end < 0 ? std::nullopt : filesOf(message.left(end));
    if (files) {
        socket.putChar(kTaken);
        // The receiver may open a panel; the socket must not be in the midst of a call then.
        QMetaObject::invokeMethod(
            mServer.get(), [this, files = *files] { deliver(files); }, Qt::QueuedConnection);
    }
    socket.disconnectFromServer();
}

void SingleInstance::deliver(const Files& files) {
    if (mReceiver) {
        mReceiver(files);
    } else {
        mWaiting.push_back(files);
    }
}

bool SingleInstance::handOver(const Files& files) {
    const QDeadlineTimer deadline(kPatienceMilliseconds);
    const QByteArray message = messageOf(files);
    while (mIsOtherFirst && !deadline.hasExpired()) {
        QLocalSocket socket;
        socket.connectToServer(mPath);
        if (socket.waitForConnected(kRetryMilliseconds) && hears(socket, kGreeting, deadline)) {
            socket.write(message);
            if (hears(socket, kTaken, deadline)) return true;
        }
        QThread::msleep(kRetryMilliseconds); // it may be on its way to listening
        tryToBeFirst();                      // or have ended
    }
    return false;
}

void SingleInstance::setReceiver(std::function<void(const Files&)> receiver) {
    mReceiver = std::move(receiver);
    if (!mReceiver) return;
    for (const Files& files : std::exchange(mWaiting, {}))
        mReceiver(files);
}

} // namespace veltrano
