// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace veltrano {

void Output::line(std::string_view text) {
    if (mIsClosed) return;
    std::string whole(text);
    whole += '\n';
    const bool isWritten = std::fwrite(whole.data(), 1, whole.size(), stdout) == whole.size();
    mIsClosed = !isWritten || std::fflush(stdout) != 0;
    if (!mIsClosed) return;
    if (errno == EPIPE) {
        std::clearerr(stdout); // the reader has had enough, which is no failure
    } else {
        complain(std::string("standard output: ") + std::strerror(errno));
    }
    if (onClosed) onClosed();
}

int exitCodeAfterOutput(int exitCode) {
    return exitCode == kDone && std::ferror(stdout) ? kRefused : exitCode;
}

void complain(std::string_view text) {
    const std::string line = "veltrano-cli: " + std::string(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace veltrano
