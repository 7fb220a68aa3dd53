// SPDX-License-Identifier: GPL-3.0-or-later
// What a save of a document tells the library, and whether the bytes read back.
#include "tests/tuning/TuningTestBase.h"

#include <cmath>

namespace veltrano {
namespace {

using Column = Temperament::Column;
using SaveOperation = Document::SaveOperation;

class DocumentSavingTest : public TuningTestBase {
protected:
    DocumentSavingTest() {
        write("T/other.temperament", temperamentFile("other"));
        write("S/other.stretch", stretchFile("other"));
        temperaments.loadTemperaments();
        stretches.loadStretches();
    }

    MVTemperamentLibrary temperaments{path("T"), log};
    MVStretchLibrary stretches{path("S"), log};
    MVTemperamentDocument document{temperamentPorts(&temperaments)};
    MVStretchDocument stretch{stretchPorts(&stretches)};
};

TEST_F(DocumentSavingTest, SavingIntoTheFolderListsTheDocumentOnceAndPosts) {
    document.setName("A new one");
    document.setDescriptionString("with words");
    document.setCell(Column::cent, 0, "5");
    takePosted();
    ASSERT_TRUE(document.saveToFile(path("T/new.temperament"), SaveOperation::saveAs));
    EXPECT_EQ(takePosted(), Texts{kSaved}) << "one save is one update";
    EXPECT_EQ(temperaments.entries().size(), 2u);
    const TemperamentEntry* entry = temperaments.objectForFileName("new.temperament");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "A new one");
    EXPECT_EQ(entry->description, "with words");
    EXPECT_EQ(entry->path, path("T/new.temperament"));
    EXPECT_EQ(entry->temperament, document.temperament()) << "the ratios, not the cents";
    EXPECT_NE(entry->temperament, document.temperamentCents());
    EXPECT_EQ(contents("T/new.temperament"), document.data());

