// SPDX-License-Identifier: GPL-3.0-or-later
// How near the partials that were found come to those of a note whose strings are known.
#pragma once

#include "tests/support/PianoNote.h"

#include <span>
#include <vector>

namespace veltrano {

/// What the detector of partials made of the last four analyses of a note.
struct PartialAccuracy {
    bool isThinnedOut = false; ///< found in the history at a quarter of the rate
    double binHz = 0;          ///< width of that path's bins
    int found = 0;             ///< entries within half a bin of a partial of the strings
    /// Entries where a partial above an eighth of the rate folds to, which is not filtered out
    /// before three of four samples are dropped. They are nobody's partials.
    int folded = 0;
    int astray = 0; ///< entries that are neither
    /// Partials that have to be found and were not, because another one folds to within six bins
    /// of them and spoils their slopes.
    int hidden = 0;
    int missing = 0;    ///< those that were not found without such a reason
    double worstHz = 0; ///< farthest of those that were found
    double worstBins() const { return worstHz / binHz; }
};

/// The note's strings with partials of amplitude 1/n and different phases, steady.
/// @param highestHz partials from here on are left out, as those above 0.45 of the sample rate are
std::vector<float> evenlyFallingPartials(const PianoNote& note, std::size_t samples,
                                         double highestHz = 1e9);

/// @param samples four analyses of a steady part of the note
/// @param isEvenlyFalling each partial is as strong as in evenlyFallingPartials(), so that it is
///        known which ones have to be found
PartialAccuracy partialAccuracy(const PianoNote& note, std::span<const float> samples,
                                bool isEvenlyFalling);

} // namespace veltrano
