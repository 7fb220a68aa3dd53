// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseTimer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

namespace veltrano {

PulseTimer::PulseTimer(pa_mainloop_api* api, std::function<void()> fired)
    : mApi(api), mFired(std::move(fired)),
      mDescriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (mDescriptor < 0) return;
    mEvent = mApi->io_new(mApi, mDescriptor, PA_IO_EVENT_INPUT, &PulseTimer::onReadable, this);
}

PulseTimer::~PulseTimer() {
    if (mDescriptor < 0) return;
    mApi->io_free(mEvent);
    ::close(mDescriptor);
}

void PulseTimer::armAt(double seconds) {
    constexpr double kNanosPerSecond = 1e9;
    const double whole = std::floor(std::max(0.0, seconds));
    itimerspec moment{};
    moment.it_value.tv_sec = time_t(whole);
    moment.it_value.tv_nsec = long(std::max(0.0, seconds - whole) * kNanosPerSecond);
    // All zero would disarm it.
    if (moment.it_value.tv_sec == 0) moment.it_value.tv_nsec = 1;
    ::timerfd_settime(mDescriptor, TFD_TIMER_ABSTIME, &moment, nullptr);
}

void PulseTimer::disarm() {
    const itimerspec never{};
    ::timerfd_settime(mDescriptor, 0, &never, nullptr);
}

void PulseTimer::onReadable(pa_mainloop_api*, pa_io_event*, int descriptor, pa_io_event_flags_t,
                            void* timer) {
    std::uint64_t expirations = 0;
    // Nothing to read means that it was armed anew in the meantime.
    if (::read(descriptor, &expirations, sizeof expirations) < 0) return;
    static_cast<PulseTimer*>(timer)->mFired();
}

} // namespace veltrano
