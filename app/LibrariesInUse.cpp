// SPDX-License-Identifier: GPL-3.0-or-later
// The user's libraries of temperaments and stretch tables.
#include "app/LibrariesInUse.h"

#include "tuning/LibraryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace veltrano {

LibrariesInUse LibrariesInUse::locate(const ResourceFolder& shipped, Log& log,
                                      DocumentPanels& panels) {
    const LibraryPlaces places{
        QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
            QStringLiteral("/veltrano"),
        shipped.path(), QDir::homePath()};
    const auto folder = [&](const LibraryFolderKind& kind) {
        return locateLibraryFolder(kind, places, log, &panels);
    };
    return {std::make_unique<MVTemperamentLibrary>(folder(kTemperamentsFolder), log),
            std::make_unique<MVStretchLibrary>(folder(kStretchesFolder), log)};
}

} // namespace veltrano