    document.setCell(Column::cent, 0, "6");
    takePosted();
    ASSERT_TRUE(document.saveDocument());
    EXPECT_EQ(takePosted(), Texts{kSaved});
    EXPECT_EQ(temperaments.entries().size(), 2u);
    EXPECT_EQ(temperaments.temperamentCentsForFileName("new.temperament"), document.temperament());
}

TEST_F(DocumentSavingTest, SavedStretchIsListedWithItsOffsets) {
    stretch.setName("Aardvark");
    stretch.setCell(9, 4, "-1.5");
    takePosted();
    ASSERT_TRUE(stretch.saveToFile(path("S/new.stretch"), SaveOperation::saveAs));
    EXPECT_EQ(takePosted(), Texts{kStretchSaved});
    EXPECT_EQ(stretches.indexOfStretchWithFileName("new.stretch"), 0);
    EXPECT_EQ(stretches.stretchForFileName("new.stretch"), stretch.stretch());
    EXPECT_EQ(stretches.nameForFileName("new.stretch"), "Aardvark");
    EXPECT_EQ(contents("S/new.stretch"), stretch.data());
}

TEST_F(DocumentSavingTest, ANewDocumentIsOfferedTheFolderOfItsLibrary) {
    MVTemperamentDocument alone{temperamentPorts()};
    const std::pair<Document*, std::string> cases[] = {
        {&document, path("T")}, {&stretch, path("S")}, {&alone, ""}};
    for (const auto& [each, folder] : cases) {
        panels.savePanels.clear();
        EXPECT_FALSE(each->saveDocument()) << "cancelled";
        ASSERT_EQ(panels.savePanels.size(), 1u);
        EXPECT_EQ(panels.savePanels[0].folder, folder);
    }
    // One that has a file stays beside it.
    ASSERT_TRUE(document.saveToFile(path("x.temperament"), SaveOperation::saveAs));
    EXPECT_FALSE(document.saveDocumentAs());
    EXPECT_EQ(panels.savePanels.back().folder + "/x.temperament", path("x.temperament"));
}

TEST_F(DocumentSavingTest, FilesElsewhereChangeNoLibrary) {
    std::filesystem::create_directories(path("T/sub"));
    ASSERT_TRUE(document.saveToFile(path("T/sub/x.temperament"), SaveOperation::saveAs));
    ASSERT_TRUE(document.saveToFile(path("x.temperament"), SaveOperation::saveAs));
    EXPECT_EQ(takePosted(), Texts{});
    EXPECT_EQ(temperaments.entries().size(), 1u);
}

TEST_F(DocumentSavingTest, CopyTellsOfTheDocumentsOwnFile) {
    ASSERT_TRUE(document.saveToFile(path("T/copy.temperament"), SaveOperation::saveTo));
    EXPECT_EQ(takePosted(), Texts{}) << "an untitled document has no file to tell of";
    EXPECT_EQ(temperaments.objectForFileName("copy.temperament"), nullptr);

    ASSERT_TRUE(document.saveToFile(path("T/own.temperament"), SaveOperation::saveAs));
    document.setCell(Column::cent, 0, "5");
    takePosted();
    ASSERT_TRUE(document.saveToFile(path("elsewhere.temperament"), SaveOperation::saveTo));
    EXPECT_EQ(takePosted(), Texts{kSaved});
    EXPECT_EQ(temperaments.objectForFileName("elsewhere.temperament"), nullptr);
    EXPECT_EQ(temperaments.temperamentCentsForFileName("own.temperament"), document.temperament());
    EXPECT_EQ(document.changeCount(), 1) << "the own file is as it was";
}

TEST_F(DocumentSavingTest, WritingWithoutASaveOperationTellsOfTheFileWritten) {
    const std::string file = path("T/written.temperament");
    ASSERT_TRUE(document.writeToFile(file, kTemperamentTypeName, "", SaveOperation::saveTo));
    EXPECT_EQ(takePosted(), Texts{kSaved});
    EXPECT_NE(temperaments.objectForPath(file), nullptr);
    EXPECT_FALSE(
        document.writeToFile(path("T/no/x"), kTemperamentTypeName, "", SaveOperation::saveTo));
    EXPECT_EQ(takePosted(), Texts{});
}

TEST_F(DocumentSavingTest, FailedSaveTellsNothing) {
    EXPECT_FALSE(document.saveToFile(path("T/missing/x.temperament"), SaveOperation::saveAs));
    EXPECT_EQ(takePosted(), Texts{});
    EXPECT_EQ(temperaments.entries().size(), 1u);
    EXPECT_EQ(panels.alerts.size(), 1u);

    ASSERT_TRUE(document.saveToFile(path("T/own.temperament"), SaveOperation::saveAs));
    takePosted();
    EXPECT_FALSE(document.saveToFile(path("T/missing/x.temperament"), SaveOperation::saveTo));
    EXPECT_EQ(takePosted(), Texts{}) << "nor of the file it has";
}

TEST_F(DocumentSavingTest, RefusedRevertKeepsWhatNoFileCanHold) {
    ASSERT_TRUE(stretch.readFromFile(write("a.stretch", stretchFile("saved")), kStretchTypeName));
    stretch.setCell(0, 0, "1.23456789");
    stretch.setName("two\rlines"); // does not read back
    ASSERT_TRUE(document.readFromFile(write("a.temperament", temperamentFile("saved")),
                                      kTemperamentTypeName));
    document.setCell(Column::hertz, 0, "262.1234567890123");
    const StretchTable offsets = stretch.stretchDoubles();
    const Temperament values = document.values();
    takePosted();

    panels.confirms = true;
    write("a.stretch", "\"C0\"=\"7\"; \"D0\"=\"51\";"); // C0 is taken before D0 is refused
    EXPECT_FALSE(stretch.revertDocumentToSaved());
    EXPECT_EQ(stretch.stretchDoubles(), offsets);
    EXPECT_EQ(stretch.name(), "two\rlines");
    write("a.temperament", "nonsense");
    EXPECT_FALSE(document.revertDocumentToSaved());
    EXPECT_EQ(document.values(), values);
    EXPECT_EQ(panels.alerts.size(), 2u);
    EXPECT_EQ(takePosted(), Texts{}) << "nothing has changed";
    EXPECT_EQ(stretch.changeCount(), 1);
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(DocumentSavingTest, WithoutALibraryNothingIsTold) {
    MVTemperamentDocument alone(temperamentPorts());
    ASSERT_TRUE(alone.saveToFile(path("T/x.temperament"), SaveOperation::saveAs));
    MVStretchDocument stretchAlone(stretchPorts());
    ASSERT_TRUE(stretchAlone.saveToFile(path("S/x.stretch"), SaveOperation::saveAs));
    EXPECT_EQ(takePosted(), Texts{});
}

class ReadingBackTest : public DocumentSavingTest {
protected:
    /// Whether @p each is saved, through the panel, without a question.
    bool saves(Document& each) {
        const std::string file = path(std::to_string(++mFiles) + '.' + each.fileType().extension);
        panels.asked.clear();
        panels.savePaths = {file};
        const bool isSaved = each.saveDocumentAs();
        EXPECT_EQ(panels.asked.size(), isSaved ? 0u : 1u);
        EXPECT_EQ(std::filesystem::exists(file), isSaved) << "the default answer is no";
        return isSaved;
    }

private:
    int mFiles = 0;
};

TEST_F(ReadingBackTest, OrdinaryDocumentsAreSavedWithoutAQuestion) {
    document.setName("with \"quotes\", \\ and\nlines");
    document.setDescriptionString("\ttabs\r\n");
    for (int row = 0; row < 12; ++row)
        document.setCell(Column::ratio, row, fixedDecimals(std::pow(2.0, (row - 8.9) / 12), 15));
    EXPECT_TRUE(saves(document));

    stretch.setName("with \"quotes\", \\ and\nlines");
    stretch.setCell(0, 0, "0.0004999");
    stretch.setCell(9, 4, "-49.9996");
    EXPECT_TRUE(saves(stretch));
}

TEST_F(ReadingBackTest, TonicThatShiftsValuesOutOfRangeIsAskedAbout) {
    setTonic(7);
    // Row 9 is E now; the file counts from it.
    document.setCell(Column::cent, 9, "-40");
    document.setCell(Column::cent, 0, "30");
    EXPECT_FALSE(saves(document));
    panels.confirms = true;
    panels.savePaths = {path("anyway.temperament")};
    EXPECT_TRUE(document.saveDocumentAs());
    EXPECT_EQ(contents("anyway.temperament"), document.data()) << "the bytes stay as they are";
}

TEST_F(ReadingBackTest, OtherTonicInRangeIsSaved) {
    setTonic(7);
    document.setCell(Column::cent, 9, "-10");
    document.setCell(Column::cent, 0, "30");
    EXPECT_TRUE(saves(document));
}

TEST_F(ReadingBackTest, OtherTonicWhoseShiftBackLeavesTheRangeIsAskedAbout) {
    document.setCell(Column::cent, 2, "50");
    document.setCell(Column::cent, 3, "-50");
    setTonic(7); // the file itself is in range: 0 0 50 -50 ...
    EXPECT_FALSE(saves(document));
}

TEST_F(ReadingBackTest, CarriageReturnInAStretchNameIsAskedAbout) {
    stretch.setName("two\rlines");
    EXPECT_FALSE(saves(stretch));
    document.setName("two\rlines");
    EXPECT_TRUE(saves(document)) << "a temperament's comment leaves it out";
}

TEST_F(ReadingBackTest, LineSeparatorInANameEndsTheComment) {
    stretch.setName("two\u2028lines");
    EXPECT_FALSE(saves(stretch));
    document.setName("two\u2029lines");
    EXPECT_FALSE(saves(document));
}

TEST_F(ReadingBackTest, TextsCannotSlipKeysIn) {
    stretch.setName("\" \"Name\"=\"other");
    EXPECT_TRUE(saves(stretch)) << "quotes in a text end nothing";
    document.setName("x\n\"Name\"=\"other\";");
    EXPECT_TRUE(saves(document)) << "nor does a line break in the comment";
    stretch.setName("x\r\"Name\"=\"first\";\r//");
    EXPECT_TRUE(saves(stretch)) << "a key that occurs twice has its last value";
}

TEST_F(ReadingBackTest, OtherTextsAndValuesAreNoticed) {
    document.setName("a");
    document.setCell(Column::cent, 0, "1.0000000004");
    stretch.setName("a");
    stretch.setCell(0, 0, "1.0004");
    const struct {
        const char* what;
        const char* bytes;
        bool asTemperament;
        bool asStretch;
    } kCases[] = {
        {"the same", "\"Name\"=\"a\"; \"C\"=\"1\"; \"C0\"=\"1\";", true, true},
        {"name", "\"Name\"=\"b\"; \"C\"=\"1\"; \"C0\"=\"1\";", false, false},
        {"no name", "\"C\"=\"1\"; \"C0\"=\"1\";", false, false},
        {"description", "\"Name\"=\"a\"; \"Description\"=\"d\"; \"C\"=\"1\"; \"C0\"=\"1\";", false,
         false},
        {"value of a temperament", "\"Name\"=\"a\"; \"C\"=\"1.000000002\"; \"C0\"=\"1\";", false,
         true},
        {"value of a stretch", "\"Name\"=\"a\"; \"C\"=\"1\"; \"C0\"=\"1.002\";", true, false},
        {"last row", "\"Name\"=\"a\"; \"C\"=\"1\"; \"C0\"=\"1\"; \"B\"=\"1\"; \"B8\"=\"1\";", false,
         false},
        {"bad syntax", "\"Name\"=\"a\"", false, false},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.what);
        EXPECT_EQ(document.readsBack(each.bytes), each.asTemperament);
        EXPECT_EQ(stretch.readsBack(each.bytes), each.asStretch);
    }
}

} // namespace
} // namespace veltrano
