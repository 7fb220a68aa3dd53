// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Output.h"

#include <cstdio>
#include <string>

namespace veltrano {

void Output::line(std::string_view text) {
    if (mIsClosed) return;
    std::string whole(text);
    whole += '\n';
    const bool isWritten = std::fwrite(whole.data(), 1, whole.size(), stdout) == whole.size();
    mIsClosed = !isWritten || std::fflush(stdout) != 0;
    if (mIsClosed && onClosed) onClosed();
}

void complain(std::string_view text) {
    const std::string line = "veltrano-cli: " + std::string(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace veltrano
