// SPDX-License-Identifier: GPL-3.0-or-later
// The ring around the view that the keys go to.
#include "platform/desktop/FocusRing.h"

#include "platform/desktop/Appearance.h"
#include "tests/support/Contrast.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class View final : public QWidget {
public:
    explicit View(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::TabFocus); }
    void showFocus(Qt::FocusReason reason) {
        setFocus(reason);
        QApplication::processEvents();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::gray);
        painter.scale(3, 3); // whatever coordinates a view paints in
        ring.paint(painter);
    }

public:
    FocusRing ring{*this};
};

class FocusRingTest : public testing::Test {
protected:
    FocusRingTest() {
        mWindow.resize(200, 100);
        for (View* view : {&mFirst, &mSecond})
            view->setGeometry(view == &mFirst ? 0 : 100, 0, 100, 100);
        mWindow.show();
        mWindow.activateWindow();
        QApplication::processEvents();
    }
    static QColor at(View& view, int x, int y) { return view.grab().toImage().pixelColor(x, y); }

    QWidget mWindow;
    View mFirst{&mWindow};
    View mSecond{&mWindow};
};

TEST_F(FocusRingTest, AppearsWhenTheKeysHaveMovedTheFocus) {
    mFirst.showFocus(Qt::ActiveWindowFocusReason);
    EXPECT_FALSE(mFirst.ring.isShown()) << "a window that comes up shows none";
    EXPECT_EQ(at(mFirst, 0, 50), QColor(Qt::gray));
    mSecond.showFocus(Qt::TabFocusReason);
    EXPECT_TRUE(mSecond.ring.isShown());
    EXPECT_FALSE(mFirst.ring.isShown());
    const QPalette palette = mSecond.palette();
    for (const QPoint& edge : {QPoint(0, 50), QPoint(99, 50), QPoint(50, 0), QPoint(50, 99)})
        EXPECT_EQ(at(mSecond, edge.x(), edge.y()), palette.color(QPalette::Highlight));
    EXPECT_EQ(at(mSecond, 1, 50), palette.color(QPalette::Highlight));
    EXPECT_EQ(at(mSecond, 2, 50), palette.color(QPalette::Window));
    EXPECT_EQ(at(mSecond, 3, 50), QColor(Qt::gray));
    EXPECT_EQ(at(mFirst, 0, 50), QColor(Qt::gray));
}

TEST_F(FocusRingTest, ComesBackAsItWasAndGoesWithAClick) {
    mSecond.showFocus(Qt::ActiveWindowFocusReason);
    mFirst.showFocus(Qt::ShortcutFocusReason);
    EXPECT_TRUE(mFirst.ring.isShown());
    mFirst.clearFocus();
    EXPECT_FALSE(mFirst.ring.isShown());
    mFirst.showFocus(Qt::ActiveWindowFocusReason);
    EXPECT_TRUE(mFirst.ring.isShown());
    mFirst.clearFocus();
    mFirst.showFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(mFirst.ring.isShown());
}

TEST_F(FocusRingTest, AppearsWhereTheKeysFindNoOtherView) {
    mFirst.showFocus(Qt::ActiveWindowFocusReason);
    const auto press = [this](int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&mFirst, &event);
    };
    press(Qt::Key_A);
    EXPECT_FALSE(mFirst.ring.isShown());
    press(Qt::Key_F6);
    EXPECT_TRUE(mFirst.ring.isShown());
}

TEST(FocusRing, StandsOutInBothAppearances) {
    constexpr double kEnough = 3; // : 1
    for (const auto choice : {AppearanceChoice::light, AppearanceChoice::dark}) {
        const QPalette palette = Appearance::palette(choice);
        EXPECT_GE(contrast(palette.color(QPalette::Highlight), palette.color(QPalette::Window)),
                  kEnough);
    }
}

} // namespace
} // namespace veltrano
