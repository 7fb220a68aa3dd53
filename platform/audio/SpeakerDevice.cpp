// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/SpeakerDevice.h"

#include "platform/audio/SoundFile.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace veltrano {

SpeakerDevice::SpeakerDevice(VirtualHardware& hardware, const Parameters& parameters)
    : mHardware(hardware), mParameters(parameters),
      mBlock(std::size_t(parameters.framesPerBlock) * std::size_t(parameters.channels)),
      mPlayed(std::size_t(parameters.mostSeconds * parameters.sampleRateHz) *
              std::size_t(parameters.channels)),
      mPacer(*this, parameters.framesPerBlock / parameters.sampleRateHz) {
    VirtualDevice device;
    device.manufacturer = "Speaker";
    device.name = parameters.name;
    device.output =
        VirtualDevice::side(parameters.sampleRateHz, std::uint32_t(parameters.channels));
    mId = mHardware.addDevice(std::move(device));
}

SpeakerDevice::~SpeakerDevice() {
    stopRealTime();
    mHardware.removeDevice(mId);
}

bool SpeakerDevice::playBlock() { return !mPacer.isRunning() && askForNext(); }

void SpeakerDevice::onBlockDue() noexcept { askForNext(); }

bool SpeakerDevice::askForNext() noexcept {
    std::ranges::fill(mBlock, 0.0f);
    AudioBuffer buffer{std::uint32_t(mParameters.channels),
                       std::uint32_t(mBlock.size() * sizeof(float)), mBlock.data()};
    const double sampleTime = mSampleTime + mParameters.framesPerBlock;
    if (mHardware.deliver(mId, {}, sampleTime, AudioBufferList(&buffer, 1)) != audio_status::kOk)
        return false;
    mSampleTime = sampleTime;
    const std::size_t room = std::min(mBlock.size(), mPlayed.size() - mKept);
    std::copy_n(mBlock.begin(), room, mPlayed.begin() + std::ptrdiff_t(mKept));
    mKept += room;
    return true;
}

bool SpeakerDevice::write(const std::string& path) const {
    const std::string bytes =
        waveFileBytes(played(), static_cast<int>(mParameters.sampleRateHz), mParameters.channels);
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), std::streamsize(bytes.size()));
    return !bytes.empty() && file.flush().good();
}

} // namespace veltrano
