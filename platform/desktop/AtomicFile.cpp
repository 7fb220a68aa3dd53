// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written whole or not at all.
#include "platform/desktop/AtomicFile.h"

#include <QFile>
#include <QSaveFile>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace veltrano {

namespace {

using Path = std::filesystem::path;

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr const char* kAccessList = "system.posix_acl_access";

/// The file itself where @p path is a link, also one whose file is not there yet. nullopt: the
/// links lead round in a circle.
std::optional<Path> targetOf(Path path) {
    constexpr int kMostLinks = 40; // as the kernel has it
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code error;
        const Path next = std::filesystem::read_symlink(path, error);
        if (error) return path;           // no link
        path = path.parent_path() / next; // an absolute one replaces the whole
    }
    return std::nullopt;
}

/// Why the file that is there must not be replaced. nullopt: it may be.
std::optional<std::string> refusalOf(const Path& target, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return std::strerror(EISDIR);
    if (!S_ISREG(status.st_mode)) return "no regular file";
    // Who may write everywhere has still protected the file that nobody may write.
    if ((status.st_mode & kAnyWrite) == 0) return std::strerror(EACCES);
    if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return std::strerror(errno);
    return std::nullopt;
}

/// Takes over the access control list, or removes the one that the folder hands down.
void keepAccessList(int descriptor, const Path& target) {
    std::array<char, 4096> list;
    const ssize_t size = ::getxattr(target.c_str(), kAccessList, list.data(), list.size());
    if (size > 0) {
        ::fsetxattr(descriptor, kAccessList, list.data(), static_cast<std::size_t>(size), 0);
    } else {
        ::fremovexattr(descriptor, kAccessList);
    }
}

/// Gives the new file owner, group and permissions of the old one, as far as the user may.
void keepAttributes(int descriptor, const Path& target, const struct stat& old) {
    const bool keepsGroup = ::fchown(descriptor, old.st_uid, old.st_gid) == 0 ||
                            ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) == 0;
    if (keepsGroup) {
        keepAccessList(descriptor, target); // QSaveFile has seen to the rest
    } else {
        // What the old group was allowed is not for another one.
        const mode_t others = old.st_mode & S_IRWXO;
        ::fchmod(descriptor, (old.st_mode & S_IRWXU) | others << 3 | others);
    }
}

/// Writes and waits for the disk: some systems tell only then that the bytes do not fit. nullopt:
/// they are there. Not by QSaveFile itself, which has no reason to give when some of them fitted.
std::optional<std::string> fill(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return std::strerror(errno);
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    const bool isOnDisk = ::fsync(descriptor) == 0 || errno == EINVAL; // cannot be asked for
    return isOnDisk ? std::nullopt : std::optional<std::string>(std::strerror(errno));
}

/// A rename is on the disk only when its folder is.
void syncFolder(const Path& target) {
    const Path folder = target.has_parent_path() ? target.parent_path() : Path(".");
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return; // a folder that can be written but not listed
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes) {
    const std::optional<Path> target = targetOf(path);
    if (!target) return std::strerror(ELOOP);
    struct stat old;
    const bool isThere = ::stat(target->c_str(), &old) == 0;
    if (isThere) {
        if (auto refusal = refusalOf(*target, old)) return refusal;
    }
    QSaveFile file(QString::fromStdString(target->string()));
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) return file.errorString().toStdString();
    if (isThere) keepAttributes(file.handle(), *target, old);
    if (auto failure = fill(file.handle(), bytes)) {
        file.cancelWriting();
        return failure;
    }
    errno = 0;
    if (!file.commit()) { // which does not always tell the reason
        return errno != 0 ? std::strerror(errno) : file.errorString().toStdString();
    }
    syncFolder(*target);
    return std::nullopt;
}

FileStamp FileStamp::of(const std::string& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return {};
    return {true,           status.st_dev,         status.st_ino,
            status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

} // namespace veltrano
