// SPDX-License-Identifier: GPL-3.0-or-later
// The recording's own time as the tuner's clock.
#pragma once

#include "platform/foundation/Clock.h"

#include <algorithm>

namespace veltrano {

/// Stands at the last sample of the frame being served, so that a recording gives the same readings
/// whenever it is played. Thread: main.
class RecordingClock final : public Clock {
public:
    double now() const override { return mNow; }

    /// @param seconds of the recording; it starts anew when the input was changed, the clock does
    /// not
    void frameEndsAt(double seconds) {
        if (seconds < mLast) mOffset += mLast;
        mLast = seconds;
        mNow = std::max(mNow, mOffset + seconds);
    }

private:
    double mNow = 0;
    double mLast = 0;
    double mOffset = 0; ///< what earlier inputs have taken
};

} // namespace veltrano
