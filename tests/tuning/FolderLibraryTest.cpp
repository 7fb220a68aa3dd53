// SPDX-License-Identifier: GPL-3.0-or-later
// Both libraries: which files they list, in which order, and what they answer.
#include "tests/tuning/TuningTestBase.h"

#include <cmath>
#include <sys/stat.h>
#include <unistd.h>

namespace veltrano {
namespace {

class LibraryTest : public TuningTestBase {
protected:
    MVTemperamentLibrary temperaments() { return MVTemperamentLibrary(path("T"), log); }
    MVStretchLibrary stretches() { return MVStretchLibrary(path("S"), log); }
    template <class Library>
    Texts fileNames(const Library& library) {
        Texts names;
        for (const auto& entry : library.entries())
            names.push_back(std::filesystem::path(entry.path).filename());
        return names;
    }
    RecordingPopUp menu;
};

TEST_F(LibraryTest, ScalaEntryIsNamedByItsFileAndSortedWithTheOthers) {
    write("T/z.temperament", temperamentFile("beta"));
    write("T/a.scl", scalaFile("a scale", "3/2\n"));
    write("T/b.temperament", temperamentFile("Gamma"));
    const auto library = temperaments();
    EXPECT_EQ(fileNames(library), (Texts{"a.scl", "z.temperament", "b.temperament"}));
    EXPECT_EQ(library.nameForFileName("a.scl"), "a.scl");
    EXPECT_EQ(library.descriptionForFileName("a.scl"), "a scale");
    EXPECT_EQ(library.pathForFileName("a.scl"), path("T/a.scl"));
    const CentTable cents = library.temperamentCentsForFileName("a.scl").value();
    EXPECT_EQ(cents[0], 1.0) << "ratios, not cents";
    EXPECT_EQ(cents[1], 1.5);
    EXPECT_EQ(cents[9], std::pow(2.0, 9 / 12.0));
}

TEST_F(LibraryTest, WhatIsListed) {
    const struct {
        const char* file;
        bool asTemperament;
        bool asStretch;
    } kCases[] = {
        {"plain.temperament", true, false},
        {"capitals.TEMPERAMENT", true, false},
        {"mixed.TemperaMent", true, false},
        {"capitals.SCL", true, false},
        {"below/deeper/sub.temperament", true, false},
        {".hidden.temperament", true, false},
        {".folder/in hidden.temperament", true, false},
        {"no extension", false, false},
        {"other.temperament.bak", false, false},
        {".temperament", false, false},
        {"plain.stretch", false, true},
        {"below/sub.stretch", false, true},
        {".hidden.stretch", false, true},
        {"capital.Stretch", false, false},
        {"capitals.STRETCH", false, false},
        {"stretch", false, false},
    };
    for (const auto& each : kCases) {
        const std::string file(each.file);
        const bool isScala = file.ends_with("SCL");
        for (const char* folder : {"T/", "S/"})
            write(folder + file, isScala ? scalaFile("x") : temperamentFile("x"));
    }
    const auto t = temperaments();
    const auto s = stretches();
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.file);
        EXPECT_EQ(t.objectForPath(path(std::string("T/") + each.file)) != nullptr,
                  each.asTemperament);
        EXPECT_EQ(s.objectForPath(path(std::string("S/") + each.file)) != nullptr, each.asStretch);
    }
    EXPECT_EQ(log.lines, Texts{}) << "what is not listed is not read";
}

TEST_F(LibraryTest, RefusedFilesAreSkippedAndTemperamentsLogged) {
    write("T/broken.temperament", "Name");
    write("T/wide.temperament", "\"C\"=\"-80\";");
    write("T/seven.scl", "x\n7\n");
    write("T/good.temperament", temperamentFile("good"));
    EXPECT_EQ(fileNames(temperaments()), Texts{"good.temperament"});
    EXPECT_EQ(log.lines, (Texts{"Temperament data is invalid.", std::string(kEditedOutOfRange)}));
    EXPECT_EQ(std::count(log.details.begin(), log.details.end(),
                         "not in the library: " + path("T/broken.temperament")),
              1);

    log.lines.clear();
    write("S/broken.stretch", "Name");
    write("S/wide.stretch", "\"C0\"=\"50.001\";");
    write("S/good.stretch", stretchFile("good"));
    EXPECT_EQ(fileNames(stretches()), Texts{"good.stretch"});
    EXPECT_EQ(log.lines, (Texts{"Stretch data is invalid.",
                                "Stretch offset is out of range. It has to be between -50 and +50 "
                                "cents."}));
}

