// SPDX-License-Identifier: GPL-3.0-or-later
// A panel behind other views.
#include "displays/AutoResizeBox.h"

#include "platform/desktop/Appearance.h"

#include <QPainter>

namespace veltrano {

void AutoResizeBox::paintEvent(QPaintEvent*) {
    constexpr double kHalfLine = 0.5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    useContentCoordinates(painter);
    painter.setPen(QPen(Appearance::hairlineColor(palette()), 2 * kHalfLine));
    painter.setBrush(palette().color(QPalette::Base));
    const QRectF outline =
        QRectF(QPointF(), contentSize()).adjusted(kHalfLine, kHalfLine, -kHalfLine, -kHalfLine);
    painter.drawRoundedRect(outline, mRadius, mRadius);
}

} // namespace veltrano
