// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written whole or not at all, and what stays of the file that was there.
#include "platform/desktop/AtomicFile.h"

#include "tests/platform/desktop/DocumentRig.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace veltrano {
namespace {

class AtomicFileTest : public DocumentRig {
protected:
    AtomicFileTest() : mMask(::umask(022)) {}
    ~AtomicFileTest() override { ::umask(mMask); }

    static struct stat statusOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
        return status;
    }
    static mode_t modeOf(const std::string& path) { return statusOf(path).st_mode & 07777; }

private:
    const mode_t mMask;
};

TEST_F(AtomicFileTest, WritesEveryByte) {
    const std::string small("\0\r\n\xFF", 4);
    const std::string large(5'000'000, 'x');
    for (const std::string& bytes : {small, large, std::string(), small}) {
        EXPECT_EQ(writeFileAtomically(files.path("a"), bytes), std::nullopt);
        EXPECT_TRUE(contentsOf(files.path("a")) == bytes) << bytes.size();
    }
    EXPECT_EQ(files.names(), std::vector<std::string>{"a"});
}

TEST_F(AtomicFileTest, WritesNamesWithAnyCharacter) {
    for (const char* name : {"two\nlines", "a,b;c", "50 %", "Stimmung ♯ 音", "-n", " ", "a.b.c"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(writeFileAtomically(files.path(name), "text"), std::nullopt);
        EXPECT_EQ(contentsOf(files.path(name)), "text");
    }
    EXPECT_EQ(files.names().size(), 7u);
}

TEST_F(AtomicFileTest, ANewFileGetsThePermissionsOfTheUser) {
    const struct {
        mode_t mask, mode;
    } cases[] = {{022, 0644}, {027, 0640}, {077, 0600}, {0, 0666}};
    for (const auto& [mask, mode] : cases) {
        SCOPED_TRACE(mask);
        ::umask(mask);
        EXPECT_EQ(writeFileAtomically(files.path("a"), "text"), std::nullopt);
        EXPECT_EQ(modeOf(files.path("a")), mode);
        std::filesystem::remove(files.path("a"));
    }
}

TEST_F(AtomicFileTest, AFileKeepsItsPermissions) {
    for (const mode_t mode : {0600u, 0644u, 0664u, 0666u, 0755u, 0606u}) {
        SCOPED_TRACE(mode);
        const std::string path = files.file("a", "old");
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
        EXPECT_EQ(modeOf(path), mode);
        std::filesystem::remove(path);
    }
}

TEST_F(AtomicFileTest, AFileKeepsItsOwnerAndGroup) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
    const std::string path = files.file("a", "old");
    ASSERT_EQ(::chown(path.c_str(), 4711, 4712), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0664), 0);
    EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
    EXPECT_EQ(statusOf(path).st_uid, 4711u);
    EXPECT_EQ(statusOf(path).st_gid, 4712u);
    EXPECT_EQ(modeOf(path), 0664u);
}

TEST_F(AtomicFileTest, AnotherGroupGetsNoRightsOfTheOldOne) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can make a file of a foreign group";
    std::filesystem::permissions(files.folder(), std::filesystem::perms(0777));
    const std::string path = files.file("a", "old");
    ASSERT_EQ(::chown(path.c_str(), 4711, 4712), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0676), 0); // everybody may write, the group may run it, too
    {
        const AsNobody rights;
        EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
    }
    EXPECT_NE(statusOf(path).st_gid, 4712u);
    EXPECT_EQ(modeOf(path), 0666u);
}

/// An access control list as the kernel keeps it: user 4711 may read.
std::string accessList() {
    struct Entry {
        std::uint16_t tag, permissions;
        std::uint32_t id;
    };
    constexpr std::uint32_t kVersion = 2, kNoId = 0xFFFFFFFF;
    constexpr Entry kEntries[] = {
        {1, 6, kNoId}, {2, 4, 4711}, {4, 4, kNoId}, {16, 4, kNoId}, {32, 0, kNoId}};
    std::string bytes(sizeof kVersion + sizeof kEntries, '\0');
    std::memcpy(bytes.data(), &kVersion, sizeof kVersion);
    std::memcpy(bytes.data() + sizeof kVersion, kEntries, sizeof kEntries);
    return bytes;
}

