// SPDX-License-Identifier: GPL-3.0-or-later
// Follows the update cycles of a run with a recording.
#pragma once

#include "app/RecordingClock.h"
#include "engine/ControllerPorts.h"
#include "engine/ReadingTable.h"

#include <functional>
#include <optional>

namespace veltrano {

class TunerDisplay;

/// Sets the recording's clock before each cycle; after it writes the readings or has a picture
/// made. Thread: main. The references outlive it.
class FrameWatch final : public FrameObserver {
public:
    FrameWatch(RecordingClock& clock, const TunerDisplay& display);

    /// Each line of the table of readings.
    void writeReadings(std::function<void(const std::string&)> write) { mTable.emplace(write); }
    /// Called after each cycle with the recording's time.
    void onFrame(std::function<void(double seconds)> function) { mOnFrame = std::move(function); }

    void willUpdate(double seconds) override { mClock.frameEndsAt(seconds); }
    void didUpdate(const ReadingRecord& record) override;
    void finish(); ///< writes the last note's readings

private:
    RecordingClock& mClock;
    const TunerDisplay& mDisplay;
    std::optional<ReadingTable> mTable;
    std::function<void(double)> mOnFrame;
};

} // namespace veltrano
