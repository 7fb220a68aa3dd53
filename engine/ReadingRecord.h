// SPDX-License-Identifier: GPL-3.0-or-later
// What the tuner holds after one update cycle.
#pragma once

#include "engine/NoteEvaluation.h"

#include <cstdint>
#include <optional>

namespace veltrano {

struct ReadingRecord {
    std::uint64_t frame = 0;            ///< 0, 1, 2, ...
    double seconds = 0;                 ///< of the recording at the frame's last sample
    float rawFrequency = 0;             ///< [Hz] this frame's estimate, 0 without one
    float rawPeak = 0;                  ///< amplitude, 1 = full scale
    int peak = 0;                       ///< [dB above the 16-bit floor] 0 ... 96
    float frequency = 0;                ///< [Hz] smoothed, 0 before the first
    float deviation = 0;                ///< [semitones] shown last
    std::optional<NoteReading> shown{}; ///< the reading shown last, empty before the first
    std::uint64_t dropped = 0;          ///< frames dropped so far
};

} // namespace veltrano
