// SPDX-License-Identifier: GPL-3.0-or-later
// The road of sound from an I/O procedure to a sink of the server.
#pragma once

#include "platform/audio/DeviceSnapshot.h"

#include <functional>
#include <optional>
#include <pulse/pulseaudio.h>
#include <vector>

namespace veltrano {

/// One started output device. Its playback stream may come and go; the I/O procedure runs on: what
/// would have been heard while there is no stream is asked for in real time and thrown away, so
/// that a tone comes to its end.
///
/// Thread: that of the loop, or with its lock held; the I/O procedure is called on the loop's
/// thread only, and not any more once it is detached. Allocates: when a stream is opened.
class PulseOutputStream {
public:
    struct Client {
        DeviceId device = 0;
        AudioDeviceIOProc proc = nullptr;
        void* refCon = nullptr;
    };

    /// Without being asked, until sound is thrown away: while there is no stream, and with one, as
    /// a sink may take two seconds to ask for its first sound.
    static constexpr double kStallSeconds = 0.5;
    static constexpr double kSlowSinkSeconds = 3.0;
    static constexpr double kStepSeconds = 0.02;   ///< length of a block that is thrown away
    static constexpr double kMostAwaySeconds = 60; ///< after that nobody can be waiting for its end

    /// @param failed called on the loop's thread when the stream is lost; hasFailed() is true then
    explicit PulseOutputStream(std::function<void()> failed);
    ~PulseOutputStream();
    PulseOutputStream(const PulseOutputStream&) = delete;
    PulseOutputStream& operator=(const PulseOutputStream&) = delete;

    /// The device was started: @p client is asked for sound from now on.
    void attach(const Client& client, const DeviceRecord& device, double now);
    /// The device was started again: there may be a new tone to be brought to its end.
    void renew(double now) noexcept;
    /// The device was stopped. The stream stays open and gives silence.
    void detach() noexcept { mClient = {}; }
    bool isAttached() const noexcept { return mClient.proc != nullptr; }

    /// Asks the server for a stream in the device's own rate and channels, in place of an earlier
    /// one. @returns 0 or libpulse's error code
    Status open(pa_context* context, const DeviceRecord& device);
    void close(); ///< the stream, if there is one, is given up
    /// Asks the procedure for what is due while nobody else does.
    void renderAway(double now) noexcept;
    /// When renderAway() is due; nullopt: never.
    std::optional<double> deadline() const noexcept;

    bool isOpen() const noexcept { return mStream != nullptr; }
    bool hasFailed() const noexcept { return mHasFailed; }
    /// Open, and in the format of @p device.
    bool fits(const DeviceRecord& device) const noexcept;

private:
    static void onState(pa_stream* stream, void* self);
    static void onWritable(pa_stream* stream, std::size_t bytes, void* self);

    void write(std::size_t bytes) noexcept;
    void render(float* to, std::size_t frames) noexcept;
    double awayFrom() const noexcept {
        return mLastAsked + (isOpen() ? kSlowSinkSeconds : kStallSeconds);
    }

    Client mClient; ///< proc is null while detached
    const std::function<void()> mFailed;
    StreamDescription mFormat;    ///< of the stream
    std::vector<float> mAway;     ///< one block to be thrown away
    double mSampleTime = 0;       ///< [samples] rendered since the start
    double mLastAsked = 0;        ///< [s] when the server asked for sound last
    double mAwaySeconds = 0;      ///< [s] thrown away since then
    pa_stream* mStream = nullptr; ///< null: none, for now
    bool mHasFailed = false;
};

} // namespace veltrano
