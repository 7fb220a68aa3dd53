// SPDX-License-Identifier: GPL-3.0-or-later
// A signal beside the same signal turned by 90 degrees.
#include "analysis/HilbertTransform.h"

#include <algorithm>

namespace veltrano {

namespace {

constexpr int kLog2Size = 12;
static_assert(HilbertTransform::kSize == 1 << kLog2Size);

} // namespace

HilbertTransform::HilbertTransform() : mFFT(kLog2Size), mWave(kSize), mHilbertWave(kSize) {}

void HilbertTransform::setData(std::span<const float> samples) {
    const std::size_t count = std::min(samples.size(), kSize);
    std::ranges::copy(samples.first(count), mWave.begin());
    std::fill(mWave.begin() + std::ptrdiff_t(count), mWave.end(), 0.0f);

    std::ranges::copy(mWave, mFFT.wave().begin());
    mFFT.forward();
    constexpr float kScale = 1.0f / (2 * kSize); // forward and inverse together give the signal
    const std::span<std::complex<float>> bins = mFFT.spectrum();
    bins[0] = {};
    for (std::size_t k = 1; k < bins.size(); ++k) {
        const float re = bins[k].real() * kScale;
        const float im = bins[k].imag() * kScale;
        bins[k] = {im, -re}; // times -i
    }
    mFFT.inverse();
    std::ranges::copy(mFFT.wave(), mHilbertWave.begin());
}

} // namespace veltrano
