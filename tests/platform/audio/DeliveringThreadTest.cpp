// SPDX-License-Identifier: GPL-3.0-or-later
// What the threads that deliver recordings and tones must not do.
#include "platform/audio/RecordingDevice.h"
#include "platform/audio/ToneDevice.h"
#include "tests/platform/audio/SoundFileBytes.h"
#include "tests/realtime/RealtimeWatch.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

namespace veltrano {
namespace {

/// From the first block of its thread on, that thread is watched until it ends or unwatch().
class WatchedProc {
public:
    static Status call(DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                       const AudioTimeStamp*, AudioBufferList*, const AudioTimeStamp*,
                       void* refCon) noexcept {
        if (!watch()) watch().emplace();
        static_cast<WatchedProc*>(refCon)->blocks.fetch_add(1, std::memory_order_relaxed);
        return 0;
    }
    static void unwatch() { watch().reset(); }

    std::atomic<int> blocks{0};

private:
    static std::optional<RealtimeWatch>& watch() {
        thread_local std::optional<RealtimeWatch> ofThisThread;
        return ofThisThread;
    }
};

class DeliveringThread : public testing::Test {
protected:
    void SetUp() override {
        if (!RealtimeWatch::isCounting()) GTEST_SKIP() << "cannot be counted in a sanitized build";
        before = RealtimeWatch::counts();
    }
    void start(DeviceId device) {
        hardware.addIOProc(device, WatchedProc::call, &proc);
        hardware.start(device, WatchedProc::call);
    }
    void waitForBlocks(int count) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (proc.blocks < count && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        EXPECT_GE(proc.blocks, count);
    }
    /// Nothing but the waits until a block is due.
    void expectNothingForbidden() const {
        const RealtimeWatch::Counts counts = RealtimeWatch::counts();
        EXPECT_EQ(counts.allocations, before.allocations);
        EXPECT_EQ(counts.releases, before.releases);
        EXPECT_EQ(counts.locks, before.locks);
    }

    const ScratchFolder folder;
    VirtualHardware hardware;
    WatchedProc proc;
    RealtimeWatch::Counts before;
};

TEST_F(DeliveringThread, ARecordingInRealTimeNeitherAllocatesNorLocksUpToItsEndAndBeyond) {
    const auto path = folder.write("a.wav", wav16(2, 384000, countingSamples(300000, 2)));
    std::string error;
    const auto device = RecordingDevice::open(hardware, path, error, 64);
    ASSERT_NE(device, nullptr) << error;
    start(device->id());
    device->startRealTime();
    waitForBlocks(6000);                            // 4688 of sound, then silence
    hardware.stop(device->id(), WatchedProc::call); // the thread of the delivery goes on
    expectNothingForbidden();
    device->stopRealTime();
}

TEST_F(DeliveringThread, ARecordingAsFastAsPossibleNeitherAllocatesNorLocks) {
    const auto path = folder.write("a.wav", wav16(1, 48000, countingSamples(200000, 1)));
    std::string error;
    const auto device = RecordingDevice::open(hardware, path, error, 64);
    ASSERT_NE(device, nullptr) << error;
    start(device->id());
    while (device->playBlock()) {
    }
    expectNothingForbidden();
    WatchedProc::unwatch();
    EXPECT_EQ(proc.blocks, 200000 / 64);
}

TEST_F(DeliveringThread, AHundredThousandBlocksOfAToneNeitherAllocateNorLock) {
    ToneDevice device(hardware, {});
    start(device.id());
    for (int block = 0; block < 100000; ++block)
        device.playBlock();
    expectNothingForbidden();
    EXPECT_EQ(RealtimeWatch::counts(), before); // no wait either
    WatchedProc::unwatch();
    EXPECT_EQ(proc.blocks, 100000);
}

} // namespace
} // namespace veltrano
