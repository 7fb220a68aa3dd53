// SPDX-License-Identifier: GPL-3.0-or-later
// A one-shot timer that fires when a test says so.
#pragma once

#include "platform/desktop/OneShotTimer.h"

#include <optional>
#include <utility>

namespace veltrano {

/// Thread: one.
class DrivenTimer final : public OneShotTimer {
public:
    void start(int milliseconds, std::function<void()> then) override {
        mMilliseconds = milliseconds;
        mThen = std::move(then);
        ++mStarts;
    }
    void cancel() override { mMilliseconds.reset(), mThen = {}; }

    /// The time that the last start asked for; nothing when no start waits.
    std::optional<int> waiting() const { return mMilliseconds; }
    int starts() const { return mStarts; }
    /// That time is over.
    void fire() {
        mMilliseconds.reset();
        if (const auto then = std::exchange(mThen, {})) then();
    }

private:
    std::optional<int> mMilliseconds;
    std::function<void()> mThen;
    int mStarts = 0;
};

} // namespace veltrano
