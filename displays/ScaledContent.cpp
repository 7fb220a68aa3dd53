// SPDX-License-Identifier: GPL-3.0-or-later
// Content that is drawn in its original coordinates, whatever its widget's size is now.
#include "displays/ScaledContent.h"

#include "displays/AutoResizeGeometry.h"
#include "displays/WidgetFrame.h"
#include "platform/desktop/YUp.h"

#include <QEvent>
#include <QPainter>

namespace veltrano {

ScaledContent::ScaledContent(QWidget* parent)
    : QWidget(parent),
      mFollower(*this, [this](QSize present, QSize old) { resizeWithSuperview(present, old); }) {}

QSizeF ScaledContent::contentSize() const {
    if (!mOriginal) return size();
    return {mOriginal->frame.width, mOriginal->frame.height};
}

YUpRect ScaledContent::frame() const {
    return mFrame ? *mFrame : frameOf(geometry(), mFollower.superviewSize().height());
}

bool ScaledContent::event(QEvent* event) {
    if (event->type() == QEvent::ParentChange) mFollower.superviewChanged();
    return QWidget::event(event);
}

void ScaledContent::resizeWithSuperview(QSize present, QSize old) {
    if (!mOriginal) mOriginal = {frameOf(geometry(), old.height()), extentOf(old)};
    const AxisFactors factors = autoResizeFactors(mOriginal->superviewSize, extentOf(present));
    mFrame = scaledFrame(mOriginal->frame, factors);
    setGeometry(geometryHolding(*mFrame, present.height()));
    update();
}

void ScaledContent::useContentCoordinates(QPainter& painter) const {
    if (!mFrame || mOriginal->frame.width <= 0 || mOriginal->frame.height <= 0) return;
    // The widget's geometry was widened to whole points; the frame lies a little inside.
    const YUp yUp(mFollower.superviewSize().height());
    const QRectF exact = yUp.rect(mFrame->x, mFrame->y, mFrame->width, mFrame->height);
    painter.translate(exact.topLeft() - QPointF(pos()));
    painter.scale(mFrame->width / mOriginal->frame.width, mFrame->height / mOriginal->frame.height);
}

} // namespace veltrano
