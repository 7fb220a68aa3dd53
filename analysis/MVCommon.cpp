// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis views share.
#include "analysis/MVCommon.h"

#include "platform/desktop/Appearance.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace veltrano {

// Without an application there are no palettes, so nothing is dark.
bool MVCommon::appearanceIsDark() { return qGuiApp != nullptr && Appearance::isDark(); }

QColor grey(double level, double alpha) {
    return QColor::fromRgbF(static_cast<float>(level), static_cast<float>(level),
                            static_cast<float>(level), static_cast<float>(alpha));
}

void frameRect(QPainter& painter, const QRectF& rect, const QColor& color) {
    const QRectF inner = rect.adjusted(1, 1, -1, -1);
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), 1), color);
    painter.fillRect(QRectF(rect.left(), inner.bottom(), rect.width(), 1), color);
    painter.fillRect(QRectF(rect.left(), inner.top(), 1, inner.height()), color);
    painter.fillRect(QRectF(inner.right(), inner.top(), 1, inner.height()), color);
}

QByteArray pngRepresentation(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) return {};
    return png;
}

} // namespace veltrano
