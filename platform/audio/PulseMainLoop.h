// SPDX-License-Identifier: GPL-3.0-or-later
// The thread on which the sound server is heard.
#pragma once

#include <pulse/pulseaudio.h>

namespace veltrano {

/// libpulse's event loop on a thread of its own.
///
/// Everything of libpulse is used either on that thread or with the Lock held.
class PulseMainLoop {
public:
    /// Keeps the loop's thread out of its callbacks. Not on that thread itself.
    class Lock {
    public:
        explicit Lock(PulseMainLoop& loop) : mLoop(loop.mLoop) { pa_threaded_mainloop_lock(mLoop); }
        ~Lock() { pa_threaded_mainloop_unlock(mLoop); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pa_threaded_mainloop* mLoop;
    };

    /// The thread does not run yet.
    PulseMainLoop() : mLoop(pa_threaded_mainloop_new()) {}
    ~PulseMainLoop() {
        stop();
        pa_threaded_mainloop_free(mLoop);
    }
    PulseMainLoop(const PulseMainLoop&) = delete;
    PulseMainLoop& operator=(const PulseMainLoop&) = delete;

    /// False when the system gives no thread.
    bool start() { return pa_threaded_mainloop_start(mLoop) == 0; }
    /// When it has returned, no callback runs any more. Without the Lock.
    void stop() { pa_threaded_mainloop_stop(mLoop); }
    pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(mLoop); }

private:
    pa_threaded_mainloop* mLoop; ///< libpulse ends the process itself when memory is short
};

} // namespace veltrano
