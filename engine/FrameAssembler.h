// SPDX-License-Identifier: GPL-3.0-or-later
// Turns blocks of any size and layout into mono analysis frames of two periods of C0.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <atomic>
#include <concepts>
#include <cstdint>
#include <memory>
#include <span>

namespace veltrano {

/// Mixes input blocks to one channel and fills analysis frames.
///
/// Consecutive frames share no sample and lose none while the device keeps its format.
/// Thread: process() on the audio thread; invalidate() on the main thread.
/// Allocates: the storage for the highest rate, in the constructor.
class FrameAssembler {
public:
    static constexpr double kLowestKeyHz = 16.35159783; ///< C0 at A4 = 440 Hz
    static constexpr double kMaxSampleRateHz = 384000.0;
    /// trunc(2 x 384000 / 16.35159783)
    static constexpr std::uint32_t kMaxBufferFrames = 46967;

    FrameAssembler();

    /// Samples of one frame at @p sampleRateHz: two periods of C0, about 122.3 ms at any rate
    /// (44100 Hz: 5393). 0 for a rate whose frame would be empty or longer than the storage, and
    /// for a rate that is no number.
    static std::uint32_t bufferFramesAt(float sampleRateHz) noexcept;

    /// Main thread. The rate and the request to re-size; taken at the start of the next block,
    /// which drops a partly filled frame.
    void invalidate(float sampleRateHz) noexcept;

    /// Samples of a frame, 0 before the first block. Any thread.
    std::uint32_t bufferFrames() const noexcept {
        return mBufferFrames.load(std::memory_order_relaxed);
    }

    /// Audio thread. Never allocates, locks, throws or logs.
    /// @param buffers one block; no buffers: nothing happens, not even the re-size
    /// @param sampleTime [samples] a block at 0.0 or before is skipped
    /// @param sink called with (frame samples, samples taken since the last re-size) for every
    /// frame
    ///        that becomes full: none, one or several times per block
    template <std::invocable<std::span<const float>, std::uint64_t> Sink>
    void process(AudioBufferList buffers, double sampleTime, Sink&& sink) noexcept {
        const Block block = begin(buffers, sampleTime);
        for (std::uint32_t i = 0; i < block.samples; ++i) {
            mStorage[mBufferOffset++] = mixedSample(block, i);
            ++mSamplesSoFar;
            if (mBufferOffset != frameLength()) continue;
            sink(std::span<const float>(mStorage.get(), mBufferOffset), mSamplesSoFar);
            mBufferOffset = 0;
        }
    }

private:
    /// What of a block is to be mixed.
    struct Block {
        AudioBufferList usable;        ///< the leading buffers of equal length
        std::uint32_t samples = 0;     ///< per channel
        bool isDuplicatedMono = false; ///< two equal channels: half their sum is the signal
    };

    Block begin(AudioBufferList buffers, double sampleTime) noexcept;
    void resize() noexcept;
    std::uint32_t frameLength() const noexcept {
        return mBufferFrames.load(std::memory_order_relaxed);
    }
    static float mixedSample(const Block& block, std::uint32_t index) noexcept;

    const std::unique_ptr<float[]> mStorage; ///< the frame being filled; audio thread only
    std::uint32_t mBufferOffset = 0;         ///< audio thread only
    std::uint64_t mSamplesSoFar = 0;         ///< audio thread only
    std::atomic<float> mSampleRate{0};       ///< written by the main thread
    std::atomic<bool> mIsBufferInvalid{
        true}; ///< set by main, taken by an exchange on the audio thread
    std::atomic<std::uint32_t> mBufferFrames{0}; ///< written by the audio thread
};

} // namespace veltrano
