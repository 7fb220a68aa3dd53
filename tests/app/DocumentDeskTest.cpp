// SPDX-License-Identifier: GPL-3.0-or-later
// Documents in the application: commands, files, windows, import, quitting.
#include "app/DocumentDesk.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingLog.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr const char* kYoung = "\"Name\"=\"Young\";\n\"C\"=\"6\";\n\"A\"=\"0\";\n";
constexpr const char* kScale =
    "! meantone.scl\n!\n A scale\n 12\n!\n76.0\n193.2\n310.3\n386.3\n503.4\n"
    "579.5\n696.6\n772.6\n889.7\n1006.8\n1082.9\n2/1\n";

class DocumentDeskTest : public testing::Test {
protected:
    DocumentDeskTest() {
        libraries.temperaments =
            std::make_unique<MVTemperamentLibrary>(folder.path().toStdString(), log);
        libraries.stretches = std::make_unique<MVStretchLibrary>(folder.path().toStdString(), log);
        preferences = std::make_unique<Preferences>(PreferencesPorts{
            defaults, notifications, libraries.temperaments.get(), libraries.stretches.get()});
        desk = std::make_unique<DocumentDesk>(DocumentDesk::Ports{
            resources, defaults, notifications, *preferences, libraries, panels, log});
    }

