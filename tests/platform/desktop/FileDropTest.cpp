// SPDX-License-Identifier: GPL-3.0-or-later
// Files dropped on a window, and the clipboard.
#include "platform/desktop/FileDrop.h"
#include "platform/desktop/QtPasteboard.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class FileDropTest : public testing::Test {
protected:
    FileDropTest() {
        new FileDrop(
            window, [](const std::string& path) { return path.ends_with(".scl"); },
            [this](const std::vector<std::string>& paths) { opened = paths; });
    }

    bool drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        enter.setDropAction(Qt::MoveAction);
        enter.ignore();
        QApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&window, &event);
        EXPECT_EQ(event.dropAction(), Qt::CopyAction) << "the source would delete a moved file";
        EXPECT_TRUE(opened.empty()) << "the source of the drag waits";
        QApplication::processEvents();
        return true;
    }

    QWidget window;
    std::vector<std::string> opened;
};

TEST_F(FileDropTest, FilesThatCanBeOpenedAreOpenedAfterTheDrop) {
    EXPECT_TRUE(drop({QUrl::fromLocalFile("/a/with space.scl"), QUrl::fromLocalFile("/b.txt"),
                      QUrl("https://example.org/c.scl"), QUrl::fromLocalFile("/d.scl")}));
    EXPECT_EQ(opened, (std::vector<std::string>{"/a/with space.scl", "/d.scl"}));
}

TEST_F(FileDropTest, ADragWithoutSuchAFileIsRefused) {
    EXPECT_FALSE(drop({QUrl::fromLocalFile("/b.txt")}));
    EXPECT_FALSE(drop({}));
}

TEST(QtPasteboardTest, HoldsOneTypeAtATime) {
    QtPasteboard pasteboard;
    pasteboard.write("morvane.a", "one");
    EXPECT_EQ(pasteboard.read("morvane.a"), "one");
    const std::string bytes("\0\xff two", 6);
    pasteboard.write("morvane.b", bytes);
    EXPECT_EQ(pasteboard.read("morvane.a"), std::nullopt);
    EXPECT_EQ(pasteboard.read("morvane.b"), bytes);
}

} // namespace
} // namespace veltrano
