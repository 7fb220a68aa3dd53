// SPDX-License-Identifier: GPL-3.0-or-later
// The partials of a sound, key by key.
#include "analysis/PartialRecords.h"

#include "analysis/PartialKeyboard.h"
#include "platform/foundation/LenientNumber.h"
#include "tuning/PitchClass.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace veltrano {

namespace {

using partial_keyboard::kHighestKey;
using partial_keyboard::kLowestKey;

constexpr double kA4 = kKeyA4;
constexpr float kWeakShare = 0.125f; ///< of the strongest; what is weaker and below may be noise
constexpr double kOctaveCents = 1200;
constexpr double kSubharmonicCents = 25; ///< how near an octave below a fundamental has to lie

constexpr std::array<std::string_view, 12> kSpokenNames{
    "C",      "C sharp", "D", "E flat",  "E",
    "F",      "F sharp", "G", "G sharp", "ay", // so that a voice says the letter, not the article
    "B flat", "B"};

bool isSubharmonic(double hz, double ofHz) {
    const auto shifted = [ofHz](double cents) { return ofHz * std::exp2(cents / kOctaveCents); };
    for (const double octaves : {1.0, 2.0}) {
        const double centre = -kOctaveCents * octaves;
        if (hz >= shifted(centre - kSubharmonicCents) && hz <= shifted(centre + kSubharmonicCents))
            return true;
    }
    return false;
}

struct Place {
    PartialData key;
    double fraction = 0; ///< of a semitone above the middle between this key and the one below
};

/// nullopt outside A0 ... C8.
std::optional<Place> placeOf(float hz, double referencePitchHz) {
    const double v = 12.0 * std::log2(static_cast<double>(hz) / referencePitchHz) + (kA4 + 0.5);
    if (!(v >= double{kLowestKey} && v < double{kHighestKey + 1})) return std::nullopt;
    double octave = 0;
    double note = 0;
    Place place;
    place.fraction = std::modf(std::modf(v / 12.0, &octave) * 12.0, &note);
    place.key.noteNumber = static_cast<std::int64_t>(v);
    place.key.note = static_cast<std::int64_t>(note);
    place.key.octave = static_cast<std::int64_t>(octave);
    return place;
}

/// Two partials of one key: the mean of their deviations by power.
/// @param semitones the deviation of @p later, in full precision
PartialData merged(const PartialData& before, PartialData later, double semitones) {
    const auto power = static_cast<double>(later.power);
    const auto powerBefore = static_cast<double>(before.power);
    const double mean =
        (semitones * power + powerBefore * static_cast<double>(before.cent) / 100.0) /
        (power + powerBefore);
    later.cent = static_cast<float>(mean * 100.0);
    later.power += before.power;
    return later;
}

} // namespace

Partials filteredPartials(const Partials& partials) {
    Partials kept = partials;
    std::ranges::stable_sort(kept, std::ranges::greater(), &Partial::power);
    const Partial strongest = kept.front();
    const auto isNoise = [&strongest](const Partial& partial) {
        return partial.hz < strongest.hz && partial.power < strongest.power * kWeakShare &&
               !isSubharmonic(static_cast<double>(partial.hz), static_cast<double>(strongest.hz));
    };
    std::erase_if(kept, isNoise); // the strongest is not below itself
    if (kept.size() > kMostPartials) kept.resize(kMostPartials);
    std::ranges::stable_sort(kept, std::ranges::less(), &Partial::hz);
    return kept;
}

double calculateCent(double fraction, std::int64_t noteNumber, double hz,
                     const PartialTargets& targets) {
    if (!targets.tempered) return fraction;
    const std::int64_t row = (noteNumber + 12 - targets.tempered->tonic) % 12;
    const double cents = (static_cast<double>(noteNumber) - kA4) * 100.0 +
                         targets.tempered->cents[static_cast<std::size_t>(row)];
    const double target = targets.referencePitchHz * std::exp2(cents / kOctaveCents);
    return 12.0 * std::log2(hz / target);
}

std::span<const PartialData> PartialRecords::generatePartialData(const Partials& partials,
                                                                 const PartialTargets& targets) {
    std::array<PartialData, kMostPartials> fresh{};
    std::size_t count = 0;
    for (const Partial& partial : filteredPartials(partials)) {
        const std::optional<Place> place = placeOf(partial.hz, targets.referencePitchHz);
        if (!place) continue;
        PartialData record = place->key;
        const double semitones = calculateCent(place->fraction - 0.5, record.noteNumber,
                                               static_cast<double>(partial.hz), targets);
        record.power = partial.power;
        record.cent = static_cast<float>(semitones * 100.0);
        const bool isSameKey = count > 0 && fresh[count - 1].noteNumber == record.noteNumber;
        if (isSameKey) record = merged(fresh[--count], record, semitones);
        fresh[count++] = record;
    }
    smooth({fresh.data(), count});
    mPartial = fresh;
    mPartialCount = count;
    return records();
}

/// When the lowest key is another one, a new note has begun and nothing is smoothed.
void PartialRecords::smooth(std::span<PartialData> fresh) const {
    if (fresh.empty() || fresh[0].noteNumber != mPartial[0].noteNumber) return;
    for (std::size_t i = 0; i < std::min(fresh.size(), mPartialCount); ++i) {
        if (fresh[i].noteNumber != mPartial[i].noteNumber) continue;
        fresh[i].power = (fresh[i].power + mPartial[i].power) * 0.5f;
        fresh[i].cent = (fresh[i].cent + mPartial[i].cent) * 0.5f;
    }
}

std::string centLabel(float cent) {
    const long rounded = std::lround(cent);
    return (rounded > 0 ? "+" : "") + std::to_string(rounded);
}

std::string partialsSpeech(std::span<const PartialData> records, float thresholdCents,
                           bool details) {
    if (records.empty()) return "no partials";
    std::string text =
        records.size() == 1 ? "one partial: " : std::to_string(records.size()) + " partials: ";
    if (details) text += "root note, ";
    for (const PartialData& record : records) {
        text += kSpokenNames[static_cast<std::size_t>(record.note)];
        text += ' ' + std::to_string(record.octave) + ", ";
        text += isInTune(record.cent, thresholdCents)
                    ? "in tune"
                    : signedDecimals(static_cast<double>(record.cent), 0);
        text += details ? " cent. " : ". "; // kept: "in tune cent"
    }
    return text;
}

} // namespace veltrano
