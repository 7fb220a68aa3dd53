// SPDX-License-Identifier: GPL-3.0-or-later
// The reference tone, sample by sample.
#pragma once

#include "audio/Waveform.h"
#include "platform/realtime/Realtime.h"

#include <cstdint>
#include <span>

namespace veltrano {

/// A tone with linear ramps of a tenth of a second. The phase only ever grows, also from one tone
/// to the next, so that tones join without a jump.
///
/// Thread: one at a time. Allocates, locks and waits: never.
class ToneSynthesis {
public:
    /// How a tone sounds; may change at any block.
    struct Sound {
        float frequencyHz = 440;
        float volume = 0.70710677f; ///< linear amplitude
        int waveform = 0;           ///< index as waveform::function() has it
    };

    /// Lengths of tones and ramps are counted at this rate. What is no rate gives silence.
    void setSampleRate(float hz) noexcept;
    /// Samples of a tone of that length: truncated after a product in single precision.
    static std::int64_t framesOf(float seconds, float sampleRateHz) noexcept;

    /// A tone is wanted. During a fade-out it ramps up from the level reached.
    void play(std::int64_t frames) noexcept;
    /// Changes what is left of a tone; 0 ends it with its fade-out.
    void setFrames(std::int64_t frames) noexcept { frameCount = frames; }

    /// @return whether a tone has just faded out
    bool render(std::span<float> samples, const Sound& sound) noexcept VELTRANO_NONBLOCKING;

    bool isPlaying() const noexcept { return playing; } ///< its samples are not used up
    std::int64_t fadeFrames() const noexcept { return mFadeFrames; } ///< length of a ramp
    double phase() const noexcept { return wt; }                     ///< [cycles] so far

private:
    bool stepEnvelope() noexcept;
    bool release() noexcept;

    double wt = 0;               ///< [cycles] never wrapped
    bool playing = false;        ///< a tone is wanted
    std::int64_t frameCount = 0; ///< of the tone, still to play at full level
    std::int64_t fade = 0;       ///< 0 silent ... mFadeFrames full level
    std::int64_t mFadeFrames = 0;
    float mSampleRate = 0; ///< [Hz]
};

} // namespace veltrano
