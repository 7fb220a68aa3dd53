// SPDX-License-Identifier: GPL-3.0-or-later
// The user's libraries of temperaments and stretch tables.
#include "app/LibrariesInUse.h"

#include "tuning/LibraryFolder.h"

namespace veltrano {

LibrariesInUse LibrariesInUse::locate(Log& log, DocumentPanels& panels) {
    const LibraryPlaces places = LibraryPlaces::find();
    const auto folder = [&](const LibraryFolderKind& kind) {
        return locateLibraryFolder(kind, places, log, &panels);
    };
    return {std::make_unique<MVTemperamentLibrary>(folder(kTemperamentsFolder), log),
            std::make_unique<MVStretchLibrary>(folder(kStretchesFolder), log)};
}

} // namespace veltrano
