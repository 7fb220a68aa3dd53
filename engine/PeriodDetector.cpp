// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/PeriodDetector.h"

#include <algorithm>
#include <cmath>

namespace veltrano::period_detector {

namespace {

constexpr double kSilence = 0.01; ///< amplitude that a frame must exceed to be tuned
constexpr double kDecay = 0.9;    ///< of the threshold, per recorded peak
constexpr double kFullScale = 65535.0;
constexpr double kFullScaleLevel = 96.0; ///< [dB]

/// The run-length histogram of sorted intervals.
struct Histogram {
    std::array<std::uint64_t, kMaxIntervals> values;
    std::array<std::uint64_t, kMaxIntervals> counts;
    std::size_t size = 0;
    std::size_t mode = 0; ///< index of the most frequent value; ties keep the smaller value
};

void fill(Histogram& histogram, std::span<const std::uint64_t> sorted) {
    std::uint64_t best = 1;
    for (const std::uint64_t interval : sorted) {
        const std::size_t last = histogram.size - 1;
        if (histogram.size > 0 && histogram.values[last] == interval) {
            if (++histogram.counts[last] > best) {
                best = histogram.counts[last];
                histogram.mode = last;
            }
            continue;
        }
        // A new value enters with count 1 and is not compared with the best.
        histogram.values[histogram.size] = interval;
        histogram.counts[histogram.size++] = 1;
    }
}

/// The mean of all intervals near the mode, if they are a strict majority.
float meanAroundMode(const Histogram& histogram, std::size_t intervals) {
    // kept: a mode at position 0 stands for "no mode", even where the smallest value is the most
    // frequent one; the reference is then the largest value.
    const std::size_t reference = histogram.mode == 0 ? histogram.size - 1 : histogram.mode;
    const std::uint64_t r = histogram.values[reference];
    const std::uint64_t low = (r * 95) / 100;
    const std::uint64_t high = (r * 105 + 50) / 100;
    std::uint64_t sum = 0;
    std::uint64_t total = 0;
    for (std::size_t i = 0; i < histogram.size; ++i) {
        if (histogram.values[i] < low || histogram.values[i] > high) continue;
        sum += histogram.values[i] * histogram.counts[i];
        total += histogram.counts[i];
    }
    if (total <= intervals / 2) return 0.0f;
    return static_cast<float>(sum) / static_cast<float>(total);
}

/// The scan in progress: the road of one frame, sample by sample.
class Scan {
public:
    explicit Scan(Peaks& peaks) : mPeaks(peaks) {}

    void positive(float x, std::uint64_t index) {
        if (x >= mThreshold) mCandidate = index; // among equal maxima the last one wins
        mThreshold = std::max(mThreshold, x);
        mInLobe = true;
    }

    /// A sample that ends a lobe, if one is open. False when no further interval fits.
    bool notPositive(float x) {
        if (mInLobe && mCandidate != 0 && !recordPeak()) return false;
        mInLobe = false;
        if (-x > mPeaks.amplitude) mPeaks.amplitude = -x;
        return true;
    }

private:
    bool recordPeak() {
        mPeaks.amplitude = std::max(mThreshold, mPeaks.amplitude);
        // kept: the first interval is the offset of the first peak, not a period.
        mPeaks.intervals[mPeaks.count++] = mCandidate - mPrevious;
        if (mPeaks.count > kMaxIntervals - 1) return false;
        mThreshold = static_cast<float>(double(mThreshold) * kDecay);
        mPrevious = mCandidate;
        mCandidate = 0;
        return true;
    }

    Peaks& mPeaks;
    float mThreshold = 0;
    bool mInLobe = false;
    std::uint64_t mCandidate = 0; ///< 0 = none: a peak at index 0 is never recorded
    std::uint64_t mPrevious = 0;
};

} // namespace

void findPeaks(std::span<const float> frame, Peaks& peaks) noexcept {
    Scan scan(peaks);
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const float x = frame[i];
        if (x > 0.0f) {
            scan.positive(x, i);
        } else if (!scan.notPositive(x)) {
            return;
        }
    }
}

float averageDiffs(std::span<std::uint64_t> intervals, std::uint32_t bufferFrames) noexcept {
    const std::size_t n = intervals.size();
    if (n < 2) return 0.0f;
    if (n < 4) {
        // A low note: its period is longer than a third of the frame.
        return intervals[1] > bufferFrames / 3 ? static_cast<float>(intervals[1]) : 0.0f;
    }
    std::sort(intervals.begin(), intervals.end());
    Histogram histogram;
    fill(histogram, intervals);
    return meanAroundMode(histogram, n);
}

int levelOf(float amplitude) noexcept {
    const double scaled = double(amplitude) * kFullScale;
    if (!(scaled >= 1.0)) return 0; // below the 16-bit floor, or not a number
    const double q = std::trunc(std::min(scaled, 2147483647.0));
    return static_cast<int>(20.0 * std::log10(q / kFullScale) + kFullScaleLevel);
}

Result detect(std::span<const float> frame, float sampleRateHz,
              std::uint32_t bufferFrames) noexcept {
    Peaks peaks;
    findPeaks(frame, peaks);
    Result result;
    if (double(peaks.amplitude) > kSilence) {
        const float period =
            averageDiffs(std::span(peaks.intervals).first(peaks.count), bufferFrames);
        if (period != 0.0f) result.hz = sampleRateHz / period;
    }
    result.peak = peaks.amplitude;
    result.level = levelOf(peaks.amplitude);
    return result;
}

} // namespace veltrano::period_detector
