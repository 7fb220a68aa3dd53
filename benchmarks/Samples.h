// SPDX-License-Identifier: GPL-3.0-or-later
// Frames of piano sound for the benchmarks.
#pragma once

#include "tests/support/PianoNote.h"

#include <cstddef>
#include <vector>

namespace veltrano::samples {

constexpr float kRateHz = 44100;
constexpr std::size_t kFrame = 5393; ///< samples of a frame at that rate

/// One frame out of the middle of a note.
/// @param key 0 (C0) ... 107 (B8)
inline std::vector<float> frameOfKey(int key, double centsOff = 0) {
    constexpr std::size_t kStart = 11025; // the hammer is no longer heard
    PianoNote note;
    note.key = key;
    note.centsOff = centsOff;
    note.seconds = 0.5;
    const std::vector<float> sound = note.render();
    return {sound.begin() + kStart, sound.begin() + kStart + kFrame};
}

/// The keys that are measured: low, middle, high.
constexpr int kKeys[] = {33, 57, 84};

} // namespace veltrano::samples
