// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that follow the size of what holds them.
#include "displays/AutoResizeGeometry.h"

#include <cmath>

namespace veltrano {

namespace {

float factor(double original, double present) noexcept {
    return original == 0 ? 1.0f : static_cast<float>(present / original);
}

double roundedDown(double length) noexcept {
    return static_cast<double>(std::floor(static_cast<float>(length)));
}

} // namespace

AxisFactors autoResizeFactors(Extent original, Extent present) noexcept {
    return {factor(original.width, present.width), factor(original.height, present.height)};
}

YUpRect wholePointFrame(const YUpRect& original, AxisFactors factors) noexcept {
    const YUpRect scaled = scaledFrame(original, factors);
    return {roundedDown(scaled.x), roundedDown(scaled.y), roundedDown(scaled.width),
            roundedDown(scaled.height)};
}

YUpRect scaledFrame(const YUpRect& original, AxisFactors factors) noexcept {
    const double x = static_cast<double>(factors.x);
    const double y = static_cast<double>(factors.y);
    return {original.x * x, original.y * y, original.width * x, original.height * y};
}

} // namespace veltrano
