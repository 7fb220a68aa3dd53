// SPDX-License-Identifier: GPL-3.0-or-later
// A timer of libpulse's event loop that no change of the wall clock disturbs.
#pragma once

#include <functional>
#include <pulse/mainloop-api.h>

namespace veltrano {

/// Calls a function on the loop's thread at a moment of the steady clock.
/// Thread: as the loop; made, used and destroyed with its lock held or while it does not run.
class PulseTimer {
public:
    PulseTimer(pa_mainloop_api* api, std::function<void()> fired);
    ~PulseTimer();
    PulseTimer(const PulseTimer&) = delete;
    PulseTimer& operator=(const PulseTimer&) = delete;

    /// Replaces an earlier moment; one that is past means at once. @param seconds of SteadyClock
    void armAt(double seconds);
    void armNow() { armAt(0); }
    void disarm();

private:
    static void onReadable(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* timer);

    pa_mainloop_api* const mApi;
    const std::function<void()> mFired;
    const int mDescriptor; ///< -1 when the system has none left: the timer never fires
    pa_io_event* mEvent = nullptr;
};

} // namespace veltrano
