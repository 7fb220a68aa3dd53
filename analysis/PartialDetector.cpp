// SPDX-License-Identifier: GPL-3.0-or-later
// The fundamental and the overtones of what the tuner hears.
#include "analysis/PartialDetector.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/NotificationNames.h"

#include <algorithm>

namespace veltrano {

namespace {

using partial_scan::kBins;
using partial_scan::kFrame;

constexpr int kLog2Frame = 12;
constexpr std::size_t kFrameSize = kFrame;
constexpr std::size_t kThinned = kFrameSize / 4; ///< samples of a frame in the history
static_assert(1 << kLog2Frame == kFrame);

constexpr int kHighestLowBin = 32; ///< a strongest bin up to here is looked up in the history
constexpr int kLowestThinnedBin = 4;
constexpr float kFullRateShare = 0.00390625f; ///< of the strongest peak's power, 1/256
constexpr float kThinnedShare = 0.001953125f; ///< 1/512

} // namespace

PartialDetector::PartialDetector(NotificationCenter& notifications)
    : mNotifications(notifications), mFFT(kLog2Frame), mData(kFrameSize), mData4x(kFrameSize),
      mPower(kBins) {}

void PartialDetector::setData(std::span<const float> samples) {
    if (samples.empty()) {
        setPartials(nullptr);
        return;
    }
    while (!samples.empty()) {
        const std::size_t count = std::min(samples.size(), kFrameSize - mDataPosition);
        std::ranges::copy(samples.first(count), mData.begin() + std::ptrdiff_t(mDataPosition));
        samples = samples.subspan(count);
        mDataPosition += count;
        if (mDataPosition < kFrameSize) break;
        mDataPosition = 0;
        detection();
    }
}

void PartialDetector::detection() {
    thinOut();
    PartialsRef partials = partialsOfFrame();
    if (!partials) mFundamental = 0;
    setPartials(std::move(partials));
    if (mObserver) mObserver();
}

// kept: no filter before every fourth sample is taken
void PartialDetector::thinOut() {
    std::copy(mData4x.begin() + std::ptrdiff_t(kThinned), mData4x.end(), mData4x.begin());
    float* const newest = mData4x.data() + (kFrameSize - kThinned);
    for (std::size_t i = 0; i < kThinned; ++i)
        newest[i] = mData[4 * i];
}

PartialsRef PartialDetector::partialsOfFrame() {
    partial_scan::Power power = fft(mData);
    partial_scan::Scan scan;
    scan.sampleRateHz = mSampleRate;
    scan.mainBin = partial_scan::strongestBin(power);
    if (scan.mainBin == 0) return nullptr;
    float share = kFullRateShare;
    if (scan.mainBin <= kHighestLowBin) {
        power = fft(mData4x);
        scan.mainBin = partial_scan::strongestBin(power);
        if (scan.mainBin <= kLowestThinnedBin) return nullptr;
        scan.factor = 4;
        share = kThinnedShare;
    }
    scan.strongest = partial_scan::peakAt(power, scan.mainBin, mSampleRate);
    scan.strongest.hz /= scan.factor;
    scan.threshold = scan.strongest.power * share;
    mFundamental = scan.strongest.hz;
    mPeak = scan.strongest.power;
    return std::make_shared<const Partials>(partial_scan::detectPartials(power, scan));
}

/// The power of each bin: (re^2 + im^2) / N^2 of the packed transform.
partial_scan::Power PartialDetector::fft(std::span<const float> wave) {
    const float* const window = partial_scan::blackmanWindow().data();
    float* const windowed = mFFT.wave().data();
    for (std::size_t i = 0; i < kFrameSize; ++i)
        windowed[i] = wave[i] * window[i];
    mFFT.forward();

    constexpr float kScale = 1.0f / kFrame;
    const std::complex<float>* const bins = mFFT.spectrum().data();
    for (std::size_t k = 0; k < kBins; ++k) {
        const float re = bins[k].real() * kScale;
        const float im = bins[k].imag() * kScale;
        mPower[k] = re * re + im * im;
    }
    return partial_scan::Power(mPower);
}

void PartialDetector::setPartials(PartialsRef partials) {
    if (partials == mPartials) return;
    mPartials = std::move(partials);
    mNotifications.post(notification::kPartialsChanged, mPartials);
}

} // namespace veltrano
