// SPDX-License-Identifier: GPL-3.0-or-later
// Something to be done once, a while from now.
#pragma once

#include <functional>

namespace veltrano {

/// Thread: main. A start cancels what an earlier start had in mind.
class OneShotTimer {
public:
    virtual ~OneShotTimer() = default;
    virtual void start(int milliseconds, std::function<void()> then) = 0;
    virtual void cancel() = 0;
};

} // namespace veltrano
