// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a recording into the program as if it were a microphone.
#pragma once

#include "platform/audio/BlockPacer.h"
#include "platform/audio/ReadAhead.h"
#include "platform/audio/Recording.h"
#include "platform/audio/VirtualHardware.h"

#include <memory>
#include <string>
#include <vector>

namespace veltrano {

/// An input device of VirtualHardware by manufacturer "Recording" and by name the file's name
/// without its extension, which delivers the file as one buffer of interleaved channels.
///
/// Each block's sample time is the number of sample frames delivered up to its end, so above 0.
/// The recording moves on only while the device is started by its user.
/// Thread: main; in real time the blocks are delivered on a thread of its own, otherwise on the
/// thread that calls playBlock().
/// Allocates: nothing from startRealTime() on until stopRealTime(), on the delivering thread.
class RecordingDevice final : private BlockPacer::Target {
public:
    static constexpr int kDefaultFramesPerBlock = 512;

    /// Opens the file and adds the device.
    /// @param hardware must outlive the device
    /// @param error one line, as Recording::open, when null is answered
    /// @param framesPerBlock sample frames per block, >= 1; only the last one may be shorter
    static std::unique_ptr<RecordingDevice> open(VirtualHardware& hardware, const std::string& path,
                                                 std::string& error,
                                                 int framesPerBlock = kDefaultFramesPerBlock);
    /// Stops real time and removes the device.
    ~RecordingDevice() override;

    DeviceId id() const { return mId; }
    double sampleRate() const { return mRecording->sampleRateHz(); } ///< [Hz]
    int channels() const { return mRecording->channels(); }
    /// Sample frames of the recording delivered so far. Any thread.
    std::int64_t position() const noexcept { return mPosition.load(std::memory_order_relaxed); }

    /// As fast as possible: delivers the next block on the calling thread. False, and nothing
    /// delivered, at the end, while the device is not started, and while real time runs.
    bool playBlock();

    /// Delivers a block per block length, from where the recording stands. After the end it goes
    /// on with silence, so that displays come to rest. While it runs: nothing.
    void startRealTime();
    /// When it has returned, nothing is delivered any more. The recording stays where it is.
    void stopRealTime();
    bool isRealTime() const { return mReadAhead != nullptr; }

private:
    RecordingDevice(VirtualHardware& hardware, std::unique_ptr<Recording> recording,
                    const std::string& name, int framesPerBlock);

    void onBlockDue() noexcept override;
    /// False when the device is not started.
    bool deliver(std::span<float> interleaved, std::int64_t frames) noexcept;

    VirtualHardware& mHardware;
    const std::unique_ptr<Recording> mRecording;
    const int mFramesPerBlock;
    DeviceId mId = 0;
    std::vector<float> mBlock;   ///< of playBlock()
    std::int64_t mPending = 0;   ///< sample frames in mBlock that wait for the device's start
    std::vector<float> mSilence; ///< one block
    std::unique_ptr<ReadAhead> mReadAhead; ///< only in real time
    BlockPacer mPacer;
    double mSampleTime = 0;                 ///< [samples] of the last block; delivering thread
    std::atomic<std::int64_t> mPosition{0}; ///< written by the delivering thread
};

} // namespace veltrano
