// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a recording ahead of the thread that plays it.
#pragma once

#include "platform/audio/Recording.h"
#include "platform/realtime/SpscRing.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <vector>

namespace veltrano {

/// About half a second of sound in blocks, filled by a thread that may wait for the disk.
///
/// Thread: front() and pop() on the playing thread: they never wait, lock or allocate.
/// Allocates: in the constructor, which also fills all blocks.
/// Owns: the blocks; the recording is the owner's and is not to be touched meanwhile.
class ReadAhead {
public:
    struct Block {
        std::span<float> interleaved; ///< whole sample frames; shorter only at the end
        std::int64_t frames = 0;      ///< 1 ... framesPerBlock
    };

    ReadAhead(Recording& recording, int framesPerBlock);
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Playing thread. Whether all there is to come waits in the blocks. To be asked before
    /// front(): only then is null the end, and not a disk that is late.
    bool hasEnded() const noexcept { return mHasEnded.load(std::memory_order_acquire); }
    /// The next block, valid until pop(); null when none is ready, as after the last one.
    const Block* front() noexcept;
    /// Gives the front block back. Only after front() has answered one.
    void pop() noexcept;

private:
    /// Fills free blocks until there is none or the recording ends; false at the end.
    bool fill();
    void run();

    static constexpr double kSecondsAhead = 0.5;
    static constexpr std::size_t kMinBlocks = 8;

    Recording& mRecording;
    const std::size_t mSamplesPerBlock; ///< all channels
    const std::size_t mBlockCount;
    std::vector<float> mStorage;
    std::vector<Block> mBlocks; ///< by slot; written by the reading thread while it holds the slot
    SpscRing<std::uint32_t> mFull;
    SpscRing<std::uint32_t> mFree;
    std::optional<std::uint32_t> mFront; ///< playing thread
    std::atomic<bool> mHasEnded{false};  ///< written by the reading thread, after the last block

    std::mutex mMutex;
    std::condition_variable mEnding;
    bool mIsEnding = false; ///< guarded by mMutex
    std::thread mThread;
};

} // namespace veltrano
