// SPDX-License-Identifier: GPL-3.0-or-later
// Reading whole text files of bounded size.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

constexpr std::size_t kMaxTextFileBytes = std::size_t{64} << 20; ///< of a text document

struct TextFile {
    std::optional<std::string> bytes; ///< empty: it could not be read
    std::string error;                ///< one line, with the path, when it could not be read
};

/// Thread: any. Reads regular files only and never waits for one: pipes, devices and folders are
/// refused, and so is a file of more than @p limit bytes. @param path whole, UTF-8
TextFile readTextFile(std::string_view path, std::size_t limit = kMaxTextFileBytes);

} // namespace veltrano
