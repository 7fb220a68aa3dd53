// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SingleFileLibraries.h"

namespace veltrano {

SingleFileLibraries::SingleFileLibraries(const TuningEntries& entries, Log& log)
    : mTemperaments("", log), mStretches("", log) {
    if (entries.temperament) {
        mTemperaments.hold(*entries.temperament);
        mTemperamentName = folder_library::fileName(entries.temperament->path);
    }
    if (entries.stretch) {
        mStretches.hold(*entries.stretch);
        mStretchName = folder_library::fileName(entries.stretch->path);
    }
}

void SingleFileLibraries::chooseIn(Preferences& preferences) const {
    if (mTemperamentName) preferences.setTuningForFileName(*mTemperamentName);
    if (mStretchName) preferences.setStretchForFileName(*mStretchName);
}

} // namespace veltrano
