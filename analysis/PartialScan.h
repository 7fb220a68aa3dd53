// SPDX-License-Identifier: GPL-3.0-or-later
// Peaks of a power spectrum.
#pragma once

#include "analysis/Partials.h"

#include <array>
#include <cstddef>
#include <span>

namespace veltrano {

/// The numbers of the analysis of partials. A power spectrum P holds the bins 0 ... 2047 of a frame
/// of 4096 samples; bin 0 is never used. Single precision but where stated. No state.
namespace partial_scan {

constexpr int kFrame = 4096; ///< samples of an analysis
constexpr int kBins = kFrame / 2;
constexpr int kNeighbours = 3;          ///< bins on each side of a peak that belong to it
constexpr float kTopHz = 4435.0f;       ///< the highest frequency that is scanned
constexpr float kSilentLevel = 0.0001f; ///< a bin at or below it is silence

using Power = std::span<const float, kBins>;

/// The periodic Blackman window 0.42 - 0.5 cos(2 pi n / 4096) + 0.08 cos(4 pi n / 4096), each value
/// the nearest float.
const std::array<float, kFrame>& blackmanWindow();

/// The first of the strongest bins 1 ... 1023 above the silent level; 0 when there is none.
int strongestBin(Power power);

/// The centre of gravity of the seven bins around @p bin and their sum, both summed in double
/// precision. @param bin 4 ... 2044
Partial peakAt(Power power, int bin, float sampleRateHz);

/// How a spectrum is scanned.
struct Scan {
    float threshold = 0; ///< the least level of a peak's own bin
    float factor = 1;    ///< by which the samples were thinned out: 1 or 4
    int mainBin = 0;     ///< the bin of the strongest peak
    float sampleRateHz = 0;
    Partial strongest; ///< appended when the scan does not meet mainBin
};

/// Bins below which a scan ends: those up to 4435 Hz, never more than the spectrum has.
int scannedBins(float sampleRateHz, float factor);

/// All peaks with three rises (flat counts as a rise) before and three falls after them, in rising
/// frequency; then perhaps the strongest one, out of order.
Partials detectPartials(Power power, const Scan& scan);

} // namespace partial_scan
} // namespace veltrano
