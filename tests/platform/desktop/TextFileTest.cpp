// SPDX-License-Identifier: GPL-3.0-or-later
// Which files are read, and that nothing else is waited for.
#include "platform/desktop/TextFile.h"

#include "tests/platform/desktop/DocumentRig.h"

#include <sys/stat.h>

namespace veltrano {
namespace {

using TextFileTest = DocumentRig;

/// What this process has read so far.
std::uint64_t bytesRead() {
    std::ifstream counts("/proc/self/io");
    std::string name;
    std::uint64_t bytes = 0;
    counts >> name >> bytes;
    EXPECT_EQ(name, "rchar:");
    return bytes;
}

TEST_F(TextFileTest, GivesEveryByte) {
    std::string bytes("\0\r\n\xFF\xEF\xBB\xBF", 7);
    for (int doubling = 0; doubling < 15; ++doubling)
        bytes += bytes; // more than one portion
    for (const std::string& each : {std::string(), std::string("a"), bytes}) {
        const TextFile file = readTextFile(files.file("x", each));
        ASSERT_TRUE(file.bytes);
        EXPECT_TRUE(*file.bytes == each) << each.size();
        EXPECT_EQ(file.error, "");
    }
}

TEST_F(TextFileTest, ReadsUpToTheLimitOnly) {
    EXPECT_EQ(kMaxTextFileBytes, 67108864u);
    const std::string path = files.file("x", "");
    std::filesystem::resize_file(path, kMaxTextFileBytes);
    const TextFile largest = readTextFile(path);
    ASSERT_TRUE(largest.bytes);
    EXPECT_EQ(largest.bytes->size(), kMaxTextFileBytes);

    std::filesystem::resize_file(path, kMaxTextFileBytes + 1);
    const TextFile over = readTextFile(path);
    EXPECT_FALSE(over.bytes);
    EXPECT_EQ(over.error, path + ": larger than 64 MB");
}

TEST_F(TextFileTest, DoesNotReadAFileThatIsTooLarge) {
    // A hole of 8 TB: reading it would take hours.
    const std::string path = files.file("x", "");
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{8} << 40, error);
    if (error) GTEST_SKIP() << "this file system has no files of 8 TB: " << error.message();
    const std::uint64_t before = bytesRead();
    EXPECT_EQ(readTextFile(path).error, path + ": larger than 64 MB");
    EXPECT_LT(bytesRead() - before, 1'000'000u);
}

TEST_F(TextFileTest, ReadsAFileThatDoesNotTellItsSize) {
    const TextFile file = readTextFile("/proc/self/maps"); // several portions, said to be empty
    ASSERT_TRUE(file.bytes);
    EXPECT_NE(file.bytes->find("[stack]"), std::string::npos);
    EXPECT_EQ(readTextFile("/proc/self/maps", 100).error, "/proc/self/maps: larger than 0 MB");
}

TEST_F(TextFileTest, RefusesAtOnceWhatIsNoReadableFile) {
    ASSERT_EQ(::mkfifo(files.path("fifo").c_str(), 0666), 0);
    std::filesystem::create_directory(files.path("folder"));
    std::filesystem::create_symlink(files.path("nowhere"), files.path("dangling"));
    std::filesystem::create_symlink("round", files.path("round"));
    ::chmod(files.file("secret", "x").c_str(), 0);
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {
        {files.path("fifo"), "no regular file"},
        {files.path("folder"), "no regular file"},
        {"/dev/zero", "no regular file"},
        {"/dev/tty", "no regular file"},
        {files.path("nothing"), "No such file or directory"},
        {files.path("dangling"), "No such file or directory"},
        {files.path("round"), "Too many levels of symbolic links"},
        {files.path("secret"), "Permission denied"},
        {files.path("secret") + "/x", "Not a directory"},
        {"", "No such file or directory"},
    };
    const AsNobody rights;
    for (const auto& [path, reason] : cases) {
        SCOPED_TRACE(path);
        const TextFile file = readTextFile(path);
        EXPECT_FALSE(file.bytes);
        EXPECT_EQ(file.error, path + ": " + reason);
    }
}

TEST_F(TextFileTest, FollowsALink) {
    files.file("x", "text");
    std::filesystem::create_symlink("x", files.path("link"));
    EXPECT_EQ(readTextFile(files.path("link")).bytes, "text");
}

} // namespace
} // namespace veltrano
