// SPDX-License-Identifier: GPL-3.0-or-later
// Lets blocks of sound through to an I/O procedure while the device is started.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <atomic>

namespace veltrano {

/// The meeting place of the thread that has blocks and the thread that starts and stops.
///
/// Thread: deliver() on one thread at a time, lock-free; open() and close() on the main thread.
/// Allocates: never.
class BlockGate {
public:
    /// Main thread, while the gate is closed. @p proc is not null.
    void open(AudioDeviceIOProc proc, void* refCon) noexcept;

    /// Main thread, not from inside the procedure. When it has returned, the procedure is not
    /// running and will not be called again. It waits for a call that runs just now.
    void close() noexcept;

    bool isOpen() const noexcept { return (mState.load(std::memory_order_acquire) & kOpen) != 0; }

    /// Delivering thread. Calls the procedure; false, and nothing called, when the gate is closed.
    /// @param sampleTime [samples] stamped on the block
    bool deliver(DeviceId device, AudioBufferList input, AudioBufferList output,
                 double sampleTime) noexcept;

private:
    static constexpr std::uint32_t kOpen = 1; ///< bit of mState; the calls under way count by 2
    static constexpr std::uint32_t kOneCall = 2;

    AudioDeviceIOProc mProc = nullptr; ///< written by the main thread while the gate is closed
    void* mRefCon = nullptr;           ///< as mProc
    /// The open bit is written by the main thread only, the count by the delivering thread only.
    std::atomic<std::uint32_t> mState{0};
};

} // namespace veltrano
