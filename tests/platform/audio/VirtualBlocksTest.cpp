// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks of sound through the virtual hardware: when they arrive and when they do not.
#include "platform/audio/VirtualHardware.h"
#include "tests/platform/audio/BlockRecorder.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

using audio_status::kBadDevice;
using audio_status::kNotAdded;
using audio_status::kNotStarted;
using audio_status::kNotSupported;
using audio_status::kOk;
constexpr auto kProc = BlockRecorder::recordBlock;

VirtualDevice microphone() {
    VirtualDevice device;
    device.input = VirtualDevice::side(48000, 2);
    return device;
}

class VirtualBlocks : public testing::Test {
protected:
    Status deliver(double sampleTime = 1) {
        return hardware.deliver(id, AudioBufferList(&buffer, 1), sampleTime);
    }

    VirtualHardware hardware;
    const DeviceId id = hardware.addDevice(microphone());
    BlockRecorder recorder;
    std::array<float, 4> samples = {0.1f, 0.2f, 0.3f, 0.4f};
    AudioBuffer buffer{2, sizeof samples, samples.data()};
};

TEST_F(VirtualBlocks, ArriveAsTheyWereDeliveredWhileTheDeviceIsStarted) {
    EXPECT_EQ(deliver(), kNotStarted);
    EXPECT_EQ(hardware.addIOProc(id, kProc, &recorder), kOk);
    EXPECT_EQ(deliver(), kNotStarted);
    EXPECT_FALSE(hardware.isStarted(id));
    EXPECT_EQ(hardware.start(id, kProc), kOk);
    EXPECT_TRUE(hardware.isStarted(id));
    EXPECT_EQ(deliver(2.5), kOk);
    EXPECT_EQ(hardware.stop(id, kProc), kOk);
    EXPECT_EQ(deliver(), kNotStarted);
    EXPECT_EQ(hardware.start(id, kProc), kOk);
    EXPECT_EQ(hardware.removeIOProc(id, kProc), kOk); // also stops
    EXPECT_EQ(deliver(), kNotStarted);

    ASSERT_EQ(recorder.count(), 1u);
    const BlockRecorder::Block block = recorder.blocks()[0];
    EXPECT_EQ(block.device, id);
    EXPECT_EQ(block.sampleTime, 2.5);
    EXPECT_EQ(block.channels, std::vector<std::uint32_t>{2});
    EXPECT_EQ(block.samples, std::vector<float>(samples.begin(), samples.end()));
}

TEST_F(VirtualBlocks, SeveralBuffersAndNoneAreHandedOverToo) {
    hardware.addIOProc(id, kProc, &recorder);
    hardware.start(id, kProc);
    std::array<AudioBuffer, 2> buffers = {AudioBuffer{1, 8, samples.data()},
                                          AudioBuffer{1, 8, samples.data() + 2}};
    EXPECT_EQ(hardware.deliver(id, buffers, 1), kOk);
    EXPECT_EQ(hardware.deliver(id, {}, 2), kOk);
    ASSERT_EQ(recorder.count(), 2u);
    EXPECT_EQ(recorder.blocks()[0].channels, (std::vector<std::uint32_t>{1, 1}));
    EXPECT_TRUE(recorder.blocks()[1].channels.empty());
}

TEST_F(VirtualBlocks, OutputBuffersCanBeFilled) {
    const auto fill = [](DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                         const AudioTimeStamp*, AudioBufferList* output, const AudioTimeStamp*,
                         void*) noexcept -> Status {
        for (const AudioBuffer& out : *output)
            out.data[0] = 0.9f;
        return 0;
    };
    hardware.addIOProc(id, fill, nullptr);
    hardware.start(id, fill);
    EXPECT_EQ(hardware.deliver(id, {}, 1, AudioBufferList(&buffer, 1)), kOk);
    EXPECT_EQ(samples[0], 0.9f);
}

