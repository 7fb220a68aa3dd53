// SPDX-License-Identifier: GPL-3.0-or-later
// The file format of stretch tables.
#pragma once

#include "platform/foundation/Log.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// One stretch table of a library. Texts are UTF-8.
struct StretchEntry {
    std::optional<std::string> name;        ///< absent when the file has none
    std::optional<std::string> description; ///< absent when the file has none
    StretchTable stretch{};                 ///< [cents] by key number
    std::string path;                       ///< whole path; empty until it is known
};

namespace stretch_file {

inline constexpr std::string_view kInvalid = "Stretch data is invalid.";
inline constexpr std::string_view kOutOfRange =
    "Stretch offset is out of range. It has to be between -50 and +50 cents.";

/// "C0" ... "B8". @param key 0 ... 107
std::string keyName(int key);

/// The bytes of a file.
std::string data(const StretchTable& stretch, std::string_view name, std::string_view description);

/// Reads a file. nullopt, with its reason logged: not UTF-8 or bad syntax (kInvalid, and the line
/// number as a detail), or a value out of range (kOutOfRange).
std::optional<StretchEntry> readData(std::string_view bytes, Log& log);

struct Names {
    std::optional<std::string> name;
    std::optional<std::string> description;
};
/// The same into the table of a document. kept: at a value out of range those before it have been
/// replaced already.
std::optional<Names> readInto(StretchTable& stretch, std::string_view bytes, Log& log);

/// @p text without newlines, for a comment. kept: a carriage return stays.
std::string commentString(std::string_view text);

/// Takes a typed text into the table. False: out of range, nothing changed.
bool setCell(StretchTable& stretch, int key, std::string_view text);

} // namespace stretch_file

} // namespace veltrano
