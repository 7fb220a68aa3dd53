// SPDX-License-Identifier: GPL-3.0-or-later
// Where the library folders are.
#pragma once

#include "platform/desktop/DocumentPorts.h"
#include "platform/foundation/Log.h"

#include <QString>
#include <string>
#include <string_view>

namespace veltrano {

/// What distinguishes the two library folders.
struct LibraryFolderKind {
    std::string_view name;
    std::string_view message; ///< of the folder chooser
};

inline constexpr LibraryFolderKind kTemperamentsFolder{"Temperaments",
                                                       "Choose the Temperaments folder"};
inline constexpr LibraryFolderKind kStretchesFolder{"Stretches",
                                                    "Choose the Streches folder"}; // kept: spelling

/// The places where a library folder can be.
struct LibraryPlaces {
    QString besideExecutable; ///< a folder of that name in here is used as it is
    QString userData;         ///< otherwise here: made and filled once from shipped
    QString shipped;          ///< what is filled from, and where the chooser starts
    QString home;             ///< where the chooser starts otherwise

    /// Those of the running program. A QCoreApplication must exist.
    static LibraryPlaces find();
};

/// The whole path of the folder in use. When there is none and none can be made, logs
/// "error: the <name> folder not found at: <path>" and asks @p panels (null: nobody is asked); the
/// missing path is the answer of a user who cancels. Thread: main.
///
/// The user's folder appears whole or not at all, also when the program is ended meanwhile.
std::string locateLibraryFolder(const LibraryFolderKind& kind, const LibraryPlaces& places,
                                Log& log, DocumentPanels* panels);

} // namespace veltrano
