// SPDX-License-Identifier: GPL-3.0-or-later
// Tones to render, for the tests of the reference tone.
#pragma once

#include "audio/ToneSynthesis.h"

#include <limits>
#include <vector>

namespace veltrano {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
/// A square wave of 0 Hz is 1 for ever, so that the samples are the envelope.
constexpr ToneSynthesis::Sound kEnvelope{0, 1, 3};

using Samples = std::vector<float>;

inline Samples rendered(ToneSynthesis& tone, std::size_t frames,
                        const ToneSynthesis::Sound& sound = kEnvelope) {
    Samples samples(frames, -9);
    tone.render(samples, sound);
    return samples;
}

/// At 100 Hz a ramp has ten steps.
inline ToneSynthesis slowTone() {
    ToneSynthesis tone;
    tone.setSampleRate(100);
    return tone;
}

} // namespace veltrano
