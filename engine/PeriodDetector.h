// SPDX-License-Identifier: GPL-3.0-or-later
// Estimates the fundamental of one analysis frame from the spacing of its positive peaks.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace veltrano {

/// Peak picking with a decaying threshold, and a robust mean of the peak intervals.
///
/// It locks onto the dominant positive peak of each period, skips the smaller lobes of overtones in
/// between and follows a decaying tone. It imposes no range of its own.
/// Thread: any, one call at a time. Allocates: never. Keeps nothing between calls.
namespace period_detector {

constexpr std::size_t kMaxIntervals = 256; ///< the scan stops when so many are recorded

struct Result {
    std::optional<float> hz; ///< empty when the frame holds no reliable period
    float peak = 0;          ///< largest amplitude, 1 = full scale
    int level = 0;           ///< [dB above the 16-bit floor] 0 ... 96
};

/// @param frame mono samples in [-1, 1]; NaN counts as not positive
/// @param sampleRateHz the rate at which @p frame was taken
/// @param bufferFrames samples of an analysis frame at present, for the low-note rule
Result detect(std::span<const float> frame, float sampleRateHz,
              std::uint32_t bufferFrames) noexcept;

/// What the scan of a frame finds.
struct Peaks {
    /// Sample counts from peak to peak; the first is the offset of the first peak in the frame.
    std::array<std::uint64_t, kMaxIntervals> intervals;
    std::size_t count = 0;
    float amplitude = 0; ///< the peak amplitude of Result
};

/// Fills @p peaks from @p frame.
void findPeaks(std::span<const float> frame, Peaks& peaks) noexcept;

/// The mean period in samples, 0 when the intervals do not agree. Sorts @p intervals (at most
/// kMaxIntervals of them).
float averageDiffs(std::span<std::uint64_t> intervals, std::uint32_t bufferFrames) noexcept;

/// The level of an amplitude in whole dB above the 16-bit floor, 0 ... 96; 0 for NaN.
int levelOf(float amplitude) noexcept;

} // namespace period_detector

} // namespace veltrano
