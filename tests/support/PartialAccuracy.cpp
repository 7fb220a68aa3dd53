// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PartialAccuracy.h"

#include "analysis/PartialDetector.h"
#include "platform/foundation/NotificationCenter.h"
#include "tests/support/PortableMath.h"

#include <algorithm>
#include <cmath>

namespace veltrano {

namespace {

using partial_scan::kFrame;

constexpr int kMostPartials = 200;
constexpr double kHighestShare = 0.45; ///< of the sample rate, as PianoNote has it

std::vector<double> truth(const PianoNote& note) {
    std::vector<double> hz;
    for (int n = 1; n <= kMostPartials && note.partialHz(n) < kHighestShare * note.sampleRate; ++n)
        hz.push_back(note.partialHz(n));
    return hz;
}

/// Whether the strongest bin of the frame sends the detector to the history.
bool isLow(std::span<const float> frame) {
    RealFFT fft(12);
    for (std::size_t n = 0; n < frame.size(); ++n)
        fft.wave()[n] = frame[n] * partial_scan::blackmanWindow()[n];
    fft.forward();
    std::vector<float> power;
    for (const std::complex<float> bin : fft.spectrum())
        power.push_back(std::norm(bin / float{kFrame}));
    return partial_scan::strongestBin(partial_scan::Power(power)) <= 32;
}

double distance(double hz, const std::vector<double>& all) {
    double least = 1e9;
    for (const double other : all)
        least = std::min(least, std::abs(other - hz));
    return least;
}

/// Where the frequencies above half of @p rate come out.
std::vector<double> folded(const std::vector<double>& all, double rate) {
    std::vector<double> places;
    for (const double hz : all) {
        if (hz > rate / 2) places.push_back(std::abs(hz - rate * std::nearbyint(hz / rate)));
    }
    return places;
}

/// How many of the evenly falling partials are above the least level even where they lie between
/// two bins, by 5 %: the highest bin then has 0.776 of what it has on a bin.
int strongPartials(bool isThinnedOut) {
    constexpr double kOwnBin = 0.1764, kSevenBins = 0.3046; // of amplitude 1 on a bin
    const double share = isThinnedOut ? 1 / 512.0 : 1 / 256.0;
    return static_cast<int>(std::sqrt(kOwnBin * 0.776 / (kSevenBins * share * 1.05)));
}

/// Counts the partials that had to be found and were not.
void addMissing(PartialAccuracy& result, const std::vector<double>& strings,
                const std::vector<double>& ghosts, const std::vector<double>& found) {
    const double highest = double{partial_scan::kTopHz} - 5 * result.binHz;
    const auto strong = static_cast<std::size_t>(strongPartials(result.isThinnedOut));
    for (std::size_t n = 0; n < std::min(strong, strings.size()) && strings[n] < highest; ++n) {
        if (distance(strings[n], found) <= result.binHz / 2) continue;
        ++(distance(strings[n], ghosts) < 6 * result.binHz ? result.hidden : result.missing);
    }
}

} // namespace

std::vector<float> evenlyFallingPartials(const PianoNote& note, std::size_t samples,
                                         double highestHz) {
    std::vector<double> sum(samples);
    double n = 0;
    for (const double hz : truth(note)) {
        ++n;
        if (hz >= highestHz) break;
        const auto [turnSine, turnCosine] = portable::sineCosine(hz / note.sampleRate);
        auto [sine, cosine] = portable::sineCosine(0.37 * n * n);
        for (double& sample : sum) {
            sample += 0.3 * sine / n;
            const double turned = sine * turnCosine + cosine * turnSine;
            cosine = cosine * turnCosine - sine * turnSine;
            sine = turned;
        }
    }
    return {sum.begin(), sum.end()};
}

PartialAccuracy partialAccuracy(const PianoNote& note, std::span<const float> samples,
                                bool isEvenlyFalling) {
    NotificationCenter notifications;
    PartialDetector detector(notifications);
    detector.setSampleRate(note.sampleRate);
    detector.setData(samples.last(4 * kFrame));

    PartialAccuracy result;
    result.isThinnedOut = isLow(samples.last(kFrame));
    result.binHz = note.sampleRate / kFrame / (result.isThinnedOut ? 4 : 1);
    const std::vector<double> strings = truth(note);
    const std::vector<double> ghosts =
        result.isThinnedOut ? folded(strings, note.sampleRate / 4) : std::vector<double>();
    std::vector<double> found;
    for (const Partial& partial : detector.partials() ? *detector.partials() : Partials()) {
        const auto hz = static_cast<double>(partial.hz);
        const double away = distance(hz, strings);
        if (away <= result.binHz / 2) {
            ++result.found;
            found.push_back(hz);
            result.worstHz = std::max(result.worstHz, away);
        } else if (distance(hz, ghosts) <= result.binHz / 2) {
            ++result.folded;
        } else {
            ++result.astray;
        }
    }
    if (isEvenlyFalling) addMissing(result, strings, ghosts, found);
    return result;
}

} // namespace veltrano
