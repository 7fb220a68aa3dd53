// SPDX-License-Identifier: GPL-3.0-or-later
// The temperaments that the program brings along, by their definitions.
#pragma once

#include "resources/content/FifthCircle.h"

#include <string>
#include <vector>

namespace veltrano::content {

struct HistoricalTemperament {
    std::string name;        ///< unique in any case of letters; the file is named so too
    std::string description; ///< whose it is, where it is found, how it is made
    NotesAboveC notes{};
};

/// In the order of their families and years.
std::vector<HistoricalTemperament> historicalTemperaments();

/// [cents] against equal temperament with A at 0, by pitch class from C; an exact 0 where it is
/// one to nine decimals.
std::array<double, 12> deviationsFromA(const NotesAboveC& notes);

} // namespace veltrano::content
