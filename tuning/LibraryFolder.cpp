// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/LibraryFolder.h"

#include "platform/desktop/ResourceFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <filesystem>
#include <unistd.h>

namespace veltrano {

namespace fs = std::filesystem;

namespace {

constexpr int kLockWaitMilliseconds = 10'000; ///< another program that fills it needs much less

QString named(const QString& folder, const LibraryFolderKind& kind) {
    const auto name = QString::fromUtf8(kind.name.data(), qsizetype(kind.name.size()));
    return QDir::cleanPath(folder + u'/' + name);
}

/// Copies one file so that the user may change the copy, and waits until it is on the disk.
bool copyFile(const QString& from, const QString& to) {
    std::error_code error;
    if (!fs::copy_file(from.toStdString(), to.toStdString(), error)) return false;
    fs::permissions(to.toStdString(), fs::perms::owner_read | fs::perms::owner_write,
                    fs::perm_options::add, error);
    QFile copy(to);
    return !error && copy.open(QIODevice::ReadWrite) && ::fsync(copy.handle()) == 0;
}

bool copyFolder(const QString& from, const QString& to) {
    if (!QDir().mkpath(to)) return false;
    const QDir source(from);
    QDirIterator files(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString target = to + u'/' + source.relativeFilePath(path);
        if (!QDir().mkpath(QFileInfo(target).path()) || !copyFile(path, target)) return false;
    }
    return true;
}

/// Makes @p folder with the contents of @p shipped, by one renaming at the end. What a program that
/// was ended meanwhile has left is taken away first.
bool makeFolder(const QString& folder, const QString& shipped) {
    const QFileInfo place(folder);
    if (!QFileInfo(shipped).isDir() || !QDir().mkpath(place.path())) return false;
    const QString filling =
        place.path() + QStringLiteral("/.") + place.fileName() + QStringLiteral(".new");
    QLockFile lock(filling + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockWaitMilliseconds)) return false;
    if (QFileInfo(folder).isDir()) return true; // made while this waited
    QDir(filling).removeRecursively();
    if (copyFolder(shipped, filling) && QDir().rename(filling, folder)) return true;
    QDir(filling).removeRecursively();
    return false;
}

} // namespace

LibraryPlaces LibraryPlaces::find() {
    return {.besideExecutable = QCoreApplication::applicationDirPath(),
            .userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                        QStringLiteral("/veltrano"),
            .shipped = ResourceFolder::find().path(),
            .home = QDir::homePath()};
}

std::string locateLibraryFolder(const LibraryFolderKind& kind, const LibraryPlaces& places,
                                Log& log, DocumentPanels* panels) {
    const QString beside = named(places.besideExecutable, kind);
    if (QFileInfo(beside).isDir()) return beside.toStdString();
    const QString folder = named(places.userData, kind);
    const QString shipped = named(places.shipped, kind);
    if (QFileInfo(folder).isDir() || makeFolder(folder, shipped)) return folder.toStdString();

    log.line("error: the " + std::string(kind.name) +
             " folder not found at: " + folder.toStdString());
    std::optional<std::string> chosen;
    if (panels) {
        const bool isShipped = QFileInfo(shipped).isDir();
        chosen = panels->chooseFolder({.title = {},
                                       .prompt = "Choose",
                                       .message = std::string(kind.message),
                                       .folder = (isShipped ? shipped : places.home).toStdString(),
                                       .types = {}});
    }
    return chosen.value_or(folder.toStdString());
}

} // namespace veltrano
