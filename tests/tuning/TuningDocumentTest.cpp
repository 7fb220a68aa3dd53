// SPDX-License-Identifier: GPL-3.0-or-later
// What both kinds of documents do alike, tried with temperaments: undo, the edit menu, texts,
// files.
#include "tests/tuning/TemperamentDocumentTestBase.h"

namespace veltrano {
namespace {

using Column = Temperament::Column;
using TuningDocumentTest = TemperamentDocumentTestBase;

TEST_F(TuningDocumentTest, UndoAndRedoBringValuesBackBitForBit) {
    auto& document = open(4);
    document.setCell(Column::hertz, 0, "327.66");
    document.setCell(Column::ratio, 1, "0.7738");
    document.setCell(Column::hertz, 2, "367.99");
    document.setCell(Column::ratio, 3, "0.8711");
    const Temperament before = document.values();
    Temperament recomputed = before;
    recomputed.updateHertz();
    ASSERT_NE(recomputed, before) << "values that only undo itself can bring back";
    recomputed.updateRatiosAndHertz();
    ASSERT_NE(recomputed.ratios(), before.ratios());
    document.setCell(Column::cent, 0, "12.3456789");
    const Temperament after = document.values();
    takePosted();
    const int refreshes = editor.table.refreshes;

    document.undo();
    EXPECT_EQ(document.values(), before);
    EXPECT_EQ(document.changeCount(), 4);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_EQ(postedCents, before.cents());
    EXPECT_GT(editor.table.refreshes, refreshes);
    document.redo();
    EXPECT_EQ(document.values(), after);
    EXPECT_EQ(document.changeCount(), 5);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_EQ(document.history().undoName(), "Edit");

    for (int step = 0; step < 5; ++step)
        document.undo();
    EXPECT_EQ(document.values(), Temperament(440, 4));
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(TuningDocumentTest, UndoLeavesRootKeyAndReferencePitchAsTheyAreNow) {
    auto& document = open();
    document.setCell(Column::cent, 0, "5");
    document.setCell(Column::cent, 0, "7");
    setTonic(7);
    setReferencePitch(442);
    document.undo();
    EXPECT_EQ(document.values().tonic(), 7);
    EXPECT_EQ(document.values().referencePitch(), 442);
    Temperament expected(440, 0);
    ASSERT_TRUE(expected.setCell(Column::cent, 0, "5"));
    expected.setReferencePitch(442);
    expected.setTonic(7);
    EXPECT_EQ(document.values(), expected);
}

TEST_F(TuningDocumentTest, DeleteClearsAndCutCopiesBefore) {
    auto& document = open();
    editor.typeName(document, "mine");
    document.setCell(Column::cent, 0, "5");
    takePosted();
    const std::string bytes = document.data();
    document.cut();
    EXPECT_EQ(pasteboard.contents,
              (decltype(pasteboard.contents){{"morvane.temperament.cents.PboardType", bytes}}));
    EXPECT_EQ(document.values(), Temperament(440, 0));
    EXPECT_EQ(editor.name.shown, "mine") << "the texts stay";
    EXPECT_EQ(document.changeCount(), 3);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_EQ(document.history().undoName(), "Cut");
    document.undo();
    EXPECT_EQ(document.temperamentCents()[0], 5);

    pasteboard.contents.clear();
    document.deleteAll();
    EXPECT_TRUE(pasteboard.contents.empty());
    EXPECT_EQ(document.history().undoName(), "Delete");
    EXPECT_EQ(document.temperamentCents(), CentTable{});
    EXPECT_EQ(postedCents, CentTable{});
}

TEST_F(TuningDocumentTest, CopyIsTheFile) {
    auto& document = open(2);
    document.setCell(Column::cent, 0, "5");
    document.copy();
    EXPECT_EQ(pasteboard.read("morvane.temperament.cents.PboardType"), document.data());
    EXPECT_EQ(document.data(), document.dataRepresentationOfType("anything"));
    EXPECT_EQ(document.changeCount(), 1) << "a copy is no change";
}

TEST_F(TuningDocumentTest, PasteTakesValuesAndLeavesTheFields) {
    auto& document = open();
    editor.typeName(document, "mine");
    pasteboard.write(kTemperamentPasteboardType, temperamentFile("theirs", "D", -7.5));
    const int refreshes = editor.table.refreshes;
    takePosted();
    document.paste();
    EXPECT_EQ(document.temperamentCents()[2], -7.5);
    EXPECT_EQ(document.name(), "mine");
    EXPECT_EQ(editor.name.shown, "mine");
    EXPECT_EQ(document.changeCount(), 2);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_GT(editor.table.refreshes, refreshes);
    EXPECT_EQ(document.history().undoName(), "Paste");
    document.undo();
    EXPECT_EQ(document.temperamentCents(), CentTable{});
    EXPECT_EQ(document.name(), "mine");
}

TEST_F(TuningDocumentTest, WithoutAWindowPastedTextsAreThoseOfTheDocument) {
    MVTemperamentDocument document(temperamentPorts());
    document.setName("mine");
    pasteboard.write(kTemperamentPasteboardType, temperamentFile("theirs"));
    document.paste();
    EXPECT_EQ(document.name(), "theirs");
    EXPECT_EQ(document.description(), "about theirs");
    document.undo();
    EXPECT_EQ(document.name(), "mine");
    EXPECT_EQ(document.description(), "");
    document.redo();
    EXPECT_EQ(document.name(), "theirs");
}

TEST_F(TuningDocumentTest, RejectedPasteMarksAndPostsWithoutAnUndoStep) {
    auto& document = open();
    document.setCell(Column::cent, 0, "5");
    const Temperament before = document.values();
    for (const char* bytes : {"this is no temperament at all, but long", "\"C\"=\"-99\";"}) {
        SCOPED_TRACE(bytes);
        takePosted();
        log.lines.clear();
        const long count = document.changeCount();
        pasteboard.write(kTemperamentPasteboardType, bytes);
        document.paste();
        EXPECT_EQ(document.values(), before);
        EXPECT_EQ(document.changeCount(), count + 1);
        EXPECT_EQ(takePosted(), Texts{kEdited});
        EXPECT_EQ(log.lines.size(), 1u);
    }
    EXPECT_EQ(document.history().undoName(), "Edit");

    pasteboard.contents.clear();
    document.paste();
    EXPECT_EQ(document.changeCount(), 4) << "also with nothing to paste";
    document.undo();
    EXPECT_EQ(document.values(), Temperament(440, 0));
    EXPECT_EQ(document.changeCount(), 3);
    EXPECT_TRUE(document.isDocumentEdited());
}

TEST_F(TuningDocumentTest, PastableIsMoreThan32BytesOfItsType) {
    auto& document = open();
    EXPECT_FALSE(document.isPastable());
    pasteboard.write(kTemperamentPasteboardType, std::string(32, ' '));
    EXPECT_FALSE(document.isPastable());
    pasteboard.write(kTemperamentPasteboardType, std::string(33, ' '));
    EXPECT_TRUE(document.isPastable());
    pasteboard.write(kStretchPasteboardType, std::string(99, ' '));
    EXPECT_FALSE(document.isPastable());
}

TEST_F(TuningDocumentTest, MenuItemsFollowTheDocument) {
    using enum TuningDocument::Command;
    auto& document = open();
    for (const auto command : {copy, cut, deleteAll, exportTemperament})
        EXPECT_TRUE(document.validateMenuItem(command));
    EXPECT_FALSE(document.validateMenuItem(paste));
    EXPECT_TRUE(document.validateMenuItem(saveDocument)) << "not yet saved";
    EXPECT_FALSE(document.validateMenuItem(revertDocumentToSaved));
    document.copy();
    EXPECT_TRUE(document.validateMenuItem(paste));
    document.setCell(Column::cent, 0, "5");
    EXPECT_FALSE(document.validateMenuItem(revertDocumentToSaved)) << "edited, but has no file";

    ASSERT_TRUE(document.saveToFile(path("x.temperament"), Document::SaveOperation::save));
    EXPECT_FALSE(document.validateMenuItem(saveDocument));
    EXPECT_FALSE(document.validateMenuItem(revertDocumentToSaved));
    document.setCell(Column::cent, 0, "6");
    EXPECT_TRUE(document.validateMenuItem(saveDocument));
    EXPECT_TRUE(document.validateMenuItem(revertDocumentToSaved));
}

TEST_F(TuningDocumentTest, PageSetupChangesNothingInTheEditedState) {
    auto& document = open();
    PrintInfo info;
    info.isLandscape = true;
    document.setPrintInfo(info);
    EXPECT_TRUE(document.printInfo().isLandscape);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_FALSE(document.isDocumentEdited());
    document.setCell(Column::cent, 0, "5");
    document.setPrintInfo({});
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(TuningDocumentTest, ChangeDoneRefreshesTheGraph) {
    auto& document = open();
    document.updateChangeCount(Document::ChangeKind::undone);
    document.updateChangeCount(Document::ChangeKind::cleared);
    EXPECT_EQ(editor.graph.refreshes, 0);
    document.updateChangeCount(Document::ChangeKind::done);
    EXPECT_EQ(editor.graph.refreshes, 1);
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(TuningDocumentTest, LettersOfOneFieldAreUndoneTogether) {
    auto& document = open();
    for (const char* text : {"A", "Ab", "Abc"})
        editor.typeName(document, text);
    for (const char* text : {"d", "de"})
        editor.typeDescription(document, text);
    EXPECT_EQ(document.changeCount(), 5);
    EXPECT_EQ(document.history().undoName(), "Typing");
    takePosted();

    document.undo();
    EXPECT_EQ(editor.description.shown, "");
    EXPECT_EQ(editor.name.shown, "Abc");
    EXPECT_EQ(document.changeCount(), 3);
    document.undo();
    EXPECT_EQ(editor.name.shown, "");
    EXPECT_FALSE(document.isDocumentEdited());
    document.redo();
    EXPECT_EQ(editor.name.shown, "Abc");
    EXPECT_EQ(document.changeCount(), 3);
    EXPECT_EQ(document.name(), "Abc");
}

TEST_F(TuningDocumentTest, AnotherEditOrASaveEndsTheRunOfLetters) {
    auto& document = open();
    editor.typeName(document, "A");
    document.setCell(Column::cent, 0, "5");
    editor.typeName(document, "Ab");
    document.undo();
    EXPECT_EQ(editor.name.shown, "A");
    document.redo();
    editor.typeName(document, "Abc");
    document.undo();
    EXPECT_EQ(editor.name.shown, "Ab") << "an undo ends it too";
    editor.typeName(document, "Abd");
    ASSERT_TRUE(document.saveToFile(path("x.temperament"), Document::SaveOperation::save));
    editor.typeName(document, "Abde");
    document.undo();
    EXPECT_EQ(editor.name.shown, "Abd");
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(TuningDocumentTest, FieldFilledByTheDocumentIsNoTyping) {
    auto& document = open();
    editor.typeName(document, "A");
    document.undo();
    document.controlTextDidChange(editor.name);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_TRUE(document.history().canRedo());
}

TEST_F(TuningDocumentTest, FileFillsTheFieldsNowOrWhenTheyCome) {
    MVTemperamentDocument document(temperamentPorts());
    ASSERT_TRUE(document.readFromFile(write("x.temperament", temperamentFile("old", "E", 3)),
                                      kTemperamentTypeName));
    EXPECT_EQ(document.name(), "old");
    EXPECT_EQ(document.description(), "about old");
    document.windowControllerDidLoadNib(editor.outlets());
    EXPECT_EQ(editor.name.shown, "old");
    EXPECT_EQ(editor.description.shown, "about old");
    EXPECT_GE(editor.table.refreshes, 1);

    editor.typeName(document, "typed");
    ASSERT_TRUE(document.loadDataRepresentation("\"Name\"=\"new\";", kTemperamentTypeName));
    EXPECT_EQ(editor.name.shown, "new");
    EXPECT_EQ(editor.description.shown, "");
    EXPECT_EQ(document.temperamentCents(), CentTable{});

    editor.typeName(document, "kept");
    document.windowControllerDidLoadNib({});
    EXPECT_EQ(document.name(), "kept") << "controls that go leave their texts";
}

TEST_F(TuningDocumentTest, NamelessFileLeavesTheFieldsOfANewWindowAlone) {
    MVTemperamentDocument document(temperamentPorts());
    editor.name.setText("as designed");
    document.windowControllerDidLoadNib(editor.outlets());
    EXPECT_EQ(editor.name.shown, "as designed");
}

TEST_F(TuningDocumentTest, RefusedFileChangesNothing) {
    auto& document = open();
    document.setCell(Column::cent, 0, "5");
    const Temperament before = document.values();
    EXPECT_FALSE(document.loadDataRepresentation("nonsense", kTemperamentTypeName));
    EXPECT_EQ(document.values(), before);
    EXPECT_EQ(log.lines, Texts{"Temperament data is invalid."});
}

TEST_F(TuningDocumentTest, RevertPostsTheSavedValues) {
    auto& document = open();
    ASSERT_TRUE(document.readFromFile(write("x.temperament", temperamentFile("old", "E", 3)),
                                      kTemperamentTypeName));
    document.setCell(Column::cent, 4, "9");
    takePosted();
    panels.confirms = true;
    ASSERT_TRUE(document.revertDocumentToSaved());
    EXPECT_EQ(document.temperamentCents()[4], 3);
    EXPECT_EQ(takePosted(), Texts{kEdited});
    EXPECT_EQ(postedCents[4], 3);

    document.setCell(Column::cent, 4, "9");
    takePosted();
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    ASSERT_TRUE(document.mayClose());
    EXPECT_EQ(takePosted(), Texts{kEdited}) << "so that the tuner takes them too";
    EXPECT_EQ(postedCents[4], 3);
}

/// Notes at its end whether its document was still whole.
template <class WholeDocument>
class PartingWindow final : public DocumentWindow {
public:
    PartingWindow(Document& document, bool& wasWhole) : mDocument(document), mWasWhole(wasWhole) {}
    ~PartingWindow() override { mWasWhole = dynamic_cast<WholeDocument*>(&mDocument) != nullptr; }
    void showWindow() override {}
    void setTitle(std::string_view, std::string_view, bool) override {}
    std::optional<PrintInfo> runPageSetup(const PrintInfo&) override { return {}; }
    void print(const PrintInfo&, bool) override {}

private:
    Document& mDocument;
    bool& mWasWhole;
};

template <class WholeDocument, class Ports>
bool windowEndsBeforeItsDocument(const Ports& ports) {
    bool wasWhole = false;
    auto document = std::make_unique<WholeDocument>(ports);
    document->setWindow(std::make_unique<PartingWindow<WholeDocument>>(*document, wasWhole));
    document.reset();
    return wasWhole;
}

TEST_F(TuningDocumentTest, WindowEndsBeforeItsDocument) {
    EXPECT_TRUE(windowEndsBeforeItsDocument<MVTemperamentDocument>(temperamentPorts()));
    EXPECT_TRUE(windowEndsBeforeItsDocument<MVStretchDocument>(stretchPorts()));
}

} // namespace
} // namespace veltrano
