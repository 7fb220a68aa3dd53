// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TuningFiles.h"

#include "cli/Output.h"
#include "platform/desktop/TextFile.h"
#include "tuning/FolderLibrary.h"

#include <QFile>
#include <QFileInfo>

namespace veltrano {

namespace {

std::optional<TemperamentEntry> readScaleOrTemperament(const std::string& path, Log& log) {
    const std::optional<std::string> bytes = readNamedFile(path);
    if (!bytes) return std::nullopt;
    if (!QString::fromStdString(path).endsWith(QLatin1String(".scl"), Qt::CaseInsensitive))
        return readTemperament(path, *bytes, log);
    ScalaScaleData scale;
    if (!readScale(scale, path, *bytes)) return std::nullopt;
    return entryOf(scale, path);
}

} // namespace

std::string wholePath(const QString& file) {
    return QFile::encodeName(QFileInfo(file).absoluteFilePath()).toStdString();
}

std::optional<std::string> readNamedFile(const std::string& path) {
    TextFile file = readTextFile(path);
    if (!file.bytes) complain(file.error);
    return std::move(file.bytes);
}

std::optional<TemperamentEntry> readTemperament(const std::string& path, std::string_view bytes,
                                                Log& log) {
    auto entry = temperament_file::readData(bytes, log);
    if (entry) entry->path = path;
    return entry;
}

std::optional<StretchEntry> readStretch(const std::string& path, std::string_view bytes, Log& log) {
    auto entry = stretch_file::readData(bytes, log);
    if (entry) entry->path = path;
    return entry;
}

bool readScale(ScalaScaleData& scale, const std::string& path, std::string_view bytes) {
    if (scale.parseData(bytes)) return true;
    complain(path + ": " + scale.errorMessage().value_or("An empty line is no part of a scale."));
    return false;
}

TemperamentEntry entryOf(const ScalaScaleData& scale, const std::string& path) {
    return {.name = folder_library::fileName(path),
            .description = scale.description(),
            .temperament = scale.scaleData(),
            .path = path};
}

std::optional<TuningEntries> readTuningEntries(const TuningFileNames& names, Log& log) {
    TuningEntries entries;
    if (names.temperament) {
        entries.temperament = readScaleOrTemperament(*names.temperament, log);
        if (!entries.temperament) return std::nullopt;
    }
    if (names.stretch) {
        const std::optional<std::string> bytes = readNamedFile(*names.stretch);
        if (bytes) entries.stretch = readStretch(*names.stretch, *bytes, log);
        if (!entries.stretch) return std::nullopt;
    }
    return entries;
}

} // namespace veltrano
