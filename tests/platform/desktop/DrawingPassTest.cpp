// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing pass of a window.
#include "platform/desktop/DrawingPass.h"

#include <QPainter>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

struct Counting : QWidget {
    using QWidget::QWidget;
    void paintEvent(QPaintEvent*) override {
        ++passes;
        QPainter(this).fillRect(rect(), QColor(255, 0, 0));
    }
    int passes = 0;
};

TEST(DrawingPass, EverythingPaintsItselfOnceEachTime) {
    QWidget window;
    window.resize(60, 40);
    Counting child(&window);
    child.setGeometry(10, 10, 20, 20);
    Counting overlapping(&window);
    overlapping.setGeometry(20, 20, 20, 20);
    for (int call = 1; call <= 3; ++call) {
        const QImage picture = drawingPass(window);
        EXPECT_EQ(child.passes, call);
        EXPECT_EQ(overlapping.passes, call);
        EXPECT_EQ(picture.size(), QSize(static_cast<int>(60 * window.devicePixelRatioF()),
                                        static_cast<int>(40 * window.devicePixelRatioF())));
        EXPECT_EQ(picture.devicePixelRatio(), window.devicePixelRatioF());
        EXPECT_EQ(picture.pixel((QPointF(15, 15) * picture.devicePixelRatio()).toPoint()),
                  0xffff0000u);
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 255) << "the window's own background";
    }
}

TEST(DrawingPass, ChildrenHearOfASizeSetWhileHidden) {
    QWidget window;
    Counting child(&window);
    child.resize(10, 10);
    drawingPass(window);
    child.resize(50, 30);
    window.resize(50, 30);
    const QImage picture = drawingPass(window);
    EXPECT_EQ(picture.pixel(picture.width() - 1, picture.height() - 1), 0xffff0000u);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace veltrano
