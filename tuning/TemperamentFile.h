// SPDX-License-Identifier: GPL-3.0-or-later
// The file format of temperaments.
#pragma once

#include "platform/foundation/Log.h"
#include "platform/foundation/StringsFile.h"
#include "tuning/TuningLibraries.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// One temperament of a library. Texts are UTF-8.
struct TemperamentEntry {
    std::optional<std::string> name;        ///< absent when the file has none
    std::optional<std::string> description; ///< absent when the file has none
    /// [cents] by degree in key C. kept: ratios, for an entry read from a Scala file or put in by a
    /// save of its document.
    CentTable temperament{};
    std::string path; ///< whole path; empty until it is known
};

namespace temperament_file {

inline constexpr std::string_view kInvalid = "Temperament data is invalid.";

/// The bytes of a file. @param cents by degree; the pattern is written as if the tonic were C
std::string data(const CentTable& cents, std::string_view name, std::string_view description);

/// Reads a file. nullopt, with its reason logged: not UTF-8 or bad syntax (kInvalid, and the line
/// number as a detail), or a value out of range after normalising to A.
std::optional<TemperamentEntry> readData(std::string_view bytes, Log& log);

/// The twelve cents of a dictionary; ratios and frequencies are recognised and converted.
CentTable getCents(const StringsDictionary& pairs);

/// @p text without line breaks, for a comment.
std::string commentString(std::string_view text);

} // namespace temperament_file

} // namespace veltrano
