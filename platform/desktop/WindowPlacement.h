// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows stand on their screen.
#pragma once

#include <QRect>
#include <Qt>

class QWidget;

namespace veltrano {

/// Moves @p window to the middle of its screen's free area, its upper left corner always inside.
/// (Where the window system places windows itself, as on Wayland, this has no effect.)
void centreOnScreen(QWidget& window);

/// Whether a window of that outer frame fills an edge-to-edge half, a third column or a quarter of
/// the free area of its screen, as the window managers' tiling leaves it. No window system of ours
/// tells an application so; the frame does.
bool isTiled(const QRect& frame, const QRect& available);

/// Whether a window may choose its own size: it is neither maximised, full screen nor tiled.
bool isFloating(Qt::WindowStates state, const QRect& frame, const QRect& available);

} // namespace veltrano
