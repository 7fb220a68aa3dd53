// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/content/ShippedFiles.h"

#include "resources/content/HistoricalTemperaments.h"
#include "resources/content/StretchModel.h"
#include "tuning/StretchFile.h"
#include "tuning/TemperamentFile.h"

namespace veltrano::content {

std::vector<ShippedFile> shippedFiles() {
    std::vector<ShippedFile> files;
    for (const HistoricalTemperament& temperament : historicalTemperaments()) {
        files.push_back({"Temperaments/" + temperament.name + ".temperament",
                         temperament_file::data(deviationsFromA(temperament.notes),
                                                temperament.name, temperament.description)});
    }
    for (const PianoSize& piano : pianoSizes()) {
        files.push_back(
            {"Stretches/" + piano.name + ".stretch",
             stretch_file::data(stretchTable(piano.strings), piano.name, piano.description)});
    }
    return files;
}

} // namespace veltrano::content
