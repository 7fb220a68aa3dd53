// SPDX-License-Identifier: GPL-3.0-or-later
// The partials of a sound, key by key.
#pragma once

#include "analysis/Partials.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace veltrano {

/// What belongs to one key.
struct PartialData {
    float power = 0;             ///< of all partials that were merged into this key
    float cent = 0;              ///< [cents] from the key's target, positive: sharp
    std::int64_t noteNumber = 0; ///< key number, 9 (A0) ... 96 (C8)
    std::int64_t note = 0;       ///< pitch class, 0 (C) ... 11
    std::int64_t octave = 0;
    bool operator==(const PartialData&) const = default;
};

/// Where the keys lie; a stretch table has no part in it.
struct PartialTargets {
    double referencePitchHz = 440; ///< of A4
    /// A temperament laid onto its root key; without one the keys are equal.
    struct Tempered {
        int tonic = 0;                  ///< 0 (C) ... 11
        std::array<double, 12> cents{}; ///< offsets by scale degree
    };
    std::optional<Tempered> tempered;
};

constexpr std::size_t kMostPartials = 16;

/// Those worth showing, in rising frequency: weak ones below the strongest are dropped unless they
/// lie one or two octaves below it, and of the rest the sixteen strongest stay.
/// @param partials at least one, in any order
Partials filteredPartials(const Partials& partials);

/// @param fraction of a semitone from the equal-tempered key
/// @return [semitones] from the key's target
double calculateCent(double fraction, std::int64_t noteNumber, double hz,
                     const PartialTargets& targets);

/// The records of one drawing, and of the drawing before it, by which they are smoothed.
class PartialRecords {
public:
    /// Partials outside A0 ... C8 are dropped; those of the same key are merged. When the lowest
    /// key is the one of the last time, keys at the same place in both lists take the mean of both.
    /// @param partials at least one
    /// @return the new records, as records()
    std::span<const PartialData> generatePartialData(const Partials& partials,
                                                     const PartialTargets& targets);

    std::span<const PartialData> records() const { return {mPartial.data(), mPartialCount}; }

private:
    void smooth(std::span<PartialData> fresh) const;

    std::array<PartialData, kMostPartials> mPartial{};
    std::size_t mPartialCount = 0;
};

/// Whether a deviation counts as in tune: the threshold itself does not.
constexpr bool isInTune(float cent, float thresholdCents) {
    return -thresholdCents < cent && cent < thresholdCents;
}

/// What is written above a bar: the whole cents with their sign, "0" for none.
std::string centLabel(float cent);

/// The records in words.
/// @param details with "root note" before the first one and "cent" after each number
std::string partialsSpeech(std::span<const PartialData> records, float thresholdCents,
                           bool details);

} // namespace veltrano
