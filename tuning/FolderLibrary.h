// SPDX-License-Identifier: GPL-3.0-or-later
// What both libraries are: the list of what the files of a folder hold.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/desktop/TextFile.h"
#include "platform/foundation/Log.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veltrano {

/// What a library's menu says besides the names of its entries.
struct LibraryMenuTexts {
    std::string_view builtInTitle; ///< of the first item, which has no file
    std::string_view builtInTip;
    std::string_view kind; ///< "Temperament" or "Stretch", as a log line calls an entry
};

/// One entry as a menu shows it.
struct LibraryMenuItem {
    std::string title;
    std::string tip;
};

namespace folder_library {

/// The last component of @p path.
std::string fileName(std::string_view path);
/// @p path without needless slashes and points.
std::string cleanPath(std::string_view path);
/// What follows the last point of the file name, as it is spelled; empty for names such as ".scl".
std::string extension(std::string_view path);
/// The regular files in @p folder and below, hidden ones included, in the order of their paths.
/// Links to folders are not followed.
std::vector<std::string> filesBelow(const std::string& folder);
/// Whether @p a comes before @p b in a list: by letters in any case; no name comes first.
bool isNameBefore(const std::optional<std::string>& a, const std::optional<std::string>& b);
/// Fills @p menu with the built-in item and those of @p items whose title is not in it yet; the
/// others are logged.
void fillMenu(PopUpMenu& menu, const LibraryMenuTexts& texts,
              std::span<const LibraryMenuItem> items, Log& log);

/// The entry of the file at @p path, its path added. nullopt: unreadable or refused (logged).
/// @param readData reads the bytes of a file
template <class Entry>
std::optional<Entry> readEntry(std::string_view path,
                               std::optional<Entry> (*readData)(std::string_view bytes, Log& log),
                               Log& log) {
    const TextFile file = readTextFile(path);
    if (!file.bytes) {
        log.detail(file.error);
        return std::nullopt;
    }
    auto entry = readData(*file.bytes, log);
    if (entry) {
        entry->path = path;
    } else {
        log.detail("not in the library: " + std::string(path));
    }
    return entry;
}

} // namespace folder_library

/// A library whose entries are the files of one folder, sorted by name. Thread: main. The folder is
/// read at the first look-up. Every look-up takes the first entry that matches; a file name is the
/// last component of a path.
/// @tparam Interface what the settings know of it
/// @tparam Entry has an optional name and description, and a path
template <class Interface, class Entry>
class FolderLibrary : public Interface {
public:
    FolderLibrary(const FolderLibrary&) = delete;
    FolderLibrary& operator=(const FolderLibrary&) = delete;

    const std::string& folder() const { return mFolder; }
    const std::vector<Entry>& entries() const { return list(); }
    /// The list is @p entry alone from now on; the folder is not looked at.
    void hold(Entry entry) {
        mList.emplace();
        mList->push_back(std::move(entry));
    }

    /// Null: there is none of that whole path. Holds until the list changes.
    const Entry* objectForPath(std::string_view path) const {
        const auto found = std::ranges::find(list(), path, &Entry::path);
        return found == list().end() ? nullptr : &*found;
    }
    /// Null: there is none of that file name. Holds until the list changes.
    const Entry* objectForFileName(std::string_view fileName) const {
        const auto index = indexOfFileName(fileName);
        return index ? &list()[static_cast<std::size_t>(*index)] : nullptr;
    }
    std::string nameForFileName(std::string_view fileName) const override {
        const Entry* entry = objectForFileName(fileName);
        return entry ? entry->name.value_or("") : "";
    }
    std::string descriptionForFileName(std::string_view fileName) const override {
        const Entry* entry = objectForFileName(fileName);
        return entry ? entry->description.value_or("") : "";
    }
    std::string pathForFileName(std::string_view fileName) const override {
        const Entry* entry = objectForFileName(fileName);
        return entry ? entry->path : "";
    }
    void updatePopUpButton(PopUpMenu& menu) const override {
        std::vector<LibraryMenuItem> items;
        for (const Entry& entry : list()) {
            std::string title = entry.name.value_or("");
            if (title.empty()) title = folder_library::fileName(entry.path);
            items.push_back({std::move(title), entry.description.value_or("")});
        }
        folder_library::fillMenu(menu, mMenuTexts, items, mLog);
    }

protected:
    /// @param folder whole path; need not exist: the list is then empty
    /// @param log outlives this
    FolderLibrary(std::string_view folder, const LibraryMenuTexts& menuTexts, Log& log)
        : mFolder(folder_library::cleanPath(folder)), mMenuTexts(menuTexts), mLog(log) {}

    /// The entry of the file at a whole path; nullopt: it is none of this library, or refused.
    virtual std::optional<Entry> read(const std::string& path) const = 0;

    Log& log() const { return mLog; }
    void load() const { load(folder_library::filesBelow(mFolder)); }
    void sort() const {
        std::ranges::stable_sort(list(), folder_library::isNameBefore, &Entry::name);
    }
    std::optional<int> indexOfFileName(std::string_view fileName) const {
        const auto found = std::ranges::find(list(), fileName, [](const Entry& entry) {
            return folder_library::fileName(entry.path);
        });
        if (found == list().end()) return std::nullopt;
        return static_cast<int>(found - list().begin());
    }
    std::string fileNameAtIndex(int index) const {
        if (index < 0 || index >= std::ssize(list())) return {};
        return folder_library::fileName(list()[static_cast<std::size_t>(index)].path);
    }
    /// Takes @p saved in when its file lies directly in the folder, then sorts. @return whether
    bool update(Entry saved) {
        saved.path = folder_library::cleanPath(saved.path);
        const std::string name = folder_library::fileName(saved.path);
        if (name.empty() || saved.path != mFolder + '/' + name) return false;
        bool isNew = true;
        for (Entry& entry : list()) {
            if (entry.path != saved.path) continue;
            entry = saved;
            isNew = false;
        }
        if (isNew) list().push_back(std::move(saved));
        sort();
        return true;
    }

private:
    void load(const std::vector<std::string>& paths) const {
        mList.emplace();
        for (const std::string& path : paths) {
            if (auto entry = read(path)) mList->push_back(std::move(*entry));
        }
        sort();
    }
    std::vector<Entry>& list() const {
        if (!mList) load();
        return *mList;
    }

    const std::string mFolder;
    const LibraryMenuTexts mMenuTexts;
    Log& mLog;
    mutable std::optional<std::vector<Entry>> mList; ///< empty until it is first needed
};

} // namespace veltrano
