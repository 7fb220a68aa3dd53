// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing pass of a window into a picture.
#pragma once

#include <QImage>

class QWidget;

namespace veltrano {

/// Lets @p window and everything in it paint itself exactly once, and gives the picture at the
/// window's device pixel ratio. Thread: main.
///
/// The window need not be visible. A visible window is also painted by the event loop whenever
/// something changed; who counts passes keeps it hidden.
QImage drawingPass(QWidget& window);

} // namespace veltrano
