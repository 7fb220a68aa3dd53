// SPDX-License-Identifier: GPL-3.0-or-later
// Which columns of the strobe are lit, and how its phase goes on from frame to frame.
#include "displays/StrobePattern.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace veltrano {

namespace {

bool isUsable(double period) noexcept { return std::isfinite(period) && period > 0; }

// The rounded phase, brought into the frame. The remainder is exact, so a phase within the range of
// integers gives what converting it first would give, and no other phase is converted at all.
std::size_t startIn(double frameIndex, std::size_t frames) noexcept {
    const double start = std::round(frameIndex);
    if (!(start > 0) || !std::isfinite(start)) return 0;
    return static_cast<std::size_t>(std::fmod(start, static_cast<double>(frames)));
}

// Two periods, at most the frame.
std::size_t spanOf(double period, std::size_t frames) noexcept {
    if (!isUsable(period)) return frames;
    const double twoPeriods = std::trunc(2.0 * period);
    return twoPeriods < static_cast<double>(frames) ? static_cast<std::size_t>(twoPeriods) : frames;
}

} // namespace

void StrobePattern::setSampleRate(float hz) noexcept {
    if (hz == mSampleRate) return;
    mSampleRate = hz;
    mFrameIndex = 0;
}

void StrobePattern::setFrequency(float hz) noexcept {
    if (hz == mFrequency) return;
    mFrequency = hz;
    mFrameIndex = 0;
}

std::span<const StrobeRun> StrobePattern::pass(std::span<const float> frame, int columns) {
    mRuns.clear();
    if (frame.empty()) return mRuns;
    const std::size_t start = startIn(mFrameIndex, frame.size());
    const double samplesPerPeriod = period();
    advance(static_cast<double>(frame.size()), samplesPerPeriod);
    if (columns > 0) findRuns(frame, columns, start, spanOf(samplesPerPeriod, frame.size()));
    return mRuns;
}

// Divided in single precision, then widened.
double StrobePattern::period() const noexcept {
    return static_cast<double>(mSampleRate / mFrequency);
}

void StrobePattern::advance(double frames, double period) noexcept {
    if (!isUsable(period)) return;
    const double wholePeriods = std::trunc(frames / period);
    const double remainder = frames - wholePeriods * period;
    double next = mFrameIndex + period - remainder;
    if (next > frames) next -= frames;
    // A period below every sample distance overflows the count of periods; the phase is then lost.
    mFrameIndex = std::isfinite(next) ? next : 0;
}

void StrobePattern::findRuns(std::span<const float> frame, int columns, std::size_t start,
                             std::size_t span) {
    const auto width = static_cast<std::uint64_t>(columns);
    mRuns.reserve(static_cast<std::size_t>(width / 2 + 1));
    bool wasPositive = false;
    for (std::uint64_t column = 0; column < width; ++column) {
        const std::uint64_t back = (width - column) * span / width;
        const bool isPositive = frame[(back + start) % frame.size()] >= 0.0f;
        if (isPositive && !wasPositive) mRuns.push_back({static_cast<int>(column), 0});
        if (isPositive) ++mRuns.back().length;
        wasPositive = isPositive;
    }
}

} // namespace veltrano
