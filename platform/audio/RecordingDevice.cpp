// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/RecordingDevice.h"

#include <filesystem>
#include <utility>

namespace veltrano {

std::unique_ptr<RecordingDevice> RecordingDevice::open(VirtualHardware& hardware,
                                                       const std::string& path, std::string& error,
                                                       int framesPerBlock) {
    auto recording = Recording::open(path, error);
    if (recording == nullptr) return nullptr;
    const std::string name = std::filesystem::path(path).stem().string();
    return std::unique_ptr<RecordingDevice>(
        new RecordingDevice(hardware, std::move(recording), name, framesPerBlock));
}

RecordingDevice::RecordingDevice(VirtualHardware& hardware, std::unique_ptr<Recording> recording,
                                 const std::string& name, int framesPerBlock)
    : mHardware(hardware), mRecording(std::move(recording)), mFramesPerBlock(framesPerBlock),
      mBlock(std::size_t(framesPerBlock) * std::size_t(mRecording->channels())),
      mSilence(mBlock.size()), mPacer(*this, framesPerBlock / sampleRate()) {
    VirtualDevice device;
    device.manufacturer = "Recording";
    device.name = name;
    device.input = VirtualDevice::side(sampleRate(), std::uint32_t(channels()));
    mId = mHardware.addDevice(std::move(device));
}

RecordingDevice::~RecordingDevice() {
    stopRealTime();
    mHardware.removeDevice(mId);
}

bool RecordingDevice::deliver(std::span<float> interleaved, std::int64_t frames) noexcept {
    AudioBuffer buffer{std::uint32_t(channels()), std::uint32_t(interleaved.size() * sizeof(float)),
                       interleaved.data()};
    const double sampleTime = mSampleTime + double(frames);
    const Status status = mHardware.deliver(mId, AudioBufferList(&buffer, 1), sampleTime);
    if (status != audio_status::kOk) return false;
    mSampleTime = sampleTime;
    return true;
}

bool RecordingDevice::playBlock() {
    if (isRealTime()) return false;
    if (mPending == 0) mPending = mRecording->read(mBlock);
    if (mPending == 0) return false;
    const auto samples = std::size_t(mPending) * std::size_t(channels());
    if (!deliver(std::span(mBlock).first(samples), mPending)) return false;
    mPosition.fetch_add(mPending, std::memory_order_relaxed);
    mPending = 0;
    return true;
}

void RecordingDevice::startRealTime() {
    if (isRealTime()) return;
    // What the other way of playing has read but not delivered is read again.
    if (mPending > 0) mRecording->seek(position());
    mPending = 0;
    mReadAhead = std::make_unique<ReadAhead>(*mRecording, mFramesPerBlock);
    mPacer.start();
}

void RecordingDevice::stopRealTime() {
    if (!isRealTime()) return;
    mPacer.stop();
    mReadAhead.reset();
    mRecording->seek(position());
}

void RecordingDevice::onBlockDue() noexcept {
    const bool hasEnded = mReadAhead->hasEnded();
    if (const ReadAhead::Block* const block = mReadAhead->front()) {
        if (!deliver(block->interleaved, block->frames)) return;
        mPosition.fetch_add(block->frames, std::memory_order_relaxed);
        mReadAhead->pop();
        return;
    }
    // A disk that is late must not put silence into the recording: its blocks come later.
    if (hasEnded) deliver(mSilence, mFramesPerBlock);
}

} // namespace veltrano
