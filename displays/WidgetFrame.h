// SPDX-License-Identifier: GPL-3.0-or-later
// Between frames with y up, in doubles, and widget geometry.
#pragma once

#include "displays/Geometry.h"

#include <QRect>
#include <QSize>

namespace veltrano {

inline Extent extentOf(QSize size) {
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

/// The frame of a widget with this geometry in a parent of that height.
YUpRect frameOf(const QRect& geometry, int parentHeight);
/// The smallest widget geometry that holds @p frame; exactly the frame when that is in whole
/// points.
QRect geometryHolding(const YUpRect& frame, int parentHeight);

} // namespace veltrano
