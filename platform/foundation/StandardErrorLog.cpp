// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/StandardErrorLog.h"

#include <string>
#include <unistd.h>

namespace veltrano {

namespace {

void writeLine(std::string text) {
    text += '\n';
    // A log that cannot be written has nowhere to say so.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

} // namespace

void StandardErrorLog::line(std::string_view text) { writeLine(std::string(text)); }

void StandardErrorLog::detail(std::string_view text) {
    writeLine("veltrano.detail: " + std::string(text));
}

} // namespace veltrano
