// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped library files as they lie in the repository.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace veltrano {

/// The bytes of every file in a folder below resources/, by file name.
inline std::map<std::string, std::string> shippedFolder(const std::string& folder) {
    std::map<std::string, std::string> files;
    const std::filesystem::path root(VELTRANO_RESOURCES);
    for (const auto& entry : std::filesystem::directory_iterator(root / folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        files[entry.path().filename().string()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
}

} // namespace veltrano
