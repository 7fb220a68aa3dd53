// SPDX-License-Identifier: GPL-3.0-or-later
// The user's libraries of temperaments and stretch tables.
#pragma once

#include "platform/desktop/DocumentPorts.h"
#include "platform/foundation/Log.h"
#include "tuning/MVStretchLibrary.h"
#include "tuning/MVTemperamentLibrary.h"

#include <memory>

namespace veltrano {

/// Both libraries, or none: pictures and the command line know no library of the user's.
struct LibrariesInUse {
    std::unique_ptr<MVTemperamentLibrary> temperaments; ///< null: none
    std::unique_ptr<MVStretchLibrary> stretches;        ///< null: none

    /// Beside the executable when they are there, otherwise in the user's data folder, filled at
    /// the first use; asks for a folder when that fails. Thread: main, with a QApplication.
    static LibrariesInUse locate(Log& log, DocumentPanels& panels);
};

} // namespace veltrano
