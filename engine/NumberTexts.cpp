// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/NumberTexts.h"

#include "platform/foundation/LenientNumber.h"

#include <cmath>
#include <limits>

namespace veltrano {

namespace {

constexpr const char* kPlusMinus = "\u00B1";

} // namespace

std::string plusMinusValueString(std::int32_t tenths) {
    const std::int64_t magnitude = std::abs(static_cast<std::int64_t>(tenths));
    std::string text = tenths > 0 ? "+" : tenths < 0 ? "-" : kPlusMinus;
    const std::int64_t whole = magnitude / 10;
    if (whole < 10) text += '0';
    text += std::to_string(whole);
    text += '.';
    text += static_cast<char>('0' + magnitude % 10);
    return text;
}

std::string plusMinusFloatString(float value) {
    const double v = value;
    if (std::abs(v) < 0.0005) return kPlusMinus + fixedDecimals(0.0, 3);
    return (v >= 0 ? "+" : "-") + fixedDecimals(std::abs(v), 3);
}

std::string frequencyString(double hz) { return fixedDecimals(hz, 3); }

std::int32_t truncated(double value) {
    constexpr double least = std::numeric_limits<std::int32_t>::min();
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) return 0;
    if (value <= least) return std::numeric_limits<std::int32_t>::min();
    if (value >= most) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

} // namespace veltrano
