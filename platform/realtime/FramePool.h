// SPDX-License-Identifier: GPL-3.0-or-later
// Hands full analysis frames from the audio thread to the main thread without waiting.
#pragma once

#include "platform/realtime/Frame.h"
#include "platform/realtime/SpscRing.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace veltrano {

/// A fixed number of frame slots and the two queues in which their indices travel.
///
/// Thread: publish() on the audio thread, take() and every FrameRef on the main thread.
/// Allocates: all sample storage in create(), touched there so that the audio thread meets no page
/// fault; take() makes one small control block on the main thread.
/// Edges: when no slot is free (the main thread stalls), the frame is dropped whole and counted.
/// Owns: the storage; every FrameRef keeps the pool alive.
class FramePool : public std::enable_shared_from_this<FramePool> {
public:
    static constexpr std::size_t kDefaultSlots = 32; ///< 32 x 122.3 ms = 3.9 s

    /// @param slots frames under way at most, >= 1
    /// @param maxSamples samples of the longest frame, >= 1
    static std::shared_ptr<FramePool> create(std::size_t slots, std::size_t maxSamples);

    /// Audio thread. Copies @p samples into a free slot and queues it. False when none was free or
    /// the frame is longer than a slot; the frame is then counted as dropped.
    bool publish(std::span<const float> samples, std::uint64_t samplesSoFar) noexcept;

    /// Main thread. The oldest frame that waits, or null.
    FrameRef take();

    /// Any thread. Frames dropped since the start.
    std::uint64_t dropped() const noexcept { return mDropped.load(std::memory_order_relaxed); }

private:
    FramePool(std::size_t slots, std::size_t maxSamples);

    std::span<float> storageOf(std::uint32_t slot) noexcept {
        return std::span(mStorage).subspan(slot * mMaxSamples, mMaxSamples);
    }

    const std::size_t mMaxSamples;
    std::vector<float> mStorage;
    std::vector<Frame> mFrames; ///< by slot; written by the audio thread while it holds the slot
    SpscRing<std::uint32_t> mFull;
    SpscRing<std::uint32_t> mFree;
    std::atomic<std::uint64_t> mDropped{0}; ///< written by the audio thread only
};

} // namespace veltrano
