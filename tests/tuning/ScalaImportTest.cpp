// SPDX-License-Identifier: GPL-3.0-or-later
// Scala files become documents, and documents Scala files.
#include "tuning/ScalaImport.h"
#include "platform/desktop/DocumentController.h"
#include "platform/foundation/UserDefaults.h"
#include "tests/tuning/TuningTestBase.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <list>

namespace veltrano {
namespace {

/// A window whose fields are those of a document's editor.
class EditorWindow final : public DocumentWindow {
public:
    EditorWindow(TuningDocument& document, WindowRecord& record) : mWindow(record) {
        document.windowControllerDidLoadNib(editor.outlets());
    }
    void showWindow() override {
        nameWhenShown = editor.name.shown;
        mWindow.showWindow();
    }
    void setTitle(std::string_view name, std::string_view file, bool isEdited) override {
        mWindow.setTitle(name, file, isEdited);
    }
    std::optional<PrintInfo> runPageSetup(const PrintInfo&) override { return {}; }
    void print(const PrintInfo&, bool) override {}

    RecordingEditor editor;
    std::string nameWhenShown;

private:
    RecordingDocumentWindow mWindow;
};

class ScalaImportTest : public TuningTestBase {
protected:
    ScalaImportTest() {
        controller.addKind(
            {.type = {std::string(kTemperamentTypeName), "temperament"},
             .documentTypeName = std::string(kTemperamentTypeName),
             .make = [this] { return std::make_unique<MVTemperamentDocument>(temperamentPorts()); },
             .makeWindow = [this](Document& document) -> std::unique_ptr<DocumentWindow> {
                 windows.emplace_back();
                 return std::make_unique<EditorWindow>(dynamic_cast<TuningDocument&>(document),
                                                       windows.back());
             }});
    }
    const MVTemperamentDocument& document(std::size_t index) const {
        return dynamic_cast<const MVTemperamentDocument&>(*controller.documents().at(index));
    }

    UserDefaults defaults = UserDefaults::inMemory();
    std::list<WindowRecord> windows; // outlive the documents' windows
    DocumentController controller{services, defaults};
    ScalaImport import{controller, panels};
};

TEST_F(ScalaImportTest, FileBecomesAnUntitledDocumentOfItsName) {
    const std::string file = write("just.scl", scalaFile(" just a fifth ", "100.0\n9/8\n"));
    EXPECT_TRUE(import.importFile(file));
    ASSERT_EQ(controller.documents().size(), 1u);
    EXPECT_EQ(document(0).name(), "just.scl");
    EXPECT_EQ(document(0).description(), "just a fifth");
    EXPECT_EQ(document(0).fileName(), "") << "it never saves onto the Scala file";
    EXPECT_FALSE(document(0).isDocumentEdited());
    EXPECT_NEAR(document(0).temperamentCents()[2], 1200 * std::log2(9 / 8.0) - 200, 1e-9);
    const auto& window = dynamic_cast<const EditorWindow&>(*document(0).window());
    EXPECT_EQ(windows.back().shown, 1);
    EXPECT_EQ(window.nameWhenShown, "just.scl") << "shown only when it is complete";
    EXPECT_EQ(window.editor.description.shown, "just a fifth");
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ScalaImportTest, FailedImportAlertsAndLeavesNoDocument) {
    const struct {
        const char* what;
        std::string bytes;
        Texts lines;
    } kCases[] = {
        {"seven notes", "x\n7\n", {}},
        {"zero cents", scalaFile("x", "0.0\n"), {}},
        {"zero denominator", scalaFile("x", "3/0\n"), {}},
        {"empty line", scalaFile("x", "\n"), {}},
        {"more than 50 cents away", scalaFile("x", "151\n"), {std::string(kEditedOutOfRange)}},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.what);
        panels.alerts.clear();
        log.lines.clear();
        const std::string file = write("bad.scl", each.bytes);
        EXPECT_FALSE(import.importFile(file));
        EXPECT_EQ(panels.alerts,
                  Texts{"Unable to import the Scala Scale File (.scl).\nVeltrano failed to import "
                        "the Scala Scale File (.scl): " +
                        file + "."});
        EXPECT_EQ(log.lines, each.lines);
        EXPECT_TRUE(controller.documents().empty());
        EXPECT_EQ(windows.back().shown, 0);
        EXPECT_FALSE(windows.back().isOpen);
    }
}

TEST_F(ScalaImportTest, UnreadableFileIsAFailedImport) {
    const std::string huge = write("huge.scl", "");
    std::filesystem::resize_file(huge, kMaxTextFileBytes + 1);
    EXPECT_FALSE(import.importFile(path("nowhere.scl")));
    EXPECT_FALSE(import.importFile(huge));
    EXPECT_EQ(panels.alerts.size(), 2u);
    EXPECT_EQ(log.details, (Texts{path("nowhere.scl") + ": " + std::strerror(ENOENT),
                                  huge + ": larger than 64 MB"}));
    EXPECT_TRUE(controller.documents().empty());
}

TEST_F(ScalaImportTest, CommandImportsWhatWasChosenInOrder) {
    panels.chosen = {write("a.scl", scalaFile("a")), write("b.scl", "x\n7\n"),
                     write("c.SCL", scalaFile("c"))};
    import.run();
    ASSERT_EQ(panels.openPanels.size(), 1u);
    EXPECT_EQ(panels.openPanels[0].title, "Import");
    EXPECT_EQ(panels.openPanels[0].prompt, "Import");
    EXPECT_TRUE(panels.openPanels[0].allowsSeveral);
    ASSERT_EQ(panels.openPanels[0].types.size(), 1u);
    EXPECT_EQ(panels.openPanels[0].types[0].extension, "scl");
    EXPECT_EQ(controller.documents().size(), 2u);
    EXPECT_EQ(document(0).name(), "a.scl");
    EXPECT_EQ(document(1).name(), "c.SCL");
}

TEST_F(ScalaImportTest, EarlyEndIsEqualTemperament) {
    const struct {
        const char* bytes;
        const char* description;
    } kCases[] = {{"! only\n! comments\n", ""}, {"! c\nwords\n12\n", "words"}, {"", ""}};
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.bytes);
        ASSERT_TRUE(import.importFile(write("short.scl", each.bytes)));
        const MVTemperamentDocument& made = document(controller.documents().size() - 1);
        EXPECT_EQ(made.description(), each.description);
        for (const double cents : made.temperamentCents())
            EXPECT_NEAR(cents, 0, 1e-9);
    }
}

