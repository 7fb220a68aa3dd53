// SPDX-License-Identifier: GPL-3.0-or-later
// The reference tone, sample by sample.
#include "audio/ToneSynthesis.h"

#include <algorithm>
#include <cmath>

namespace veltrano {

namespace {

/// The whole part of what a 64-bit integer can hold; 0 for what it cannot.
std::int64_t truncated(float value) {
    constexpr float kLimit = 9.2e18f;
    return value > -kLimit && value < kLimit ? static_cast<std::int64_t>(value) : 0;
}

} // namespace

void ToneSynthesis::setSampleRate(float hz) noexcept {
    mSampleRate = hz;
    mFadeFrames = truncated(hz / 10);
    // Full level stays full level when the rate falls; without a rate a tone still fades out.
    if (mFadeFrames > 0) fade = std::min(fade, mFadeFrames);
}

std::int64_t ToneSynthesis::framesOf(float seconds, float sampleRateHz) noexcept {
    return truncated(seconds * sampleRateHz);
}

void ToneSynthesis::play(std::int64_t frames) noexcept {
    playing = true;
    frameCount = frames;
}

bool ToneSynthesis::render(std::span<float> samples,
                           const Sound& sound) noexcept VELTRANO_NONBLOCKING {
    const auto increment = static_cast<double>(sound.frequencyHz / mSampleRate);
    // Without a rate the phase must not be spoilt for the tones to come.
    const bool canSound = mFadeFrames > 0 && std::isfinite(increment);
    const waveform::Function wave = waveform::function(sound.waveform);
    const auto volume = static_cast<double>(sound.volume);
    bool hasEnded = false;
    for (float& sample : samples) {
        const double x = canSound ? wave(wt, increment) : 0.0;
        if (canSound) wt += increment;
        if (stepEnvelope()) hasEnded = true;
        sample = canSound ? static_cast<float>(volume * (x * static_cast<double>(fade) /
                                                         static_cast<double>(mFadeFrames)))
                          : 0.0f;
    }
    return hasEnded;
}

/// @return whether the tone has just faded out
bool ToneSynthesis::stepEnvelope() noexcept {
    if (frameCount > 0) {
        --frameCount;
        if (!playing) return release();
        if (fade < mFadeFrames) ++fade;
        return false;
    }
    playing = false;
    return release();
}

bool ToneSynthesis::release() noexcept {
    if (fade == 0) return false;
    --fade;
    return fade == 0;
}

} // namespace veltrano