TEST_F(VirtualBlocks, ARemovedDeviceForgetsItsProcedure) {
    hardware.addIOProc(id, kProc, &recorder);
    hardware.start(id, kProc);
    hardware.removeDevice(id);
    EXPECT_EQ(deliver(), kNotStarted);
    EXPECT_EQ(hardware.stop(id, kProc), kBadDevice);
    EXPECT_EQ(hardware.removeIOProc(id, kProc), kBadDevice);
    EXPECT_EQ(hardware.addIOProc(id, kProc, &recorder), kBadDevice);
    EXPECT_EQ(hardware.start(id, kProc), kBadDevice);
    hardware.returnDevice(id);
    EXPECT_EQ(deliver(), kNotStarted);
    EXPECT_EQ(hardware.start(id, kProc), kNotAdded);
    EXPECT_EQ(hardware.addIOProc(id, kProc, &recorder), kOk);
    EXPECT_EQ(hardware.start(id, kProc), kOk);
    EXPECT_EQ(deliver(), kOk);
    EXPECT_EQ(recorder.count(), 1u);
}

TEST_F(VirtualBlocks, MisuseIsAnsweredByAStatus) {
    EXPECT_EQ(hardware.start(id, kProc), kNotAdded);
    EXPECT_EQ(hardware.stop(id, kProc), kNotAdded);
    EXPECT_EQ(hardware.removeIOProc(id, kProc), kNotAdded);
    EXPECT_EQ(hardware.start(id, nullptr), kNotAdded);
    EXPECT_EQ(hardware.addIOProc(id, nullptr, nullptr), kNotSupported);
    hardware.addIOProc(id, kProc, &recorder);
    hardware.start(id, kProc);
    EXPECT_EQ(hardware.start(id, kProc), kOk);
    EXPECT_EQ(hardware.addIOProc(id, kProc, nullptr), kNotSupported); // it is running
    EXPECT_EQ(deliver(), kOk);
    EXPECT_EQ(hardware.deliver(7, {}, 1), kBadDevice);
    EXPECT_FALSE(hardware.isStarted(7));
    EXPECT_EQ(hardware.deliver(id + 1, {}, 1), kBadDevice);
}

TEST_F(VirtualBlocks, AFailedStopGoesOnDelivering) {
    hardware.addIOProc(id, kProc, &recorder);
    hardware.start(id, kProc);
    hardware.faults().failNext(HardwareCall::stop, 77);
    EXPECT_EQ(hardware.stop(id, kProc), 77);
    EXPECT_EQ(deliver(), kOk);
}

/// An I/O procedure that takes its time, and tells whether it runs.
struct Dawdler {
    std::atomic<int> calls{0};
    std::atomic<bool> isInside{false};

    static Status call(DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                       const AudioTimeStamp*, AudioBufferList*, const AudioTimeStamp*,
                       void* refCon) noexcept {
        auto& self = *static_cast<Dawdler*>(refCon);
        self.isInside = true;
        ++self.calls;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        self.isInside = false;
        return 0;
    }
};

TEST_F(VirtualBlocks, WhenStopHasReturnedTheProcedureIsNotRunning) {
    Dawdler dawdler;
    hardware.addIOProc(id, Dawdler::call, &dawdler);
    std::atomic<bool> isEnding = false;
    std::thread sound([&] {
        while (!isEnding)
            deliver();
    });
    for (int round = 0; round < 30; ++round) {
        const int before = dawdler.calls;
        hardware.start(id, Dawdler::call);
        while (dawdler.calls == before)
            std::this_thread::yield();
        hardware.stop(id, Dawdler::call);
        EXPECT_FALSE(dawdler.isInside);
        const int after = dawdler.calls;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_EQ(dawdler.calls, after);
    }
    isEnding = true;
    sound.join();
}

TEST_F(VirtualBlocks, DevicesComeAndGoWhileAnotherDelivers) {
    hardware.addIOProc(id, kProc, &recorder);
    hardware.start(id, kProc);
    std::thread sound([&] {
        for (int block = 1; block <= 2000; ++block)
            deliver(block);
    });
    for (int round = 0; round < 200; ++round) {
        hardware.removeDevice(hardware.addDevice(microphone()));
    }
    sound.join();
    EXPECT_EQ(recorder.count(), 2000u);
}

} // namespace
} // namespace veltrano
