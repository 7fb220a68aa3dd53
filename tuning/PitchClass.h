// SPDX-License-Identifier: GPL-3.0-or-later
// Key numbers and the spelling of the twelve pitch classes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace veltrano {

constexpr int kKeys = 108; ///< key numbers 0 (C0) ... 107 (B8), twelve per octave
constexpr int kKeyA4 = 57; ///< the key that has the reference pitch
constexpr int kNoKey = -1; ///< where a key number may be absent
constexpr int kPitchClasses = 12;

/// A letter and its accidental as shown on the tuner window. The spelling is fixed, whatever the
/// temperament or its root key.
struct NoteSpelling {
    char letter;                 ///< 'A' ... 'G'
    std::string_view accidental; ///< " ", U+266F (sharp) or U+266D (flat), UTF-8
};

constexpr std::string_view kNoAccidental = " ";
constexpr std::string_view kSharpSign = "\u266F";
constexpr std::string_view kFlatSign = "\u266D";

inline constexpr std::array<NoteSpelling, kPitchClasses> kNoteSpellings{{
    {'C', kNoAccidental},
    {'C', kSharpSign},
    {'D', kNoAccidental},
    {'E', kFlatSign},
    {'E', kNoAccidental},
    {'F', kNoAccidental},
    {'F', kSharpSign},
    {'G', kNoAccidental},
    {'G', kSharpSign},
    {'A', kNoAccidental},
    {'B', kFlatSign},
    {'B', kNoAccidental},
}};

/// @param key 0 ... 107
constexpr const NoteSpelling& spellingOfKey(int key) {
    return kNoteSpellings[static_cast<std::size_t>(key % kPitchClasses)];
}

/// Whether the key is one of the front row: C, D, E, F, G, A, B.
constexpr bool isWhiteKey(std::int64_t pitchClass) { return ((0xAB5 >> pitchClass) & 1) != 0; }

} // namespace veltrano
