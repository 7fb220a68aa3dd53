// SPDX-License-Identifier: GPL-3.0-or-later
// A log that keeps its lines for a test to compare.
#pragma once

#include "platform/foundation/Log.h"

#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// Thread: one, unlike a real log.
class RecordingLog final : public Log {
public:
    void line(std::string_view text) override { lines.emplace_back(text); }
    void detail(std::string_view text) override { details.emplace_back(text); }

    std::vector<std::string> lines;   ///< the fixed texts
    std::vector<std::string> details; ///< the further diagnoses
};

} // namespace veltrano
