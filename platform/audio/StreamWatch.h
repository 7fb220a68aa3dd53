// SPDX-License-Identifier: GPL-3.0-or-later
// Watches whether a started device gives sound, and measures out silence when it does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace veltrano {

/// The pace of one started input device.
///
/// When no sound has come for kStallSeconds, or the stream is lost, kSilenceSeconds of silence are
/// due, in real time, so that whoever listens comes to rest. Sound that comes faster than it can
/// have been played (what a server that hung for seconds has gathered) is refused, so that the
/// listener hears the present and no queue grows.
/// Thread: one at a time. Allocates: never. Time: seconds of a steady clock.
class StreamWatch {
public:
    static constexpr double kStallSeconds = 0.5;   ///< longer than any gap of a server at work
    static constexpr double kSilenceSeconds = 1.5; ///< the held peak needs 1 s to fall
    static constexpr double kStepSeconds = 0.02;   ///< length of a block of silence
    static constexpr double kCatchUp = 1.5;        ///< accepted speed, in times real time
    /// Accepted at once after a gap that was no stall: nothing of it is lost.
    static constexpr double kBurstSeconds = kStallSeconds + 0.1;

    /// The device was started. @param sampleRateHz > 0
    void begin(double now, double sampleRateHz) noexcept;
    /// A new stream was opened, perhaps at another rate: nothing old can come out of it.
    void opened(double now, double sampleRateHz) noexcept;
    /// The stream is gone. Does nothing more when silence is due already.
    void lost(double now) noexcept;

    /// @p frames of sound came. @returns whether to deliver them; false: drop them
    bool sound(double now, std::size_t frames) noexcept;

    /// Frames of silence to deliver now, perhaps 0. Call at deadline().
    std::size_t silenceDue(double now) noexcept;

    /// Silence is being delivered.
    bool isSilent() const noexcept { return mState == State::silent; }
    /// No sound comes, and all silence was delivered.
    bool isSpent() const noexcept { return mState == State::spent; }
    /// [s] since the last sound, or since begin().
    double secondsWithoutSound(double now) const noexcept { return now - mLastSound; }

    std::optional<double> deadline() const noexcept;

private:
    enum class State : std::uint8_t { sounding, silent, spent };

    void beginSilence(double now) noexcept;

    State mState = State::spent;
    double mSampleRate = 0;       ///< [Hz]
    double mLastSound = 0;        ///< [s]
    double mSilentSince = 0;      ///< [s]
    double mSilenceDelivered = 0; ///< [s]
    double mNextSilence = 0;      ///< [s]
    double mCredit = 0;           ///< [s] of sound that are accepted at mCreditAt
    double mCreditAt = 0;         ///< [s]
    bool mHasBacklog = false;     ///< the stream stalled: what it gives first is old
};

} // namespace veltrano
