// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/ToneDevice.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace veltrano {

ToneDevice::ToneDevice(VirtualHardware& hardware, const Parameters& parameters)
    : mHardware(hardware), mParameters(parameters), mFrequencyHz(parameters.frequencyHz),
      mAmplitude(parameters.amplitude),
      mBlock(std::size_t(parameters.framesPerBlock) * std::size_t(parameters.channels)),
      mPacer(*this, parameters.framesPerBlock / parameters.sampleRateHz) {
    VirtualDevice device;
    device.manufacturer = "Tone";
    device.name = parameters.name;
    device.input = VirtualDevice::side(parameters.sampleRateHz, std::uint32_t(parameters.channels));
    mId = mHardware.addDevice(std::move(device));
}

ToneDevice::~ToneDevice() {
    stopRealTime();
    mHardware.removeDevice(mId);
}

bool ToneDevice::playBlock() { return !mPacer.isRunning() && deliverNext(); }

void ToneDevice::onBlockDue() noexcept { deliverNext(); }

bool ToneDevice::deliverNext() noexcept {
    const double step = mFrequencyHz.load(std::memory_order_relaxed) / mParameters.sampleRateHz;
    const double amplitude = mAmplitude.load(std::memory_order_relaxed);
    const auto channels = std::size_t(mParameters.channels);
    double phase = mPhase;
    for (std::size_t at = 0; at < mBlock.size(); at += channels) {
        const auto sample = float(amplitude * std::sin(2 * std::numbers::pi * phase));
        for (std::size_t channel = 0; channel < channels; ++channel)
            mBlock[at + channel] = sample;
        phase += step;
        phase -= std::floor(phase);
    }

    AudioBuffer buffer{std::uint32_t(channels), std::uint32_t(mBlock.size() * sizeof(float)),
                       mBlock.data()};
    const double sampleTime = mSampleTime + mParameters.framesPerBlock;
    if (mHardware.deliver(mId, AudioBufferList(&buffer, 1), sampleTime) != audio_status::kOk) {
        return false;
    }
    mPhase = phase;
    mSampleTime = sampleTime;
    return true;
}

} // namespace veltrano
