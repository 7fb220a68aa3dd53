// SPDX-License-Identifier: GPL-3.0-or-later
// A window that keeps its proportions.
#include "app/ProportionalStage.h"

#include "tests/support/DrivenTimer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QScreen>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr ResizeKeys kNone{};
constexpr ResizeKeys kAlt{.alt = true};
constexpr ResizeKeys kShift{.shift = true};

class ProportionalStageTest : public testing::Test {
protected:
    ProportionalStageTest() {
        auto contents = std::make_unique<QWidget>();
        contents->resize(200, 100);
        auto timer = std::make_unique<DrivenTimer>();
        mTimer = timer.get();
        mStage = new ProportionalStage(std::move(contents), std::move(timer));
        mStage->setKeysSource([this] { return mKeys; });
        mWindow.setCentralWidget(mStage);
        mWindow.move(50, 50);
        mWindow.resize(200, 100);
        mWindow.show();
        QCoreApplication::processEvents();
        mTimer->cancel();
    }

    void drag(int width, int height) {
        mWindow.resize(width, height);
        QCoreApplication::processEvents();
    }
    void settle() {
        mTimer->fire();
        QCoreApplication::processEvents();
    }
    QRect contents() const { return mStage->contents().geometry(); }

    QMainWindow mWindow;
    ProportionalStage* mStage; // owned by the window
    DrivenTimer* mTimer;       // owned by the stage
    ResizeKeys mKeys;
};

TEST_F(ProportionalStageTest, ContentsAreScaledAndCentredWhileTheWindowIsDragged) {
    const struct {
        const char* name;
        QSize window;
        ResizeKeys keys;
        QRect contents;
        QSize settled;
    } kCases[] = {
        {"in proportion", {300, 150}, kNone, {0, 0, 300, 150}, {300, 150}},
        {"too wide", {400, 120}, kNone, {80, 0, 240, 120}, {240, 120}},
        {"too high", {300, 400}, kNone, {0, 125, 300, 150}, {300, 150}},
        {"Alt: 1.7 times", {340, 170}, kAlt, {70, 35, 200, 100}, {200, 100}},
        {"Alt: 2.4 times", {480, 300}, kAlt, {40, 50, 400, 200}, {400, 200}},
        {"Shift: any size", {333, 222}, kShift, {0, 0, 333, 222}, {333, 222}},
        {"Alt goes before Shift", {340, 170}, {true, true}, {70, 35, 200, 100}, {200, 100}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        mKeys = c.keys;
        drag(210, 105);
        drag(c.window.width(), c.window.height());
        EXPECT_EQ(mWindow.size(), c.window) << "not before the time is over";
        EXPECT_EQ(contents(), c.contents);
        EXPECT_EQ(mTimer->waiting(), 150);
        settle();
        EXPECT_EQ(mWindow.size(), c.settled);
        EXPECT_EQ(contents(), QRect(QPoint(), c.settled));
    }
}

TEST_F(ProportionalStageTest, EveryChangeOfSizeStartsTheTimeAnew) {
    const int before = mTimer->starts();
    drag(300, 120);
    drag(310, 120);
    drag(320, 120);
    EXPECT_EQ(mTimer->starts(), before + 3);
    settle();
    EXPECT_EQ(mWindow.size(), QSize(240, 120));
}

TEST_F(ProportionalStageTest, KeysAreThoseOfTheLastEvent) {
    mKeys = kShift;
    drag(300, 120);
    mKeys = kNone;
    drag(301, 120);
    mKeys = kShift; // pressed after the last event: too late
    settle();
    EXPECT_EQ(mWindow.size(), QSize(240, 120));

    drag(300, 120);
    mKeys = kNone; // let go after the last event
    settle();
    EXPECT_EQ(mWindow.size(), QSize(300, 120));
}

TEST_F(ProportionalStageTest, ComesToRest) {
    for (int width = 201; width < 260; ++width) {
        SCOPED_TRACE(width);
        drag(width, 130);
        settle();
        settle();
        const QSize rest = mWindow.size();
        for (int turn = 0; turn < 3; ++turn)
            settle();
        EXPECT_EQ(mWindow.size(), rest);
        EXPECT_EQ(contents().size(), rest);
    }
}

TEST_F(ProportionalStageTest, MaximisedAndFullScreenWindowsStayAsTheyAre) {
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        SCOPED_TRACE(state);
        mWindow.setWindowState(state);
        QCoreApplication::processEvents();
        ASSERT_NE(mWindow.width(), 2 * mWindow.height()) << "a screen of other proportions";
        ASSERT_EQ(mWindow.windowState() & state, state);
        const QSize size = mWindow.size();
        settle();
        EXPECT_EQ(mWindow.size(), size);
        EXPECT_NEAR(contents().height() * 2, contents().width(), 1) << "in proportion all the same";
        EXPECT_NEAR(contents().center().x(), mStage->width() / 2, 1);
        mWindow.setWindowState(Qt::WindowNoState);
        QCoreApplication::processEvents();
    }
}

TEST_F(ProportionalStageTest, TiledWindowsStayAsTheyAre) {
    const QRect free = mWindow.screen()->availableGeometry();
    const QMargins frame(mWindow.geometry().left() - mWindow.frameGeometry().left(),
                         mWindow.geometry().top() - mWindow.frameGeometry().top(),
                         mWindow.frameGeometry().right() - mWindow.geometry().right(),
                         mWindow.frameGeometry().bottom() - mWindow.geometry().bottom());
    QRect leftHalf = free;
    leftHalf.setWidth(free.width() / 2);
    mWindow.setGeometry(leftHalf - frame);
    QCoreApplication::processEvents();
    const QSize size = mWindow.size();
    settle();
    EXPECT_EQ(mWindow.size(), size);
    mWindow.move(100, 5); // off the edges it is an ordinary window again
    drag(size.width() - 40, size.height() - 40);
    settle();
    EXPECT_EQ(mWindow.width(), 2 * mWindow.height());
}

TEST_F(ProportionalStageTest, IsNeverSmallerThanTheMinimum) {
    drag(20, 10);
    EXPECT_EQ(mWindow.size(), QSize(200, 100));
}

TEST_F(ProportionalStageTest, SomethingAboveTheStageKeepsItsHeight) {
    auto* bar = new QWidget;
    bar->setFixedHeight(30);
    mWindow.setMenuWidget(bar);
    QCoreApplication::processEvents();
    drag(400, 150);
    EXPECT_EQ(mStage->size(), QSize(400, 120));
    settle();
    EXPECT_EQ(mStage->size(), QSize(240, 120));
    EXPECT_EQ(mWindow.size(), QSize(240, 150));
}

TEST_F(ProportionalStageTest, EndsItsTimerWithItself) {
    drag(300, 120);
    delete mStage; // must not be called back; the timer goes with it
    mStage = nullptr;
    QCoreApplication::processEvents();
}

TEST(ProportionalStage, SettlesByItsOwnTimerToo) {
    auto contents = std::make_unique<QWidget>();
    contents->resize(200, 100);
    QMainWindow window;
    window.setCentralWidget(new ProportionalStage(std::move(contents)));
    window.move(50, 50);
    window.resize(400, 120);
    window.show();
    QElapsedTimer elapsed;
    elapsed.start();
    while (window.width() == 400 && elapsed.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    EXPECT_EQ(window.size(), QSize(240, 120));
    EXPECT_GE(elapsed.elapsed(), 140);
}

} // namespace
} // namespace veltrano
