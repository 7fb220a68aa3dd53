// SPDX-License-Identifier: GPL-3.0-or-later
// The fundamental and the overtones of what the tuner hears.
#pragma once

#include "analysis/PartialScan.h"
#include "analysis/Partials.h"
#include "platform/dsp/RealFFT.h"

#include <functional>
#include <span>
#include <vector>

namespace veltrano {

class NotificationCenter;

/// Collects samples into frames of 4096, finds the partials of each and posts
/// "morvane.PartialsChangedNotification" with a PartialsRef as its object, null for none.
///
/// Low notes are looked up in the last four frames at a quarter of the rate. That history is
/// thinned out without a filter and is never cleared, so what lies above its range aliases, and
/// after a silence it still holds older sound.
///
/// Thread: main; a post is synchronous. Allocates: its buffers when made, then only results.
class PartialDetector {
public:
    explicit PartialDetector(NotificationCenter& notifications); ///< which outlives it

    void setSampleRate(double hz) { mSampleRate = static_cast<float>(hz); } ///< from the next frame
    float sampleRate() const { return mSampleRate; } ///< [Hz] 44100 until it is set

    /// Appends samples in [-1, 1]; each time 4096 are together they are analysed. An empty block
    /// takes the published result back and leaves the collected samples alone.
    void setData(std::span<const float> samples);

    const PartialsRef& partials() const { return mPartials; } ///< published last
    float fundamental() const { return mFundamental; } ///< [Hz] strongest peak; 0: none was found
    /// Its power; after an analysis without a peak still the one before.
    float peak() const { return mPeak; }
    std::size_t collected() const { return mDataPosition; } ///< samples of the frame begun

    /// Hears of every analysis, also of one that publishes nothing new.
    void setAnalysisObserver(std::function<void()> observer) { mObserver = std::move(observer); }

    /// Analyses the frame as it stands in the buffer.
    void detection();

private:
    void thinOut();
    partial_scan::Power fft(std::span<const float> wave);
    PartialsRef partialsOfFrame();
    void setPartials(PartialsRef partials);

    NotificationCenter& mNotifications;
    RealFFT mFFT;
    std::vector<float> mData;   ///< the frame being collected
    std::vector<float> mData4x; ///< the last four frames at a quarter of the rate
    std::vector<float> mPower;
    float mSampleRate = 44100;
    std::size_t mDataPosition = 0;
    float mFundamental = 0;
    float mPeak = 0;
    PartialsRef mPartials;
    std::function<void()> mObserver;
};

} // namespace veltrano
