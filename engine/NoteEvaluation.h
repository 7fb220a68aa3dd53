// SPDX-License-Identifier: GPL-3.0-or-later
// From a frequency to the key, its target and the deviation from it.
#pragma once

#include <optional>
#include <span>

namespace veltrano {

/// What the targets follow from.
struct TuningChoice {
    float referencePitchHz = 440.0f;         ///< of A4
    bool isTemperamentSelected = false;      ///< false: equal temperament
    int tonic = 0;                           ///< 0 (C) ... 11; where the table starts
    std::span<const double, 12> temperament; ///< [cents] entry 0 belongs to the tonic
    std::span<const double, 108> stretch;    ///< [cents] by key number
};

/// The target of one key and how far a frequency lies from it.
struct KeyTarget {
    double idealHz = 0;
    double deviation = 0; ///< [semitones] positive = sharp
};

/// What the tuner shows of one frequency.
struct NoteReading {
    int key = 0;          ///< 0 ... 107
    int octave = 0;       ///< of the frequency, before the key moved to its neighbour
    double deviation = 0; ///< [semitones] positive = sharp
    double idealHz = 0;
    double stretchCents = 0; ///< of the key
};

/// The target of @p key, with the deviation of @p frequencyHz from it.
///
/// In equal temperament the deviation is @p deviation as it came in; with a temperament it is
/// taken anew against the tempered, stretched target.
/// @param key 0 ... 107 @param stretchCents the stretch of the key
KeyTarget calculateCent(double deviation, int key, double stretchCents, float frequencyHz,
                        const TuningChoice& tuning);

/// The key nearest to @p frequencyHz. nullopt when it lies outside 0 ... 107 or is no number (a
/// frequency of 0, a reference pitch of 0).
std::optional<NoteReading> evaluateNote(float frequencyHz, const TuningChoice& tuning);

} // namespace veltrano
