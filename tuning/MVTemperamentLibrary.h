// SPDX-License-Identifier: GPL-3.0-or-later
// The temperaments in the library folder.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/foundation/Log.h"
#include "tuning/TemperamentFile.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// Thread: main. The folder is read at the first look-up. Every look-up takes the first entry that
/// matches; a file name is the last component of a path.
class MVTemperamentLibrary final : public TemperamentLibrary {
public:
    /// @param folder whole path; need not exist: the list is then empty
    MVTemperamentLibrary(std::string folder, Log& log);

    const std::string& folder() const { return mFolder; }
    void loadTemperaments();
    void sortTemperaments(); ///< by name, case-insensitively; entries without a name first
    /// Logged when it is refused. @param path whole
    std::optional<TemperamentEntry> temperamentDataAtPath(std::string_view path) const;
    /// A Scala file as the library keeps it: ratios; named after the file. Refused silently.
    std::optional<TemperamentEntry> readScalaScaleFromFile(std::string_view path) const;
    const std::vector<TemperamentEntry>& entries();

    std::optional<int> indexOfTemperamentWithFileName(std::string_view fileName) const override;
    std::optional<CentTable> temperamentCentsForFileName(std::string_view fileName) const override;
    void normalizeCents(CentTable& cents, int key) const override;
    std::string nameForFileName(std::string_view fileName) const override;
    std::string descriptionForFileName(std::string_view fileName) const override;
    std::string pathForFileName(std::string_view fileName) const override;
    std::string temperamentFileNameAtIndex(int index) const; ///< @p index must be valid

    void updatePopUpButton(PopUpMenu& menu);

    /// Takes a document's values in when its file lies directly in the folder, then sorts.
    /// @return whether it did; the caller then posts kTemperamentSaved
    bool updateTemperament(const TemperamentEntry& saved);

private:
    std::string mFolder;
    Log& mLog;
    mutable std::optional<std::vector<TemperamentEntry>> mList;
};

} // namespace veltrano
