// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/FolderLibrary.h"

#include <QString>
#include <filesystem>
#include <set>

namespace veltrano::folder_library {

namespace fs = std::filesystem;

std::string fileName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string cleanPath(std::string_view path) {
    std::string result = fs::path(path).lexically_normal().string();
    while (result.size() > 1 && result.back() == '/')
        result.pop_back();
    return result;
}

std::string extension(std::string_view path) {
    const std::string withPoint = fs::path(path).extension().string();
    return withPoint.empty() ? withPoint : withPoint.substr(1);
}

std::vector<std::string> filesBelow(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code error;
    const auto options = fs::directory_options::skip_permission_denied;
    fs::recursive_directory_iterator at(folder, options, error);
    for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
        std::error_code unknown; // a link that leads nowhere is no regular file
        if (at->is_regular_file(unknown)) paths.push_back(at->path().string());
    }
    std::ranges::sort(paths);
    return paths;
}

bool isNameBefore(const std::optional<std::string>& a, const std::optional<std::string>& b) {
    if (!a || !b) return !a && b;
    return QString::fromStdString(*a).compare(QString::fromStdString(*b), Qt::CaseInsensitive) < 0;
}

void fillMenu(PopUpMenu& menu, const LibraryMenuTexts& texts,
              std::span<const LibraryMenuItem> items, Log& log) {
    menu.clear();
    menu.addItem(texts.builtInTitle, texts.builtInTip);
    std::set<std::string, std::less<>> titles{std::string(texts.builtInTitle)};
    if (!items.empty()) menu.addSeparator();
    for (const LibraryMenuItem& item : items) {
        if (titles.insert(item.title).second) {
            menu.addItem(item.title, item.tip);
        } else {
            log.line("Duplicate " + std::string(texts.kind) + " name: \"" + item.title +
                     "\". Please rename.");
        }
    }
    const std::size_t separators = items.empty() ? 0 : 1;
    menu.setEnabled(titles.size() + separators >= 2);
}

} // namespace veltrano::folder_library
