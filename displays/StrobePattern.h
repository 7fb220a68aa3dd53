// SPDX-License-Identifier: GPL-3.0-or-later
// Which columns of the strobe are lit, and how its phase goes on from frame to frame.
#pragma once

#include <span>
#include <vector>

namespace veltrano {

/// Adjacent lit columns of the bar artwork. [points of the artwork]
struct StrobeRun {
    int start = 0;
    int length = 0;
    bool operator==(const StrobeRun&) const = default;
};

/// Samples each frame over two periods of the target frequency, from a phase that runs on at
/// exactly the target frequency. A note in tune gives the same columns in every frame.
///
/// Thread: main. Allocates: only when a wider bar than ever before is asked for.
class StrobePattern {
public:
    /// A value that differs restarts the phase; an equal one changes nothing.
    void setSampleRate(float hz) noexcept;
    void setFrequency(float hz) noexcept; ///< the target

    /// One drawing pass: the lit columns of this frame from left to right, then the phase moves to
    /// the next frame. Time runs from right to left. NaN counts as negative.
    ///
    /// While there is no usable target (the period is not a positive finite number) the whole frame
    /// is shown and the phase stays where it is.
    /// @param frame consecutive with the frame of the pass before; empty: nothing happens
    /// @param columns width of the bar artwork; below 1 no column is lit, but the phase moves
    /// @return valid until the next pass
    std::span<const StrobeRun> pass(std::span<const float> frame, int columns);

    /// The phase as a sample offset into the coming frame.
    double frameIndex() const noexcept { return mFrameIndex; }

private:
    double period() const noexcept;
    void advance(double frames, double period) noexcept;
    void findRuns(std::span<const float> frame, int columns, std::size_t start, std::size_t span);

    float mSampleRate = 0; ///< [Hz]
    float mFrequency = 0;  ///< [Hz]
    double mFrameIndex = 0;
    std::vector<StrobeRun> mRuns;
};

} // namespace veltrano
