// SPDX-License-Identifier: GPL-3.0-or-later
// The temperaments in the library folder.
#pragma once

#include "tuning/FolderLibrary.h"
#include "tuning/TemperamentFile.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// The files with the extensions "temperament" and "scl", in any case of letters. Thread: main.
class MVTemperamentLibrary final : public FolderLibrary<TemperamentLibrary, TemperamentEntry> {
public:
    /// @param folder whole path; need not exist: the list is then empty
    /// @param log outlives this
    MVTemperamentLibrary(std::string_view folder, Log& log);

    void loadTemperaments() { load(); }
    /// By name in any case of letters; entries without a name come first.
    void sortTemperaments() { sort(); }
    /// Logged when it is refused. @param path whole
    std::optional<TemperamentEntry> temperamentDataAtPath(std::string_view path) const;
    /// A Scala file as the library keeps it: ratios; named after the file. Refused silently.
    std::optional<TemperamentEntry> readScalaScaleFromFile(std::string_view path) const;

    std::optional<int> indexOfTemperamentWithFileName(std::string_view fileName) const override {
        return indexOfFileName(fileName);
    }
    std::optional<CentTable> temperamentCentsForFileName(std::string_view fileName) const override;
    void normalizeCents(CentTable& cents, int key) const override;
    std::string temperamentFileNameAtIndex(int index) const override {
        return fileNameAtIndex(index);
    }

    /// Takes a document's values in when its file lies directly in the folder, then sorts.
    /// @return whether it did; the caller then posts kTemperamentSaved
    bool updateTemperament(const TemperamentEntry& saved) { return update(saved); }

protected:
    std::optional<TemperamentEntry> read(const std::string& path) const override;
};

} // namespace veltrano
