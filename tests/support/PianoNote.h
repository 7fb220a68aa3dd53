// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the sound of one struck piano key, with its true pitch known.
#pragma once

#include <cstdint>
#include <vector>

namespace veltrano {

/// One note. All of it is a function of these values: the samples are the same on every machine.
struct PianoNote {
    int key = 57;                ///< 0 (C0) ... 107 (B8)
    double centsOff = 0;         ///< away from equal temperament
    double referencePitch = 440; ///< [Hz] of A4
    double sampleRate = 44100;   ///< [Hz]
    double seconds = 2;
    double releaseSeconds = 0; ///< damper at the end, part of seconds; 0: the sound is cut
    double peak = 0.5;         ///< largest |sample| in [0, 1]
    double inharmonicity = -1; ///< B; below 0: that of an ordinary piano at this key
    /// Strings of the key that are out of unison, in cents around the pitch. Empty: one string.
    std::vector<double> unisonCents{};
    double hammerNoise = 0.03; ///< peak of the thump, relative to that of the strings
    std::uint64_t seed = 1;    ///< of the hammer noise

    /// [Hz] f0 in f_n = n f0 sqrt(1 + B n^2): what an ideal string of this pitch would sound.
    double fundamentalHz() const;
    /// [Hz] of partial @p n >= 1, which is what sounds.
    double partialHz(int n) const;
    /// B, given or ordinary: lowest in the tenor, 0.005 and more in the treble.
    double stiffness() const;

    /// Mono samples. Partials at and above 0.45 of the sample rate are left out.
    std::vector<float> render() const;
};

} // namespace veltrano
