// SPDX-License-Identifier: GPL-3.0-or-later
// Reading a document's file, reverting to it and closing.
#include "tests/platform/desktop/DocumentRig.h"

namespace veltrano {
namespace {

using Answer = DocumentPanels::SaveAnswer;

using DocumentCloseTest = DocumentRig;

constexpr const char* kRevertQuestion =
    "confirm? Do you want to revert to the saved version of “a.text”?";

TEST_F(DocumentCloseTest, ReadsItsFile) {
    auto document = openedWith("text");
    EXPECT_EQ(document->text, "text");
    EXPECT_EQ(document->path(), files.path("a.text"));
    EXPECT_EQ(document->displayName(), "a.text");
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentCloseTest, AFileThatIsRefusedBelongsToNobody) {
    TextDocument document(services());
    document.setText("mine");
    EXPECT_FALSE(document.readFromFile(files.path("nothing"), "Test Text"));
    EXPECT_EQ(log.details, Lines{files.path("nothing") + ": No such file or directory"});
    EXPECT_EQ(log.lines, Lines{}) << "no text of the fixed ones";
    EXPECT_FALSE(document.readFromFile(files.file("bad", "damaged"), "Test Text"));
    EXPECT_EQ(document.path(), "");
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_TRUE(document.history().canUndo());
}

TEST_F(DocumentCloseTest, RevertAsksAndForgetsTheEdits) {
    auto document = openedWith("saved");
    document->setText("edited");
    EXPECT_FALSE(document->revertDocumentToSaved());
    EXPECT_EQ(document->text, "edited");
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_EQ(panels.asked, Lines{kRevertQuestion});

    panels.confirms = true;
    files.file("a.text", "by another"); // what is on disk counts
    EXPECT_TRUE(document->revertDocumentToSaved());
    EXPECT_EQ(document->text, "by another");
    EXPECT_EQ(document->changeCount(), 0);
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_FALSE(document->history().canUndo());
    EXPECT_EQ(document->happened, Lines{"reverted to by another"});
    EXPECT_FALSE(window.titles.back().ends_with("*"));
    panels.asked.clear();
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(panels.asked, Lines{}) << "the change by another is known now";
}

TEST_F(DocumentCloseTest, RevertNeedsAFile) {
    TextDocument document(services());
    document.setText("mine");
    panels.confirms = true;
    EXPECT_FALSE(document.revertDocumentToSaved());
    EXPECT_EQ(panels.asked, Lines{});
    EXPECT_EQ(document.text, "mine");
}

TEST_F(DocumentCloseTest, AFileThatCannotBeRevertedToChangesNothing) {
    for (const bool isGone : {false, true}) {
        SCOPED_TRACE(isGone);
        auto document = openedWith("saved");
        document->setText("edited");
        files.file("a.text", "damaged");
        if (isGone) std::filesystem::remove(files.path("a.text"));
        panels.confirms = true;
        panels.alerts.clear();
        EXPECT_FALSE(document->revertDocumentToSaved());
        EXPECT_EQ(panels.alerts.size(), 1u);
        EXPECT_EQ(document->text, "edited");
        EXPECT_EQ(document->changeCount(), 1);
        EXPECT_EQ(document->happened, Lines{});
        document->undo();
        EXPECT_EQ(document->text, "saved");
    }
}

TEST_F(DocumentCloseTest, ClosingAsksAboutEditsOnly) {
    const struct {
        const char* what;
        bool isEdited;
        Answer answer;
        bool mayClose;
        Lines asked;
        std::string onDisk;
        std::string inDocument;
        Lines happened;
    } cases[] = {
        {"not edited", false, Answer::cancel, true, {}, "saved", "saved", {}},
        {"cancel", true, Answer::cancel, false, {"save? a.text"}, "saved", "edited", {}},
        {"save", true, Answer::save, true, {"save? a.text"}, "edited", "edited", {"saved"}},
        {"discard",
         true,
         Answer::discard,
         true,
         {"save? a.text"},
         "saved",
         "saved",
         {"reverted to saved"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        auto document = openedWith("saved");
        if (each.isEdited) document->setText("edited");
        panels.asked.clear();
        panels.saveAnswer = each.answer;
        EXPECT_EQ(document->mayClose(), each.mayClose);
        EXPECT_EQ(panels.asked, each.asked);
        EXPECT_EQ(contentsOf(document->path()), each.onDisk);
        EXPECT_EQ(document->text, each.inDocument);
        EXPECT_EQ(document->happened, each.happened);
    }
}

TEST_F(DocumentCloseTest, AnUntitledOneIsDiscardedAsItIs) {
    TextDocument document(services());
    document.setText("mine");
    panels.saveAnswer = Answer::discard;
    EXPECT_TRUE(document.mayClose());
    EXPECT_EQ(panels.asked, Lines{"save? Untitled"});
    EXPECT_EQ(document.happened, Lines{});
}

TEST_F(DocumentCloseTest, AnUntitledOneStaysWhenItsSavePanelIsCancelled) {
    TextDocument document(services());
    document.setText("mine");
    panels.saveAnswer = Answer::save;
    EXPECT_FALSE(document.mayClose());
    EXPECT_EQ(panels.savePanels.size(), 1u);
}

TEST_F(DocumentCloseTest, AFailedSaveKeepsItOpen) {
    auto document = openedWith("saved");
    document->setText("edited");
    std::filesystem::permissions(document->path(), std::filesystem::perms(0444));
    panels.saveAnswer = Answer::save;
    EXPECT_FALSE(document->mayClose());
    EXPECT_EQ(panels.alerts.size(), 1u);
    EXPECT_TRUE(document->isDocumentEdited());
}

TEST_F(DocumentCloseTest, DiscardingClosesAlsoWhenTheFileIsGone) {
    auto document = openedWith("saved");
    document->setText("edited");
    std::filesystem::remove(document->path());
    panels.saveAnswer = Answer::discard;
    EXPECT_TRUE(document->mayClose());
    EXPECT_EQ(panels.alerts, Lines{});
}

TEST_F(DocumentCloseTest, ALostSavedStateIsAskedAbout) {
    auto document = openedWith("saved");
    document->setText("one");
    EXPECT_TRUE(document->saveDocument());
    document->undo();
    document->setText("two"); // counts 0 again
    EXPECT_EQ(document->changeCount(), 0);
    EXPECT_FALSE(document->mayClose());
    EXPECT_EQ(panels.asked, Lines{"save? a.text"});
}

} // namespace
} // namespace veltrano