TEST_F(ScalaImportTest, ScaleIsLaidOntoTheRootKey) {
    settings.key = 3;
    ASSERT_TRUE(import.importFile(write("x.scl", scalaFile("x", "110.0\n"))));
    EXPECT_NEAR(document(0).temperamentCents()[1], 10, 1e-9) << "the degree above Eb";
    EXPECT_NEAR(document(0).temperamentCents()[6], 0, 1e-9) << "A";
}

TEST_F(ScalaImportTest, RootKeysBbAndBTakeNoScale) {
    for (const int key : {10, 11}) {
        SCOPED_TRACE(key);
        settings.key = key;
        log.lines.clear();
        EXPECT_FALSE(import.importFile(write("x.scl", scalaFile("x"))));
        EXPECT_EQ(log.lines, Texts{std::string(kEditedOutOfRange)});
    }
}

TEST_F(ScalaImportTest, DocumentReadsScalaTypeAsAScale) {
    MVTemperamentDocument made(temperamentPorts());
    EXPECT_FALSE(made.loadDataRepresentation(scalaFile("x", "3/2\n"), kTemperamentTypeName));
    EXPECT_FALSE(made.loadDataRepresentation(temperamentFile("x"), kScalaTypeName));
    EXPECT_TRUE(made.loadDataRepresentation(scalaFile("x"), kScalaTypeName));
}

class ScalaExportTest : public ScalaImportTest {
protected:
    MVTemperamentDocument exported{temperamentPorts()};
};

TEST_F(ScalaExportTest, WritesCentsFromA) {
    exported.setName("  my \t name ");
    exported.setDescriptionString("caf\u00E9 \u266F");
    exported.setCell(Temperament::Column::cent, 0, "5");
    exported.setCell(Temperament::Column::cent, 1, "-2.5");
    panels.savePaths = {path("out.scl")};
    exported.exportTemperament();
    EXPECT_EQ(contents("out.scl"),
              "! my   name\n!\n caf\xe9 ?\n 12\n!\n-802.500000\n-700.000000\n-600.000000\n"
              "-500.000000\n-400.000000\n-300.000000\n-200.000000\n-100.000000\n0.000000\n"
              "100.000000\n200.000000\n2/1\n");
    EXPECT_TRUE(panels.alerts.empty());
    EXPECT_EQ(exported.path(), "");
    ASSERT_EQ(panels.savePanels.size(), 1u);
    EXPECT_EQ(panels.savePanels[0].title, "Export");
    EXPECT_EQ(panels.savePanels[0].prompt, "Export");
    EXPECT_EQ(panels.savePanels[0].type.extension, "scl");
}

TEST_F(ScalaExportTest, ProposedNameIsTheDisplayNameWithoutItsExtension) {
    exported.setUntitledName("Untitled 2");
    exported.exportTemperament();
    EXPECT_EQ(panels.savePanels.back().proposedName, "Untitled 2.scl");
    ASSERT_TRUE(exported.saveToFile(path("Young 2.temperament"), Document::SaveOperation::saveAs));
    exported.exportTemperament();
    EXPECT_EQ(panels.savePanels.back().proposedName, "Young 2.scl");
}

TEST_F(ScalaExportTest, ExtensionIsAddedWhereItLacks) {
    panels.savePaths = {path("a"), path("b.txt"), path("c.SCL")};
    for (int count = 0; count < 3; ++count)
        exported.exportTemperament();
    for (const char* name : {"a.scl", "b.txt.scl", "c.SCL"})
        EXPECT_TRUE(std::filesystem::exists(path(name))) << name;
    EXPECT_EQ(panels.asked, Texts{});

    write("d.scl", "mine");
    panels.savePaths = {path("d")};
    exported.exportTemperament();
    EXPECT_EQ(panels.asked.size(), 1u) << "the panel has asked about another name";
    EXPECT_EQ(contents("d.scl"), "mine");
}

TEST_F(ScalaExportTest, LongTextsAreCut) {
    exported.setName(std::string(90, 'n'));
    panels.savePaths = {path("out.scl")};
    exported.exportTemperament();
    EXPECT_TRUE(contents("out.scl").starts_with("! " + std::string(80, 'n') + "\n!"));
}

TEST_F(ScalaExportTest, FailedWriteAlerts) {
    panels.savePaths = {path("missing/out.scl")};
    exported.exportTemperament();
    EXPECT_EQ(panels.alerts,
              Texts{"Unable to export Scala Scale File (.scl).\nVeltrano failed to export to a "
                    "Scala Scale File (.scl) at " +
                    path("missing/out.scl") + "."});
}

TEST_F(ScalaExportTest, CancelWritesNothing) {
    exported.exportTemperament();
    EXPECT_TRUE(panels.alerts.empty());
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace veltrano
