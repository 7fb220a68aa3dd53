// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that follow the size of what holds them.
#pragma once

#include "displays/Geometry.h"

namespace veltrano {

/// Present size over original size, divided in double and narrowed to single precision. An axis
/// whose original length is 0 (a view that was never in a superview) keeps its factor at 1.
AxisFactors autoResizeFactors(Extent original, Extent present) noexcept;

/// Origin and size times the factors, rounded down to whole points in single precision.
YUpRect wholePointFrame(const YUpRect& original, AxisFactors factors) noexcept;

/// Origin and size times the factors, not rounded.
YUpRect scaledFrame(const YUpRect& original, AxisFactors factors) noexcept;

} // namespace veltrano
