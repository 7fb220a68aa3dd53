// SPDX-License-Identifier: GPL-3.0-or-later
// What a recorded tone is: its frequency, level and length.
#pragma once

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <span>
#include <vector>

namespace veltrano {

/// The part of a recording in which something is heard.
struct SoundingPart {
    std::size_t begin = 0;
    std::size_t end = 0; ///< one past the last
};

inline SoundingPart soundingPart(std::span<const float> samples, float threshold = 1e-3f) {
    SoundingPart part;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (std::abs(samples[i]) < threshold) continue;
        if (part.end == 0) part.begin = i;
        part.end = i + 1;
    }
    return part;
}

/// A sine amplitude sin(2 pi hz t + phase), fitted to steady samples.
struct ToneFit {
    double hz = 0;
    double amplitude = 0;
    double phase = 0;
    double largestResidual = 0; ///< of any sample
};

/// @param aboutHz so near that the phase moves by less than half a turn in 10 ms
inline ToneFit fitTone(std::span<const float> samples, double rateHz, double aboutHz) {
    using std::numbers::pi;
    const auto turn = [&](double hz, std::size_t i) {
        return 2 * pi * hz * static_cast<double>(i) / rateHz;
    };
    // The phase against aboutHz, block by block: its slope is what the frequency differs.
    const auto block = static_cast<std::size_t>(rateHz / 100);
    double sumT = 0, sumTT = 0, sumP = 0, sumTP = 0, count = 0, last = 0;
    for (std::size_t begin = 0; begin + block <= samples.size(); begin += block) {
        std::complex<double> sum;
        for (std::size_t i = begin; i < begin + block; ++i) {
            const double x = static_cast<double>(i - begin) / static_cast<double>(block);
            const double window = 0.5 - 0.5 * std::cos(2 * pi * x);
            sum += window * static_cast<double>(samples[i]) * std::polar(1.0, -turn(aboutHz, i));
        }
        double phase = std::arg(sum);
        if (count > 0) phase += 2 * pi * std::round((last - phase) / (2 * pi));
        last = phase;
        const double t = (static_cast<double>(begin) + static_cast<double>(block) / 2) / rateHz;
        sumT += t, sumTT += t * t, sumP += phase, sumTP += t * phase, count += 1;
    }
    ToneFit fit;
    const double slope = (count * sumTP - sumT * sumP) / (count * sumTT - sumT * sumT);
    fit.hz = aboutHz + slope / (2 * pi);

    std::complex<double> sum;
    for (std::size_t i = 0; i < samples.size(); ++i)
        sum += static_cast<double>(samples[i]) * std::polar(1.0, -turn(fit.hz, i));
    fit.amplitude = 2 * std::abs(sum) / static_cast<double>(samples.size());
    fit.phase = std::arg(sum) + pi / 2;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double model = fit.amplitude * std::sin(turn(fit.hz, i) + fit.phase);
        fit.largestResidual =
            std::max(fit.largestResidual, std::abs(static_cast<double>(samples[i]) - model));
    }
    return fit;
}

/// The amplitude of a sine of that frequency in a few whole periods or more.
inline double amplitudeOf(std::span<const float> samples, double rateHz, double hz) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double turn = 2 * std::numbers::pi * hz * static_cast<double>(i) / rateHz;
        sum += static_cast<double>(samples[i]) * std::polar(1.0, -turn);
    }
    return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

inline double centsBetween(double hz, double target) { return 1200 * std::log2(hz / target); }

} // namespace veltrano
