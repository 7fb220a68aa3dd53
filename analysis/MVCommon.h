// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis views share.
#pragma once

#include <QByteArray>
#include <QColor>

class QImage;
class QPainter;
class QPointF;
class QRectF;

namespace veltrano {

/// Thread: main.
class MVCommon {
public:
    /// Whether the user interface is dark just now. The views ask when they are made and at the
    /// start of every drawing; nothing announces a change.
    static bool appearanceIsDark();
};

/// @param level 0 black ... 1 white
QColor grey(double level, double alpha = 1.0);

/// A square of one point as whole device pixels: the nearest corner and the nearest width.
QRectF pointOnPixels(const QPainter& painter, const QPointF& topLeft);

/// Draws lines just inside @p rect, all as wide as the whole device pixels nearest to one point.
/// @param rect on whole device pixels
void frameRect(QPainter& painter, const QRectF& rect, const QColor& color);

/// The same picture marked with its pixels per length, so that it is pasted in its size.
QImage withDensity(QImage image);

/// @return a PNG file with that mark; empty for an image without pixels
QByteArray pngRepresentation(const QImage& image);

} // namespace veltrano
