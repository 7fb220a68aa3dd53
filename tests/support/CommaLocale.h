// SPDX-License-Identifier: GPL-3.0-or-later
// A locale that writes one and a half as "1,5".
#pragma once

#include <filesystem>
#include <string>

namespace veltrano {

/// Makes German the locale of the whole process, for the C library and for Qt (which reads the
/// environment). Call it before anything reads the locale.
/// @param cache a folder for a locale that has to be compiled first; kept for the next program
/// @return why it did not succeed; empty when it did
std::string useCommaLocale(const std::filesystem::path& cache);

} // namespace veltrano
