// SPDX-License-Identifier: GPL-3.0-or-later
// A view that keeps its place and its share of what holds it.
#include "displays/AutoResizeView.h"

#include "displays/AutoResizeGeometry.h"
#include "displays/WidgetFrame.h"

#include <QEvent>

namespace veltrano {

AutoResizeView::AutoResizeView(QWidget* parent)
    : QWidget(parent),
      mFollower(*this, [this](QSize present, QSize) { resizeWithSuperview(present); }) {
    moveToSuperview();
}

AutoResizeView::AutoResizeView(const YUpRect& frame, QWidget* parent) : AutoResizeView(parent) {
    mOriginalFrame = frame;
    setGeometry(geometryHolding(frame, mFollower.superviewSize().height()));
}

bool AutoResizeView::event(QEvent* event) {
    if (event->type() == QEvent::ParentChange) {
        mFollower.superviewChanged();
        moveToSuperview();
    }
    return QWidget::event(event);
}

// A view that is put into its parent later takes that parent's size as the original one; the frame
// counts from the parent's lower left corner, so it is only placed now.
void AutoResizeView::moveToSuperview() {
    if (parentWidget() == nullptr || mOriginalSuperviewBounds) return;
    mOriginalSuperviewBounds = extentOf(mFollower.superviewSize());
    if (mOriginalFrame) {
        setGeometry(geometryHolding(*mOriginalFrame, mFollower.superviewSize().height()));
    }
}

void AutoResizeView::resizeWithSuperview(QSize present) {
    const Extent original = *mOriginalSuperviewBounds;
    if (!mOriginalFrame) mOriginalFrame = frameOf(geometry(), static_cast<int>(original.height));
    const AxisFactors factors = autoResizeFactors(original, extentOf(present));
    setGeometry(geometryHolding(wholePointFrame(*mOriginalFrame, factors), present.height()));
}

} // namespace veltrano
