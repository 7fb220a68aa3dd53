// SPDX-License-Identifier: GPL-3.0-or-later
// Between frames with y up, in doubles, and widget geometry.
#include "displays/WidgetFrame.h"

#include "platform/desktop/YUp.h"

namespace veltrano {

YUpRect frameOf(const QRect& geometry, int parentHeight) {
    const QRectF frame = YUp(parentHeight).rect(QRectF(geometry));
    return {frame.x(), frame.y(), frame.width(), frame.height()};
}

QRect geometryHolding(const YUpRect& frame, int parentHeight) {
    return YUp(parentHeight).rect(frame.x, frame.y, frame.width, frame.height).toAlignedRect();
}

} // namespace veltrano
