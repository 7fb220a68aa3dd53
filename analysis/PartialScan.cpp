// SPDX-License-Identifier: GPL-3.0-or-later
// Peaks of a power spectrum.
#include "analysis/PartialScan.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veltrano::partial_scan {

namespace {

/// 0.42 - 0.5 cos 2x + 0.08 cos 4x is (0.36 + 0.64 sin^2 x) sin^2 x, in which nothing cancels.
std::array<float, kFrame> makeBlackmanWindow() {
    std::array<float, kFrame> window{};
    for (std::size_t n = 0; n < window.size(); ++n) {
        const std::size_t fromEdge = std::min(n, window.size() - n);
        const long double x = std::numbers::pi_v<long double> * static_cast<long double>(fromEdge) /
                              static_cast<long double>(kFrame);
        const long double sine = std::sin(x);
        const long double square = sine * sine;
        window[n] = static_cast<float>((0.36L + 0.64L * square) * square);
    }
    return window;
}

/// Meets a spectrum bin by bin and finds the peaks whose slopes are long enough.
class PeakWalk {
public:
    explicit PeakWalk(float threshold) : mThreshold(threshold) {}

    /// @return the peak's bin when this step completes one, otherwise 0
    int step(int bin, float previous, float current) {
        if (current - previous >= 0) {
            rise();
            return 0;
        }
        return fall(bin, previous);
    }

private:
    enum class State { idle, rising, reachable, falling };
    static constexpr int kSlope = 3; ///< steps that a peak needs on each side

    void rise() {
        switch (mState) {
        case State::idle:
            mRises = 1;
            mState = State::rising;
            break;
        case State::rising:
            ++mRises;
            if (mRises >= kSlope) mState = State::reachable;
            break;
        case State::reachable:
            break;
        case State::falling:
            mState = State::idle; // kept: this rise does not count for the next peak
            break;
        }
    }

    int fall(int bin, float previous) {
        if (mState == State::reachable && previous >= mThreshold) {
            mCandidate = bin - 1;
            mFalls = 1;
            mState = State::falling;
            return 0;
        }
        if (mState == State::falling) {
            ++mFalls;
            if (mFalls < kSlope) return 0;
            mState = State::idle;
            return mCandidate;
        }
        mState = State::idle;
        return 0;
    }

    const float mThreshold;
    State mState = State::idle;
    int mRises = 0;
    int mFalls = 0;
    int mCandidate = 0;
};

} // namespace

const std::array<float, kFrame>& blackmanWindow() {
    static const std::array<float, kFrame> window = makeBlackmanWindow();
    return window;
}

int strongestBin(Power power) {
    constexpr std::size_t kEnd = kFrame / 4;
    // Sixteen maxima side by side take a quarter of the time of one after the other.
    constexpr std::size_t kLanes = 16;
    std::array<float, kLanes> maxima;
    maxima.fill(kSilentLevel);
    const auto raise = [&](std::size_t lane, float here) {
        maxima[lane] = here > maxima[lane] ? here : maxima[lane]; // NaN raises nothing
    };
    for (std::size_t bin = 1; bin < kLanes; ++bin)
        raise(0, power[bin]);
    for (std::size_t bin = kLanes; bin < kEnd; bin += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            raise(lane, power[bin + lane]);
    }
    const float level = std::ranges::max(maxima);
    if (!(level > kSilentLevel)) return 0;
    const auto searched = power.subspan(1, kEnd - 1);
    return static_cast<int>(std::ranges::find(searched, level) - searched.begin()) + 1;
}

Partial peakAt(Power power, int bin, float sampleRateHz) {
    double sum = 0;
    double moment = 0;
    for (int k = bin - kNeighbours; k <= bin + kNeighbours; ++k) {
        const float hz = static_cast<float>(k) * sampleRateHz / float{kFrame};
        const auto level = static_cast<double>(power[static_cast<std::size_t>(k)]);
        sum += level;
        moment += static_cast<double>(hz) * level;
    }
    return {static_cast<float>(moment / sum), static_cast<float>(sum)};
}

int scannedBins(float sampleRateHz, float factor) {
    const float bins = kTopHz / (sampleRateHz / float{kFrame}) * factor;
    if (!(bins > 0)) return 0; // a rate that is negative or no number
    return static_cast<int>(std::min(bins, float{kBins}));
}

Partials detectPartials(Power power, const Scan& scan) {
    Partials partials;
    bool hasMain = false;
    PeakWalk walk(scan.threshold);
    const int end = scannedBins(scan.sampleRateHz, scan.factor);
    for (int bin = 2; bin < end; ++bin) {
        const auto at = static_cast<std::size_t>(bin);
        const int peak = walk.step(bin, power[at - 1], power[at]);
        if (peak == 0) continue;
        Partial partial = peakAt(power, peak, scan.sampleRateHz);
        partial.hz /= scan.factor;
        partials.push_back(partial);
        if (peak == scan.mainBin) hasMain = true;
    }
    if (!hasMain) partials.push_back(scan.strongest);
    return partials;
}

} // namespace veltrano::partial_scan