TEST_F(LibraryTest, OnlyRegularFilesOfBoundedSizeAreRead) {
    write("T/good.temperament", temperamentFile("good"));
    ASSERT_EQ(::mkfifo(path("T/pipe.temperament").c_str(), 0600), 0);
    std::filesystem::create_directory(path("T/folder.temperament"));
    std::filesystem::create_symlink(path("T/good.temperament"), path("T/linked.temperament"));
    std::filesystem::create_symlink(path("nowhere"), path("T/dangling.temperament"));
    std::filesystem::create_symlink("/dev/zero", path("T/endless.scl"));
    write("elsewhere/far.temperament", temperamentFile("far"));
    std::filesystem::create_directory_symlink(path("elsewhere"), path("T/other"));
    std::filesystem::create_directory_symlink(path("T"), path("T/again"));
    for (const char* name : {"T/huge.temperament", "T/huge.scl"}) {
        write(name, "");
        std::filesystem::resize_file(path(name), kMaxTextFileBytes + 1);
    }
    EXPECT_EQ(fileNames(temperaments()), (Texts{"good.temperament", "linked.temperament"}));
    EXPECT_EQ(log.lines, Texts{});
    EXPECT_EQ(log.details, (Texts{path("T/huge.scl") + ": larger than 64 MB",
                                  path("T/huge.temperament") + ": larger than 64 MB"}));
}

TEST_F(LibraryTest, FolderIsReadAtTheFirstLookUpAndThenKept) {
    const auto library = temperaments();
    write("T/first.temperament", temperamentFile("first"));
    EXPECT_EQ(library.indexOfTemperamentWithFileName("first.temperament"), 0);
    write("T/second.temperament", temperamentFile("second"));
    EXPECT_EQ(library.indexOfTemperamentWithFileName("second.temperament"), std::nullopt);

    auto again = temperaments();
    again.loadTemperaments();
    std::filesystem::remove(path("T/first.temperament"));
    again.loadTemperaments();
    EXPECT_EQ(fileNames(again), Texts{"second.temperament"});
}

TEST_F(LibraryTest, MissingFolderIsAnEmptyList) {
    EXPECT_TRUE(temperaments().entries().empty());
    EXPECT_TRUE(stretches().entries().empty());
    EXPECT_EQ(log.lines, Texts{});
}

TEST_F(LibraryTest, LookUpsByFileName) {
    write("S/b.stretch", stretchFile("beta", 2.5));
    write("S/a.stretch", stretchFile("Alpha", -1.25));
    const auto library = stretches();
    EXPECT_EQ(library.indexOfStretchWithFileName("b.stretch"), 1);
    EXPECT_EQ(library.stretchFileNameAtIndex(0), "a.stretch");
    EXPECT_EQ(library.nameForFileName("a.stretch"), "Alpha");
    EXPECT_EQ(library.descriptionForFileName("a.stretch"), "about Alpha");
    EXPECT_EQ(library.stretchForFileName("b.stretch").value()[57], 2.5);
    EXPECT_EQ(library.objectForPath(path("S/a.stretch"))->stretch[57], -1.25);
    EXPECT_EQ(library.indexOfStretchWithFileName("c.stretch"), std::nullopt);
    EXPECT_EQ(library.stretchForFileName("c.stretch"), std::nullopt);
    EXPECT_EQ(library.nameForFileName("c.stretch"), "");
    EXPECT_EQ(library.descriptionForFileName("c.stretch"), "");
    EXPECT_EQ(library.pathForFileName("c.stretch"), "");
    EXPECT_EQ(library.objectForPath("a.stretch"), nullptr);

    write("T/b.temperament", temperamentFile("beta", "C", 7));
    const auto t = temperaments();
    EXPECT_EQ(t.temperamentFileNameAtIndex(0), "b.temperament");
    EXPECT_EQ(t.temperamentCentsForFileName("b.temperament").value()[0], 7);
    EXPECT_EQ(t.temperamentCentsForFileName("c.temperament"), std::nullopt);
}

