// SPDX-License-Identifier: GPL-3.0-or-later
// The change count of a document, its undo and what its window is told.
#include "tests/platform/desktop/DocumentRig.h"

namespace veltrano {
namespace {

class DocumentEditsTest : public DocumentRig {
protected:
    static void perform(char letter, TextDocument& document) {
        switch (letter) {
        case 'e':
            document.setText(document.text + "x");
            break;
        case 't':
            document.setText(document.text + "h", 7);
            document.setText(document.text + "i", 7);
            break;
        case 'p':
            document.rejectPaste();
            break;
        case 'u':
            document.undo();
            break;
        case 'r':
            document.redo();
            break;
        case 's':
            EXPECT_TRUE(document.saveDocument());
            break;
        case 'v':
            EXPECT_TRUE(document.revertDocumentToSaved());
            break;
        default:
            FAIL() << letter;
        }
    }
};

TEST_F(DocumentEditsTest, CountsInBothDirections) {
    // s save, e edit, u undo, r redo, p rejected paste, t two letters of one run, v revert
    const struct {
        const char* what;
        const char* does;
        long count;
        bool isEdited;
    } cases[] = {
        {"nothing", "", 0, false},
        {"an edit", "e", 1, true},
        {"edited and undone", "eu", 0, false},
        {"redone", "eur", 1, true},
        {"nothing to undo", "u", 0, false},
        {"nothing to redo", "er", 1, true},
        {"saved", "ees", 0, false},
        {"undone past the saved state", "eesu", -1, true},
        {"twice", "eesuu", -2, true},
        {"and back", "eesuurr", 0, false},
        {"redone past the saved state", "eesuusr", 1, true},
        {"a run counts its letters", "t", 2, true},
        {"and is undone in one", "tu", 0, false},
        {"past the saved state", "tsu", -2, true},
        {"and back in one", "tsur", 0, false},
        {"a new step where the saved state was", "eesue", 0, true},
        {"whatever is undone then", "eesueu", -1, true},
        {"and redone", "eesueur", 0, true},
        {"until it is saved", "eesues", 0, false},
        {"and undone from there", "eesuesu", -1, true},
        {"or reverted", "eesuev", 0, false},
        {"two undone, one new, one more", "eesuuee", 0, true},
        {"a rejected paste", "p", 1, true},
        {"cannot be undone", "pu", 1, true},
        {"a rejected paste after an undo", "esup", 0, true},
        {"and after its redo", "esupr", 1, true},
        {"one before an undo", "espu", 0, true},
        {"saved", "esups", 0, false},
        {"a rejected paste, saved, then edited and undone", "pseu", 0, false},
    };
    for (const auto& [what, does, count, isEdited] : cases) {
        SCOPED_TRACE(what);
        auto document = openedWith("saved");
        panels.confirms = true;
        for (const char* each = does; *each; ++each)
            perform(*each, *document);
        EXPECT_EQ(document->changeCount(), count);
        EXPECT_EQ(document->isDocumentEdited(), isEdited);
        EXPECT_EQ(window.titles.back().ends_with("*"), isEdited);
        const bool isLostByClosing = document->text != contentsOf(document->path());
        EXPECT_TRUE(isEdited || !isLostByClosing);
    }
}

TEST_F(DocumentEditsTest, KindsOfChange) {
    TextDocument document(services());
    document.updateChangeCount(Document::ChangeKind::undone);
    EXPECT_EQ(document.changeCount(), -1);
    document.updateChangeCount(Document::ChangeKind::done);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_FALSE(document.isDocumentEdited());
    document.rejectPaste();
    document.updateChangeCount(Document::ChangeKind::cleared);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(int(Document::ChangeKind::done), 0);
    EXPECT_EQ(int(Document::ChangeKind::undone), 1);
}

TEST_F(DocumentEditsTest, UndoBringsTheValuesBack) {
    auto document = openedWith("saved");
    document->setText("one");
    document->setText("two");
    document->undo();
    EXPECT_EQ(document->text, "one");
    document->undo();
    EXPECT_EQ(document->text, "saved");
    document->redo();
    document->redo();
    EXPECT_EQ(document->text, "two");
    EXPECT_EQ(document->history().undoName(), "Typing");
}

TEST_F(DocumentEditsTest, TheWindowFollowsNameAndState) {
    const std::string a = files.file("a.text", "text");
    auto document = opened(a);
    EXPECT_EQ(window.titles.back(), "a.text [" + a + "]");
    document->setText("x");
    EXPECT_EQ(window.titles.back(), "a.text [" + a + "]*");
    document->undo();
    EXPECT_EQ(window.titles.back(), "a.text [" + a + "]");
    document->redo();
    EXPECT_EQ(window.titles.back(), "a.text [" + a + "]*");
    const std::string b = files.path("b.text");
    EXPECT_TRUE(document->saveToFile(b, Document::SaveOperation::saveAs));
    EXPECT_EQ(window.titles.back(), "b.text [" + b + "]");
    document->rejectPaste();
    EXPECT_EQ(window.titles.back(), "b.text [" + b + "]*");
}

TEST_F(DocumentEditsTest, AnUntitledOneHasNoExtension) {
    TextDocument document(services());
    EXPECT_EQ(document.displayName(), "Untitled");
    document.setWindow(std::make_unique<RecordingDocumentWindow>(window));
    EXPECT_EQ(window.titles.back(), "Untitled []");
    document.setUntitledName("Untitled 2");
    EXPECT_EQ(document.displayName(), "Untitled 2");
    EXPECT_EQ(window.titles.back(), "Untitled 2 []");
    EXPECT_EQ(document.path(), "");
}

TEST_F(DocumentEditsTest, PageSetupMarksTheDocumentChanged) {
    auto document = openedWith("text");
    document->runPageSetup(); // cancelled
    EXPECT_EQ(document->changeCount(), 0);
    PrintInfo letter;
    letter.paperWidth = 215.9;
    letter.isLandscape = true;
    window.pageSetup = letter;
    document->runPageSetup();
    EXPECT_EQ(document->printInfo(), letter);
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_TRUE(window.titles.back().ends_with("*"));
}

TEST_F(DocumentEditsTest, PrintsThroughItsWindow) {
    auto document = openedWith("text");
    document->printShowingPrintPanel(true);
    document->printShowingPrintPanel(false);
    EXPECT_EQ(window.printed, (std::vector<std::string>{"panel", "at once"}));
    document->setWindow(nullptr);
    EXPECT_FALSE(window.isOpen);
    document->printShowingPrintPanel(true); // without a window nothing happens
    document->runPageSetup();
    document->showWindow();
    EXPECT_EQ(window.printed.size(), 2u);
}

} // namespace
} // namespace veltrano
