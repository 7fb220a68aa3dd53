// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/NoteEvaluation.h"

#include "tuning/PitchClass.h"

#include <cmath>

namespace veltrano {

namespace {

/// Octaves above C0 less a quarter tone; half a semitone makes truncation round to the nearest key.
double octavesAboveC0(float frequencyHz, float referencePitchHz) {
    const float ratio = frequencyHz / referencePitchHz;
    return (12.0 * std::log2(double(ratio)) + (double(kKeyA4) + 0.5)) / 12.0;
}

/// Moves to the neighbouring key where the stretch has brought its target nearer. One step at most.
void shiftToNeighbour(NoteReading& reading, std::span<const double, kKeys> stretch) {
    double& d = reading.deviation;
    if (d > 0.5) {
        if (reading.key >= kKeys - 1) return;
        ++reading.key;
        d -= 1.0;
    } else if (reading.key > 0 && d < -0.5) {
        --reading.key;
        d += 1.0;
    } else {
        return;
    }
    // kept: d still contains the stretch of the key before the shift
    reading.stretchCents = stretch[static_cast<std::size_t>(reading.key)];
}

} // namespace

KeyTarget calculateCent(double deviation, int key, double stretchCents, float frequencyHz,
                        const TuningChoice& tuning) {
    const int n = key - kKeyA4;
    const double r = tuning.referencePitchHz;
    if (!tuning.isTemperamentSelected) {
        return {r * std::pow(2.0, (stretchCents / 100.0 + n) / 12.0), deviation};
    }
    const auto degree = static_cast<std::size_t>((key + 12 - tuning.tonic) % 12);
    const double cents = 100.0 * n + tuning.temperament[degree] + stretchCents;
    const double ideal = r * std::pow(2.0, cents / 1200.0);
    return {ideal, 12.0 * std::log2(double(frequencyHz) / ideal)};
}

std::optional<NoteReading> evaluateNote(float frequencyHz, const TuningChoice& tuning) {
    const double x = octavesAboveC0(frequencyHz, tuning.referencePitchHz);
    // Far outside the keys, or not a number: neither can be made an integer.
    if (!(x > -2.0 && x < 10.0)) return std::nullopt;

    NoteReading reading;
    double octave = 0;
    const double s = std::modf(x, &octave) * 12.0;
    double pitchClass = 0;
    reading.deviation = std::modf(s, &pitchClass) - 0.5;
    reading.octave = static_cast<int>(octave);
    reading.key = static_cast<int>(pitchClass) + 12 * reading.octave;
    if (reading.key < 0 || reading.key >= kKeys) return std::nullopt;

    reading.stretchCents = tuning.stretch[static_cast<std::size_t>(reading.key)];
    reading.deviation += reading.stretchCents / -100.0;
    shiftToNeighbour(reading, tuning.stretch);
    const KeyTarget target =
        calculateCent(reading.deviation, reading.key, reading.stretchCents, frequencyHz, tuning);
    reading.deviation = target.deviation;
    reading.idealHz = target.idealHz;
    return reading;
}

} // namespace veltrano
