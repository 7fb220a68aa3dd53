// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/FolderLibrary.h"

#include <QDirIterator>
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
    // What cannot be listed is passed over; the rest is found all the same.
    QDirIterator files(QString::fromStdString(folder), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        std::string path = files.next().toStdString();
        std::error_code unknown; // a link may lead to a device, or nowhere
        if (fs::is_regular_file(path, unknown)) paths.push_back(std::move(path));
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
