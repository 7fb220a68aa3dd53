// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program says what went wrong.
#pragma once

#include <string_view>

namespace veltrano {

/// Takes one line at a time, without a line end. Thread: any.
class Log {
public:
    virtual ~Log() = default;
    /// One of the program's fixed texts, exactly as it stands.
    virtual void line(std::string_view text) = 0;
    /// A further diagnosis (category veltrano.detail): a line of its own beside the fixed texts.
    virtual void detail(std::string_view text) = 0;
};

} // namespace veltrano
