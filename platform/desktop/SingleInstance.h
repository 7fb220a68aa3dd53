// SPDX-License-Identifier: GPL-3.0-or-later
// One running program for one set of settings.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QLocalServer;
class QLocalSocket;

namespace veltrano {

/// The first process of an identity is the running one; a later one hands its files over to it and
/// ends. A process that crashed leaves nothing that stands in the way. Where the user has no
/// runtime folder, or its path is too long for a socket, every process runs by itself.
///
/// Thread: main, with a QCoreApplication. Owns: a lock and a socket in the user's runtime folder,
/// both readable by this user alone. The lock's empty file stays.
class SingleInstance {
public:
    using Files = std::vector<std::string>;

    /// @param identity what two processes must not share, such as the path of the settings file
    explicit SingleInstance(const QString& identity);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Whether no other process was first. From then on files of later ones are taken.
    bool isFirst() const { return mServer != nullptr; }
    /// Gives @p files, whole paths in UTF-8, to the first process and waits until it has them, five
    /// seconds at most; without files it is only asked to come to the front.
    /// @return false when it does not answer: it has got nothing then. Where it ended meanwhile,
    /// this process is the first from now on.
    bool handOver(const Files& files);
    /// Who takes files, also those that came before. An empty list: come to the front. It is called
    /// from the event loop and may run one of its own.
    void setReceiver(std::function<void(const Files& files)> receiver);

private:
    void tryToBeFirst();
    bool listen();
    void greet(QLocalSocket& socket);
    void serve(QLocalSocket& socket);
    void deliver(const Files& files);

    const QString mPath; ///< of the socket; the lock's has a suffix; empty: no place for them
    bool mIsOtherFirst = false;
    int mLock = -1;                        ///< file; -1: not ours
    std::unique_ptr<QLocalServer> mServer; ///< null: not the first
    std::function<void(const Files&)> mReceiver;
    std::vector<Files> mWaiting; ///< until there is a receiver
};

} // namespace veltrano
