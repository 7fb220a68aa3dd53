// SPDX-License-Identifier: GPL-3.0-or-later
// A microphone that hears a sine.
#pragma once

#include "platform/audio/BlockPacer.h"
#include "platform/audio/VirtualHardware.h"

#include <atomic>
#include <string>
#include <vector>

namespace veltrano {

/// An input device of VirtualHardware by manufacturer "Tone" that delivers a sine, the same on all
/// channels of one interleaved buffer. The phase is continuous and starts at 0.
///
/// Thread: main; in real time the blocks are delivered on a thread of its own.
/// Allocates: nothing on the delivering thread.
class ToneDevice final : private BlockPacer::Target {
public:
    struct Parameters {
        std::string name = "Sine";
        double sampleRateHz = 44100;
        int channels = 1;         ///< >= 1
        int framesPerBlock = 512; ///< >= 1
        double frequencyHz = 440;
        double amplitude = 0.5; ///< 1 = full scale
    };

    /// @param hardware must outlive the device
    ToneDevice(VirtualHardware& hardware, const Parameters& parameters);
    /// Stops real time and removes the device.
    ~ToneDevice() override;

    DeviceId id() const { return mId; }
    /// Takes effect at the next block. Main thread.
    void setFrequency(double hz) { mFrequencyHz.store(hz, std::memory_order_relaxed); }
    void setAmplitude(double amplitude) { mAmplitude.store(amplitude, std::memory_order_relaxed); }

    /// Delivers the next block on the calling thread. False, and the sine stays where it is, while
    /// the device is not started or real time runs.
    bool playBlock();
    void startRealTime() { mPacer.start(); }
    void stopRealTime() { mPacer.stop(); }

private:
    void onBlockDue() noexcept override;
    bool deliverNext() noexcept;

    VirtualHardware& mHardware;
    const Parameters mParameters;
    DeviceId mId = 0;
    std::atomic<double> mFrequencyHz; ///< written by the main thread
    std::atomic<double> mAmplitude;   ///< written by the main thread
    std::vector<float> mBlock;        ///< this and the rest: delivering thread
    double mPhase = 0;                ///< [periods] of the next sample, in [0, 1)
    double mSampleTime = 0;           ///< [samples] of the last block
    BlockPacer mPacer;
};

} // namespace veltrano
