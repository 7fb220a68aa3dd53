// SPDX-License-Identifier: GPL-3.0-or-later
// When blocks of sound are due.
#pragma once

namespace veltrano {

/// Deadlines one block length apart. They are products of the block length, not sums, so that
/// neither lateness nor rounding adds up. Thread: one. Allocates: never. Time: seconds.
class BlockSchedule {
public:
    /// Whoever is later than this (the machine slept, the process was stopped) lets the missed
    /// blocks go instead of making up for them in a burst.
    static constexpr double kLateSeconds = 0.25;

    /// @param blockSeconds length of a block, > 0
    explicit BlockSchedule(double blockSeconds) noexcept : mBlockSeconds(blockSeconds) {}

    /// The first block is due one block length after @p now.
    void begin(double now) noexcept {
        mBegin = now;
        mBlocks = 0;
    }
    double deadline() const noexcept { return mBegin + (mBlocks + 1) * mBlockSeconds; }

    /// Whether a block is due; the deadline is then that of the next one.
    bool takeDue(double now) noexcept {
        const double late = now - deadline();
        if (late < 0) return false;
        if (late > kLateSeconds) {
            begin(now);
        } else {
            mBlocks += 1;
        }
        return true;
    }

private:
    const double mBlockSeconds;
    double mBegin = 0;
    double mBlocks = 0; ///< taken since mBegin; whole
};

} // namespace veltrano
