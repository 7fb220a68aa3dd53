// SPDX-License-Identifier: GPL-3.0-or-later
// What has to hold for every input of a fuzz target.
#pragma once

#include "platform/foundation/Log.h"
#include "platform/foundation/Utf8.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano::fuzz {

/// Ends the process, as a crash does, when @p holds is false.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

class KeptLog final : public Log {
public:
    void line(std::string_view text) override { lines.emplace_back(text); }
    void detail(std::string_view text) override { details.emplace_back(text); }

    std::vector<std::string> lines;
    std::vector<std::string> details;
};

/// A line or paragraph separator, which ends a comment although no writer replaces it.
inline bool hasSeparator(std::string_view utf8) {
    return utf8.find("\u2028") != std::string_view::npos ||
           utf8.find("\u2029") != std::string_view::npos;
}

inline std::string_view textOf(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace veltrano::fuzz

/// The body of the target. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);
