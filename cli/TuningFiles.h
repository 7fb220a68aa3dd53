// SPDX-License-Identifier: GPL-3.0-or-later
// Temperaments, stretch tables and scales from files that a command line names.
#pragma once

#include "platform/foundation/Log.h"
#include "tuning/ScalaScaleData.h"
#include "tuning/StretchFile.h"
#include "tuning/TemperamentFile.h"

#include <QString>
#include <optional>
#include <string>

namespace veltrano {

/// Thread: main. A path is whole. What is refused has its reason on standard error: the fixed text
/// of its format where there is one, else one line with the path.

/// The whole path of a file as a command line names it.
std::string wholePath(const QString& file);

/// The bytes of a text file; nullopt: it could not be read.
std::optional<std::string> readNamedFile(const std::string& path);

/// Of a temperament file, whatever it is called.
std::optional<TemperamentEntry> readTemperament(const std::string& path, std::string_view bytes,
                                                Log& log);
std::optional<StretchEntry> readStretch(const std::string& path, std::string_view bytes, Log& log);
/// Reads into @p scale. False: refused.
bool readScale(ScalaScaleData& scale, const std::string& path, std::string_view bytes);
/// kept: the ratios, as the library has them.
TemperamentEntry entryOf(const ScalaScaleData& scale, const std::string& path);

/// What a tuner is told to use; a name that is absent stands for none.
struct TuningFileNames {
    std::optional<std::string> temperament; ///< a temperament, or a scale when it ends in ".scl"
    std::optional<std::string> stretch;
};
struct TuningEntries {
    std::optional<TemperamentEntry> temperament;
    std::optional<StretchEntry> stretch;
};
/// nullopt: one of them was refused.
std::optional<TuningEntries> readTuningEntries(const TuningFileNames& names, Log& log);

} // namespace veltrano
