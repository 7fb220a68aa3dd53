// SPDX-License-Identifier: GPL-3.0-or-later
// Where the needle stands on the dial, in the units of the dial artwork.
#include "displays/Dial.h"

#include <cmath>
#include <limits>

namespace veltrano::dial {

namespace {

// |truncation of cents|; what no integer can hold is off any scale.
long wholeCents(float cents) noexcept {
    constexpr float kConvertible = 2147483648.0f;
    const float whole = std::fabs(std::trunc(cents));
    return whole < kConvertible ? static_cast<long>(whole) : std::numeric_limits<long>::max();
}

// Divided in double, used in single precision.
float factor(double length, double natural) noexcept {
    return natural == 0 ? 0.0f : static_cast<float>(length / natural);
}

} // namespace

Pose needlePose(float cents, long threshold) noexcept {
    const long whole = wholeCents(cents);
    Needle needle = Needle::normal;
    if (threshold > whole) {
        needle = Needle::inTune;
    } else if (whole >= kEndStop) {
        needle = Needle::endStop;
        cents = cents >= 0 ? float{kEndStop} : -float{kEndStop};
    }
    return {needle, cents * kUnitsPerCent + kCentreX};
}

YUpRect needleRect(float centreX, Extent needle, Extent dial, Extent bounds) noexcept {
    const double sx = static_cast<double>(factor(bounds.width, dial.width));
    const double sy = static_cast<double>(factor(bounds.height, dial.height));
    const double left = static_cast<double>(centreX) - 0.5 * needle.width;
    return {left * sx, kNeedleBaseline * sy, needle.width * sx, needle.height * sy};
}

} // namespace veltrano::dial