std::string accessListOf(const std::string& path) {
    std::array<char, 1000> list;
    const ssize_t size =
        ::getxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size());
    return {list.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

bool setList(const std::string& path, const char* name) {
    const std::string list = accessList();
    return ::setxattr(path.c_str(), name, list.data(), list.size(), 0) == 0;
}

TEST_F(AtomicFileTest, AFileKeepsItsAccessList) {
    const std::string path = files.file("a", "old");
    if (!setList(path, "system.posix_acl_access")) {
        GTEST_SKIP() << "this file system has no access lists: " << std::strerror(errno);
    }
    EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
    EXPECT_EQ(accessListOf(path), accessList());
    EXPECT_EQ(modeOf(path), 0640u);
}

TEST_F(AtomicFileTest, AFileWithoutAnAccessListGetsNoneFromItsFolder) {
    const std::string path = files.file("a", "old");
    if (!setList(files.folder(), "system.posix_acl_default")) {
        GTEST_SKIP() << "this file system has no access lists: " << std::strerror(errno);
    }
    EXPECT_EQ(writeFileAtomically(path, "new"), std::nullopt);
    EXPECT_EQ(accessListOf(path), "");
    EXPECT_EQ(writeFileAtomically(files.path("b"), "new"), std::nullopt);
    EXPECT_NE(accessListOf(files.path("b")), "") << "a new file gets it";
}

TEST_F(AtomicFileTest, ALinkGoesOnPointingAtItsFile) {
    namespace fs = std::filesystem;
    fs::create_directories(files.path("real/deep"));
    fs::create_directory(files.path("links"));
    files.file("real/file", "old");
    fs::create_directory_symlink("../real/deep", files.path("links/folder"));
    const struct {
        const char* what;
        const char* link;
        const char* pointsAt;
        const char* written;
    } cases[] = {
        {"relative", "links/relative", "../real/file", "real/file"},
        {"to a link", "links/second", "relative", "real/file"},
        {"its file is not there yet", "links/early", "../real/new", "real/new"},
        {"up from a linked folder", "links/folder/up", "../upper", "real/upper"},
        {"beside it", "beside", "target", "target"},
    };
    for (const auto& [what, link, pointsAt, written] : cases) {
        SCOPED_TRACE(what);
        fs::create_symlink(pointsAt, files.path(link));
        EXPECT_EQ(writeFileAtomically(files.path(link), what), std::nullopt);
        EXPECT_EQ(fs::read_symlink(files.path(link)), pointsAt);
        EXPECT_EQ(contentsOf(files.path(written)), what);
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(files.path(written))));
    }
    fs::create_symlink(files.path("real/file"), files.path("absolute"));
    EXPECT_EQ(writeFileAtomically(files.path("absolute"), "absolute"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(files.path("absolute")));
    EXPECT_EQ(contentsOf(files.path("real/file")), "absolute");
}

TEST_F(AtomicFileTest, RefusesWhatIsNoRegularFile) {
    namespace fs = std::filesystem;
    fs::create_directory(files.path("folder"));
    ASSERT_EQ(::mkfifo(files.path("fifo").c_str(), 0666), 0);
    fs::create_symlink("round", files.path("round"));
    fs::create_symlink("fifo", files.path("link")); // a device of the system is put at no risk
    const auto before = files.names();
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {
        {files.path("folder"), "Is a directory"},
        {files.path("fifo"), "no regular file"},
        {files.path("round"), "Too many levels of symbolic links"},
        {files.path("link"), "no regular file"},
        {files.path("nowhere/a"), "No such file or directory"},
    };
    for (const auto& [path, reason] : cases) {
        SCOPED_TRACE(path);
        EXPECT_EQ(writeFileAtomically(path, "text"), reason);
    }
    EXPECT_EQ(files.names(), before);
    EXPECT_TRUE(fs::is_fifo(files.path("fifo")));
    EXPECT_TRUE(fs::is_symlink(files.path("round")));
}

