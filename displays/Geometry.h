// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes and rectangles in points, with y pointing up.
#pragma once

namespace veltrano {

/// A width and a height. [points]
struct Extent {
    double width = 0;
    double height = 0;
    bool operator==(const Extent&) const = default;
};

/// A rectangle whose origin is its lower left corner, measured from the lower left corner of
/// whatever holds it. [points]
struct YUpRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const YUpRect&) const = default;
};

/// The factors of the two axes, in single precision.
struct AxisFactors {
    float x = 1.0f;
    float y = 1.0f;
    bool operator==(const AxisFactors&) const = default;
};

} // namespace veltrano
