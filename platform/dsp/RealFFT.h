// SPDX-License-Identifier: GPL-3.0-or-later
// The Fourier transform of real samples.
#pragma once

#include <complex>
#include <memory>
#include <span>

namespace veltrano {

/// A real transform of N = 2^log2n points in single precision, in packed layout.
///
/// Layout: N / 2 complex values. Value k is bin k for k = 1 ... N/2 - 1; the real part of value 0
/// is bin 0, its imaginary part bin N/2, which both are real. Scaling: forward() gives twice the
/// mathematical transform sum x[n] e^(-2 pi i k n / N), and inverse() is not scaled, so that one
/// after the other multiplies by 2 N. A cosine of amplitude a exactly on bin k comes out as a N.
///
/// Thread: one at a time; making one also excludes making another elsewhere. Allocates: only when
/// made. Owns: both buffers. The same machine always gives the same bits.
class RealFFT {
public:
    explicit RealFFT(int log2n); ///< @param log2n 2 ... 24
    ~RealFFT();
    RealFFT(const RealFFT&) = delete;
    RealFFT& operator=(const RealFFT&) = delete;

    /// N samples: forward() reads them and keeps them, inverse() writes them.
    std::span<float> wave() { return {mWave.get(), mSize}; }
    /// N / 2 packed values: forward() writes them, inverse() reads them and spoils them.
    std::span<std::complex<float>> spectrum() { return {mSpectrum.get(), mSize / 2}; }

    void forward() noexcept;
    void inverse() noexcept;

private:
    struct Free {
        void operator()(void* memory) const;
    };
    struct Plans;

    const std::size_t mSize; ///< N
    const std::unique_ptr<float, Free> mWave;
    const std::unique_ptr<std::complex<float>, Free> mSpectrum; ///< N / 2 + 1 values
    const std::unique_ptr<Plans> mPlans;
};

} // namespace veltrano
