// SPDX-License-Identifier: GPL-3.0-or-later
// The stretch tables in the library folder.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/foundation/Log.h"
#include "tuning/StretchFile.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// Thread: main. The folder is read at the first look-up. Every look-up takes the first entry that
/// matches; a file name is the last component of a path.
class MVStretchLibrary final : public StretchLibrary {
public:
    /// @param folder whole path; need not exist: the list is then empty
    MVStretchLibrary(std::string folder, Log& log);

    const std::string& folder() const { return mFolder; }
    void loadStretches(); ///< kept: the extension counts in lower case only
    void sortStretchs();  ///< by name, case-insensitively; entries without a name first
    /// Logged when it is refused. @param path whole
    std::optional<StretchEntry> stretchDataAtPath(std::string_view path) const;
    const std::vector<StretchEntry>& entries();

    std::optional<int> indexOfStretchWithFileName(std::string_view fileName) const override;
    std::optional<StretchTable> stretchForFileName(std::string_view fileName) const override;
    std::string nameForFileName(std::string_view fileName) const override;
    std::string descriptionForFileName(std::string_view fileName) const override;
    std::string pathForFileName(std::string_view fileName) const override;
    std::string stretchFileNameAtIndex(int index) const; ///< @p index must be valid

    void updatePopUpButton(PopUpMenu& menu);

    /// Takes a document's values in when its file lies directly in the folder, then sorts.
    /// @return whether it did; the caller then posts kStretchSaved
    bool updateStretch(const StretchEntry& saved);

private:
    std::string mFolder;
    Log& mLog;
    mutable std::optional<std::vector<StretchEntry>> mList;
};

} // namespace veltrano
