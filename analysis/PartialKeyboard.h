// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keys lie in the drawing of the partials.
#pragma once

#include <cstdint>
#include <span>

namespace veltrano {

/// Lengths are units of the drawing, y points up. The drawing is 781 x 207 units, whatever the size
/// of the window; the keyboard fills the lowest 89.
namespace partial_keyboard {

constexpr double kWidth = 781;
constexpr double kHeight = 207;
constexpr double kKeyboardHeight = 89;
constexpr double kOctaveWidth = 105; ///< seven white keys of 15
constexpr double kLeftOut = 75;      ///< C0 ... G#0 are not there
constexpr int kLowestKey = 9;        // A0
constexpr int kHighestKey = 96;      // C8
/// Where no deviation is.
constexpr double centreLine(double height) { return height * 139.0 / 207.0 + 0.5; }
constexpr double kMostCents = 50; ///< a bar is one unit per cent and no longer

/// The middle of a key. @param note pitch class
double centreOf(std::int64_t octave, std::int64_t note);
inline double centreOf(int key) { return centreOf(key / 12, key % 12); }

/// Shapes of keys.
enum class KeyType {
    black = 0,
    whiteBlackRight = 1,
    whiteBlackLeft = 2,
    whiteBlackBoth = 3,
    whiteAlone = 4
};
KeyType keyType(std::int64_t noteNumber);

struct Corner {
    double x; ///< from the key's middle
    double y;
};
/// The closed outline of a key.
std::span<const Corner> outlineOf(KeyType type);

} // namespace partial_keyboard
} // namespace veltrano
