// SPDX-License-Identifier: GPL-3.0-or-later
// A tone on its way to the loudspeaker allocates nothing, locks nothing and waits for nothing.
#include "audio/AUOutputUnit.h"
#include "audio/SoundGen.h"
#include "platform/audio/HardwareOutputUnit.h"
#include "tests/audio/AudioUnitTestBase.h"
#include "tests/realtime/RealtimeWatch.h"

#include <QCoreApplication>
#include <array>
#include <atomic>
#include <thread>

namespace veltrano {
namespace {

constexpr long kBlocks = 100'000;

/// Asks a device for blocks of all sizes and layouts on a thread of its own, as a server does.
class AskingThread {
public:
    AskingThread(VirtualHardware& hardware, DeviceId device)
        : mHardware(hardware), mDevice(device) {}

    void run() {
        double sampleTime = 1;
        for (long block = 0; block < kBlocks; ++block) {
            AudioBuffer buffer = layout(block);
            {
                const RealtimeWatch watch;
                mHardware.deliver(mDevice, {}, sampleTime, AudioBufferList(&buffer, 1));
            }
            for (std::size_t i = 0; i < buffer.byteSize / sizeof(float); ++i)
                sounding += buffer.data[i] != 0;
            sampleTime += 512;
            mAsked.store(block + 1);
        }
    }
    long asked() const { return mAsked.load(); } ///< blocks so far

    long sounding = 0; ///< samples; the asking thread's until it has ended

private:
    AudioBuffer layout(long block) {
        constexpr std::uint32_t kSizes[] = {512, 64, 441, 1, 1024, 0, 2500};
        const std::uint32_t frames = kSizes[std::size_t(block) % std::size(kSizes)];
        const auto channels = std::uint32_t(block % 3 + 1);
        return {channels, frames * channels * std::uint32_t(sizeof(float)), mSamples.data()};
    }

    VirtualHardware& mHardware;
    const DeviceId mDevice;
    std::array<float, 3 * 2500> mSamples{};
    std::atomic<long> mAsked{0}; ///< written by the asking thread
};

class RoadOfATone : public AudioUnitTestBase {};

TEST_F(RoadOfATone, NeitherAllocatesNorLocksNorWaits) {
    const DeviceId device = hardware.addDevice(speaker("A"));
    HardwareOutputUnits units(hardware, [this](auto task) { mainThread.post(std::move(task)); });
    AUOutputUnit output(registry(), units);
    SoundGen generator;
    generator.setAUOutputUnit(output);
    output.setOutputDeviceAtIndex(0);
    mainThread.runAll();
    hardware.keepCalls(false);

    const RealtimeWatch::Counts before = RealtimeWatch::counts();
    AskingThread asking(hardware, device);
    std::thread thread([&] { asking.run(); });
    int ends = 0;
    bool wasPlaying = false;
    long begin = 0;
    for (int i = 0; asking.asked() < kBlocks; ++i) {
        generator.setWaveform(i % 5);
        generator.setVolume(float(i % 100) / 100);
        const bool isPlaying = generator.isPlaying();
        ends += wasPlaying && !isPlaying;
        wasPlaying = isPlaying;
        if (!isPlaying) {
            generator.playFreq(float(30 + i % 4000), float(i % 7));
            begin = asking.asked();
        } else if (asking.asked() > begin + 300) { // of up to 900
            generator.setLength(0);
        }
        if (i % 1000 == 500) {
            const double rate = i % 2000 == 500 ? 96000 : 48000;
            hardware.changeFormat(device, kOut, VirtualDevice::format(rate, 2));
        }
        mainThread.runAll();
        QCoreApplication::processEvents();
    }
    thread.join();

    EXPECT_GT(ends, 10) << "tones began and ended";
    EXPECT_GT(asking.sounding, 1'000'000);
    EXPECT_EQ(log.lines, Lines{});
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
