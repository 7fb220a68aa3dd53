// SPDX-License-Identifier: GPL-3.0-or-later
// The made-up hardware keeps the promises that a real one has to keep.
#include "platform/audio/CombinedHardware.h"
#include "platform/audio/RecordingDevice.h"
#include "platform/audio/ToneDevice.h"
#include "tests/platform/audio/SoundFileBytes.h"
#include "tests/support/AudioHardwareContract.h"

namespace veltrano {
namespace {

void turn() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

/// Gives the sounding device what a sound card has: two sources and a volume per channel.
void addSourcesAndVolumes(VirtualHardware& hardware, DeviceId device, double rateHz) {
    VirtualDevice::Side side = VirtualDevice::side(rateHz, 2);
    side.sources = {{1, "Jack"}, {2, "Built-in"}};
    side.source = 2;
    side.volumes.resize(2);
    hardware.changeSide(device, Direction::input, side);
}

class VirtualContract : public testing::TestWithParam<NotifyOn> {};

TEST_P(VirtualContract, OfATone) {
    VirtualHardware hardware(GetParam());
    ToneDevice::Parameters parameters;
    parameters.channels = 2;
    parameters.framesPerBlock = 100;
    ToneDevice device(hardware, parameters);
    addSourcesAndVolumes(hardware, device.id(), parameters.sampleRateHz);
    device.startRealTime();
    AudioHardwareContract::check({hardware, device.id(), 4711, turn});
}

TEST_P(VirtualContract, OfARecordingAmongJoinedHardwares) {
    VirtualHardware other;
    VirtualHardware hardware(GetParam());
    CombinedHardware combined({{&other, 0}, {&hardware, VirtualHardware::kFirstId}});
    const ScratchFolder folder;
    std::string error;
    const auto device = RecordingDevice::open(
        hardware, folder.write("a.wav", wav16(2, 48000, countingSamples(5000, 2))), error, 100);
    ASSERT_NE(device, nullptr) << error;
    device->startRealTime();
    AudioHardwareContract::check({combined, device->id(), 4711, turn});
    AudioHardwareContract::check({combined, device->id(), device->id() + 1, turn});
}

INSTANTIATE_TEST_SUITE_P(BothWaysOfNotifying, VirtualContract,
                         testing::Values(NotifyOn::callingThread, NotifyOn::notificationThread),
                         [](const auto& info) {
                             return info.param == NotifyOn::callingThread ? "onTheCallingThread"
                                                                          : "onANotificationThread";
                         });

} // namespace
} // namespace veltrano
