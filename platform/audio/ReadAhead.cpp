// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/ReadAhead.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace veltrano {

ReadAhead::ReadAhead(Recording& recording, int framesPerBlock)
    : mRecording(recording),
      mSamplesPerBlock(std::size_t(framesPerBlock) * std::size_t(recording.channels())),
      mBlockCount(std::max(
          kMinBlocks,
          std::size_t(std::ceil(kSecondsAhead * recording.sampleRateHz() / framesPerBlock)))),
      mStorage(mBlockCount * mSamplesPerBlock), mBlocks(mBlockCount), mFull(mBlockCount),
      mFree(mBlockCount) {
    for (std::uint32_t slot = 0; slot < mBlockCount; ++slot)
        mFree.push(slot);
    if (fill()) mThread = std::thread([this] { run(); });
}

ReadAhead::~ReadAhead() {
    if (!mThread.joinable()) return;
    {
        const std::scoped_lock lock(mMutex);
        mIsEnding = true;
    }
    mEnding.notify_all();
    mThread.join();
}

bool ReadAhead::fill() {
    std::uint32_t slot = 0;
    while (mFree.pop(slot)) {
        const std::span<float> storage =
            std::span(mStorage).subspan(slot * mSamplesPerBlock, mSamplesPerBlock);
        const std::int64_t frames = mRecording.read(storage);
        if (frames == 0) {
            mHasEnded.store(true, std::memory_order_release);
            return false;
        }
        const auto samples = std::size_t(frames) * std::size_t(mRecording.channels());
        mBlocks[slot] = Block{storage.first(samples), frames};
        mFull.push(slot); // never full: there are as many places as slots
    }
    return true;
}

void ReadAhead::run() {
    // A fifth of what lies ahead: the playing thread must not have to wake this one.
    constexpr auto kPause = std::chrono::milliseconds(int(kSecondsAhead * 1000) / 5);
    std::unique_lock lock(mMutex);
    while (!mEnding.wait_for(lock, kPause, [this] { return mIsEnding; })) {
        lock.unlock();
        const bool hasMore = fill();
        lock.lock();
        if (!hasMore) return;
    }
}

const ReadAhead::Block* ReadAhead::front() noexcept {
    if (!mFront) {
        std::uint32_t slot = 0;
        if (!mFull.pop(slot)) return nullptr;
        mFront = slot;
    }
    return &mBlocks[*mFront];
}

void ReadAhead::pop() noexcept {
    mFree.push(*mFront);
    mFront.reset();
}

} // namespace veltrano
