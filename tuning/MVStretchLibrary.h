// SPDX-License-Identifier: GPL-3.0-or-later
// The stretch tables in the library folder.
#pragma once

#include "tuning/FolderLibrary.h"
#include "tuning/StretchFile.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// The files with the extension "stretch" (kept: in lower case only). Thread: main.
class MVStretchLibrary final : public FolderLibrary<StretchLibrary, StretchEntry> {
public:
    /// @param folder whole path; need not exist: the list is then empty
    /// @param log outlives this
    MVStretchLibrary(std::string_view folder, Log& log);

    void loadStretches() { load(); }
    /// By name in any case of letters; entries without a name come first.
    void sortStretchs() { sort(); }
    /// Logged when it is refused. @param path whole
    std::optional<StretchEntry> stretchDataAtPath(std::string_view path) const;

    std::optional<int> indexOfStretchWithFileName(std::string_view fileName) const override {
        return indexOfFileName(fileName);
    }
    std::optional<StretchTable> stretchForFileName(std::string_view fileName) const override;
    std::string stretchFileNameAtIndex(int index) const override {
        return fileNameAtIndex(index);
    }

    /// Takes a document's values in when its file lies directly in the folder, then sorts.
    /// @return whether it did; the caller then posts kStretchSaved
    bool updateStretch(const StretchEntry& saved) { return update(saved); }

protected:
    std::optional<StretchEntry> read(const std::string& path) const override;
};

} // namespace veltrano
