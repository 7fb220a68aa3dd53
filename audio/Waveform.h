// SPDX-License-Identifier: GPL-3.0-or-later
// The four waveforms of the reference tone.
#pragma once

namespace veltrano {

/// Each gives one sample in [-1, 1].
/// @param phase [cycles] >= 0, of the beginning of the sample
/// @param increment [cycles] of the phase per sample, >= 0
/// Thread: any. Double precision; the phase may have grown for years.
namespace waveform {

using Function = double (*)(double phase, double increment);

double sine(double phase, double increment);
double triangle(double phase, double increment);
/// Band-limited: the mean of the wave over the sample where it jumps, 0 at phase 0, rising.
double sawtooth(double phase, double increment);
/// Band-limited in the same way; +1 in the first half of the cycle.
double square(double phase, double increment);

/// 0 sine, 1 triangle, 2 sawtooth, 3 square; any other index is the sine.
Function function(int index);

} // namespace waveform
} // namespace veltrano
