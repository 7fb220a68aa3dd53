// SPDX-License-Identifier: GPL-3.0-or-later
// A block on its way to the main thread allocates nothing, locks nothing and waits for nothing.
#include "tests/engine/ControllerRig.h"
#include "tests/realtime/RealtimeWatch.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

constexpr long kBlocks = 100'000;

/// Delivers blocks of all sizes and layouts on a thread of its own, as a sound server does.
class AudioThread {
public:
    explicit AudioThread(ControllerRig& rig) : mRig(rig), mTone(toneSamples(100.0, 0.5F, 8192)) {}

    void run() {
        std::array<AudioBuffer, 3> buffers;
        double sampleTime = 1;
        for (long block = 0; block < kBlocks; ++block) {
            while (block == mAllowed.load())
                std::this_thread::yield();
            const AudioBufferList list = layout(block, buffers);
            {
                const RealtimeWatch watch;
                mRig.hardware.deliver(mRig.device, list, sampleTime);
            }
            sampleTime += 512;
            mDelivered.store(block + 1);
        }
    }
    /// Main thread. Blocks up to this one may be delivered; answers whether they all have been.
    void allow(long blocks) { mAllowed.store(blocks); }
    bool isDone() const { return mDelivered.load() == mAllowed.load(); }

private:
    AudioBufferList layout(long block, std::array<AudioBuffer, 3>& buffers) {
        constexpr std::uint32_t kSizes[] = {512, 64, 441, 1, 1024, 882, 4096};
        const std::uint32_t frames = kSizes[block % std::size(kSizes)];
        const std::uint32_t channels = block % 3 == 0 ? 2 : 1;
        const std::uint32_t bytes = frames * channels * std::uint32_t(sizeof(float));
        buffers.fill({channels, bytes, mTone.data()});
        return AudioBufferList(buffers).first(block % 11 == 0 ? 3 : 1);
    }

    ControllerRig& mRig;
    std::vector<float> mTone;
    std::atomic<long> mAllowed{0};   ///< written by the main thread
    std::atomic<long> mDelivered{0}; ///< written by the audio thread
};

TEST(RoadOfABlock, NeitherAllocatesNorLocksNorWaits) {
    ControllerRig rig;
    Controller& controller = rig.start();
    AudioThread audio(rig);
    const RealtimeWatch::Counts before = RealtimeWatch::counts();
    std::thread thread([&] { audio.run(); });

    long frames = 0;
    const auto serve = [&] {
        controller.serveFrames();
        rig.mainThread.runPending();
        frames += long(rig.display.callsOf("strobeData").size());
        rig.display.takeCalls();
    };
    audio.allow(kBlocks / 4);
    while (!audio.isDone())
        serve();
    audio.allow(kBlocks / 3); // the main thread stalls meanwhile
    while (!audio.isDone())
        std::this_thread::yield();
    StreamDescription faster = *rig.hardware.streamFormat(rig.device, Direction::input);
    faster.sampleRate = 96000;
    rig.hardware.changeFormat(rig.device, Direction::input, faster);
    audio.allow(kBlocks);
    while (!audio.isDone())
        serve();
    thread.join();
    serve();

    EXPECT_GT(frames, 100) << "frames were handed over";
    EXPECT_GT(controller.record().dropped, 0u) << "the main thread stalled";
    EXPECT_EQ(controller.inputUnit().sampleRate(), 96000.0) << "the frame was sized anew";
    if (!RealtimeWatch::isCounting()) {
        GTEST_SKIP() << "The road was run; the sanitizer of this build counts for itself.";
    }
    const RealtimeWatch::Counts after = RealtimeWatch::counts();
    EXPECT_EQ(after.allocations - before.allocations, 0);
    EXPECT_EQ(after.releases - before.releases, 0);
    EXPECT_EQ(after.locks - before.locks, 0);
    EXPECT_EQ(after.waits - before.waits, 0);
}

} // namespace
} // namespace veltrano
