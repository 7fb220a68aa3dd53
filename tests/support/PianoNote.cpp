// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PianoNote.h"

#include "tests/support/PortableMath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace veltrano {

namespace {

constexpr int kKeyA4 = 57;
constexpr int kMidiOfKey0 = 12;
constexpr int kMostPartials = 60;
constexpr double kStrikePoint = 1.0 / 8.3; ///< of the string's length
constexpr double kAttackSeconds = 0.002;

/// How strongly partial @p n is struck. The hammer cannot move a string where it has a node; felt
/// is soft to short waves, the more so in the bass; the soundboard is too small for the lowest
/// ones.
double loudness(int n, double hz) {
    const double struck = portable::sineCosine(n * kStrikePoint / 2).sine;
    const double felt = portable::exp(-hz / (1200 + hz / n * 2.5));
    const double board = hz * hz / (hz * hz + 80.0 * 80.0);
    return struck * felt * board / n;
}

/// [s] in which partial @p n falls to 1/e: long in the bass, short in the treble and for high n.
double decaySeconds(int key, int n) {
    const double ofKey = 6.0 * portable::exp2(-(key - 9) / 22.0);
    return ofKey / (1 + 0.12 * (n - 1));
}

/// One partial of one string as a turning pointer: a rotation per sample and two decays, a quick
/// one while the strings move the board together and a slow one afterwards.
void addPartial(std::span<float> samples, double amplitude, double turnsPerSample,
                double decayPerSample) {
    const auto [turnSine, turnCosine] = portable::sineCosine(turnsPerSample);
    const double quickDecay = portable::exp(-3 * decayPerSample);
    const double slowDecay = portable::exp(-decayPerSample);
    double sine = 0, cosine = 1, quick = 0.6 * amplitude, slow = 0.4 * amplitude;
    for (float& sample : samples) {
        sample += static_cast<float>(sine * (quick + slow));
        const double turned = sine * turnCosine + cosine * turnSine;
        cosine = cosine * turnCosine - sine * turnSine;
        sine = turned;
        quick *= quickDecay;
        slow *= slowDecay;
    }
}

void addHammerNoise(std::span<float> samples, const PianoNote& note, double peak) {
    portable::Random random(note.seed);
    const double decay = portable::exp(-1 / (0.012 * note.sampleRate));
    const double smoothing = portable::exp(-2 * 3.14159265 * 900 / note.sampleRate);
    double envelope = peak, smooth = 0;
    for (float& sample : samples) {
        smooth = smoothing * smooth + (1 - smoothing) * random.bipolar();
        sample += static_cast<float>(6 * envelope * smooth);
        envelope *= decay;
    }
}

void ramp(std::span<float> samples, bool isRising) {
    const double length = double(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double part = double(i) / length;
        samples[i] *= static_cast<float>(isRising ? part : 1 - part);
    }
}

float largest(std::span<const float> samples) {
    float most = 0;
    for (const float x : samples)
        most = std::max(most, std::abs(x));
    return most;
}

std::size_t countOf(double seconds, double rate, std::size_t most) {
    return std::min(static_cast<std::size_t>(std::max(seconds, 0.0) * rate), most);
}

} // namespace

double PianoNote::fundamentalHz() const {
    return referencePitch * portable::exp2((key - kKeyA4 + centsOff / 100) / 12);
}

double PianoNote::stiffness() const {
    if (inharmonicity >= 0) return inharmonicity;
    // Treble strings get shorter and stiffer, bass strings are wound: two straight lines in log B.
    const double midi = key + kMidiOfKey0;
    return portable::exp(0.0926 * midi - 13.64) + portable::exp(-0.0847 * midi - 5.82);
}

double PianoNote::partialHz(int n) const {
    return n * fundamentalHz() * std::sqrt(1 + stiffness() * n * n);
}

std::vector<float> PianoNote::render() const {
    const auto count = static_cast<std::size_t>(seconds * sampleRate);
    std::vector<float> samples(count);
    const std::vector<double> strings = unisonCents.empty() ? std::vector{0.0} : unisonCents;
    for (const double cents : strings) {
        const double detuning = portable::exp2(cents / 1200);
        for (int n = 1; n <= kMostPartials; ++n) {
            const double hz = partialHz(n) * detuning;
            if (hz >= 0.45 * sampleRate) break;
            addPartial(samples, loudness(n, hz), hz / sampleRate,
                       1 / (decaySeconds(key, n) * sampleRate));
        }
    }
    addHammerNoise(samples, *this, hammerNoise * double(largest(samples)));
    ramp(std::span(samples).first(countOf(kAttackSeconds, sampleRate, count)), true);
    ramp(std::span(samples).last(countOf(releaseSeconds, sampleRate, count)), false);
    const float most = largest(samples);
    if (most > 0) {
        const float scale = static_cast<float>(peak) / most;
        for (float& sample : samples)
            sample *= scale;
    }
    return samples;
}

} // namespace veltrano
