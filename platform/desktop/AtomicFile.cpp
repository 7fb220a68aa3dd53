// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written whole or not at all.
#include "platform/desktop/AtomicFile.h"

#include <QFileInfo>
#include <QSaveFile>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veltrano {

namespace {

/// A rename is on the disk only when its folder is.
void syncFolder(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return; // a folder that can be written but not listed
    ::fsync(descriptor);
    ::close(descriptor);
}

/// The file itself where @p path is a link, also one whose file is not there yet.
QString targetOf(const QString& path) {
    QString target = path;
    constexpr int kMostLinks = 40; // as the kernel has it
    for (int links = 0; links < kMostLinks; ++links) {
        const QFileInfo file(target);
        if (!file.isSymLink()) break;
        target = file.symLinkTarget();
    }
    return target;
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes) {
    const QString target = targetOf(QString::fromStdString(path));
    QSaveFile file(target);
    file.setDirectWriteFallback(false);
    const auto size = static_cast<qint64>(bytes.size());
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit();
    if (!isWritten) return file.errorString().toStdString();
    syncFolder(target);
    return std::nullopt;
}

FileStamp FileStamp::of(const std::string& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return {};
    return {true,           status.st_dev,         status.st_ino,
            status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

} // namespace veltrano
