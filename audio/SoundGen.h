// SPDX-License-Identifier: GPL-3.0-or-later
// The tone generator.
#pragma once

#include "audio/ToneGenerator.h"
#include "audio/ToneSynthesis.h"
#include "platform/audio/OutputUnit.h"
#include "platform/desktop/OneShotTimer.h"
#include "platform/realtime/LatestValue.h"
#include "platform/realtime/WakeUp.h"

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace veltrano {

class AUOutputUnit;

/// Plays the reference tone into an output unit, which it starts for a tone and stops one second
/// after the tone has faded out, unless another one has begun.
///
/// Thread: main; the render callback on the unit's real-time thread, where nothing allocates, locks
/// or waits. A tone request crosses whole. Owns: nothing but its timer; the unit outlives it.
class SoundGen final : public QObject, public ToneGenerator {
    Q_OBJECT
public:
    /// @param stopTimer for tests; null: the event loop's
    explicit SoundGen(std::unique_ptr<OneShotTimer> stopTimer = {});
    ~SoundGen() override;

    /// Takes the unit's rate and installs the render callback. Once.
    void setAUOutputUnit(AUOutputUnit& unit);

    void playFreq(float frequencyHz, float lengthSeconds) override;
    void setLength(float seconds) override;
    void setVolume(float factor) override { mVolume.store(factor, std::memory_order_relaxed); }
    void setWaveform(int index) override { mWaveform.store(index, std::memory_order_relaxed); }

    /// From the request on, until the samples of the tone are used up.
    bool isPlaying() const;
    bool isRunning() const { return running; } ///< the unit was started here
    void start();
    void stop();

    /// Serves what the render callback has handed over; the event loop calls it when there is any.
    void serveEnds();

private:
    /// What the main thread wants of the render thread. A new serial is a new wish.
    struct Request {
        std::uint32_t playSerial = 0;   ///< of the last playFreq()
        std::uint32_t lengthSerial = 0; ///< of the last playFreq() or setLength()
        float frequencyHz = 0;
        std::int64_t frames = 0;
    };

    static Status renderProc(void* refCon, const AudioTimeStamp*, std::uint32_t,
                             std::uint32_t frames,
                             AudioBufferList* buffers) noexcept VELTRANO_NONBLOCKING;
    void renderWave(AudioBufferList& buffers, std::uint32_t frames) noexcept VELTRANO_NONBLOCKING;
    void takeRequest() noexcept VELTRANO_NONBLOCKING;
    void updateSampleRate() noexcept VELTRANO_NONBLOCKING;
    void stopRender();
    void stopIfNotPlaying();

    AUOutputUnit* mAUOutputUnit = nullptr;
    const std::unique_ptr<OneShotTimer> mStopTimer;
    bool running = false;
    Request mWanted; ///< main thread

    LatestValue<Request> mRequest;           ///< written by the main thread
    std::atomic<float> mVolume{0.70710677f}; ///< written by the main thread
    std::atomic<int> mWaveform{0};           ///< written by the main thread
    /// [Hz] Written by the render thread, and by the main thread before the callback is installed.
    std::atomic<float> mSampleRate{0};
    std::atomic<std::uint32_t> mEndedSerial{0}; ///< of the tone used up last; by the render thread
    WakeUp mEnds;                               ///< signalled by the render thread
    QSocketNotifier* mEndsArrived;              ///< child of this

    // Render thread.
    Request mTaken;
    ToneSynthesis mTone;
};

} // namespace veltrano
