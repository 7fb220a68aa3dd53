// SPDX-License-Identifier: GPL-3.0-or-later
// A log that can be asked what it was told.
#pragma once

#include "platform/foundation/Log.h"

#include <string>
#include <utility>

namespace veltrano {

/// Passes every line on and keeps it until it is taken, so that a message to the user can give the
/// reason that was logged. Thread: main.
class RememberingLog final : public Log {
public:
    /// @param next outlives this
    explicit RememberingLog(Log& next) : mNext(next) {}

    void line(std::string_view text) override {
        mNext.line(text);
        keep(text);
    }
    void detail(std::string_view text) override {
        mNext.detail(text);
        keep(text);
    }

    /// What was logged since the last call, a line each.
    std::string take() { return std::exchange(mKept, {}); }

private:
    void keep(std::string_view text) {
        constexpr std::size_t kMost = 1000; ///< more than that is no reason that a user reads
        if (mKept.size() > kMost) return;
        if (!mKept.empty()) mKept += '\n';
        mKept += text;
    }

    Log& mNext;
    std::string mKept;
};

} // namespace veltrano