TEST_F(LibraryTest, SameFileNameInTwoFoldersGivesTheFirstInTheList) {
    write("T/x/same.temperament", temperamentFile("Zulu"));
    write("T/y/same.temperament", temperamentFile("alpha"));
    EXPECT_EQ(temperaments().nameForFileName("same.temperament"), "alpha");
}

TEST_F(LibraryTest, NamesAreSortedInAnyCaseAndAnyLanguage) {
    write("T/1.temperament", temperamentFile("\u00C9tude"));
    write("T/2.temperament", temperamentFile("\u00E9tage"));
    write("T/3.temperament", temperamentFile("Beta"));
    write("T/4.temperament", temperamentFile("alpha"));
    write("T/5.temperament", "\"C\"=\"1\";");
    EXPECT_EQ(fileNames(temperaments()), (Texts{"5.temperament", "4.temperament", "3.temperament",
                                                "2.temperament", "1.temperament"}));
}

TEST_F(LibraryTest, LibraryOfOneEntry) {
    write("T/in folder.temperament", temperamentFile("in the folder"));
    auto t = temperaments();
    t.hold(*t.readScalaScaleFromFile(write("elsewhere/one.SCL", scalaFile("one"))));
    EXPECT_EQ(fileNames(t), Texts{"one.SCL"});
    auto s = stretches();
    s.hold(*s.stretchDataAtPath(write("elsewhere/one.stretch", stretchFile("one", 4))));
    EXPECT_EQ(s.stretchForFileName("one.stretch").value()[57], 4);
}

TEST_F(LibraryTest, PopUpOfAnEmptyFolderHoldsTheBuiltInItemAlone) {
    temperaments().updatePopUpButton(menu);
    EXPECT_EQ(menu.titles, Texts{"Equal Tempered"});
    EXPECT_EQ(menu.tips, Texts{"Equal Tempered.\ncents = (0.000, 0.000, 0.000, 0.000, 0.000, "
                               "0.000, 0.000, 0.000, 0.000, 0.000, 0.000, 0.000)"});
    EXPECT_FALSE(menu.isEnabled);

    RecordingPopUp stretchMenu;
    stretches().updatePopUpButton(stretchMenu);
    EXPECT_EQ(stretchMenu.titles, Texts{"None"});
    EXPECT_EQ(stretchMenu.tips, Texts{"No Stretch."});
    EXPECT_FALSE(stretchMenu.isEnabled);
}

TEST_F(LibraryTest, PopUpListsEntriesBehindASeparator) {
    write("T/1.temperament", temperamentFile("beta"));
    write("T/2.scl", scalaFile("a scale"));
    menu.addItem("left over", {});
    menu.setEnabled(false);
    temperaments().updatePopUpButton(menu);
    EXPECT_EQ(menu.titles, (Texts{"Equal Tempered", "-", "2.scl", "beta"}));
    EXPECT_EQ(menu.tips[2], "a scale");
    EXPECT_EQ(menu.tips[3], "about beta");
    EXPECT_TRUE(menu.isEnabled);
}

