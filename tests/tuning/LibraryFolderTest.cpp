// SPDX-License-Identifier: GPL-3.0-or-later
// Where the library folders are, and how the user's own are made.
#include "tuning/LibraryFolder.h"
#include "platform/desktop/ResourceFolder.h"
#include "tests/tuning/TuningTestBase.h"

#include <QCoreApplication>
#include <QDir>
#include <QString>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace veltrano {
namespace {

namespace fs = std::filesystem;

class LibraryFolderTest : public TuningTestBase {
protected:
    LibraryPlaces places() const {
        const auto at = [this](const char* name) { return QString::fromStdString(path(name)); };
        return {at("program"), at("data/veltrano"), at("shipped"), at("home")};
    }
    std::string locate(const LibraryFolderKind& kind = kTemperamentsFolder) {
        return locateLibraryFolder(kind, places(), log, &panels);
    }
    void ship(std::string_view kind = "Temperaments") {
        const std::string folder = "shipped/" + std::string(kind) + '/';
        write(folder + "one.temperament", "first");
        write(folder + "below/two.scl", "second");
    }
};

TEST_F(LibraryFolderTest, FolderBesideTheExecutableIsUsedAsItIs) {
    ship();
    fs::create_directories(path("program/Temperaments"));
    fs::create_directories(path("data/veltrano/Temperaments"));
    EXPECT_EQ(locate(), path("program/Temperaments"));
    EXPECT_TRUE(fs::is_empty(path("program/Temperaments")));
}

TEST_F(LibraryFolderTest, UsersFolderIsMadeAndFilledOnce) {
    ship();
    fs::permissions(path("shipped/Temperaments/one.temperament"), fs::perms::owner_read);
    EXPECT_EQ(locate(), path("data/veltrano/Temperaments"));
    EXPECT_EQ(contents("data/veltrano/Temperaments/one.temperament"), "first");
    EXPECT_EQ(contents("data/veltrano/Temperaments/below/two.scl"), "second");
    EXPECT_NE(fs::status(path("data/veltrano/Temperaments/one.temperament")).permissions() &
                  fs::perms::owner_write,
              fs::perms::none)
        << "the user's own copy can be changed";

    fs::remove(path("data/veltrano/Temperaments/one.temperament"));
    EXPECT_EQ(locate(), path("data/veltrano/Temperaments"));
    EXPECT_FALSE(fs::exists(path("data/veltrano/Temperaments/one.temperament")))
        << "what the user threw away does not come back";
    EXPECT_EQ(std::distance(fs::directory_iterator(path("data/veltrano")), {}), 1)
        << "nothing else is left there";
    EXPECT_EQ(log.lines, Texts{});
    EXPECT_TRUE(panels.folderPanels.empty());
}

TEST_F(LibraryFolderTest, WhatAnEndedProgramLeftIsNotTakenForTheFolder) {
    ship();
    write("data/veltrano/.Temperaments.new/half.temperament", "half");
    EXPECT_EQ(locate(), path("data/veltrano/Temperaments"));
    EXPECT_EQ(contents("data/veltrano/Temperaments/half.temperament"), "(no file)");
    EXPECT_EQ(contents("data/veltrano/Temperaments/one.temperament"), "first");
    EXPECT_FALSE(fs::exists(path("data/veltrano/.Temperaments.new")));
}

TEST_F(LibraryFolderTest, UserIsAskedWhenThereIsNothingToFillItFrom) {
    panels.folders = {"/chosen/folder"};
    EXPECT_EQ(locate(), "/chosen/folder");
    EXPECT_EQ(log.lines, Texts{"error: the Temperaments folder not found at: " +
                               path("data/veltrano/Temperaments")});
    ASSERT_EQ(panels.folderPanels.size(), 1u);
    EXPECT_EQ(panels.folderPanels[0].prompt, "Choose");
    EXPECT_EQ(panels.folderPanels[0].message, "Choose the Temperaments folder");
    EXPECT_EQ(panels.folderPanels[0].folder, path("home"));
    EXPECT_FALSE(fs::exists(path("data")));
}

TEST_F(LibraryFolderTest, UserIsAskedWhenTheFolderCannotBeMade) {
    ship("Stretches");
    write("data/veltrano", "a file in its place");
    EXPECT_EQ(locate(kStretchesFolder), path("data/veltrano/Stretches"))
        << "the missing path stays after a cancel";
    EXPECT_EQ(log.lines, Texts{"error: the Stretches folder not found at: " +
                               path("data/veltrano/Stretches")});
    ASSERT_EQ(panels.folderPanels.size(), 1u);
    EXPECT_EQ(panels.folderPanels[0].message, "Choose the Streches folder");
    EXPECT_EQ(panels.folderPanels[0].folder, path("shipped/Stretches"));
}

TEST_F(LibraryFolderTest, NobodyIsAskedWithoutPanels) {
    EXPECT_EQ(locateLibraryFolder(kStretchesFolder, places(), log, nullptr),
              path("data/veltrano/Stretches"));
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(LibraryFolderTest, FileInThePlaceOfTheFolderIsLeftAlone) {
    ship();
    write("data/veltrano/Temperaments", "mine");
    locate();
    EXPECT_EQ(panels.folderPanels.size(), 1u);
    EXPECT_EQ(contents("data/veltrano/Temperaments"), "mine");
    EXPECT_EQ(std::distance(fs::directory_iterator(path("data/veltrano")), {}), 1);
}

TEST_F(LibraryFolderTest, PlacesOfTheRunningProgram) {
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments);
    const LibraryPlaces found = LibraryPlaces::find();
    EXPECT_EQ(found.besideExecutable, QCoreApplication::applicationDirPath());
    EXPECT_TRUE(found.userData.endsWith(QStringLiteral("/veltrano"))) << qPrintable(found.userData);
    EXPECT_EQ(found.shipped, ResourceFolder::find().path());
    EXPECT_EQ(found.home, QDir::homePath());
}

/// A child process fills the folder and is ended on the way; then nothing or everything is there.
TEST_F(LibraryFolderTest, EndedProgramLeavesAllOrNothing) {
    constexpr int kFiles = 40;
    for (int i = 0; i < kFiles; ++i)
        write("shipped/Temperaments/" + std::to_string(i) + ".temperament", std::string(9000, 'x'));
    std::mt19937 random(7);
    int wholes = 0;
    for (int round = 0; round < 40; ++round) {
        fs::remove_all(path("data"));
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            locateLibraryFolder(kTemperamentsFolder, places(), log, nullptr);
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(random() % 15'000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (!fs::exists(path("data/veltrano/Temperaments"))) continue;
        ++wholes;
        for (int i = 0; i < kFiles; ++i) {
            const std::string name = std::to_string(i) + ".temperament";
            ASSERT_EQ(contents("data/veltrano/Temperaments/" + name).size(), 9000u) << name;
        }
    }
    RecordProperty("whole", wholes);
    EXPECT_EQ(locate(), path("data/veltrano/Temperaments")) << "the next start finishes the work";
    EXPECT_EQ(std::distance(fs::directory_iterator(path("data/veltrano/Temperaments")), {}),
              kFiles);
}

} // namespace
} // namespace veltrano
