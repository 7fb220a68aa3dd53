// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows stand.
#include "platform/desktop/WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(WindowPlacement, CentresOnTheFreeArea) {
    QWidget window;
    const QRect free = window.screen()->availableGeometry();
    window.resize(200, 100);
    centreOnScreen(window);
    EXPECT_EQ(window.pos(),
              free.topLeft() + QPoint((free.width() - 200) / 2, (free.height() - 100) / 2));
    window.resize(free.width() + 100, free.height() + 300);
    centreOnScreen(window);
    EXPECT_EQ(window.pos(), free.topLeft()) << "its title bar stays on the screen";
}

TEST(WindowPlacement, Tiled) {
    const QRect available(100, 30, 1600, 1000); // behind a dock and a panel
    const struct {
        const char* name;
        QRect frame;
        bool tiled;
    } kCases[] = {
        {"somewhere", {300, 200, 600, 356}, false},
        {"in a corner", {100, 30, 600, 356}, false},
        {"along one edge", {100, 300, 600, 356}, false},
        {"left half", {100, 30, 800, 1000}, true},
        {"right half", {900, 30, 800, 1000}, true},
        {"a third in the middle", {633, 30, 533, 1000}, true},
        {"lower half", {100, 530, 1600, 500}, true},
        {"lower right quarter", {900, 530, 800, 500}, true},
        {"upper left quarter, a size increment off", {100, 30, 798, 499}, true},
        {"as large as a quarter, in the middle", {500, 280, 800, 500}, false},
        {"as large as a half, off the edges", {500, 35, 800, 990}, false},
        {"everything", {100, 30, 1600, 1000}, true},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(isTiled(c.frame, available), c.tiled);
    }
}

TEST(WindowPlacement, Floating) {
    const QRect available(100, 30, 1600, 1000);
    const QRect somewhere(300, 200, 600, 356);
    const QRect half(100, 30, 800, 1000);
    EXPECT_TRUE(isFloating(Qt::WindowNoState, somewhere, available));
    EXPECT_TRUE(isFloating(Qt::WindowActive, somewhere, available));
    EXPECT_FALSE(isFloating(Qt::WindowMaximized, somewhere, available));
    EXPECT_FALSE(isFloating(Qt::WindowFullScreen | Qt::WindowActive, somewhere, available));
    EXPECT_FALSE(isFloating(Qt::WindowNoState, half, available));
}

} // namespace
} // namespace veltrano
