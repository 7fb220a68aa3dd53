// SPDX-License-Identifier: GPL-3.0-or-later
// A loudspeaker that keeps what it plays.
#pragma once

#include "platform/audio/BlockPacer.h"
#include "platform/audio/VirtualHardware.h"

#include <span>
#include <string>
#include <vector>

namespace veltrano {

/// An output device of VirtualHardware by manufacturer "Speaker" that asks for sound block by block
/// and keeps it, up to a length given beforehand.
///
/// Thread: main; in real time the blocks are asked for on a thread of its own.
/// Allocates: nothing on that thread.
class SpeakerDevice final : private BlockPacer::Target {
public:
    struct Parameters {
        std::string name = "Loudspeaker";
        double sampleRateHz = 44100;
        int channels = 2;         ///< >= 1
        int framesPerBlock = 512; ///< >= 1
        double mostSeconds = 60;  ///< what comes later is not kept
    };

    /// @param hardware must outlive the device
    SpeakerDevice(VirtualHardware& hardware, const Parameters& parameters);
    /// Stops real time and removes the device.
    ~SpeakerDevice() override;

    DeviceId id() const { return mId; }

    /// Asks for the next block on the calling thread. False while the device is not started or real
    /// time runs.
    bool playBlock();
    void startRealTime() { mPacer.start(); }
    void stopRealTime() { mPacer.stop(); }

    /// Interleaved; not while real time runs.
    std::span<const float> played() const { return {mPlayed.data(), mKept}; }
    void forget() { mKept = 0; }
    /// Writes it as a WAV file of 32-bit floats. @return false when that failed
    bool write(const std::string& path) const;

private:
    void onBlockDue() noexcept override;
    bool askForNext() noexcept;

    VirtualHardware& mHardware;
    const Parameters mParameters;
    DeviceId mId = 0;
    std::vector<float> mBlock; ///< this and the rest: asking thread
    std::vector<float> mPlayed;
    std::size_t mKept = 0;  ///< samples of mPlayed that count
    double mSampleTime = 0; ///< [samples] of the last block
    BlockPacer mPacer;
};

} // namespace veltrano
