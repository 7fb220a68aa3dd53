// SPDX-License-Identifier: GPL-3.0-or-later
// An I/O procedure that keeps count of what it is given.
#pragma once

#include "platform/audio/AudioHardware.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace veltrano {

/// Counts blocks, and tells sound from silence in the first channel.
///
/// Thread: the counts are written by the procedure's thread alone and read by any; clear() while
/// the device is stopped.
class HeardBlocks {
public:
    /// Its refCon is the object. Allocates, locks and waits for nothing.
    static Status ioProc(DeviceId device, const AudioTimeStamp*, const AudioBufferList* input,
                         const AudioTimeStamp* inputTime, AudioBufferList*, const AudioTimeStamp*,
                         void* refCon) noexcept {
        static_cast<HeardBlocks*>(refCon)->take(device, *input, inputTime->sampleTime);
        return 0;
    }

    static double now() {
        const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double>(sinceStart).count();
    }

    void clear() {
        for (auto* count : {&blocks, &frames, &soundFrames, &crossings, &faults, &silentBlocks})
            count->store(0);
        firstFrames = 0;
        for (auto* time : {&lastAt, &soundAt, &resumedAt, &firstTime, &lastTime})
            time->store(0);
        channels = 0;
        mIsBelow = false;
        mWasSound = false;
    }

    std::atomic<std::uint64_t> blocks{0};
    std::atomic<std::uint64_t> frames{0};
    std::atomic<std::uint64_t> soundFrames{0};  ///< in blocks that are not silent
    std::atomic<std::uint64_t> silentBlocks{0}; ///< all samples of all channels 0
    std::atomic<std::uint64_t> crossings{0};    ///< upward zero crossings of the first channel
    std::atomic<std::uint64_t> faults{0};       ///< not one buffer, empty, time not above the last
    std::atomic<std::uint64_t> firstFrames{0};  ///< length of the first block
    std::atomic<std::uint32_t> channels{0};     ///< of the last block
    std::atomic<DeviceId> device{0};            ///< of the last block
    std::atomic<double> lastAt{0};              ///< [s] steady, when the last block came
    std::atomic<double> soundAt{0};   ///< [s] steady, when the last block that is not silent came
    std::atomic<double> resumedAt{0}; ///< [s] steady, when sound began last, after silence or none
    std::atomic<double> firstTime{0}; ///< sample time of the first block
    std::atomic<double> lastTime{0};  ///< sample time of the last block

private:
    void take(DeviceId from, AudioBufferList input, double sampleTime) noexcept {
        const bool isFirst = blocks.load() == 0;
        const bool isWellFormed = input.size() == 1 && input[0].channels > 0 && input[0].data &&
                                  input[0].byteSize >= input[0].channels * sizeof(float);
        if (!isWellFormed || (!isFirst && sampleTime <= lastTime.load())) {
            add(faults, 1);
            if (!isWellFormed) return;
        }
        const AudioBuffer& buffer = input[0];
        const std::size_t length = buffer.byteSize / sizeof(float) / buffer.channels;
        if (isFirst) {
            firstTime = sampleTime;
            firstFrames = length;
        }
        device = from;
        channels = buffer.channels;
        lastTime = sampleTime;
        lastAt = now();
        listen(buffer, length);
        add(frames, length);
        add(blocks, 1);
    }

    void listen(const AudioBuffer& buffer, std::size_t length) noexcept {
        bool isSilent = true;
        std::uint64_t found = 0;
        for (std::size_t index = 0; index < length * buffer.channels; ++index) {
            if (buffer.data[index] != 0) isSilent = false;
            if (index % buffer.channels != 0) continue;
            // The ringing around a gap passes zero many times, but stays small.
            if (mIsBelow && buffer.data[index] > kClearly) ++found;
            if (std::abs(buffer.data[index]) > kClearly) mIsBelow = buffer.data[index] < 0;
        }
        add(crossings, found);
        if (isSilent) {
            add(silentBlocks, 1);
        } else {
            add(soundFrames, length);
            soundAt = lastAt.load();
            if (!mWasSound) resumedAt = lastAt.load();
        }
        mWasSound = !isSilent;
    }

    /// There is one writer, so no read-modify-write is needed.
    static void add(std::atomic<std::uint64_t>& count, std::uint64_t more) noexcept {
        count.store(count.load(std::memory_order_relaxed) + more, std::memory_order_release);
    }

    static constexpr float kClearly = 0.02f; ///< beyond it a sample is above or below zero

    // The procedure's thread only.
    bool mIsBelow = false;  ///< the first channel was clearly below zero last
    bool mWasSound = false; ///< of the block before
};

} // namespace veltrano
