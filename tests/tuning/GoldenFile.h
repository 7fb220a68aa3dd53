// SPDX-License-Identifier: GPL-3.0-or-later
// Files whose bytes the writers have to match; golden/write.py made them.
#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace veltrano {

/// The bytes of a file; a text that is none of them when there is no such file.
inline std::string goldenFile(std::string_view name) {
    std::ifstream file(std::string(VELTRANO_GOLDEN_FILES "/").append(name), std::ios::binary);
    if (!file) return "(no golden file)";
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace veltrano
