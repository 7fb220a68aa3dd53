// SPDX-License-Identifier: GPL-3.0-or-later
// The Fourier transform of real samples, by FFTW.
#include "platform/dsp/RealFFT.h"

#include <algorithm>
#include <fftw3.h>

namespace veltrano {

namespace {

fftwf_complex* fftwComplex(std::complex<float>* values) {
    return reinterpret_cast<fftwf_complex*>(values); // the layouts are the same by definition
}

} // namespace

struct RealFFT::Plans {
    fftwf_plan forward;
    fftwf_plan inverse;

    // Estimated, not measured: measured plans differ from run to run and so do their last bits.
    Plans(std::size_t size, float* wave, std::complex<float>* spectrum)
        : forward(fftwf_plan_dft_r2c_1d(static_cast<int>(size), wave, fftwComplex(spectrum),
                                        FFTW_ESTIMATE)),
          inverse(fftwf_plan_dft_c2r_1d(static_cast<int>(size), fftwComplex(spectrum), wave,
                                        FFTW_ESTIMATE)) {}
    ~Plans() {
        fftwf_destroy_plan(forward);
        fftwf_destroy_plan(inverse);
    }
    Plans(const Plans&) = delete;
    Plans& operator=(const Plans&) = delete;
};

void RealFFT::Free::operator()(void* memory) const { fftwf_free(memory); }

RealFFT::RealFFT(int log2n)
    : mSize(std::size_t{1} << log2n), mWave(fftwf_alloc_real(mSize)),
      mSpectrum(reinterpret_cast<std::complex<float>*>(fftwf_alloc_complex(mSize / 2 + 1))),
      mPlans(std::make_unique<Plans>(mSize, mWave.get(), mSpectrum.get())) {
    std::fill_n(mWave.get(), mSize, 0.0f);
    std::fill_n(mSpectrum.get(), mSize / 2 + 1, std::complex<float>());
}

RealFFT::~RealFFT() = default;

void RealFFT::forward() noexcept {
    fftwf_execute(mPlans->forward);
    std::complex<float>* const bins = mSpectrum.get();
    bins[0] = {bins[0].real(), bins[mSize / 2].real()};
    auto* const parts = reinterpret_cast<float*>(bins);
    for (std::size_t i = 0; i < mSize; ++i)
        parts[i] *= 2.0f;
}

void RealFFT::inverse() noexcept {
    std::complex<float>* const bins = mSpectrum.get();
    bins[mSize / 2] = {bins[0].imag(), 0.0f};
    bins[0] = {bins[0].real(), 0.0f};
    fftwf_execute(mPlans->inverse);
}

} // namespace veltrano
