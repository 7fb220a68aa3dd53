// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseInputStream.h"

#include "platform/audio/PulseChannels.h"
#include "platform/foundation/SteadyClock.h"

#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

constexpr std::size_t kBlockFrames = 4096;  ///< a longer block is delivered in parts
constexpr double kFragmentSeconds = 0.02;   ///< how often the server is asked to deliver
constexpr double kServerQueueSeconds = 1.0; ///< what it may keep for us when we are slow

pa_buffer_attr bufferSizes(const pa_sample_spec& format) {
    constexpr auto kDontCare = std::uint32_t(-1);
    pa_buffer_attr sizes{};
    sizes.maxlength = pulseBytesOf(kServerQueueSeconds, format);
    sizes.fragsize = pulseBytesOf(kFragmentSeconds, format);
    sizes.tlength = sizes.prebuf = sizes.minreq = kDontCare; // playback only
    return sizes;
}

} // namespace

PulseInputStream::PulseInputStream(std::function<void()> failed) : mFailed(std::move(failed)) {}

PulseInputStream::~PulseInputStream() { release(); }

void PulseInputStream::attach(const Client& client, const DeviceRecord& device, double now) {
    mClient = client;
    mSampleTime = 0;
    if (!isOpen()) prepare(device);
    mWatch.begin(now, mFormat.sampleRate);
}

void PulseInputStream::prepare(const DeviceRecord& device) {
    mFormat = device.format;
    mBlock.assign(kBlockFrames * mFormat.channelsPerFrame, 0.0f);
}

Status PulseInputStream::open(pa_context* context, const DeviceRecord& device, double now) {
    release();
    prepare(device);
    mWatch.opened(now, mFormat.sampleRate);
    mOpenedAt = now;
    const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, std::uint32_t(mFormat.sampleRate),
                                std::uint8_t(mFormat.channelsPerFrame)};
    const pa_channel_map map = pulseChannelMap(device.channelPositions);
    mStream = pa_stream_new(context, "Tuner", &format, &map);
    if (!mStream) return pa_context_errno(context);
    pa_stream_set_state_callback(mStream, &PulseInputStream::onState, this);
    pa_stream_set_read_callback(mStream, &PulseInputStream::onReadable, this);
    const pa_buffer_attr sizes = bufferSizes(format);
    // The user chose this device: the stream must not be moved to another one behind our back. Its
    // channels are taken in their order, since some devices rename them when they begin to run.
    constexpr auto kFlags = pa_stream_flags_t(PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY |
                                              PA_STREAM_NO_REMAP_CHANNELS);
    if (pa_stream_connect_record(mStream, device.serverName.c_str(), &sizes, kFlags) == 0) {
        return 0;
    }
    release();
    return pa_context_errno(context);
}

void PulseInputStream::close(double now) {
    release();
    mWatch.lost(now);
}

void PulseInputStream::release() {
    mHasFailed = false;
    if (!mStream) return;
    pa_stream_set_state_callback(mStream, nullptr, nullptr);
    pa_stream_set_read_callback(mStream, nullptr, nullptr);
    pa_stream_disconnect(mStream); // fails when the connection is gone: then it is what we want
    pa_stream_unref(std::exchange(mStream, nullptr));
}

bool PulseInputStream::fits(const DeviceRecord& device) const noexcept {
    return isOpen() && mFormat == device.format;
}

double PulseInputStream::secondsSilent(double now) const noexcept {
    return std::min(mWatch.secondsWithoutSound(now), now - mOpenedAt);
}

void PulseInputStream::onState(pa_stream* stream, void* self) {
    const pa_stream_state_t state = pa_stream_get_state(stream);
    if (state != PA_STREAM_FAILED && state != PA_STREAM_TERMINATED) return;
    auto* input = static_cast<PulseInputStream*>(self);
    input->mHasFailed = true;
    input->mFailed();
}

void PulseInputStream::onReadable(pa_stream*, std::size_t, void* self) {
    static_cast<PulseInputStream*>(self)->readAll();
}

void PulseInputStream::readAll() noexcept {
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(mStream, &data, &bytes) == 0 && bytes > 0) {
        const std::size_t frames = bytes / mFormat.bytesPerFrame;
        if (isAttached() && mWatch.sound(SteadyClock().now(), frames)) {
            deliver(static_cast<const float*>(data), frames);
        }
        pa_stream_drop(mStream);
    }
}

void PulseInputStream::deliverSilence(double now) noexcept {
    deliver(nullptr, mWatch.silenceDue(now));
}

void PulseInputStream::deliver(const float* samples, std::size_t frames) noexcept {
    const std::size_t channels = mFormat.channelsPerFrame;
    while (frames > 0) {
        const std::size_t part = std::min(frames, kBlockFrames);
        if (samples) {
            std::copy_n(samples, part * channels, mBlock.data());
            samples += part * channels;
        } else {
            std::fill_n(mBlock.data(), part * channels, 0.0f);
        }
        mSampleTime += double(part);
        AudioBuffer buffer{mFormat.channelsPerFrame, std::uint32_t(part * mFormat.bytesPerFrame),
                           mBlock.data()};
        const AudioBufferList input(&buffer, 1);
        AudioBufferList output;
        const AudioTimeStamp time{mSampleTime};
        mClient.proc(mClient.device, &time, &input, &time, &output, &time, mClient.refCon);
        frames -= part;
    }
}

} // namespace veltrano
