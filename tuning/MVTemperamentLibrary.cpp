// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/MVTemperamentLibrary.h"

#include "platform/desktop/TextFile.h"
#include "tuning/ScalaScaleData.h"
#include "tuning/Temperament.h"

#include <cctype>

namespace veltrano {

namespace {

constexpr LibraryMenuTexts kMenuTexts{
    .builtInTitle = "Equal Tempered",
    .builtInTip = "Equal Tempered.\ncents = (0.000, 0.000, 0.000, 0.000, 0.000, 0.000, 0.000, "
                  "0.000, 0.000, 0.000, 0.000, 0.000)",
    .kind = "Temperament",
};

std::string inLowerCase(std::string text) {
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

} // namespace

MVTemperamentLibrary::MVTemperamentLibrary(std::string_view folder, Log& log)
    : FolderLibrary(folder, kMenuTexts, log) {}

std::optional<TemperamentEntry> MVTemperamentLibrary::read(const std::string& path) const {
    const std::string extension = inLowerCase(folder_library::extension(path));
    if (extension == "temperament") return temperamentDataAtPath(path);
    if (extension == "scl") return readScalaScaleFromFile(path);
    return std::nullopt;
}

std::optional<TemperamentEntry>
MVTemperamentLibrary::temperamentDataAtPath(std::string_view path) const {
    return folder_library::readEntry<TemperamentEntry>(path, temperament_file::readData, log());
}

std::optional<TemperamentEntry>
MVTemperamentLibrary::readScalaScaleFromFile(std::string_view path) const {
    const TextFile file = readTextFile(path);
    if (!file.bytes) {
        log().detail(file.error);
        return std::nullopt;
    }
    ScalaScaleData scale;
    if (!scale.parseData(*file.bytes)) return std::nullopt;
    // kept: ratios where other entries have cents
    return TemperamentEntry{.name = folder_library::fileName(path),
                            .description = scale.description(),
                            .temperament = scale.scaleData(),
                            .path = std::string(path)};
}

std::optional<CentTable>
MVTemperamentLibrary::temperamentCentsForFileName(std::string_view fileName) const {
    const TemperamentEntry* entry = objectForFileName(fileName);
    if (!entry) return std::nullopt;
    return entry->temperament;
}

void MVTemperamentLibrary::normalizeCents(CentTable& cents, int key) const {
    temperament::normalizeCents(cents, key, log());
}

} // namespace veltrano
