// SPDX-License-Identifier: GPL-3.0-or-later
// A one-shot timer of the event loop.
#pragma once

#include "platform/desktop/OneShotTimer.h"

#include <QTimer>

namespace veltrano {

/// Thread: main. Destroying it cancels it.
class EventLoopTimer final : public OneShotTimer {
public:
    EventLoopTimer();
    void start(int milliseconds, std::function<void()> then) override;
    void cancel() override { mTimer.stop(); }

private:
    QTimer mTimer;
    std::function<void()> mThen;
};

} // namespace veltrano
