// SPDX-License-Identifier: GPL-3.0-or-later
// A one-shot timer of the event loop.
#include "platform/desktop/EventLoopTimer.h"

#include <utility>

namespace veltrano {

EventLoopTimer::EventLoopTimer() {
    mTimer.setSingleShot(true);
    QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] {
        // What runs may start the timer anew.
        if (const auto then = std::exchange(mThen, {})) then();
    });
}

void EventLoopTimer::start(int milliseconds, std::function<void()> then) {
    mThen = std::move(then);
    mTimer.start(milliseconds);
}

} // namespace veltrano
