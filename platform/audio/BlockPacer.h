// SPDX-License-Identifier: GPL-3.0-or-later
// A thread that asks for a block of sound whenever one is due.
#pragma once

#include <atomic>
#include <thread>

namespace veltrano {

/// Calls its target once per block length, by the deadlines of BlockSchedule.
///
/// Thread: start() and stop() on the main thread; the target is called on the pacer's own thread.
/// Allocates: only in start().
class BlockPacer {
public:
    class Target {
    public:
        virtual ~Target() = default;
        /// One block length of time has passed. Must not block, lock or allocate.
        virtual void onBlockDue() noexcept = 0;
    };

    /// @param target must outlive this object
    /// @param blockSeconds length of a block, > 0
    BlockPacer(Target& target, double blockSeconds);
    ~BlockPacer(); ///< as stop()
    BlockPacer(const BlockPacer&) = delete;
    BlockPacer& operator=(const BlockPacer&) = delete;

    /// The first call comes one block length later. While it runs: nothing.
    void start();
    /// When it has returned, the target is not running and will not be called.
    void stop();
    bool isRunning() const { return mThread.joinable(); }

private:
    void run() noexcept;

    Target& mTarget;
    const double mBlockSeconds;
    std::atomic<bool> mIsEnding{false}; ///< written by the main thread
    std::thread mThread;
};

} // namespace veltrano
