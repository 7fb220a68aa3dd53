// SPDX-License-Identifier: GPL-3.0-or-later
// Saving a document: what is written where, what is asked before, what is left when it fails.
#include "tests/platform/desktop/DocumentRig.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace veltrano {
namespace {

using Operation = Document::SaveOperation;

class DocumentSaveTest : public DocumentRig {
protected:
    std::unique_ptr<TextDocument> untitled(std::string_view text) {
        auto document = std::make_unique<TextDocument>(services());
        document->setWindow(std::make_unique<RecordingDocumentWindow>(window));
        document->setText(std::string(text));
        return document;
    }
};

TEST_F(DocumentSaveTest, SaveWritesTheFileAndClearsTheCount) {
    auto document = openedWith("old");
    document->setText("new");
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(contentsOf(files.path("a.text")), "new");
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_TRUE(document->history().canUndo()) << "a save forgets no steps";
    EXPECT_EQ(document->happened, Lines{"saved"});
    EXPECT_EQ(panels.asked, Lines{});
    EXPECT_EQ(files.names(), Lines{"a.text"});
    document->setText("newer"); // its own save is no change by another program
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(panels.asked, Lines{});
}

TEST_F(DocumentSaveTest, SaveOfAnUntitledOneAsksWhere) {
    auto document = untitled("text");
    EXPECT_FALSE(document->saveDocument()) << "cancelled";
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(document->path(), "");
    ASSERT_EQ(panels.savePanels.size(), 1u);
    EXPECT_EQ(panels.savePanels[0].proposedName, "Untitled.text");
    EXPECT_EQ(panels.savePanels[0].folder, "");
    EXPECT_EQ(panels.savePanels[0].type.name, "Test Text");

    panels.savePaths = {files.path("b.text")};
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(document->path(), files.path("b.text"));
    EXPECT_EQ(document->displayName(), "b.text");
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_EQ(contentsOf(files.path("b.text")), "text");
}

TEST_F(DocumentSaveTest, SaveAsTakesTheNewFileOver) {
    auto document = openedWith("old");
    document->setText("new");
    panels.savePaths = {files.path("b.text")};
    EXPECT_TRUE(document->saveDocumentAs());
    EXPECT_EQ(panels.savePanels[0].folder, files.folder());
    EXPECT_EQ(panels.savePanels[0].proposedName, "a.text");
    EXPECT_EQ(contentsOf(files.path("a.text")), "old");
    EXPECT_EQ(contentsOf(files.path("b.text")), "new");
    EXPECT_EQ(document->path(), files.path("b.text"));
    EXPECT_FALSE(document->isDocumentEdited());
    document->setText("newer");
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(contentsOf(files.path("b.text")), "newer");
}

TEST_F(DocumentSaveTest, ACopyLeavesTheDocumentAsItIs) {
    auto document = openedWith("old");
    document->setText("new");
    panels.savePaths = {files.path("copy.text")};
    EXPECT_TRUE(document->saveDocumentTo());
    EXPECT_EQ(contentsOf(files.path("copy.text")), "new");
    EXPECT_EQ(contentsOf(files.path("a.text")), "old");
    EXPECT_EQ(document->path(), files.path("a.text"));
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_EQ(document->happened, Lines{"saved"});
    document->undo();
    EXPECT_EQ(document->text, "old");
    EXPECT_FALSE(document->saveDocumentTo()) << "cancelled";
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(panels.asked, Lines{});
}

TEST_F(DocumentSaveTest, ACopyOntoItsOwnFileIsNoChangeByAnother) {
    auto document = openedWith("old");
    document->setText("new");
    EXPECT_TRUE(document->saveToFile(document->path(), Operation::saveTo));
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(panels.asked, Lines{});
}

TEST_F(DocumentSaveTest, ACopyDoesNotHideAChangeByAnother) {
    for (const char* copy : {"copy.text", "a.text"}) {
        SCOPED_TRACE(copy);
        auto document = openedWith("old");
        files.file("a.text", "by another");
        EXPECT_TRUE(document->saveToFile(files.path(copy), Operation::saveTo));
        panels.asked.clear();
        EXPECT_FALSE(document->saveDocument());
        EXPECT_EQ(panels.asked.size(), 1u);
    }
}

TEST_F(DocumentSaveTest, AppendsTheExtensionThatIsMissing) {
    const struct {
        const char* typed;
        const char* written;
    } cases[] = {
        {"name", "name.text"},         {"name.text", "name.text"},
        {"name.TEXT", "name.TEXT"},    {"name.txt", "name.txt.text"},
        {"name.", "name..text"},       {"v1.2", "v1.2.text"},
        {"nametext", "nametext.text"}, {"two\nlines", "two\nlines.text"},
    };
    for (const auto& [typed, written] : cases) {
        SCOPED_TRACE(typed);
        auto document = untitled(typed);
        panels.savePaths = {files.path(typed)};
        EXPECT_TRUE(document->saveDocumentAs());
        EXPECT_EQ(document->path(), files.path(written));
        EXPECT_EQ(contentsOf(files.path(written)), typed);
        std::filesystem::remove(files.path(written));
    }
    EXPECT_EQ(files.names(), Lines{});
}

TEST_F(DocumentSaveTest, AsksBeforeAFileThatTheExtensionLedTo) {
    files.file("b.text", "another's");
    auto document = untitled("mine");
    panels.savePaths = {files.path("b"), files.path("b"), files.path("b.text")};
    EXPECT_FALSE(document->saveDocumentAs());
    EXPECT_EQ(contentsOf(files.path("b.text")), "another's");
    EXPECT_EQ(panels.asked, Lines{"confirm? “b.text” is already there."});
    panels.confirms = true;
    EXPECT_TRUE(document->saveDocumentAs());
    EXPECT_EQ(contentsOf(files.path("b.text")), "mine");
    EXPECT_TRUE(document->saveDocumentAs()) << "the panel itself has asked about that name";
    EXPECT_EQ(panels.asked.size(), 2u);
}

/// What another program does to a file of three bytes, written at a known time.
struct Meddling {
    const char* what;
    void (*meddle)(const std::string& path);
    const char* question; ///< null: none
};

void setTime(const std::string& path, long nanoseconds) {
    const timespec times[2] = {{1000000000, nanoseconds}, {1000000000, nanoseconds}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

constexpr const char* kChanged =
    "confirm? The file of “a.text” was changed by another program since it was opened.";
constexpr const char* kGone = "confirm? The file of “a.text” was moved or deleted since it was "
                              "opened.";

const Meddling kMeddlings[] = {
    {"nothing", [](const std::string&) {}, nullptr},
    {"only read", [](const std::string& path) { contentsOf(path); }, nullptr},
    {"other bytes in the same time and length, by replacement",
     [](const std::string& path) {
         fillFile(path + "~", "new");
         setTime(path + "~", 500);
         std::filesystem::rename(path + "~", path);
     },
     kChanged},
    {"longer in the same time",
     [](const std::string& path) {
         fillFile(path, "longer");
         setTime(path, 500);
     },
     kChanged},
    {"a nanosecond later", [](const std::string& path) { setTime(path, 501); }, kChanged},
    {"a time that goes back", [](const std::string& path) { setTime(path, 0); }, kChanged},
    {"deleted", [](const std::string& path) { std::filesystem::remove(path); }, kGone},
    {"moved away", [](const std::string& path) { std::filesystem::rename(path, path + ".moved"); },
     kGone},
};

TEST_F(DocumentSaveTest, NoticesAFileThatIsNotTheOneOpened) {
    for (const auto& [what, meddle, question] : kMeddlings) {
        for (const bool confirms : {false, true}) {
            SCOPED_TRACE(std::string(what) + (confirms ? ", replaced" : ", left"));
            setTime(files.file("a.text", "old"), 500);
            auto document = opened(files.path("a.text"));
            document->setText("mine");
            meddle(document->path());
            const std::string onDisk = contentsOf(document->path());
            panels.asked.clear();
            panels.lastAction.clear();
            panels.confirms = confirms;
            const bool isSaved = document->saveDocument();
            EXPECT_EQ(panels.asked, question ? Lines{question} : Lines{});
            EXPECT_EQ(panels.lastAction, question ? "Save Anyway" : "");
            EXPECT_EQ(isSaved, confirms || !question);
            EXPECT_EQ(document->isDocumentEdited(), !isSaved);
            EXPECT_EQ(contentsOf(document->path()), isSaved ? "mine" : onDisk);
            if (!isSaved) continue;
            panels.asked.clear();
            EXPECT_TRUE(document->saveDocument());
            EXPECT_EQ(panels.asked, Lines{}) << "asked once";
        }
    }
}

TEST_F(DocumentSaveTest, AsksBeforeBytesThatDoNotReadBack) {
    const struct {
        const char* what;
        bool (TextDocument::*save)();
    } cases[] = {{"save", &TextDocument::saveDocument},
                 {"save as", &TextDocument::saveDocumentAs},
                 {"copy", &TextDocument::saveDocumentTo}};
    for (const auto& [what, save] : cases) {
        SCOPED_TRACE(what);
        auto document = openedWith("old");
        document->setText("unreadable\r");
        document->isFaithful = false;
        panels.asked.clear();
        panels.confirms = false;
        panels.savePaths = {files.path("b.text")};
        EXPECT_FALSE((document.get()->*save)());
        EXPECT_EQ(panels.asked, Lines{"confirm? “a.text” would not read back as it is now."});
        EXPECT_EQ(files.names(), Lines{"a.text"});
        EXPECT_EQ(contentsOf(files.path("a.text")), "old");
        EXPECT_TRUE(document->isDocumentEdited());

        panels.confirms = true;
        EXPECT_TRUE((document.get()->*save)());
        const std::string written = files.names().back() == "b.text" ? "b.text" : "a.text";
        EXPECT_EQ(contentsOf(files.path(written)), "unreadable\r") << "the bytes stay as given";
        std::filesystem::remove(files.path("b.text"));
    }
}

TEST_F(DocumentSaveTest, AFailedSaveSaysWhyAndChangesNothing) {
    ASSERT_EQ(::mkfifo(files.path("fifo.text").c_str(), 0666), 0);
    std::filesystem::create_directory(files.path("protected"));
    std::filesystem::create_directory(files.path("folder.text"));
    files.file("protected/a.text", "old");
    // Writing into the file itself would do, but not whole or not at all.
    std::filesystem::permissions(files.file("protected/open.text", "old"),
                                 std::filesystem::perms(0666));
    std::filesystem::permissions(files.path("protected"), std::filesystem::perms(0555));
    std::filesystem::permissions(files.file("readonly.text", "old"), std::filesystem::perms(0444));
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {
        {files.path("nowhere/a.text"), "No such file or directory"},
        {files.path("protected/a.text"), "Permission denied"},
        {files.path("protected/open.text"), "Permission denied"},
        {files.path("protected/new.text"), "Permission denied"},
        {files.path("readonly.text"), "Permission denied"},
        {files.path("folder.text"), "Is a directory"},
        {files.path("fifo.text"), "no regular file"},
    };
    auto document = openedWith("old");
    document->setText("new");
    const AsNobody rights;
    for (const auto& [path, reason] : cases) {
        for (const Operation operation : {Operation::save, Operation::saveAs, Operation::saveTo}) {
            SCOPED_TRACE(path);
            panels.alerts.clear();
            document->happened.clear();
            EXPECT_FALSE(document->saveToFile(path, operation));
            const std::string name = path.substr(path.rfind('/') + 1);
            EXPECT_EQ(panels.alerts,
                      Lines{"“" + name + "” could not be saved.\n" + path + ": " + reason});
            EXPECT_EQ(document->happened, Lines{"not saved"});
            EXPECT_EQ(document->path(), files.path("a.text"));
            EXPECT_EQ(document->changeCount(), 1);
        }
    }
    EXPECT_EQ(contentsOf(files.path("protected/a.text")), "old");
    EXPECT_EQ(contentsOf(files.path("protected/open.text")), "old");
    EXPECT_EQ(contentsOf(files.path("readonly.text")), "old");
}

TEST_F(DocumentSaveTest, AFailedSaveCanBeRepeated) {
    std::filesystem::create_directory(files.path("sub"));
    auto document = opened(files.file("sub/a.text", "old"));
    document->setText("new");
    std::filesystem::remove_all(files.path("sub"));
    panels.confirms = true; // the file is gone
    EXPECT_FALSE(document->saveDocument());
    EXPECT_EQ(panels.alerts.size(), 1u);
    EXPECT_TRUE(document->isDocumentEdited());
    std::filesystem::create_directory(files.path("sub"));
    EXPECT_TRUE(document->saveDocument());
    EXPECT_EQ(contentsOf(files.path("sub/a.text")), "new");
    EXPECT_FALSE(document->isDocumentEdited());
}

} // namespace
} // namespace veltrano
