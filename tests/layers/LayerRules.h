// SPDX-License-Identifier: GPL-3.0-or-later
// Which file may include what.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// The rules of the house, from the table of rooms and the list of all libraries' files.
///
/// A room includes itself and the rooms of its row. A core file includes core headers and the
/// standard library without clocks and threads; a plain file also plain headers, QtCore and the
/// system; a views file everything of Qt. Libraries of the distribution are for one folder each.
class LayerRules {
public:
    enum class Kind { core, plain, views };

    /// @param rooms lines "room: rooms it may include", comments begin with #
    /// @param manifest lines "library kind path"
    /// @param qtCoreHeaders the names of all QtCore headers
    LayerRules(std::string_view rooms, std::string_view manifest,
               std::set<std::string> qtCoreHeaders);

    /// A program's own file, which is in no library: "app/main.cpp".
    void addProgramFile(const std::string& path, Kind kind) { mKinds.emplace(path, kind); }

    bool isRoom(std::string_view folder) const { return mMayInclude.contains(std::string(folder)); }
    std::size_t listedFiles() const { return mKinds.size(); }

    /// One line per broken rule, "path:line: what is wrong"; empty for a good file.
    std::vector<std::string> violations(const std::string& path, std::string_view contents) const;

private:
    std::string faultOfOwn(const std::string& path, Kind kind, const std::string& header) const;
    std::string faultOfForeign(const std::string& path, Kind kind, const std::string& header) const;

    std::map<std::string, std::set<std::string>> mMayInclude; ///< by room
    std::map<std::string, Kind> mKinds;                       ///< by path of an own file
    std::set<std::string> mQtCoreHeaders;
};

} // namespace veltrano
