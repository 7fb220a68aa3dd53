// SPDX-License-Identifier: GPL-3.0-or-later
// An output unit that plays on the devices of an AudioHardware.
#include "platform/audio/HardwareOutputUnit.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veltrano {

namespace {

StreamDescription clientFormat(std::uint32_t channels) {
    StreamDescription format;
    format.channelsPerFrame = channels;
    format.bytesPerFrame = format.bytesPerPacket = sizeof(float); // of each channel's own buffer
    return format;
}

} // namespace

HardwareOutputUnit::HardwareOutputUnit(AudioHardware& hardware, PostToMainThread post)
    : mHardware(hardware), mPost(std::move(post)), mFormat(clientFormat(kChannels)),
      mRendered(kCycleFrames * kChannels) {
    mHardware.addHardwareListener(PropertyCode::devices, &HardwareOutputUnit::onDevices, this);
}

HardwareOutputUnit::~HardwareOutputUnit() {
    if (mIsRunning) stop();
    listenToDevice(mDevice, false);
    mHardware.removeHardwareListener(PropertyCode::devices, &HardwareOutputUnit::onDevices, this);
}

Status HardwareOutputUnit::initialize() { return audio_status::kOk; }

Status HardwareOutputUnit::addPropertyListener(UnitProperty property, UnitListenerProc listener,
                                               void* client) {
    mListeners.push_back({property, listener, client});
    return audio_status::kOk;
}

Status HardwareOutputUnit::setRenderCallback(RenderProc proc, void* refCon) {
    mCallback.set({proc, refCon});
    return audio_status::kOk;
}

std::optional<DeviceId> HardwareOutputUnit::currentDevice() const {
    if (mDevice == 0) return std::nullopt;
    return mDevice;
}

Status HardwareOutputUnit::setCurrentDevice(DeviceId device) {
    if (device == mDevice) return audio_status::kOk;
    if (!mHardware.streamFormat(device, Direction::output)) return audio_status::kBadDevice;
    const bool wasRunning = mIsRunning;
    if (wasRunning) stop();
    listenToDevice(mDevice, false);
    mDevice = device;
    listenToDevice(mDevice, true);
    const Status status = wasRunning ? start() : audio_status::kOk;
    tell(UnitProperty::currentDevice);
    return status;
}

Status HardwareOutputUnit::setStreamFormat(const StreamDescription& format) {
    const StreamDescription own = clientFormat(kChannels);
    if (format.formatId != own.formatId || format.channelsPerFrame != own.channelsPerFrame ||
        format.bitsPerChannel != own.bitsPerChannel) {
        return audio_status::kNotSupported;
    }
    mFormat = format;
    return audio_status::kOk;
}

Status HardwareOutputUnit::start() {
    if (mDevice == 0) return audio_status::kBadDevice;
    const Status added = mHardware.addIOProc(mDevice, &HardwareOutputUnit::ioProc, this);
    if (added != audio_status::kOk && !mIsRunning) return added;
    const Status started = mHardware.start(mDevice, &HardwareOutputUnit::ioProc);
    if (started == audio_status::kOk) {
        mIsRunning = true;
    } else if (!mIsRunning) {
        mHardware.removeIOProc(mDevice, &HardwareOutputUnit::ioProc);
    }
    return started;
}

Status HardwareOutputUnit::stop() {
    if (!mIsRunning) return audio_status::kOk;
    const Status stopped = mHardware.stop(mDevice, &HardwareOutputUnit::ioProc);
    mHardware.removeIOProc(mDevice, &HardwareOutputUnit::ioProc);
    mIsRunning = false;
    return stopped;
}

// --- sound ---

Status HardwareOutputUnit::ioProc(DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                                  const AudioTimeStamp*, AudioBufferList* output,
                                  const AudioTimeStamp* outputTime,
                                  void* unit) noexcept VELTRANO_NONBLOCKING {
    for (AudioBuffer& buffer : *output)
        static_cast<HardwareOutputUnit*>(unit)->play(buffer, *outputTime);
    return audio_status::kOk;
}

