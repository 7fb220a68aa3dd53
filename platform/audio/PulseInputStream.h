// SPDX-License-Identifier: GPL-3.0-or-later
// The road of sound from a source of the server to an I/O procedure.
#pragma once

#include "platform/audio/DeviceSnapshot.h"
#include "platform/audio/StreamWatch.h"

#include <functional>
#include <optional>
#include <pulse/pulseaudio.h>
#include <vector>

namespace veltrano {

/// One started input device. Its record stream may come and go; the I/O procedure runs on.
///
/// Thread: that of the loop, or with its lock held; the I/O procedure is called on the loop's
/// thread only, and not any more once this object is destroyed. Allocates: when a stream is opened;
/// never while sound or silence is delivered.
class PulseInputStream {
public:
    struct Client {
        DeviceId device = 0;
        AudioDeviceIOProc proc = nullptr;
        void* refCon = nullptr;
    };

    /// @param failed called on the loop's thread when the stream is lost; hasFailed() is true then
    explicit PulseInputStream(std::function<void()> failed);
    ~PulseInputStream();
    PulseInputStream(const PulseInputStream&) = delete;
    PulseInputStream& operator=(const PulseInputStream&) = delete;

    /// The device was started: @p client gets its sound, or silence, from now on.
    void attach(const Client& client, const DeviceRecord& device, double now);
    /// The device was stopped. The stream stays open; what comes is dropped.
    void detach() noexcept { mClient = {}; }
    bool isAttached() const noexcept { return mClient.proc != nullptr; }

    /// Asks the server for a stream in the device's own rate and channels, in place of an earlier
    /// one. @returns 0 or libpulse's error code
    Status open(pa_context* context, const DeviceRecord& device, double now);
    /// The stream, if there is one, is given up; silence is due from now on.
    void close(double now);
    /// Calls the procedure with the silence that is due.
    void deliverSilence(double now) noexcept;

    bool isOpen() const noexcept { return mStream != nullptr; }
    bool hasFailed() const noexcept { return mHasFailed; }
    /// Open, and in the format of @p device.
    bool fits(const DeviceRecord& device) const noexcept;
    /// [s] how long an open stream has given no sound.
    double secondsSilent(double now) const noexcept;
    const StreamWatch& watch() const noexcept { return mWatch; }

private:
    static void onState(pa_stream* stream, void* self);
    static void onReadable(pa_stream* stream, std::size_t bytes, void* self);

    void prepare(const DeviceRecord& device);
    void readAll() noexcept;
    /// @param samples interleaved; null: a gap in the sound, delivered as silence
    void deliver(const float* samples, std::size_t frames) noexcept;
    void release();

    Client mClient; ///< proc is null while detached
    const std::function<void()> mFailed;
    StreamWatch mWatch;
    std::vector<float> mBlock;    ///< what the procedure sees; kBlockFrames long
    StreamDescription mFormat;    ///< of mBlock and of the stream
    double mSampleTime = 0;       ///< [samples] delivered since the start
    double mOpenedAt = 0;         ///< [s]
    pa_stream* mStream = nullptr; ///< null: none, for now
    bool mHasFailed = false;
};

} // namespace veltrano
