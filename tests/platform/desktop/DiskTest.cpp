// SPDX-License-Identifier: GPL-3.0-or-later
// Saves on disks that are full or failing, and the order in which a save reaches the disk.
#include "platform/desktop/AtomicFile.h"
#include "tests/platform/desktop/DocumentRig.h"

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>

namespace {

/// What reached the disk since it was emptied.
std::vector<std::string> disk;
int fileSyncError = 0;
bool isListening = false;

} // namespace

// These stand in for the C library's in the whole program, Qt included.
extern "C" int fsync(int descriptor) {
    struct stat status {};
    const bool isFolder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    if (isListening) disk.emplace_back(isFolder ? "folder synced" : "file synced");
    if (!isFolder && fileSyncError != 0) {
        errno = fileSyncError;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

extern "C" int rename(const char* from, const char* to) noexcept {
    if (isListening) disk.emplace_back("renamed");
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0U));
}

namespace veltrano {
namespace {

class DiskTest : public DocumentRig {
protected:
    DiskTest() { disk.clear(); }
    ~DiskTest() override {
        isListening = false;
        fileSyncError = 0;
    }
};

TEST_F(DiskTest, TheBytesAreThereBeforeTheNameAndTheNameBeforeTheEnd) {
    const std::string path = files.file("a", "old");
    isListening = true;
    EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
    EXPECT_EQ(disk, (std::vector<std::string>{"file synced", "renamed", "folder synced"}));
}

TEST_F(DiskTest, ADiskThatFailsAtTheEndLeavesTheOldFile) {
    const std::string path = files.file("a", "old");
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
        SCOPED_TRACE(std::strerror(error));
        fileSyncError = error;
        EXPECT_EQ(writeFileAtomically(path, "new"), std::strerror(error));
        EXPECT_EQ(contentsOf(path), "old");
        EXPECT_EQ(files.names(), std::vector<std::string>{"a"});
    }
}

TEST_F(DiskTest, AFileSystemThatCannotBeAskedIsNoFailure) {
    fileSyncError = EINVAL;
    EXPECT_EQ(writeFileAtomically(files.path("a"), "new"), std::nullopt);
    EXPECT_EQ(contentsOf(files.path("a")), "new");
}

/// A disk of 256 KiB, seen by this process only.
class SmallDisk {
public:
    explicit SmallDisk(std::string folder) : mFolder(std::move(folder)) {
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("veltrano", mFolder.c_str(), "tmpfs", 0, "size=256k,mode=755") != 0)
            mError = std::strerror(errno);
    }
    ~SmallDisk() {
        if (mError.empty()) ::umount2(mFolder.c_str(), MNT_DETACH);
    }
    const std::string& error() const { return mError; } ///< empty: it is there

    std::uint64_t freeBytes() const {
        struct statvfs status {};
        ::statvfs(mFolder.c_str(), &status);
        return std::uint64_t{status.f_bavail} * status.f_bsize;
    }

private:
    const std::string mFolder;
    std::string mError;
};

TEST_F(DiskTest, AFullDiskLeavesTheOldFileAndTheDocumentEdited) {
    const std::string folder = files.path("disk");
    std::filesystem::create_directory(folder);
    const SmallDisk small(folder);
    if (!small.error().empty()) GTEST_SKIP() << "no disk can be mounted: " << small.error();
    const struct {
        std::size_t size;
        std::size_t room; ///< that is left for the save
    } cases[] = {{200'000, 0}, {200'000, 40'960}, {40, 0}};
    for (const auto& [size, room] : cases) {
        SCOPED_TRACE(std::to_string(size) + " bytes, room for " + std::to_string(room));
        const std::string old(size, 'o');
        auto document = opened(files.file("disk/a.text", old));
        document->setText(std::string(size, 'n'));
        fillFile(folder + "/filler", std::string(small.freeBytes() - room, 'f'));
        ASSERT_EQ(small.freeBytes(), room);

        panels.alerts.clear();
        EXPECT_FALSE(document->saveDocument());
        EXPECT_EQ(panels.alerts,
                  std::vector<std::string>{"“a.text” could not be saved.\n" + document->path() +
                                           ": No space left on device"});
        EXPECT_TRUE(contentsOf(document->path()) == old);
        EXPECT_TRUE(document->isDocumentEdited());
        EXPECT_EQ(document->path(), folder + "/a.text");
        EXPECT_FALSE(document->saveToFile(folder + "/b.text", Document::SaveOperation::saveAs));
        EXPECT_FALSE(std::filesystem::exists(folder + "/b.text"));
        EXPECT_EQ(document->path(), folder + "/a.text");

        std::filesystem::remove(folder + "/filler");
        panels.alerts.clear();
        if (size < 100) {
            EXPECT_TRUE(document->saveDocument()) << "there is room again";
        } else {
            EXPECT_FALSE(document->saveDocument()) << "there is no room for both";
        }
    }
    std::size_t left = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        left += entry.path().filename() != "a.text";
    EXPECT_EQ(left, 0u);
}

} // namespace
} // namespace veltrano
