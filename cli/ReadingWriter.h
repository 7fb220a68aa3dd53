// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the readings of each frame to standard output.
#pragma once

#include "cli/Output.h"
#include "engine/ControllerPorts.h"
#include "engine/HeadlessDisplay.h"
#include "engine/ReadingRecord.h"
#include "engine/ReadingTable.h"
#include "platform/foundation/Clock.h"

#include <QJsonObject>
#include <optional>

namespace veltrano {

/// One frame's readings as they are written: keys and meanings are the command line's contract.
QJsonObject readingJson(const ReadingRecord& record, const HeadlessDisplay& display);

/// Sets the clock to the recording's own time before each update cycle and writes its record after.
/// Thread: main. Keeps references to the clock, the display and the output.
class ReadingWriter final : public FrameObserver {
public:
    /// @param clock null: the clock is not a recording's
    ReadingWriter(ManualClock* clock, const HeadlessDisplay& display, Output& output, bool isTable);

    void willUpdate(double seconds) override;
    void didUpdate(const ReadingRecord& record) override;
    void finish(); ///< writes what is left of a table

private:
    ManualClock* mClock;
    const HeadlessDisplay& mDisplay;
    Output& mOutput;
    std::optional<ReadingTable> mTable;
};

} // namespace veltrano
