// SPDX-License-Identifier: GPL-3.0-or-later
// The road of a block from the audio thread to the main thread.
#pragma once

#include "engine/FrameAssembler.h"
#include "platform/realtime/FramePool.h"
#include "platform/realtime/Realtime.h"
#include "platform/realtime/WakeUp.h"

namespace veltrano {

/// Assembles blocks into frames and hands the full ones over, without waiting.
///
/// Thread: receive() on the audio thread, everything else on the main thread.
/// Allocates: all storage in the constructor. Edges: when the main thread stalls, whole frames are
/// dropped and counted.
class FrameRoad {
public:
    struct Capacity {
        std::size_t frames = FramePool::kDefaultSlots; ///< that may wait for the main thread
        std::uint32_t samples = FrameAssembler::kMaxBufferFrames; ///< of the longest frame
    };

    FrameRoad() : FrameRoad(Capacity()) {}
    explicit FrameRoad(const Capacity& capacity);

    /// Audio thread. One input block.
    void receive(AudioBufferList buffers, double sampleTime) noexcept VELTRANO_NONBLOCKING;

    /// The rate of the blocks to come; a partly filled frame is dropped.
    void setSampleRate(float hz) noexcept { mAssembler.invalidate(hz); }
    std::uint32_t bufferFrames() const noexcept { return mAssembler.bufferFrames(); }

    /// Readable while frames wait.
    int descriptor() const noexcept { return mWakeUp.descriptor(); }
    void clearWakeUp() noexcept { mWakeUp.clear(); }
    FrameRef take() { return mPool->take(); }
    std::uint64_t dropped() const noexcept { return mPool->dropped(); }

private:
    FrameAssembler mAssembler;
    std::shared_ptr<FramePool> mPool; ///< shared with the frames under way
    WakeUp mWakeUp;
};

} // namespace veltrano
