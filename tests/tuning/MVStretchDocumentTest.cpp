// SPDX-License-Identifier: GPL-3.0-or-later
// The table of a stretch document and its edits.
#include "tests/tuning/TuningTestBase.h"

namespace veltrano {
namespace {

constexpr std::string_view kOutOfRange =
    "Stretch offset is out of range. It has to be between -50 and +50 cents.";

class MVStretchDocumentTest : public TuningTestBase {
protected:
    MVStretchDocumentTest() { document.windowControllerDidLoadNib(editor.outlets()); }
    MVStretchDocument document{stretchPorts()};
};

TEST_F(MVStretchDocumentTest, NewDocumentHasNoStretch) {
    ASSERT_EQ(document.numberOfRows(), 12);
    ASSERT_EQ(document.numberOfOctaves(), 9);
    for (int row = 0; row < 12; ++row) {
        for (int octave = 0; octave < 9; ++octave)
            EXPECT_EQ(document.cell(row, octave), "\u00B10.000");
    }
    EXPECT_EQ(document.noteName(3), "Eb");
    EXPECT_EQ(document.fileType().name, "Veltrano Stretch");
    EXPECT_EQ(document.fileType().extension, "stretch");
}

TEST_F(MVStretchDocumentTest, EmptyTableIsNineBlocksOfTwelveLines) {
    std::string expected = "//  Stretch Table\n\n\"Name\"=\"\";\n\"Description\"=\"\";\n\n";
    for (int octave = 0; octave < 9; ++octave) {
        for (const char* note : {"C", "C#", "D", "Eb", "E", "F", "F#", "G", "G#", "A", "Bb", "B"})
            expected += '"' + std::string(note) + std::to_string(octave) + "\"=\"+0.000\";\n";
        expected += '\n';
    }
    EXPECT_EQ(document.data(), expected);
    EXPECT_EQ(document.dataRepresentationOfType("any"), expected);
}

TEST_F(MVStretchDocumentTest, CellsByRowAndOctave) {
    const struct {
        int row;
        int octave;
        std::size_t key;
    } kCases[] = {{0, 0, 0}, {9, 4, 57}, {11, 8, 107}, {0, 8, 96}, {11, 0, 11}};
    for (const auto& each : kCases) {
        document.setCell(each.row, each.octave, "1.5");
        EXPECT_EQ(document.stretchDoubles()[each.key], 1.5);
        EXPECT_EQ(document.cell(each.row, each.octave), "+1.500");
        document.undo();
        EXPECT_EQ(document.stretch(), StretchTable{});
    }
}

TEST_F(MVStretchDocumentTest, AcceptedTexts) {
    const struct {
        const char* text;
        double value;
        const char* shown;
    } kCases[] = {
        {"\u00B10.000", 0, "\u00B10.000"},
        {"-0.0001", -0.0001, "\u00B10.000"},
        {"50", 50, "+50.000"},
        {"-50", -50, "-50.000"},
        {"\u00B1-7", -7, "-7.000"},
        {"1,9", 1, "+1.000"},
        {"no number", 0, "\u00B10.000"},
        {"\u00B1", 0, "\u00B10.000"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.text);
        document.setCell(9, 4, each.text);
        EXPECT_EQ(document.stretchDoubles()[57], each.value);
        EXPECT_EQ(document.cell(9, 4), each.shown);
    }
    EXPECT_EQ(panels.beeps, 0);
    EXPECT_EQ(document.changeCount(), long(std::size(kCases)));
}

TEST_F(MVStretchDocumentTest, RefusedTextsBeep) {
    document.setCell(9, 4, "3");
    takePosted();
    int beeps = 0;
    for (const char* text : {"50.001", "-50.001", "1e999"}) {
        document.setCell(9, 4, text);
        EXPECT_EQ(panels.beeps, ++beeps) << text;
    }
    EXPECT_EQ(document.stretchDoubles()[57], 3);
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(takePosted(), Texts{});
}

TEST_F(MVStretchDocumentTest, EditMarksPostsAndRefreshes) {
    editor.table.refreshes = editor.graph.refreshes = 0;
    document.setCell(9, 4, "3");
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(takePosted(), Texts{kStretchEdited});
    EXPECT_EQ(postedStretch[57], 3);
    EXPECT_GE(editor.graph.refreshes, 1);
    EXPECT_GE(editor.table.refreshes, 1);
    document.undo();
    EXPECT_EQ(takePosted(), Texts{kStretchEdited});
    EXPECT_EQ(postedStretch[57], 0);
    EXPECT_EQ(document.changeCount(), 0);
    document.redo();
    EXPECT_EQ(document.stretchDoubles()[57], 3);
}

TEST_F(MVStretchDocumentTest, CutAndPaste) {
    editor.typeName(document, "grand");
    document.setCell(9, 4, "3");
    const std::string bytes = document.data();
    document.cut();
    EXPECT_EQ(pasteboard.contents,
              (decltype(pasteboard.contents){{"morvane.Stretch.PboardType", bytes}}));
    EXPECT_EQ(document.stretch(), StretchTable{});
    EXPECT_TRUE(document.isPastable());
    takePosted();
    document.paste();
    EXPECT_EQ(document.stretchDoubles()[57], 3);
    EXPECT_EQ(takePosted(), Texts{kStretchEdited});
    EXPECT_EQ(document.changeCount(), 4);
    document.undo();
    document.undo();
    EXPECT_EQ(document.stretchDoubles()[57], 3);
    EXPECT_EQ(document.history().redoName(), "Cut");
    document.deleteAll();
    EXPECT_EQ(document.stretch(), StretchTable{});
    EXPECT_EQ(document.changeCount(), 3);
    EXPECT_EQ(document.history().undoName(), "Delete");
}

TEST_F(MVStretchDocumentTest, RejectedPasteHasReplacedWhatCameBefore) {
    document.setCell(0, 0, "1");
    document.setCell(1, 0, "2");
    takePosted();
    pasteboard.write(kStretchPasteboardType, "\"C0\"=\"11\"; \"C#0\"=\"60\"; \"D0\"=\"13\";");
    editor.table.refreshes = 0;
    document.paste();
    EXPECT_EQ(document.stretchDoubles()[0], 11) << "no roll-back";
    EXPECT_EQ(document.stretchDoubles()[1], 2);
    EXPECT_EQ(document.stretchDoubles()[2], 0);
    EXPECT_EQ(log.lines, Texts{std::string(kOutOfRange)});
    EXPECT_EQ(document.changeCount(), 3);
    EXPECT_EQ(takePosted(), Texts{kStretchEdited});
    EXPECT_EQ(postedStretch[0], 11);
    EXPECT_EQ(editor.table.refreshes, 1) << "what is shown is what there is";
    EXPECT_EQ(document.history().undoName(), "Edit") << "no step of its own";
}

TEST_F(MVStretchDocumentTest, ReadingFiles) {
    const struct {
        const char* what;
        std::string bytes;
        bool isRead;
        double ofA4;
        Texts lines;
    } kCases[] = {
        {"missing keys are 0", "\"Name\"=\"n\";", true, 0, {}},
        {"other spellings are ignored", "\"Db4\"=\"9\"; \"A4\"=\"1\";", true, 1, {}},
        {"the limits", "\"A4\"=\"50\"; \"C0\"=\"-50\";", true, 50, {}},
        {"beyond the limit", "\"B8\"=\"50.001\";", false, 0, {std::string(kOutOfRange)}},
        {"bad syntax", "\"A4\"=\"1\"", false, 2, {"Stretch data is invalid."}},
        {"no UTF-8", "\"A4\"=\"\xff\";", false, 2, {"Stretch data is invalid."}},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.what);
        log.lines.clear();
        document.setCell(9, 4, "2");
        EXPECT_EQ(document.loadDataRepresentation(each.bytes, kStretchTypeName), each.isRead);
        EXPECT_EQ(document.stretchDoubles()[57], each.ofA4);
        EXPECT_EQ(log.lines, each.lines);
    }
}

TEST_F(MVStretchDocumentTest, FileFillsTheFields) {
    ASSERT_TRUE(document.loadDataRepresentation(stretchFile("grand", 1), kStretchTypeName));
    EXPECT_EQ(editor.name.shown, "grand");
    EXPECT_EQ(editor.description.shown, "about grand");
    EXPECT_EQ(document.name(), "grand");
}

} // namespace
} // namespace veltrano
