// SPDX-License-Identifier: GPL-3.0-or-later
// A signal beside the same signal turned by 90 degrees.
#pragma once

#include "platform/dsp/RealFFT.h"

#include <span>
#include <vector>

namespace veltrano {

/// The Hilbert transform of a block of 4096 samples.
///
/// The block is taken as one turn of a circle, without a window, so its ends are unreliable; DC and
/// the highest bin are left out. A cosine becomes a sine.
/// Thread: main. Allocates: only when made.
class HilbertTransform {
public:
    static constexpr std::size_t kSize = 4096;

    HilbertTransform();

    /// The first 4096 samples, filled up with zeros.
    void setData(std::span<const float> samples);

    std::span<const float> wave() const { return mWave; }
    std::span<const float> hilbertWave() const { return mHilbertWave; }

private:
    RealFFT mFFT;
    std::vector<float> mWave;
    std::vector<float> mHilbertWave;
};

} // namespace veltrano
