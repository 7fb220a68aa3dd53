// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/BlockPacer.h"

#include "platform/audio/BlockSchedule.h"

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace veltrano {

namespace {

double monotonicSeconds() noexcept {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void sleepUntil(double seconds) noexcept {
    timespec deadline{};
    deadline.tv_sec = static_cast<time_t>(seconds);
    deadline.tv_nsec = static_cast<long>((seconds - static_cast<double>(deadline.tv_sec)) * 1e9);
    while (::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

} // namespace

BlockPacer::BlockPacer(Target& target, double blockSeconds)
    : mTarget(target), mBlockSeconds(blockSeconds) {}

BlockPacer::~BlockPacer() { stop(); }

void BlockPacer::start() {
    if (isRunning()) return;
    mIsEnding.store(false, std::memory_order_relaxed);
    mThread = std::thread([this] { run(); });
}

void BlockPacer::stop() {
    if (!isRunning()) return;
    mIsEnding.store(true, std::memory_order_relaxed);
    mThread.join();
    mThread = {};
}

void BlockPacer::run() noexcept {
    constexpr double kLongestSleep = 0.05; // so that stop() never waits for a long block
    BlockSchedule schedule(mBlockSeconds);
    schedule.begin(monotonicSeconds());
    while (!mIsEnding.load(std::memory_order_relaxed)) {
        const double now = monotonicSeconds();
        if (schedule.takeDue(now)) {
            mTarget.onBlockDue();
        } else {
            sleepUntil(std::min(schedule.deadline(), now + kLongestSleep));
        }
    }
}

} // namespace veltrano
