// SPDX-License-Identifier: GPL-3.0-or-later
// Follows the update cycles of a run with a recording.
#include "app/FrameWatch.h"

namespace veltrano {

FrameWatch::FrameWatch(RecordingClock& clock, const TunerDisplay& display)
    : mClock(clock), mDisplay(display) {}

void FrameWatch::didUpdate(const ReadingRecord& record) {
    if (mTable) mTable->add(record, mDisplay);
    if (mOnFrame) mOnFrame(record.seconds);
}

void FrameWatch::finish() {
    if (mTable) mTable->finish();
}

} // namespace veltrano
