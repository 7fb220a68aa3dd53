// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/MVStretchLibrary.h"

namespace veltrano {

namespace {

constexpr LibraryMenuTexts kMenuTexts{
    .builtInTitle = "None", .builtInTip = "No Stretch.", .kind = "Stretch"};

} // namespace

MVStretchLibrary::MVStretchLibrary(std::string_view folder, Log& log)
    : FolderLibrary(folder, kMenuTexts, log) {}

std::optional<StretchEntry> MVStretchLibrary::read(const std::string& path) const {
    // kept: in lower case only
    if (folder_library::extension(path) != "stretch") return std::nullopt;
    return stretchDataAtPath(path);
}

std::optional<StretchEntry> MVStretchLibrary::stretchDataAtPath(std::string_view path) const {
    return folder_library::readEntry<StretchEntry>(path, stretch_file::readData, log());
}

std::optional<StretchTable> MVStretchLibrary::stretchForFileName(std::string_view fileName) const {
    const StretchEntry* entry = objectForFileName(fileName);
    if (!entry) return std::nullopt;
    return entry->stretch;
}

} // namespace veltrano
