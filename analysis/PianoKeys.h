// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of a keyboard that fills its view.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// Lengths are those of the view, y points up.
namespace piano_keys {

constexpr int kWhiteKeys = 52; ///< A0 ... C8

/// Which white key a key is, 0 (A0) ... 51 (C8); a black key has that of the white key to its left.
/// @param key >= 0; what is not on the keyboard gives an index outside 0 ... 51, or 51 for C#8
int whiteKeyIndex(int key);

struct Bounds {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct Key {
    Bounds place;
    bool isWhite = false;
    bool isMarked = false;
    bool isAlternating = false; ///< a white key of every other octave
};

struct Label {
    double x = 0; ///< the middle of the text
    double y = 0;
    double fontSize = 0;
    bool isOnWhite = false;
    std::string text; ///< "A4"
};

struct Keyboard {
    std::vector<Key> keys; ///< in the order of drawing: white ones, then black ones over them
    std::optional<Label> label;
};

/// @param markedKey key number (0 is C0); a negative one, or one that is not on the keyboard, marks
///        nothing
Keyboard keyboard(int markedKey, const Bounds& bounds);

} // namespace piano_keys
} // namespace veltrano
