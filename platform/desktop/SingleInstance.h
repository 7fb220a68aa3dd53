// SPDX-License-Identifier: GPL-3.0-or-later
// One running program for one set of settings.
#pragma once

#include <QLockFile>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QLocalServer;
class QLocalSocket;

namespace veltrano {

/// The first process of an identity is the running one; a later one hands its files over to it and
/// ends. A process that crashed leaves nothing that stands in the way.
///
/// Thread: main, with a QCoreApplication. Owns: a lock and a socket in the user's runtime folder,
/// both readable by this user alone.
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
    /// Gives @p files, whole paths in UTF-8, to the first process and waits until it has them;
    /// without files it is only asked to come to the front.
    /// @return false when it does not answer
    bool handOver(const Files& files) const;
    /// Who takes files, also those that came before. An empty list: come to the front.
    void setReceiver(std::function<void(const Files& files)> receiver);

private:
    void listen();
    void serve(QLocalSocket& socket);

    const QString mPath; ///< of the socket; the lock's has a suffix
    QLockFile mLock;
    std::unique_ptr<QLocalServer> mServer; ///< null: another process was first
    std::function<void(const Files&)> mReceiver;
    std::vector<Files> mWaiting; ///< until there is a receiver
};

} // namespace veltrano
