// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written whole or not at all.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Replaces the file at @p path, or makes it. Whatever happens, the file on disk is the whole old
/// or the whole new one; after success it is on the disk, not only on its way. A file that was
/// there keeps its permissions, and its owner, group and access control list where the user may
/// give them away; where the group cannot be kept, its members get no more than everybody. A
/// symbolic link goes on pointing at its file. What is no regular file, or is protected from being
/// written, is refused. Thread: any.
/// @param path whole, UTF-8
/// @return nullopt: written; otherwise why not, without the path
std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes);

/// What tells whether a file is still the one that was read or written.
struct FileStamp {
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t bytes = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    static FileStamp of(const std::string& path);
    bool operator==(const FileStamp&) const = default;
};

} // namespace veltrano
