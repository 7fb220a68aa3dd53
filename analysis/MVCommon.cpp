// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis views share.
#include "analysis/MVCommon.h"

#include "platform/desktop/Appearance.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace veltrano {

namespace {

/// A point, as the nearest whole number of device pixels, at least one.
double onePoint(double pixelsPerPoint) {
    return std::max(1.0, std::round(pixelsPerPoint)) / pixelsPerPoint;
}

} // namespace

// Without an application there are no palettes, so nothing is dark.
bool MVCommon::appearanceIsDark() { return qGuiApp != nullptr && Appearance::isDark(); }

QColor grey(double level, double alpha) {
    return QColor::fromRgbF(static_cast<float>(level), static_cast<float>(level),
                            static_cast<float>(level), static_cast<float>(alpha));
}

QRectF pointOnPixels(const QPainter& painter, const QPointF& topLeft) {
    const QTransform toDevice = painter.deviceTransform();
    const QPointF device = toDevice.map(topLeft);
    const QPointF nearest(std::round(device.x()), std::round(device.y()));
    return {toDevice.inverted().map(nearest),
            QSizeF(onePoint(toDevice.m11()), onePoint(toDevice.m22()))};
}

void frameRect(QPainter& painter, const QRectF& rect, const QColor& color) {
    const QTransform toDevice = painter.deviceTransform();
    const double width = onePoint(toDevice.m11());
    const double height = onePoint(toDevice.m22());
    const QRectF inner = rect.adjusted(width, height, -width, -height);
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), height), color);
    painter.fillRect(QRectF(rect.left(), inner.bottom(), rect.width(), height), color);
    painter.fillRect(QRectF(rect.left(), inner.top(), width, inner.height()), color);
    painter.fillRect(QRectF(inner.right(), inner.top(), width, inner.height()), color);
}

QImage withDensity(QImage image) {
    constexpr double kPerMetre = 96 / 0.0254; ///< points
    const int pixels = static_cast<int>(std::lround(kPerMetre * image.devicePixelRatio()));
    image.setDotsPerMeterX(pixels);
    image.setDotsPerMeterY(pixels);
    return image;
}

QByteArray pngRepresentation(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!withDensity(image).save(&buffer, "PNG")) return {};
    return png;
}

} // namespace veltrano