TEST_F(AtomicFileTest, RefusesAFileThatIsProtected) {
    const std::string path = files.file("a", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(writeFileAtomically(path, "new"), "Permission denied");
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    if (::geteuid() == 0) {
        std::filesystem::permissions(files.folder(), std::filesystem::perms(0777));
        const AsNobody rights;
        EXPECT_EQ(writeFileAtomically(path, "new"), "Permission denied") << "another's file";
    }
    EXPECT_EQ(contentsOf(path), "old");
}

TEST_F(AtomicFileTest, SaysWhyAFileCannotTakeThePlaceOfTheOldOne) {
    // There is no room for the name that the new file bears meanwhile.
    const std::string longest(255, 'n');
    EXPECT_EQ(writeFileAtomically(files.file(longest, "old"), "new"), "File name too long");
    EXPECT_EQ(contentsOf(files.path(longest)), "old");
    EXPECT_EQ(writeFileAtomically(files.path(longest + "n"), "new"), "File name too long");
    EXPECT_EQ(files.names(), Lines{longest});

    if (::geteuid() != 0) GTEST_SKIP() << "the rest needs another's file";
    // Everybody may write the file, but only its owner may replace it in such a folder.
    const std::string path = files.file("a", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(files.folder().c_str(), 01777), 0);
    const AsNobody rights;
    EXPECT_EQ(writeFileAtomically(path, "new"), "Operation not permitted");
    EXPECT_EQ(contentsOf(path), "old");
    EXPECT_EQ(files.names(), (Lines{"a", longest}));
}

/// No file of this process can be larger, while it lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &mBefore);
        const rlimit limit{bytes, mBefore.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &mBefore);
        std::signal(SIGXFSZ, mHandler);
    }

private:
    rlimit mBefore{};
    void (*const mHandler)(int) = std::signal(SIGXFSZ, SIG_IGN); // it would end the process
};

TEST_F(AtomicFileTest, AFileThatDoesNotFitLeavesTheOldOne) {
    const std::string path = files.file("a", "old");
    for (const std::size_t size : {std::size_t{2000}, std::size_t{1} << 20}) {
        SCOPED_TRACE(size); // within one portion of writing, and more
        const FileSizeLimit limit(1000);
        EXPECT_EQ(writeFileAtomically(path, std::string(size, 'x')), "File too large");
        EXPECT_EQ(writeFileAtomically(files.path("b"), std::string(size, 'x')), "File too large");
    }
    EXPECT_EQ(contentsOf(path), "old");
    EXPECT_EQ(files.names(), std::vector<std::string>{"a"}) << "nothing is left lying about";
}

TEST_F(AtomicFileTest, StampsTellFilesApart) {
    const std::string path = files.file("a", "text");
    const FileStamp stamp = FileStamp::of(path);
    EXPECT_TRUE(stamp.exists);
    EXPECT_EQ(stamp.bytes, 4);
    EXPECT_EQ(stamp, FileStamp::of(path));
    std::filesystem::create_symlink("a", files.path("link"));
    EXPECT_EQ(stamp, FileStamp::of(files.path("link"))) << "the file counts, not the way to it";
    EXPECT_NE(stamp, FileStamp::of(files.file("b", "text")));
    EXPECT_EQ(writeFileAtomically(path, "text"), std::nullopt);
    EXPECT_NE(stamp, FileStamp::of(path)) << "the same bytes, written anew";
    EXPECT_FALSE(FileStamp::of(files.path("nothing")).exists);
}

} // namespace
} // namespace veltrano
