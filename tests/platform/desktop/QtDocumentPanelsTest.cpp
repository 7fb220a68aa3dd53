// SPDX-License-Identifier: GPL-3.0-or-later
// Questions and file panels as the user meets them.
#include "platform/desktop/QtDocumentPanels.h"

#include "platform/foundation/UserDefaults.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace veltrano {
namespace {

/// Hands the next dialog that comes up to a function; what that leaves open is refused.
template <class Dialog>
class Answer {
public:
    explicit Answer(std::function<void(Dialog&)> answer) : mAnswer(std::move(answer)) {
        QObject::connect(&mWatch, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            mWatch.stop();
            ++mDialogs;
            mAnswer(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        mWatch.start(1);
    }
    ~Answer() { EXPECT_EQ(mDialogs, 1); }

private:
    const std::function<void(Dialog&)> mAnswer;
    QTimer mWatch;
    int mDialogs = 0;
};

class QtDocumentPanelsTest : public testing::Test {
protected:
    QtDocumentPanelsTest() {
        for (const char* name : {"a.scl", "b.scl"}) {
            QFile file(folder.filePath(QLatin1String(name)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    std::string path(const char* name) {
        return folder.filePath(QLatin1String(name)).toStdString();
    }
    std::string start() { return folder.path().toStdString(); }

    QTemporaryDir folder;
    UserDefaults defaults = UserDefaults::inMemory();
    QtDocumentPanels panels{defaults};
    const FileType scala{"Scala Scale", "scl"};
};

TEST_F(QtDocumentPanelsTest, AnAlertHasTheSingleButtonOk) {
    const Answer<QMessageBox> answer([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Unable <b>to");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.informativeText(), "&lt;i&gt;path&lt;/i&gt;<br>reason");
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons()[0]->text(), "OK");
        box.buttons()[0]->click();
    });
    panels.alert("Unable <b>to", "<i>path</i>\nreason");
}

TEST_F(QtDocumentPanelsTest, AQuestionIsAnsweredWithNoUnlessItsActionIsClicked) {
    const auto confirms = [this](const std::function<void(QMessageBox&)>& click) {
        const Answer<QMessageBox> answer([&click](QMessageBox& box) {
            EXPECT_EQ(box.text(), "Sure?");
            ASSERT_EQ(box.buttons().size(), 2);
            click(box);
        });
        return panels.confirm("Sure?", "It will be gone.", "Replace");
    };
    EXPECT_FALSE(confirms([](QMessageBox& box) {
        ASSERT_TRUE(box.defaultButton());
        box.defaultButton()->click();
    }));
    EXPECT_FALSE(confirms([](QMessageBox& box) { box.reject(); }));
    EXPECT_TRUE(confirms([](QMessageBox& box) {
        for (QAbstractButton* button : box.buttons()) {
            if (button->text() == "Replace") button->click();
        }
    }));
}

TEST_F(QtDocumentPanelsTest, AClosingDocumentIsAskedAbout) {
    using SaveAnswer = DocumentPanels::SaveAnswer;
    const std::pair<QMessageBox::StandardButton, SaveAnswer> kCases[] = {
        {QMessageBox::Save, SaveAnswer::save},
        {QMessageBox::Discard, SaveAnswer::discard},
        {QMessageBox::Cancel, SaveAnswer::cancel},
        {QMessageBox::NoButton, SaveAnswer::cancel}}; // the dialog is closed
    for (const auto& [button, expected] : kCases) {
        const Answer<QMessageBox> answer([clicked = button](QMessageBox& box) {
            EXPECT_TRUE(box.text().contains("Young.temperament"));
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Save));
            EXPECT_EQ(box.buttons().size(), 3);
            if (clicked == QMessageBox::NoButton) {
                box.reject();
            } else {
                box.button(clicked)->click();
            }
        });
        EXPECT_EQ(panels.askToSave("Young.temperament"), expected);
    }
}

TEST_F(QtDocumentPanelsTest, SeveralFilesOfOneKindAreChosen) {
    const Answer<QFileDialog> answer([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Import");
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "Import");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Scala Scale (*.scl *.SCL)"});
        EXPECT_EQ(dialog.directory(), QDir(folder.path()));
        dialog.selectFile("a.scl");
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = panels.openPaths({.title = "Import",
                                          .prompt = "Import",
                                          .message = {},
                                          .folder = start(),
                                          .types = {scala},
                                          .allowsSeveral = true});
    EXPECT_EQ(chosen, std::vector<std::string>{path("a.scl")});
}

TEST_F(QtDocumentPanelsTest, AllKindsOfDocumentsAreOfferedTogetherFirst) {
    const Answer<QFileDialog> answer([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        ASSERT_EQ(dialog.nameFilters().size(), 3);
        EXPECT_TRUE(dialog.nameFilters()[0].contains("(*.scl *.SCL *.stretch *.STRETCH)"));
        EXPECT_EQ(dialog.nameFilters()[2], "Veltrano Stretch (*.stretch *.STRETCH)");
        dialog.reject();
    });
    const auto chosen = panels.openPaths({.title = "Open",
                                          .prompt = {},
                                          .message = {},
                                          .folder = {},
                                          .types = {scala, {"Veltrano Stretch", "stretch"}}});
    EXPECT_TRUE(chosen.empty()) << "cancelled";
}

TEST_F(QtDocumentPanelsTest, AFileToWriteIsNamed) {
    const auto savePath = [this](bool isAccepted) {
        const Answer<QFileDialog> answer([this, isAccepted](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Export");
            EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "Export");
            EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
            EXPECT_EQ(dialog.nameFilters(), QStringList{"Scala Scale (*.scl *.SCL)"});
            EXPECT_EQ(dialog.selectedFiles(), QStringList{folder.filePath("Untitled 2.scl")});
            if (isAccepted) {
                static_cast<QDialog&>(dialog).accept();
            } else {
                dialog.reject();
            }
        });
        return panels.savePath({"Export", "Export", start(), "Untitled 2.scl", scala});
    };
    EXPECT_EQ(savePath(false), std::nullopt);
    EXPECT_EQ(savePath(true), path("Untitled 2.scl"));
}

TEST_F(QtDocumentPanelsTest, AFolderAloneIsChosen) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("Stretches"));
    const auto choose = [this](bool isAccepted) {
        const Answer<QFileDialog> answer([this, isAccepted](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Choose the Streches folder");
            EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "Choose");
            EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory) << "one, and no file";
            EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
            EXPECT_EQ(dialog.directory(), QDir(folder.path()));
            dialog.selectFile("Stretches");
            if (isAccepted) {
                static_cast<QDialog&>(dialog).accept();
            } else {
                dialog.reject();
            }
        });
        return panels.chooseFolder({.title = {},
                                    .prompt = "Choose",
                                    .message = "Choose the Streches folder",
                                    .folder = start(),
                                    .types = {}});
    };
    EXPECT_EQ(choose(false), std::nullopt);
    EXPECT_EQ(choose(true), path("Stretches"));
}

TEST_F(QtDocumentPanelsTest, TheNextPanelStartsWhereTheLastFileWas) {
    const auto startOf = [this](const std::string& wanted) {
        QString found;
        const Answer<QFileDialog> answer([&found](QFileDialog& dialog) {
            found = dialog.directory().path();
            dialog.reject();
        });
        panels.openPaths(
            {.title = "Open", .prompt = {}, .message = {}, .folder = wanted, .types = {scala}});
        return found;
    };
    EXPECT_EQ(startOf(""), QDir::homePath());
    {
        const Answer<QFileDialog> answer([](QFileDialog& dialog) {
            dialog.selectFile("a.scl");
            static_cast<QDialog&>(dialog).accept();
        });
        panels.openPaths(
            {.title = "Open", .prompt = {}, .message = {}, .folder = start(), .types = {scala}});
    }
    EXPECT_EQ(startOf(""), folder.path());
    EXPECT_EQ(startOf(QDir::tempPath().toStdString()), QDir::tempPath()) << "a wish comes first";
    EXPECT_EQ(startOf("/no such folder"), folder.path());
}

} // namespace
} // namespace veltrano
