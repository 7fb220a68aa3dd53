// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/StreamWatch.h"

#include <algorithm>

namespace veltrano {

void StreamWatch::begin(double now, double sampleRateHz) noexcept {
    mState = State::sounding;
    mLastSound = now;
    opened(now, sampleRateHz);
}

void StreamWatch::opened(double now, double sampleRateHz) noexcept {
    mSampleRate = sampleRateHz;
    mHasBacklog = false;
    mCredit = kBurstSeconds;
    mCreditAt = now;
}

void StreamWatch::lost(double now) noexcept {
    if (mState == State::sounding) beginSilence(now);
    mHasBacklog = false;
}

void StreamWatch::beginSilence(double now) noexcept {
    mState = State::silent;
    mSilentSince = now;
    mSilenceDelivered = 0;
    mNextSilence = now + kStepSeconds;
}

bool StreamWatch::sound(double now, std::size_t frames) noexcept {
    if (mHasBacklog) {
        mHasBacklog = false;
        mCredit = 0;
        mCreditAt = now;
    }
    mCredit = std::min(kBurstSeconds, mCredit + kCatchUp * (now - mCreditAt));
    mCreditAt = now;
    const double length = double(frames) / mSampleRate;
    if (mCredit < std::min(length, kBurstSeconds)) return false;
    mCredit = std::max(0.0, mCredit - length);
    mState = State::sounding;
    mLastSound = now;
    return true;
}

std::size_t StreamWatch::silenceDue(double now) noexcept {
    if (mState == State::sounding && now - mLastSound >= kStallSeconds) {
        mHasBacklog = true;
        beginSilence(now);
    }
    if (mState != State::silent) return 0;
    const double elapsed = std::min(kSilenceSeconds, now - mSilentSince);
    const double due = std::max(0.0, elapsed - mSilenceDelivered);
    const auto frames = std::size_t(due * mSampleRate + 0.001); // whole, but for rounding
    mSilenceDelivered += double(frames) / mSampleRate;
    mNextSilence = now + kStepSeconds;
    if (elapsed >= kSilenceSeconds) mState = State::spent;
    return frames;
}

std::optional<double> StreamWatch::deadline() const noexcept {
    switch (mState) {
    case State::sounding:
        return mLastSound + kStallSeconds;
    case State::silent:
        return mNextSilence;
    case State::spent:
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace veltrano