TEST_F(LibraryTest, DuplicateNamesAreLoggedAndLeftOutButStayInTheList) {
    write("T/1.temperament", temperamentFile("Same"));
    write("T/2.temperament", temperamentFile("Same"));
    write("T/3.temperament", temperamentFile("same"));
    write("T/4.temperament", temperamentFile("Equal Tempered"));
    const auto library = temperaments();
    library.updatePopUpButton(menu);
    EXPECT_EQ(menu.titles, (Texts{"Equal Tempered", "-", "Same", "same"}));
    EXPECT_EQ(log.lines, (Texts{"Duplicate Temperament name: \"Equal Tempered\". Please rename.",
                                "Duplicate Temperament name: \"Same\". Please rename."}));
    EXPECT_EQ(library.entries().size(), 4u);

    log.lines.clear();
    write("S/1.stretch", stretchFile("None"));
    RecordingPopUp stretchMenu;
    stretches().updatePopUpButton(stretchMenu);
    EXPECT_EQ(stretchMenu.titles, (Texts{"None", "-"}));
    EXPECT_TRUE(stretchMenu.isEnabled) << "two items, although one is a line";
    EXPECT_EQ(log.lines, Texts{"Duplicate Stretch name: \"None\". Please rename."});
}

TEST_F(LibraryTest, EntryWithoutANameIsTitledWithItsFileName) {
    write("T/nameless.temperament", "\"C\"=\"1\";");
    write("T/empty.temperament", temperamentFile(""));
    temperaments().updatePopUpButton(menu);
    EXPECT_EQ(menu.titles,
              (Texts{"Equal Tempered", "-", "nameless.temperament", "empty.temperament"}));
}

TEST_F(LibraryTest, UpdateTakesFilesDirectlyInTheFolderOnly) {
    write("T/a.temperament", temperamentFile("alpha"));
    auto library = temperaments();
    const auto update = [&](const std::string& file, const char* name) {
        return library.updateTemperament({name, "told", CentTable{1, 2, 3}, file});
    };
    EXPECT_FALSE(update(path("elsewhere/x.temperament"), "x"));
    EXPECT_FALSE(update(path("T/sub/x.temperament"), "x"));
    EXPECT_FALSE(update(path("x.temperament"), "x"));
    EXPECT_FALSE(update("", "x"));
    EXPECT_FALSE(update(path("T"), "x"));
    EXPECT_FALSE(update(path("T") + '/', "x"));
    EXPECT_EQ(library.entries().size(), 1u);

    EXPECT_TRUE(update(path("T/new.temperament"), "Aaa"));
    EXPECT_EQ(fileNames(library), (Texts{"new.temperament", "a.temperament"}));
    EXPECT_TRUE(update(path("T/new.temperament"), "beta"));
    EXPECT_EQ(fileNames(library), (Texts{"a.temperament", "new.temperament"}))
        << "the same file is the same entry, sorted anew";
    EXPECT_EQ(library.descriptionForFileName("new.temperament"), "told");
    EXPECT_EQ(library.temperamentCentsForFileName("new.temperament"), (CentTable{1, 2, 3}));
}

TEST_F(LibraryTest, UpdateBeforeTheFirstLookUpReadsTheFolderToo) {
    write("S/a.stretch", stretchFile("alpha"));
    auto library = stretches();
    EXPECT_TRUE(library.updateStretch({"beta", "told", StretchTable{5}, path("S/b.stretch")}));
    EXPECT_EQ(fileNames(library), (Texts{"a.stretch", "b.stretch"}));
    EXPECT_EQ(library.stretchForFileName("b.stretch").value()[0], 5);
}

TEST_F(LibraryTest, NeedlessSlashesMakeNoOtherFolder) {
    MVTemperamentLibrary library(path("T") + "//", log);
    EXPECT_EQ(library.folder(), path("T"));
    EXPECT_TRUE(library.updateTemperament({"x", "", {}, path("T") + "//x.temperament"}));
    EXPECT_EQ(library.pathForFileName("x.temperament"), path("T/x.temperament"));
}

TEST_F(LibraryTest, NormalisingLogsAndLeavesTheRowsBehindTheFailure) {
    CentTable cents{-10, 60, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0};
    temperaments().normalizeCents(cents, 0);
    EXPECT_EQ(cents, (CentTable{-15, 60, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0}));
    EXPECT_EQ(log.lines, Texts{std::string(kEditedOutOfRange)});
}

} // namespace
} // namespace veltrano
