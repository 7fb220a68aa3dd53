// SPDX-License-Identifier: GPL-3.0-or-later
// Libraries that hold the files of a command line alone.
#pragma once

#include "cli/TuningFiles.h"
#include "settings/Preferences.h"
#include "tuning/MVStretchLibrary.h"
#include "tuning/MVTemperamentLibrary.h"

namespace veltrano {

/// No folder is looked at: where no file is named, a library is not there. Thread: main.
class SingleFileLibraries {
public:
    /// @param log outlives this
    SingleFileLibraries(const TuningEntries& entries, Log& log);

    TemperamentLibrary* temperaments() { return mTemperamentName ? &mTemperaments : nullptr; }
    StretchLibrary* stretches() { return mStretchName ? &mStretches : nullptr; }
    /// Chooses the files. @param preferences made with these libraries
    void chooseIn(Preferences& preferences) const;

private:
    MVTemperamentLibrary mTemperaments;
    MVStretchLibrary mStretches;
    std::optional<std::string> mTemperamentName;
    std::optional<std::string> mStretchName;
};

} // namespace veltrano