    std::string file(const char* name, const QByteArray& bytes) {
        QFile written(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
        return written.fileName().toStdString();
    }
    QByteArray contents(const std::string& path) {
        QFile read(QString::fromStdString(path));
        EXPECT_TRUE(read.open(QIODevice::ReadOnly));
        return read.readAll();
    }
    EditorWindow& only() {
        EXPECT_EQ(desk->windows().size(), 1u);
        return *desk->windows().at(0);
    }
    QTableView& table() { return *only().findChild<QTableView*>("table"); }
    void edit(int row, int column, const char* text) {
        table().model()->setData(table().model()->index(row, column), QString::fromUtf8(text),
                                 Qt::EditRole);
    }

    QTemporaryDir folder;
    RecordingLog log;
    RecordingPanels panels;
    UserDefaults defaults = UserDefaults::inMemory();
    NotificationCenter notifications;
    ResourceFolder resources{QStringLiteral(VELTRANO_SOURCE_RESOURCES)};
    LibrariesInUse libraries;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<DocumentDesk> desk;
};

TEST_F(DocumentDeskTest, NewDocumentsAreShownUntitled) {
    desk->perform(MenuCommand::newTemperament);
    desk->perform(MenuCommand::newStretch);
    const auto windows = desk->windows();
    ASSERT_EQ(windows.size(), 2u);
    EXPECT_EQ(windows[0]->windowTitle(), "Untitled[*]");
    EXPECT_EQ(windows[1]->windowTitle(), "Untitled 2[*]");
    EXPECT_TRUE(windows[0]->isVisible() && windows[1]->isVisible());
    EXPECT_EQ(windows[0]->findChild<QTableView*>("table")->model()->columnCount(), 4);
    EXPECT_EQ(windows[1]->findChild<QTableView*>("table")->model()->columnCount(), 10);
}

TEST_F(DocumentDeskTest, AFileIsOpenedEditedAndSaved) {
    const std::string path = file("Young.temperament", kYoung);
    desk->openFiles({path, path});
    EXPECT_EQ(table().model()->index(0, 1).data().toString(), "+6.000");
    EXPECT_EQ(only().findChild<QLineEdit*>("nameField")->text(), "Young");
    edit(0, 1, "±7.5");
    EXPECT_TRUE(only().isWindowModified());
    only().perform(MenuCommand::save);
    EXPECT_FALSE(only().isWindowModified());
    EXPECT_TRUE(contents(path).contains("\"C\" =\"7.500000000\""));
    only().perform(MenuCommand::undo);
    EXPECT_TRUE(only().isWindowModified());
    EXPECT_EQ(table().model()->index(0, 1).data().toString(), "+6.000");
    EXPECT_TRUE(panels.asked.empty());
}

TEST_F(DocumentDeskTest, SaveRevertAndPasteFollowTheDocument) {
    const auto isEnabled = [this](MenuCommand command) {
        return only().commandState(command)->isEnabled;
    };
    for (const MenuCommand kind : {MenuCommand::newTemperament, MenuCommand::newStretch}) {
        QApplication::clipboard()->clear();
        desk->perform(kind);
        EXPECT_TRUE(isEnabled(MenuCommand::save)) << "it has no file yet";
        EXPECT_FALSE(isEnabled(MenuCommand::revert));
        edit(0, 1, "3");
        EXPECT_FALSE(isEnabled(MenuCommand::revert)) << "there is nothing to go back to";
        panels.savePaths = {folder.filePath("kept").toStdString()};
        only().perform(MenuCommand::save);
        EXPECT_FALSE(isEnabled(MenuCommand::save));
        EXPECT_FALSE(isEnabled(MenuCommand::revert));
        edit(0, 1, "4");
        EXPECT_TRUE(isEnabled(MenuCommand::save));
        EXPECT_TRUE(isEnabled(MenuCommand::revert));
        EXPECT_FALSE(isEnabled(MenuCommand::paste));
        only().perform(MenuCommand::copy);
        EXPECT_TRUE(isEnabled(MenuCommand::paste));
        only().perform(MenuCommand::save);
        only().close();
        QApplication::processEvents();
    }
}

TEST_F(DocumentDeskTest, ARefusedFileSaysWhyOnce) {
    const std::string path = file("Broken.temperament", "\"Name\"=\"x\";\n\"C\"=1;\n");
    desk->openFiles({path});
    EXPECT_TRUE(desk->windows().empty());
    ASSERT_EQ(panels.alerts.size(), 1u);
    EXPECT_NE(panels.alerts[0].find("Temperament data is invalid."), std::string::npos);
    EXPECT_NE(panels.alerts[0].find("line 2"), std::string::npos) << panels.alerts[0];
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(DocumentDeskTest, AScalaFileBecomesAnUntitledTemperamentNamedAfterIt) {
    const std::string path = file("meantone.scl", kScale);
    desk->openFiles({path});
    EXPECT_EQ(only().findChild<QLineEdit*>("nameField")->text(), "meantone.scl");
    EXPECT_EQ(only().windowFilePath(), "");
    EXPECT_TRUE(only().isVisible());
    only().perform(MenuCommand::save); // asks for a name: there is none to save to
    EXPECT_EQ(panels.savePanels.size(), 1u);
    EXPECT_EQ(contents(path), kScale);
}

TEST_F(DocumentDeskTest, AFailedImportLeavesNoDocument) {
    panels.chosen = {file("bad.scl", "bad\n7\n"), file("good.scl", kScale)};
    desk->perform(MenuCommand::importScala);
    EXPECT_EQ(only().findChild<QLineEdit*>("nameField")->text(), "good.scl");
    ASSERT_EQ(panels.alerts.size(), 1u);
    EXPECT_EQ(panels.alerts[0], "Unable to import the Scala Scale File (.scl).\nVeltrano failed to "
                                "import the Scala Scale File (.scl): " +
                                    panels.chosen[0] + ".");
}

TEST_F(DocumentDeskTest, OnlyATemperamentIsExported) {
    desk->perform(MenuCommand::newStretch);
    EXPECT_FALSE(only().commandState(MenuCommand::exportScala));
    desk->perform(MenuCommand::newTemperament);
    EXPECT_TRUE(desk->windows()[1]->commandState(MenuCommand::exportScala));
    panels.savePaths = {folder.filePath("out.scl").toStdString()};
    desk->windows()[1]->perform(MenuCommand::exportScala);
    EXPECT_EQ(panels.savePanels.at(0).proposedName, "Untitled 2.scl");
    EXPECT_TRUE(contents(folder.filePath("out.scl").toStdString()).endsWith("2/1\n"));
}

TEST_F(DocumentDeskTest, ClosingAWindowAsksAndHappensAfterItsEvent) {
    desk->perform(MenuCommand::newTemperament);
    edit(2, 1, "3");
    panels.saveAnswer = DocumentPanels::SaveAnswer::cancel;
    only().close();
    QApplication::processEvents();
    EXPECT_EQ(panels.asked, std::vector<std::string>{"save? Untitled"});
    EXPECT_EQ(desk->windows().size(), 1u);
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    only().close();
    EXPECT_EQ(desk->windows().size(), 1u);
    QApplication::processEvents();
    EXPECT_TRUE(desk->windows().empty());
}

TEST_F(DocumentDeskTest, ASecondCloseWhileItAsksIsNoSecondQuestion) {
    desk->perform(MenuCommand::newTemperament);
    edit(2, 1, "3");
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    panels.whileAsking = [this] {
        EXPECT_FALSE(desk->mayQuit());
        QApplication::processEvents(); // the second close
    };
    EditorWindow& window = only();
    window.close();
    window.close();
    QApplication::processEvents();
    EXPECT_EQ(panels.asked.size(), 1u);
    EXPECT_TRUE(desk->windows().empty());
}

TEST_F(DocumentDeskTest, QuittingAsksForEveryEditedDocument) {
    desk->perform(MenuCommand::newTemperament);
    edit(2, 1, "3");
    desk->perform(MenuCommand::newStretch);
    panels.saveAnswer = DocumentPanels::SaveAnswer::cancel;
    EXPECT_FALSE(desk->mayQuit());
    EXPECT_GE(desk->windows().size(), 1u);
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    EXPECT_TRUE(desk->mayQuit());
    EXPECT_TRUE(desk->windows().empty());
}

TEST_F(DocumentDeskTest, EditsOfTheTemperamentInUseAreHeardAtOnceAndDiscardedWithIt) {
    const std::string path = file("Young.temperament", kYoung);
    preferences->setTuningForFileName("Young.temperament");
    ASSERT_EQ(preferences->temperamentTable()[0], 6.0);
    desk->openFiles({path});
    edit(0, 1, "8");
    EXPECT_EQ(preferences->temperamentTable()[0], 8.0);
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    only().close();
    QApplication::processEvents();
    EXPECT_EQ(preferences->temperamentTable()[0], 6.0);
}

TEST_F(DocumentDeskTest, AFailedRevertKeepsEveryValueAsItWas) {
    const std::string path = file("Grand.stretch", "\"Name\"=\"Grand\";\n");
    desk->openFiles({path});
    edit(9, 5, "1.23456");
    QFile::remove(QString::fromStdString(path));
    panels.confirms = true;
    only().perform(MenuCommand::revert);
    EXPECT_EQ(panels.alerts.size(), 1u);
    EXPECT_TRUE(only().isWindowModified());
    only().perform(MenuCommand::undo);
    only().perform(MenuCommand::redo);
    EXPECT_EQ(table().model()->index(9, 5).data().toString(), "+1.235");
    // A field that a file would round is still whole: as a temperament in another key, too.
    const std::string young = file("Young.temperament", kYoung);
    desk->openFiles({young});
    preferences->setTonic(2);
    auto* temperament = desk->windows()[1]->findChild<QTableView*>("table");
    temperament->model()->setData(temperament->model()->index(0, 1), "-50", Qt::EditRole);
    preferences->setTonic(4);
    preferences->setTonic(2); // values beyond the limits that a file has
    QFile::remove(QString::fromStdString(young));
    QStringList cells, after;
    for (int row = 0; row < 12; ++row)
        cells.append(temperament->model()->index(row, 1).data().toString());
    desk->windows()[1]->perform(MenuCommand::revert);
    for (int row = 0; row < 12; ++row)
        after.append(temperament->model()->index(row, 1).data().toString());
    EXPECT_EQ(cells, after);
}

TEST_F(DocumentDeskTest, TypedLettersAreUndoneByTheDocument) {
    desk->perform(MenuCommand::newTemperament);
    only().activateWindow();
    auto* name = only().findChild<QLineEdit*>("nameField");
    name->setFocus();
    QApplication::processEvents();
    QTest::keyClicks(name, "Bach");
    EXPECT_TRUE(only().isWindowModified());
    QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name->text(), "");
    EXPECT_FALSE(only().isWindowModified());
    QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(name->text(), "Bach");
    QTest::keyClick(name, Qt::Key_Right); // no modifier is held for the tests that follow
}

} // namespace
} // namespace veltrano
