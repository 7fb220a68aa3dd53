// SPDX-License-Identifier: GPL-3.0-or-later
// The readings as a table for people, a line per note.
#pragma once

#include "engine/ReadingRecord.h"
#include "engine/TunerDisplay.h"

#include <functional>
#include <string>
#include <vector>

namespace veltrano {

/// Gathers the frames of one note and writes its line when the note changes or has been silent for
/// a second; a shorter gap belongs to the note.
///
/// The line shows the note's middle reading: the one whose deviation is the median of its frames,
/// so that neither the hammer nor the fading end decides. Thread: main.
class ReadingTable {
public:
    /// @param write gets each line, without a line end; the heading is the first
    explicit ReadingTable(std::function<void(const std::string&)> write);

    /// One update cycle and the texts that it left on @p display.
    void add(const ReadingRecord& record, const TunerDisplay& display);
    /// Writes the line of the last note.
    void finish();

private:
    /// One frame of a note, with its line ready.
    struct Reading {
        float deviation;
        std::string columns;
    };

    std::function<void(const std::string&)> mWrite;
    std::string mNote; ///< empty: no note sounds
    double mStart = 0; ///< [s] end of the note's first frame
    double mLast = 0;  ///< [s] end of its last one
    std::vector<Reading> mReadings;
    bool mHasHeading = false;
};

} // namespace veltrano
