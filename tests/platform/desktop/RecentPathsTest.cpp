// SPDX-License-Identifier: GPL-3.0-or-later
// The files opened recently, and how they are kept between runs.
#include "tests/platform/desktop/DocumentControllerRig.h"

namespace veltrano {
namespace {

class RecentPathsTest : public DocumentControllerRig {
protected:
    /// What another run of the program would find.
    Lines found() {
        // A copy: settings on the same file share what is not written yet.
        const std::string copy = files.path("copy.ini");
        std::filesystem::remove(copy);
        if (std::filesystem::exists(files.path("defaults.ini")))
            std::filesystem::copy_file(files.path("defaults.ini"), copy);
        UserDefaults again(QString::fromStdString(copy));
        return DocumentController(services(), again).recentPaths();
    }
};

TEST_F(RecentPathsTest, NewestFirstWithoutDuplicates) {
    EXPECT_EQ(controller.recentPaths(), Lines{});
    for (const char* path : {"/a", "/b", "/a", "/c", "/c"})
        controller.noteRecentPath(path);
    EXPECT_EQ(controller.recentPaths(), (Lines{"/c", "/a", "/b"}));
    EXPECT_EQ(found(), (Lines{"/c", "/a", "/b"})) << "kept at once";
    EXPECT_TRUE(defaults.hasStored("recentDocuments"));
    controller.clearRecentPaths();
    EXPECT_EQ(controller.recentPaths(), Lines{});
    EXPECT_EQ(found(), Lines{});
}

TEST_F(RecentPathsTest, TenAtMost) {
    for (int number = 0; number < 12; ++number)
        controller.noteRecentPath("/" + std::to_string(number));
    EXPECT_EQ(controller.recentPaths(),
              (Lines{"/11", "/10", "/9", "/8", "/7", "/6", "/5", "/4", "/3", "/2"}));
}

TEST_F(RecentPathsTest, AnyCharacterSurvives) {
    Lines paths = {"/two\nlines\r",       "/a, b; c",         "/50 %25 #1?x=y&z",
                   "/\"quoted\" \\n 'x'", "/Stimmung ♯ 音 𝄞", "/ lead ",
                   "/host:80/@x",         "//twice",          "/a=b[1]{2}|~^`<>"};
    std::string controls = "/";
    for (char each = 1; each < 0x20; ++each)
        controls += each;
    paths.push_back(controls);
    for (auto path = paths.rbegin(); path != paths.rend(); ++path)
        controller.noteRecentPath(*path);
    EXPECT_EQ(controller.recentPaths(), paths);
    EXPECT_EQ(found(), paths);
}

TEST_F(RecentPathsTest, OpenedAndSavedFilesAreNoted) {
    const std::string a = files.file("a.text", "a");
    const std::string b = files.path("b.text");
    const std::string c = files.file("c.foreign", "c");
    TextDocument* document = open(a);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(found(), Lines{a});
    EXPECT_TRUE(document->saveToFile(b, Document::SaveOperation::saveAs));
    EXPECT_EQ(found(), (Lines{b, a}));
    open(c);
    EXPECT_EQ(found(), (Lines{c, b, a}));
    untitled().saveToFile(files.path("nowhere/x.text"), Document::SaveOperation::saveAs);
    EXPECT_EQ(found(), (Lines{c, b, a})) << "not saved";
}

TEST_F(RecentPathsTest, AFileThatIsGoneLeavesTheList) {
    const Lines gone = {files.path("gone.text"), files.path("gone.foreign"),
                        files.path("gone.txt")};
    const std::string bad = files.file("bad.text", "damaged");
    for (const std::string& path : gone) {
        controller.noteRecentPath(bad);
        controller.noteRecentPath(path);
        open(path);
        EXPECT_EQ(found(), Lines{bad}) << path;
    }
    open(bad);
    EXPECT_EQ(found(), Lines{bad}) << "it is still there, and may be repaired";
    open(files.path("never noted.text"));
    EXPECT_EQ(found(), Lines{bad});
}

} // namespace
} // namespace veltrano
