// SPDX-License-Identifier: GPL-3.0-or-later
// Opening and closing documents.
#include "tests/platform/desktop/DocumentControllerRig.h"

#include <sys/stat.h>

namespace veltrano {
namespace {

using Answer = DocumentPanels::SaveAnswer;

using DocumentControllerTest = DocumentControllerRig;

TEST_F(DocumentControllerTest, UntitledOnesAreNumbered) {
    untitled();
    TextDocument& second = untitled();
    controller.openUntitledDocumentOfType("Other Text", true);
    EXPECT_EQ(openNames(), (Lines{"Untitled", "Untitled 2", "Untitled 3"}));
    EXPECT_EQ(windows[1].titles.back(), "Untitled 2 []");
    second.saveToFile(files.path("b.text"), Document::SaveOperation::saveAs);
    untitled();
    EXPECT_EQ(openNames(), (Lines{"Untitled", "b.text", "Untitled 3", "Untitled 2"}));
    EXPECT_EQ(controller.openUntitledDocumentOfType("No Such Text", true), nullptr);
    EXPECT_EQ(controller.openUntitledDocumentOfType("Foreign Text", true), nullptr);
    EXPECT_EQ(controller.documents().size(), 4u);
}

TEST_F(DocumentControllerTest, UntitledOnesAreShownWhenThatIsWanted) {
    EXPECT_FALSE(untitled(true).isDocumentEdited());
    untitled(false);
    EXPECT_EQ(windows[0].shown, 1);
    EXPECT_EQ(windows[1].shown, 0);
    canMakeWindows = false;
    EXPECT_EQ(controller.openUntitledDocumentOfType("Test Text", true), nullptr);
    EXPECT_EQ(controller.documents().size(), 2u);
}

TEST_F(DocumentControllerTest, KnowsKindsByExtensionInAnyCase) {
    const struct {
        const char* path;
        const char* type; ///< null: none
    } cases[] = {
        {"/a/b.text", "Test Text"},
        {"/a/b.TeXt", "Test Text"},
        {"/a.text/b", nullptr},
        {"/a/b.other", "Other Text"},
        {"/a/b.c.text", "Test Text"},
        {"/a/text", nullptr},
        {"/a/b.FOREIGN", "Foreign Text"},
        {"/a/b.text.bak", nullptr},
        {"", nullptr},
        {"/a/b.texts", nullptr},
        {"/a/two\nlines.text", "Test Text"},
    };
    for (const auto& [path, type] : cases) {
        SCOPED_TRACE(path);
        const DocumentKind* kind = controller.kindOfPath(path);
        ASSERT_EQ(kind != nullptr, type != nullptr);
        if (kind) {
            EXPECT_EQ(kind->type.name, type);
        }
    }
}

TEST_F(DocumentControllerTest, OpensAFileInAWindow) {
    TextDocument* document = open(files.file("a.text", "text"));
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->text, "text");
    EXPECT_EQ(windows[0].shown, 1);
    EXPECT_EQ(windows[0].titles.back(), "a.text [" + files.path("a.text") + "]");
    EXPECT_EQ(controller.documentForPath(files.path("a.text")), document);
    EXPECT_EQ(controller.documentForPath(files.path("b.text")), nullptr);
    EXPECT_EQ(panels.asked, Lines{});
}

TEST_F(DocumentControllerTest, AFileThatIsOpenIsShown) {
    namespace fs = std::filesystem;
    const std::string path = files.file("a.text", "text");
    TextDocument* document = open(path);
    ASSERT_NE(document, nullptr);
    document->setText("edited");
    fs::create_symlink("a.text", files.path("link.text"));
    fs::create_directory_symlink(".", files.path("loop"));
    const Lines ways = {path, files.path("link.text"), files.path("./loop//a.text"),
                        files.path("loop/../") + fs::path(files.folder()).filename().string() +
                            "/a.text"};
    int shown = 1;
    for (const std::string& way : ways) {
        SCOPED_TRACE(way);
        EXPECT_EQ(open(way), document);
        EXPECT_EQ(windows[0].shown, ++shown);
    }
    fs::remove(path); // also when it is gone meanwhile
    EXPECT_EQ(open(path), document);
    EXPECT_EQ(document->text, "edited");
    EXPECT_EQ(controller.documents().size(), 1u);
}

TEST_F(DocumentControllerTest, AFileThatIsGoneIsNotTakenForAnother) {
    open(files.file("a.text", "text"));
    std::filesystem::remove(files.path("a.text"));
    EXPECT_EQ(controller.documentForPath(files.path("nothing.text")), nullptr);
    EXPECT_NE(controller.documentForPath(files.path("a.text")), nullptr);
    untitled();
    EXPECT_EQ(controller.documentForPath(""), nullptr) << "an untitled one has no path";
}

TEST_F(DocumentControllerTest, SaysWhichFileItRefuses) {
    ASSERT_EQ(::mkfifo(files.path("fifo.text").c_str(), 0666), 0);
    std::filesystem::create_directory(files.path("folder.text"));
    const std::string large = files.file("large.text", "");
    std::filesystem::resize_file(large, (std::uintmax_t{64} << 20) + 1);
    const struct {
        std::string path;
        const char* logged; ///< behind the path; null: nothing
    } cases[] = {
        {files.path("fifo.text"), ": no regular file"},
        {files.path("folder.text"), ": no regular file"},
        {large, ": larger than 64 MB"},
        {files.path("nothing.text"), ": No such file or directory"},
        {files.file("bad.text", "damaged"), nullptr},
    };
    for (const auto& [path, logged] : cases) {
        SCOPED_TRACE(path);
        panels.alerts.clear();
        log.details.clear();
        reason = "logged long ago";
        EXPECT_EQ(open(path), nullptr);
        const std::string name = path.substr(path.rfind('/') + 1);
        EXPECT_EQ(panels.alerts, Lines{"“" + name + "” could not be opened.\n" + path});
        EXPECT_EQ(log.details, logged ? Lines{path + logged} : Lines{});
    }
    EXPECT_EQ(controller.documents().size(), 0u);
    EXPECT_EQ(windows.size(), 0u);
}

TEST_F(DocumentControllerTest, SaysTheReasonThatWasLogged) {
    DocumentKind kind = kindOf("Odd Text", "odd");
    kind.make = [this] {
        reason = "Odd data is invalid.";
        return std::make_unique<TextDocument>(services());
    };
    controller.addKind(kind);
    const std::string path = files.file("a.odd", "damaged");
    EXPECT_EQ(open(path), nullptr);
    EXPECT_EQ(panels.alerts,
              Lines{"“a.odd” could not be opened.\n" + path + "\nOdd data is invalid."});
}

TEST_F(DocumentControllerTest, SaysThatAFileIsOfNoKnownKind) {
    const std::string path = files.file("a.txt", "text");
    EXPECT_EQ(open(path), nullptr);
    ASSERT_EQ(panels.alerts.size(), 1u);
    EXPECT_TRUE(panels.alerts[0].starts_with("“a.txt” could not be opened.\n" + path + "\n"));
}

TEST_F(DocumentControllerTest, AFileWithoutAWindowIsRefused) {
    canMakeWindows = false;
    EXPECT_EQ(open(files.file("a.text", "text")), nullptr);
    EXPECT_EQ(panels.alerts.size(), 1u);
    EXPECT_EQ(controller.documents().size(), 0u);
}

TEST_F(DocumentControllerTest, AFileToImportGoesToTheImporter) {
    const std::string path = files.file("a.foreign", "text");
    EXPECT_EQ(open(path), nullptr);
    EXPECT_EQ(imported, Lines{path});
    EXPECT_EQ(panels.asked, Lines{});
    EXPECT_EQ(controller.documents().size(), 0u);
}

TEST_F(DocumentControllerTest, TheOpenPanelOffersEveryKindAndTakesSeveral) {
    panels.chosen = {files.file("a.text", "a"), files.path("nothing.text"),
                     files.file("b.other", "b"), files.file("c.foreign", "c")};
    controller.openDocument();
    ASSERT_EQ(panels.openPanels.size(), 1u);
    EXPECT_TRUE(panels.openPanels[0].allowsSeveral);
    Lines types;
    for (const FileType& type : panels.openPanels[0].types)
        types.push_back(type.name + " ." + type.extension);
    EXPECT_EQ(types, (Lines{"Test Text .text", "Other Text .other", "Foreign Text .foreign"}));
    EXPECT_EQ(openNames(), (Lines{"a.text", "b.other"}));
    EXPECT_EQ(imported, Lines{files.path("c.foreign")});
    EXPECT_EQ(panels.alerts.size(), 1u) << "the other files are opened all the same";
    panels.chosen = {};
    controller.openDocument(); // cancelled
    EXPECT_EQ(controller.documents().size(), 2u);
}

TEST_F(DocumentControllerTest, ClosesWithOrWithoutAQuestion) {
    TextDocument& first = untitled();
    TextDocument& second = untitled();
    first.setText("edited");
    second.setText("edited");
    controller.closeDocument(first);
    EXPECT_EQ(openNames(), Lines{"Untitled 2"});
    EXPECT_FALSE(windows[0].isOpen);
    EXPECT_EQ(panels.asked, Lines{});

    panels.saveAnswer = Answer::cancel;
    EXPECT_FALSE(controller.tryToClose(second));
    EXPECT_EQ(panels.asked, Lines{"save? Untitled 2"});
    EXPECT_EQ(windows[1].shown, 2) << "the user sees what is asked about";
    EXPECT_TRUE(windows[1].isOpen);
    panels.saveAnswer = Answer::discard;
    EXPECT_TRUE(controller.tryToClose(second));
    EXPECT_FALSE(windows[1].isOpen);
    EXPECT_EQ(openNames(), Lines{});
}

TEST_F(DocumentControllerTest, ClosingAllStopsAtTheFirstRefusal) {
    untitled().setText("edited");
    untitled();
    panels.saveAnswer = Answer::cancel;
    EXPECT_FALSE(controller.tryToCloseAll());
    EXPECT_EQ(openNames(), Lines{"Untitled"});
    panels.saveAnswer = Answer::save;
    EXPECT_FALSE(controller.tryToCloseAll()) << "the save panel was cancelled";
    panels.savePaths = {files.path("a")};
    EXPECT_TRUE(controller.tryToCloseAll());
    EXPECT_EQ(contentsOf(files.path("a.text")), "edited");
    EXPECT_EQ(openNames(), Lines{});
    EXPECT_TRUE(controller.tryToCloseAll());
}

} // namespace
} // namespace veltrano
