// SPDX-License-Identifier: GPL-3.0-or-later
// Where the library folders are.
#pragma once

#include "platform/desktop/DocumentPorts.h"
#include "platform/foundation/Log.h"

#include <QString>
#include <string>

namespace veltrano {

/// What distinguishes the two library folders.
struct LibraryFolderKind {
    std::string name;    ///< "Temperaments" or "Stretches"
    std::string message; ///< of the folder chooser
};

/// The places where a library folder can be.
struct LibraryPlaces {
    QString besideExecutable; ///< a folder of that name in here is used as it is
    QString userData;         ///< otherwise here: made and filled once from shipped
    QString shipped;          ///< what is filled from, and where the chooser starts
    QString home;             ///< where the chooser starts otherwise
};

/// The whole path of the folder in use. When there is none and none can be made, logs
/// "error: the <name> folder not found at: <path>" and asks @p panels (null: nobody is asked); the
/// missing path is the answer of a user who cancels. Thread: main.
std::string locateLibraryFolder(const LibraryFolderKind& kind, const LibraryPlaces& places,
                                Log& log, DocumentPanels* panels);

} // namespace veltrano
