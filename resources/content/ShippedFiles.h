// SPDX-License-Identifier: GPL-3.0-or-later
// The library files that the program brings along.
#pragma once

#include <string>
#include <vector>

namespace veltrano::content {

struct ShippedFile {
    std::string path; ///< below resources/, such as "Temperaments/Vallotti.temperament"
    std::string bytes;
};

std::vector<ShippedFile> shippedFiles();

} // namespace veltrano::content
