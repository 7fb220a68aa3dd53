// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseOutputStream.h"

#include "platform/audio/PulseChannels.h"
#include "platform/foundation/SteadyClock.h"

#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

/// Long enough for a busy machine: a tone may begin a tenth of a second late, but not crackle.
constexpr double kBufferSeconds = 0.1;
constexpr double kRequestSeconds = 0.02; ///< how often the server asks

pa_buffer_attr bufferSizes(const pa_sample_spec& format) {
    constexpr auto kDontCare = std::uint32_t(-1);
    pa_buffer_attr sizes{};
    sizes.maxlength = kDontCare;
    sizes.tlength = pulseBytesOf(kBufferSeconds, format);
    sizes.prebuf = kDontCare;
    sizes.minreq = pulseBytesOf(kRequestSeconds, format);
    sizes.fragsize = kDontCare; // recording only
    return sizes;
}

} // namespace

PulseOutputStream::PulseOutputStream(std::function<void()> failed) : mFailed(std::move(failed)) {}

PulseOutputStream::~PulseOutputStream() { close(); }

void PulseOutputStream::attach(const Client& client, const DeviceRecord& device, double now) {
    mClient = client;
    mSampleTime = 0;
    mLastAsked = now;
    mAwaySeconds = 0;
    if (!isOpen()) mFormat = device.format;
}

void PulseOutputStream::renew(double now) noexcept {
    if (mAwaySeconds < kMostAwaySeconds) return;
    mLastAsked = now;
    mAwaySeconds = 0;
}

Status PulseOutputStream::open(pa_context* context, const DeviceRecord& device) {
    close();
    mFormat = device.format;
    const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, std::uint32_t(mFormat.sampleRate),
                                std::uint8_t(mFormat.channelsPerFrame)};
    const pa_channel_map map = pulseChannelMap(device.channelPositions);
    mStream = pa_stream_new(context, "Reference tone", &format, &map);
    if (!mStream) return pa_context_errno(context);
    pa_stream_set_state_callback(mStream, &PulseOutputStream::onState, this);
    pa_stream_set_write_callback(mStream, &PulseOutputStream::onWritable, this);
    const pa_buffer_attr sizes = bufferSizes(format);
    // The user chose this device: the stream must not be moved to another one behind our back.
    constexpr auto kFlags = pa_stream_flags_t(PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY |
                                              PA_STREAM_NO_REMAP_CHANNELS);
    if (pa_stream_connect_playback(mStream, device.serverName.c_str(), &sizes, kFlags, nullptr,
                                   nullptr) == 0) {
        return 0;
    }
    close();
    return pa_context_errno(context);
}

void PulseOutputStream::close() {
    mHasFailed = false;
    if (!mStream) return;
    pa_stream_set_state_callback(mStream, nullptr, nullptr);
    pa_stream_set_write_callback(mStream, nullptr, nullptr);
    pa_stream_disconnect(mStream); // fails when the connection is gone: then it is what we want
    pa_stream_unref(std::exchange(mStream, nullptr));
}

bool PulseOutputStream::fits(const DeviceRecord& device) const noexcept {
    return isOpen() && mFormat == device.format;
}

void PulseOutputStream::onState(pa_stream* stream, void* self) {
    const pa_stream_state_t state = pa_stream_get_state(stream);
    if (state != PA_STREAM_FAILED && state != PA_STREAM_TERMINATED) return;
    auto* output = static_cast<PulseOutputStream*>(self);
    output->mHasFailed = true;
    output->mFailed();
}

void PulseOutputStream::onWritable(pa_stream*, std::size_t bytes, void* self) {
    static_cast<PulseOutputStream*>(self)->write(bytes);
}

void PulseOutputStream::write(std::size_t bytes) noexcept {
    mLastAsked = SteadyClock().now();
    mAwaySeconds = 0;
    while (bytes >= mFormat.bytesPerFrame) {
        void* data = nullptr;
        std::size_t part = bytes;
        if (pa_stream_begin_write(mStream, &data, &part) != 0 || !data) return;
        const std::size_t frames = std::min(part, bytes) / mFormat.bytesPerFrame;
        if (frames == 0) return;
        const std::size_t written = frames * mFormat.bytesPerFrame;
        render(static_cast<float*>(data), frames);
        if (pa_stream_write(mStream, data, written, nullptr, 0, PA_SEEK_RELATIVE) != 0) return;
        bytes -= written;
    }
}

void PulseOutputStream::renderAway(double now) noexcept {
    if (!isAttached() || now < awayFrom()) return;
    while (awayFrom() + mAwaySeconds + kStepSeconds <= now && mAwaySeconds < kMostAwaySeconds) {
        const auto frames = std::size_t(kStepSeconds * mFormat.sampleRate);
        mAway.resize(frames * mFormat.channelsPerFrame);
        render(mAway.data(), frames);
        mAwaySeconds += kStepSeconds;
    }
}

std::optional<double> PulseOutputStream::deadline() const noexcept {
    if (!isAttached() || mAwaySeconds >= kMostAwaySeconds) return std::nullopt;
    return awayFrom() + mAwaySeconds + kStepSeconds;
}

void PulseOutputStream::render(float* to, std::size_t frames) noexcept {
    if (!isAttached()) {
        std::fill_n(to, frames * mFormat.channelsPerFrame, 0.0f);
        return;
    }
    mSampleTime += double(frames);
    AudioBuffer buffer{mFormat.channelsPerFrame, std::uint32_t(frames * mFormat.bytesPerFrame), to};
    const AudioBufferList input;
    AudioBufferList output(&buffer, 1);
    const AudioTimeStamp time{mSampleTime};
    mClient.proc(mClient.device, &time, &input, &time, &output, &time, mClient.refCon);
}

} // namespace veltrano
