// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/FramePool.h"

#include <algorithm>

namespace veltrano {

std::shared_ptr<FramePool> FramePool::create(std::size_t slots, std::size_t maxSamples) {
    return std::shared_ptr<FramePool>(new FramePool(slots, maxSamples));
}

FramePool::FramePool(std::size_t slots, std::size_t maxSamples)
    : mMaxSamples(maxSamples), mStorage(slots * maxSamples), mFrames(slots), mFull(slots),
      mFree(slots) {
    for (std::uint32_t slot = 0; slot < slots; ++slot) mFree.push(slot);
}

bool FramePool::publish(std::span<const float> samples, std::uint64_t samplesSoFar) noexcept {
    std::uint32_t slot = 0;
    if (samples.size() > mMaxSamples || !mFree.pop(slot)) {
        mDropped.fetch_add(1, std::memory_order_relaxed);
        return false;
    }
    const std::span<float> storage = storageOf(slot).first(samples.size());
    std::copy(samples.begin(), samples.end(), storage.begin());
    mFrames[slot] = Frame{storage, samplesSoFar};
    return mFull.push(slot); // never full: there are as many places as slots
}

FrameRef FramePool::take() {
    std::uint32_t slot = 0;
    if (!mFull.pop(slot)) return nullptr;
    return FrameRef(&mFrames[slot], [pool = shared_from_this(), slot](const Frame*) {
        pool->mFree.push(slot);
    });
}

} // namespace veltrano
