// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/FrameRoad.h"

namespace veltrano {

FrameRoad::FrameRoad(const Capacity& capacity)
    : mPool(FramePool::create(capacity.frames, capacity.samples)) {}

void FrameRoad::receive(AudioBufferList buffers, double sampleTime) noexcept VELTRANO_NONBLOCKING {
    mAssembler.process(buffers, sampleTime,
                       [this](std::span<const float> frame, std::uint64_t samplesSoFar) {
                           if (mPool->publish(frame, samplesSoFar)) mWakeUp.signal();
                       });
}

} // namespace veltrano
