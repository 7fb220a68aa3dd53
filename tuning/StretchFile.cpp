// SPDX-License-Identifier: GPL-3.0-or-later
// The file format of stretch tables.
#include "tuning/StretchFile.h"

#include "platform/foundation/LenientNumber.h"
#include "platform/foundation/StringsFile.h"
#include "tuning/PitchClass.h"
#include "tuning/Temperament.h"

#include <algorithm>

namespace veltrano::stretch_file {

namespace {

/// A key's name and one digit; the few others that pass (such as C9) are forgotten later.
bool isRead(std::string_view key) {
    return key == "Name" || key == "Description" ||
           temperament::isNoteName(key.substr(0, std::max<std::size_t>(key.size(), 1) - 1));
}

} // namespace

std::string keyName(int key) {
    return std::string(temperament::noteName(key)) + std::to_string(key / kPitchClasses);
}

std::string commentString(std::string_view text) {
    std::string comment(text);
    std::ranges::replace(comment, '\n', ' '); // kept: a carriage return stays
    return comment;
}

std::string data(const StretchTable& stretch, std::string_view name, std::string_view description) {
    std::string text = "// " + commentString(name) + " Stretch Table\n\n\"Name\"=\"";
    text += propertyString(name) + "\";\n\"Description\"=\"" + propertyString(description);
    text += "\";\n\n";
    for (int key = 0; key < kKeys; ++key) {
        text += '"' + keyName(key) + "\"=\"";
        text += signedDecimals(stretch[static_cast<std::size_t>(key)], 3) + "\";\n";
        if (key % kPitchClasses == kPitchClasses - 1) text += '\n';
    }
    return text;
}

std::optional<Names> readInto(StretchTable& stretch, std::string_view bytes, Log& log) {
    const StringsFile file = parseStringsFile(bytes, isRead);
    if (!file.pairs) {
        log.line(kInvalid);
        log.detail("The first error is in line " + std::to_string(file.errorLine) + ".");
        return std::nullopt;
    }
    for (int key = 0; key < kKeys; ++key) {
        const double offset = lenientDouble(valueOf(*file.pairs, keyName(key)).value_or(""));
        if (!temperament::isInRange(offset)) {
            log.line(kOutOfRange);
            return std::nullopt; // kept: the values before it are in the table
        }
        stretch[static_cast<std::size_t>(key)] = offset;
    }
    return Names{valueOf(*file.pairs, "Name"), valueOf(*file.pairs, "Description")};
}

std::optional<StretchEntry> readData(std::string_view bytes, Log& log) {
    StretchEntry entry;
    const std::optional<Names> names = readInto(entry.stretch, bytes, log);
    if (!names) return std::nullopt;
    entry.name = names->name;
    entry.description = names->description;
    return entry;
}

bool setCell(StretchTable& stretch, int key, std::string_view text) {
    const double offset = temperament::typedNumber(text);
    if (!temperament::isInRange(offset)) return false;
    stretch[static_cast<std::size_t>(key)] = offset;
    return true;
}

} // namespace veltrano::stretch_file
