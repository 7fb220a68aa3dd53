// SPDX-License-Identifier: GPL-3.0-or-later
// The help window, with and without its interface file.
#include "displays/HelpPanel.h"

#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <QFile>
#include <QScreen>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr char kInterface[] = "<ui version=\"4.0\"><class>Help</class><widget class=\"QWidget\" "
                              "name=\"Help\"><property name=\"geometry\"><rect><x>0</x><y>0</y>"
                              "<width>300</width><height>200</height></rect></property>"
                              "<property name=\"windowTitle\"><string>Help</string></property>"
                              "</widget></ui>";

class HelpPanelTest : public testing::Test {
protected:
    ArtworkFolder mFolder;
    RecordingLog mLog;
    int mBeeps = 0;
    HelpPanel mPanel{ResourceFolder(mFolder.path()), mLog, [this] { ++mBeeps; }};
};

// The frame's thickness is known only once the window system has drawn it.
bool isCentred(const QWidget& window) {
    constexpr int kFrame = 8;
    const QPoint off = window.geometry().center() - window.screen()->availableGeometry().center();
    return off.manhattanLength() <= kFrame;
}

TEST_F(HelpPanelTest, LoadsOnFirstUseAndCentres) {
    mFolder.write("Help.ui", kInterface);
    EXPECT_EQ(mPanel.window(), nullptr);
    mPanel.showHelpPanel();
    ASSERT_NE(mPanel.window(), nullptr);
    EXPECT_TRUE(mPanel.window()->isVisible());
    EXPECT_EQ(mPanel.window()->windowTitle(), "Help");
    EXPECT_TRUE(isCentred(*mPanel.window()));
    EXPECT_TRUE(mLog.lines.empty());
    EXPECT_EQ(mBeeps, 0);
}

TEST_F(HelpPanelTest, SecondTimeOnlyBringsTheSameWindowToTheFront) {
    mFolder.write("Help.ui", kInterface);
    mPanel.showHelpPanel();
    QWidget* window = mPanel.window();
    window->move(5, 7);
    mFolder.write("Help.ui", "gone"); // is not read again
    mPanel.showHelpPanel();
    EXPECT_EQ(mPanel.window(), window);
    EXPECT_EQ(window->pos(), QPoint(5, 7)) << "not centred while it is visible";
    window->close();
    mPanel.showHelpPanel();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(isCentred(*window));
    EXPECT_TRUE(mLog.lines.empty());
}

TEST_F(HelpPanelTest, MinimisedItIsNotVisible) {
    mFolder.write("Help.ui", kInterface);
    mPanel.showHelpPanel();
    QWidget* window = mPanel.window();
    window->move(5, 7);
    window->showMinimized();
    mPanel.showHelpPanel();
    EXPECT_FALSE(window->isMinimized());
    EXPECT_TRUE(isCentred(*window));
}

TEST_F(HelpPanelTest, WithoutItsFileItLogsBeepsAndStops) {
    const struct {
        const char* name;
        const char* contents; // null: no file
    } kCases[] = {{"missing", nullptr},
                  {"empty", ""},
                  {"no interface file", "<svg/>"},
                  {"cut off", "<ui version=\"4.0\"><widget class=\"QWid"}};
    int calls = 0;
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        if (c.contents != nullptr) mFolder.write("Help.ui", c.contents);
        mLog.lines.clear();
        mLog.details.clear();
        mPanel.showHelpPanel();
        EXPECT_EQ(mLog.lines, std::vector<std::string>{"Failed to load Help.nib"});
        EXPECT_EQ(mLog.details.size(), 1u);
        EXPECT_EQ(mBeeps, ++calls);
        EXPECT_EQ(mPanel.window(), nullptr);
    }
    mFolder.write("Help.ui", kInterface);
    mPanel.showHelpPanel(); // tried anew each time
    EXPECT_NE(mPanel.window(), nullptr);
}

TEST(HelpPanel, WithoutThePagesItSaysWhereTheyBelong) {
    ArtworkFolder folder;
    QFile own(ResourceFolder::find().interfaceFile("Help"));
    ASSERT_TRUE(own.open(QIODevice::ReadOnly));
    folder.write("Help.ui", own.readAll());
    RecordingLog log;
    HelpPanel panel(ResourceFolder(folder.path()), log, [] { FAIL() << "beeped"; });
    panel.showHelpPanel();
    ASSERT_NE(panel.window(), nullptr);
    EXPECT_EQ(log.details.size(), 1u);
    const auto* text = panel.window()->findChild<QTextBrowser*>("helpText");
    EXPECT_TRUE(text->toPlainText().contains(folder.path() + "/help/en"));
}

} // namespace
} // namespace veltrano
