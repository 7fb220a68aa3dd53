// SPDX-License-Identifier: GPL-3.0-or-later
// The four waveforms of the reference tone.
#include "audio/Waveform.h"

#include <cmath>
#include <numbers>

namespace veltrano::waveform {

namespace {

double fraction(double phase) { return phase - std::trunc(phase); }

/// From a phase to the middle of its cycle.
double untilHalf(double phase) { return std::trunc(phase) - phase + 0.5; }

double plainSawtooth(double fraction) { return fraction < 0.5 ? 2 * fraction : 2 * fraction - 2; }

double plainSquare(double fraction) { return fraction < 0.5 ? 1 : -1; }

} // namespace

double sine(double phase, double) { return std::sin(2 * std::numbers::pi * phase); }

double triangle(double phase, double) {
    const double t = 4 * fraction(phase);
    if (t < 1) return t;
    if (t < 3) return 2 - t;
    return t - 4;
}

double sawtooth(double phase, double increment) {
    const double begin = plainSawtooth(fraction(phase));
    const double end = plainSawtooth(fraction(phase + increment));
    if (!(begin > end)) return (begin + end) / 2;
    // The jump lies inside the sample: both slopes by their shares of it.
    const double before = untilHalf(phase);
    return ((increment - before) * (1 + end) + (3 + begin) * before) / increment * 0.5 - 1;
}

double square(double phase, double increment) {
    const double here = fraction(phase);
    const double there = fraction(phase + increment);
    const double begin = plainSquare(here);
    const double end = plainSquare(there);
    if (begin != end) {
        if (here < 0.5) return 2 * untilHalf(phase) / increment - 1;
        return 2 * there / increment - 1;
    }
    // The high half was skipped inside the sample.
    if (begin < 0 && here > there) return 1 / increment - 1;
    return begin;
}

Function function(int index) {
    switch (index) {
    case 1:
        return triangle;
    case 2:
        return sawtooth;
    case 3:
        return square;
    default:
        return sine;
    }
}

} // namespace veltrano::waveform
