// SPDX-License-Identifier: GPL-3.0-or-later
// The tone generator.
#include "audio/SoundGen.h"

#include "audio/AUOutputUnit.h"
#include "platform/desktop/EventLoopTimer.h"

#include <QSocketNotifier>
#include <algorithm>

namespace veltrano {

namespace {

constexpr int kStopDelayMilliseconds = 1000;

} // namespace

SoundGen::SoundGen(std::unique_ptr<OneShotTimer> stopTimer)
    : mStopTimer(stopTimer ? std::move(stopTimer) : std::make_unique<EventLoopTimer>()),
      mEndsArrived(new QSocketNotifier(mEnds.descriptor(), QSocketNotifier::Read, this)) {
    connect(mEndsArrived, &QSocketNotifier::activated, this, &SoundGen::serveEnds);
}

SoundGen::~SoundGen() {
    delete mEndsArrived; // before the descriptor that it watches
    if (!mAUOutputUnit) return;
    if (mAUOutputUnit->isRunning()) mAUOutputUnit->stop(); // the callback may be running just now
    mAUOutputUnit->setAURenderProc(nullptr, nullptr);
}

void SoundGen::setAUOutputUnit(AUOutputUnit& unit) {
    mAUOutputUnit = &unit;
    updateSampleRate();
    unit.setAURenderProc(&SoundGen::renderProc, this);
}

void SoundGen::updateSampleRate() noexcept VELTRANO_NONBLOCKING {
    const auto rate = static_cast<float>(mAUOutputUnit->sampleRate());
    mSampleRate.store(rate, std::memory_order_relaxed);
    mTone.setSampleRate(rate);
}

// --- the main thread's side ---

void SoundGen::playFreq(float frequencyHz, float lengthSeconds) {
    const float rate = mSampleRate.load(std::memory_order_relaxed);
    mWanted.frequencyHz = frequencyHz;
    mWanted.frames = ToneSynthesis::framesOf(lengthSeconds, rate);
    ++mWanted.playSerial;
    ++mWanted.lengthSerial;
    mRequest.set(mWanted);
    mStopTimer->cancel(); // or an earlier tone's stop could cut this one's fade-out
    // A start that failed is tried again: the device may be back.
    if (!running || (mAUOutputUnit && !mAUOutputUnit->hasStarted())) start();
}

void SoundGen::setLength(float seconds) {
    const float rate = mSampleRate.load(std::memory_order_relaxed);
    mWanted.frames = ToneSynthesis::framesOf(seconds, rate);
    ++mWanted.lengthSerial;
    mRequest.set(mWanted);
}

bool SoundGen::isPlaying() const {
    return mEndedSerial.load(std::memory_order_acquire) != mWanted.playSerial;
}

void SoundGen::start() {
    if (mAUOutputUnit) mAUOutputUnit->start();
    running = true;
}

void SoundGen::stop() {
    if (mAUOutputUnit) mAUOutputUnit->stop();
    running = false;
}

void SoundGen::serveEnds() {
    mEnds.clear();
    stopRender();
}

void SoundGen::stopRender() {
    if (!isPlaying()) mStopTimer->start(kStopDelayMilliseconds, [this] { stopIfNotPlaying(); });
}

void SoundGen::stopIfNotPlaying() {
    if (!isPlaying()) stop();
}

// --- the render thread's side ---

Status SoundGen::renderProc(void* refCon, const AudioTimeStamp*, std::uint32_t,
                            std::uint32_t frames,
                            AudioBufferList* buffers) noexcept VELTRANO_NONBLOCKING {
    static_cast<SoundGen*>(refCon)->renderWave(*buffers, frames);
    return audio_status::kOk;
}

void SoundGen::renderWave(AudioBufferList& buffers,
                          std::uint32_t frames) noexcept VELTRANO_NONBLOCKING {
    updateSampleRate();
    takeRequest();
    if (buffers.empty() || frames == 0) return;
    const std::span<float> samples(buffers[0].data, frames);
    const ToneSynthesis::Sound sound{mTaken.frequencyHz, mVolume.load(std::memory_order_relaxed),
                                     mWaveform.load(std::memory_order_relaxed)};
    const bool hasFadedOut = mTone.render(samples, sound);
    if (!mTone.isPlaying()) mEndedSerial.store(mTaken.playSerial, std::memory_order_release);
    // kept: further buffers are left as they are
    if (buffers.size() >= 2) std::ranges::copy(samples, buffers[1].data);
    if (hasFadedOut) mEnds.signal();
}

void SoundGen::takeRequest() noexcept VELTRANO_NONBLOCKING {
    const Request& newest = mRequest.get();
    if (newest.playSerial != mTaken.playSerial) {
        mTone.play(newest.frames);
    } else if (newest.lengthSerial != mTaken.lengthSerial) {
        mTone.setFrames(newest.frames);
    }
    mTaken = newest;
}

} // namespace veltrano
