// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows stand on their screen.
#include "platform/desktop/WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

namespace veltrano {

namespace {

constexpr int kTolerance = 2; // [pixels] size increments and borders of the window managers

bool meets(int a, int b) { return std::abs(a - b) <= kTolerance; }
bool isHalf(int a, int b) { return std::abs(2 * a - b) <= 2 * kTolerance; }

} // namespace

void centreOnScreen(QWidget& window) {
    const QScreen* screen = window.screen();
    if (screen == nullptr) return;
    const QRect available = screen->availableGeometry();
    const QSize size = window.frameGeometry().size();
    const QPoint centred((available.width() - size.width()) / 2,
                         (available.height() - size.height()) / 2);
    window.move(available.topLeft() + QPoint(std::max(0, centred.x()), std::max(0, centred.y())));
}

bool isTiled(const QRect& frame, const QRect& available) {
    const bool left = meets(frame.left(), available.left());
    const bool right = meets(frame.right(), available.right());
    const bool top = meets(frame.top(), available.top());
    const bool bottom = meets(frame.bottom(), available.bottom());
    const bool fullHeight = top && bottom;
    const bool fullWidth = left && right;
    const bool quarter = (left || right) && (top || bottom) &&
                         isHalf(frame.width(), available.width()) &&
                         isHalf(frame.height(), available.height());
    return fullHeight || fullWidth || quarter;
}

bool isFloating(Qt::WindowStates state, const QRect& frame, const QRect& available) {
    const bool isPlaced = state.testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen);
    return !isPlaced && !isTiled(frame, available);
}

} // namespace veltrano