void HardwareOutputUnit::play(AudioBuffer& buffer, const AudioTimeStamp& time) noexcept {
    const std::size_t channels = buffer.channels;
    if (channels == 0) return;
    const Callback callback = mCallback.get();
    const std::size_t frames = buffer.byteSize / (channels * sizeof(float));
    for (std::size_t done = 0; done < frames;) {
        const std::size_t part = std::min(frames - done, kCycleFrames);
        render(part, time.sampleTime + static_cast<double>(done), callback);
        float* const to = buffer.data + done * channels;
        for (std::size_t frame = 0; frame < part; ++frame) {
            for (std::size_t channel = 0; channel < channels; ++channel) {
                const bool isOurs = channel < kChannels;
                to[frame * channels + channel] =
                    isOurs ? mRendered[channel * kCycleFrames + frame] : 0.0f;
            }
        }
        done += part;
    }
}

/// One render cycle into mRendered.
void HardwareOutputUnit::render(std::size_t frames, double sampleTime,
                                const Callback& callback) noexcept {
    std::ranges::fill(mRendered, 0.0f);
    if (callback.proc == nullptr) return;
    std::array<AudioBuffer, kChannels> buffers;
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        buffers[channel] = {1, static_cast<std::uint32_t>(frames * sizeof(float)),
                            mRendered.data() + channel * kCycleFrames};
    }
    AudioBufferList list(buffers);
    const AudioTimeStamp time{sampleTime};
    callback.proc(callback.refCon, &time, 0, static_cast<std::uint32_t>(frames), &list);
}

// --- following the device ---

void HardwareOutputUnit::listenToDevice(DeviceId device, bool listen) {
    if (device == 0) return;
    if (listen) {
        mHardware.addDeviceListener(device, 0, Direction::output, PropertyCode::streamFormat,
                                    &HardwareOutputUnit::onFormat, this);
    } else {
        mHardware.removeDeviceListener(device, 0, Direction::output, PropertyCode::streamFormat,
                                       &HardwareOutputUnit::onFormat);
    }
}

Status HardwareOutputUnit::onDevices(PropertyCode, void* unit) noexcept {
    static_cast<HardwareOutputUnit*>(unit)->post(&HardwareOutputUnit::followDevices);
    return audio_status::kOk;
}

Status HardwareOutputUnit::onFormat(DeviceId, std::uint32_t, bool, PropertyCode,
                                    void* unit) noexcept {
    static_cast<HardwareOutputUnit*>(unit)->post(&HardwareOutputUnit::tellSampleRate);
    return audio_status::kOk;
}

void HardwareOutputUnit::post(void (HardwareOutputUnit::*handler)()) {
    mPost([this, handler, alive = std::weak_ptr(mAlive)] {
        if (!alive.expired()) (this->*handler)();
    });
}

/// A device that went while others are there is not waited for. With all of them gone the server
/// went, and its devices come back under their ids.
void HardwareOutputUnit::followDevices() {
    if (mDevice == 0) return;
    if (mHardware.streamFormat(mDevice, Direction::output)) {
        if (mIsRunning) start(); // it may have been away for a moment
    } else if (const auto other = mHardware.defaultDevice(Direction::output)) {
        setCurrentDevice(*other);
    }
    // Later: those who were told of another device look at it first.
    post(&HardwareOutputUnit::tellOtherRate);
}

/// The device that came back, or in place of another, need not have the rate of the client.
void HardwareOutputUnit::tellOtherRate() {
    const auto format = mHardware.streamFormat(mDevice, Direction::output);
    if (format && format->sampleRate != mFormat.sampleRate) tellSampleRate();
}

void HardwareOutputUnit::tell(UnitProperty property) {
    const std::vector<Listener> listeners = mListeners; // one may add another
    for (const Listener& listener : listeners) {
        if (listener.property == property)
            listener.proc(listener.client, this, property, UnitScope::input, 0);
    }
}

Status HardwareOutputUnits::open(std::unique_ptr<OutputUnit>& unit) {
    unit = std::make_unique<HardwareOutputUnit>(mHardware, mPost);
    return audio_status::kOk;
}

} // namespace veltrano
