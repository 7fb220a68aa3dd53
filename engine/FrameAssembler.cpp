// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/FrameAssembler.h"

#include <algorithm>

namespace veltrano {

namespace {

constexpr std::uint32_t kSampleBytes = sizeof(float);

/// Whether @p later is as long as @p first, channel by channel.
bool isSameLength(const AudioBuffer& first, const AudioBuffer& later) {
    // A buffer without channels adds nothing, whatever its size.
    return later.channels == 0 ||
           later.byteSize / later.channels == first.byteSize / first.channels;
}

AudioBufferList usableBuffers(AudioBufferList buffers) {
    std::size_t count = 1;
    while (count < buffers.size() && isSameLength(buffers[0], buffers[count]))
        ++count;
    return buffers.first(count);
}

/// Two interleaved channels that are equal throughout. NaN differs from everything.
bool areChannelsEqual(const AudioBuffer& buffer, std::uint32_t samples) {
    if (buffer.byteSize < 2 * kSampleBytes) return true; // kept: nothing to compare counts as equal
    for (std::uint32_t i = 0; i < samples; ++i) {
        if (!(buffer.data[2 * i] == buffer.data[2 * i + 1])) return false;
    }
    return true;
}

} // namespace

FrameAssembler::FrameAssembler() : mStorage(std::make_unique<float[]>(kMaxBufferFrames)) {}

std::uint32_t FrameAssembler::bufferFramesAt(float sampleRateHz) noexcept {
    const double frames = 2.0 * double(sampleRateHz) / kLowestKeyHz;
    if (!(frames >= 0.0) || frames >= double(kMaxBufferFrames) + 1.0) return 0;
    return static_cast<std::uint32_t>(frames);
}

void FrameAssembler::invalidate(float sampleRateHz) noexcept {
    mSampleRate.store(sampleRateHz, std::memory_order_relaxed);
    mIsBufferInvalid.store(true, std::memory_order_release);
}

void FrameAssembler::resize() noexcept {
    mBufferOffset = 0;
    mSamplesSoFar = 0;
    mBufferFrames.store(bufferFramesAt(mSampleRate.load(std::memory_order_relaxed)),
                        std::memory_order_relaxed);
}

FrameAssembler::Block FrameAssembler::begin(AudioBufferList buffers, double sampleTime) noexcept {
    if (buffers.empty()) return {};
    if (mIsBufferInvalid.exchange(false, std::memory_order_acquire)) resize();
    if (!(sampleTime > 0.0) || frameLength() == 0) return {};

    const AudioBuffer& first = buffers[0];
    if (first.channels == 0 || first.channels > first.byteSize / kSampleBytes) return {};
    Block block;
    block.samples = first.byteSize / kSampleBytes / first.channels;
    block.usable = usableBuffers(buffers);
    block.isDuplicatedMono =
        first.channels == 2 && block.usable.size() == 1 && areChannelsEqual(first, block.samples);
    return block;
}

float FrameAssembler::mixedSample(const Block& block, std::uint32_t index) noexcept {
    float sum = 0;
    for (const AudioBuffer& buffer : block.usable) {
        const float* sample = buffer.data + std::size_t(index) * buffer.channels;
        for (std::uint32_t channel = 0; channel < buffer.channels; ++channel)
            sum += sample[channel];
    }
    if (block.isDuplicatedMono) sum *= 0.5f;
    if (sum > 1.0f) return 1.0f;
    if (sum < -1.0f) return -1.0f;
    return sum; // NaN passes
}

} // namespace veltrano
