// SPDX-License-Identifier: GPL-3.0-or-later
// Standard output, line by line.
#pragma once

#include <functional>
#include <string_view>

namespace veltrano {

/// Writes lines to standard output at once. Thread: main.
/// Errors: once a write fails, isClosed() tells so and nothing more is written; the caller ends. A
/// reader that closed the pipe is no failure; any other reason (a full disk) is told on standard
/// error, and exitCodeAfterOutput() knows of it.
class Output {
public:
    void line(std::string_view text);
    bool isClosed() const { return mIsClosed; }

    std::function<void()> onClosed; ///< called once when nothing can be written; may be empty

private:
    bool mIsClosed = false;
};

/// Says on standard error why an input is refused or how a command is used: one line.
void complain(std::string_view text);

/// Exit codes of every command.
constexpr int kDone = 0;
constexpr int kRefused = 1; ///< the input was refused, or an output cannot be written
constexpr int kWrongUsage = 2;

/// What the program ends with: kRefused instead of kDone when some line could not be written.
int exitCodeAfterOutput(int exitCode);

} // namespace veltrano
