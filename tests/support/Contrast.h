// SPDX-License-Identifier: GPL-3.0-or-later
// How well two colours can be told apart.
#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace veltrano {

/// Relative luminance of an sRGB colour, 0 ... 1, by the accessibility guidelines for the web.
inline double luminance(const QColor& color) {
    const auto linear = [](float part) {
        const auto c = static_cast<double>(part);
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// 1 ... 21.
inline double contrast(const QColor& a, const QColor& b) {
    const double high = std::max(luminance(a), luminance(b));
    const double low = std::min(luminance(a), luminance(b));
    return (high + 0.05) / (low + 0.05);
}

} // namespace veltrano
