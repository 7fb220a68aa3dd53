// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/BlockGate.h"

#include <cassert>
#include <chrono>
#include <thread>

namespace veltrano {

void BlockGate::open(AudioDeviceIOProc proc, void* refCon) noexcept {
    assert(proc != nullptr && !isOpen());
    mProc = proc;
    mRefCon = refCon;
    mState.fetch_or(kOpen, std::memory_order_release);
}

void BlockGate::close() noexcept {
    mState.fetch_and(~kOpen, std::memory_order_acq_rel);
    // Polled, because a wake-up would cost the delivering thread a system call per block.
    while (mState.load(std::memory_order_acquire) >= kOneCall) {
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
}

bool BlockGate::deliver(DeviceId device, AudioBufferList input, AudioBufferList output,
                        double sampleTime) noexcept {
    const bool isOpen = (mState.fetch_add(kOneCall, std::memory_order_acquire) & kOpen) != 0;
    if (isOpen) {
        const AudioTimeStamp time{sampleTime};
        mProc(device, &time, &input, &time, &output, &time, mRefCon);
    }
    mState.fetch_sub(kOneCall, std::memory_order_release);
    return isOpen;
}

} // namespace veltrano
