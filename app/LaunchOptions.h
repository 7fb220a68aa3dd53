// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line of veltrano asks for.
#pragma once

#include "platform/desktop/Appearance.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// The options of `veltrano`.
struct LaunchOptions {
    std::optional<std::string> input;   ///< a recording that plays as an input device
    std::optional<QString> snapshotDir; ///< pictures of all windows go here, then the program ends
    double snapshotSeconds = 0;         ///< [s] of the recording
    AppearanceChoice appearance = AppearanceChoice::system;
    std::optional<QString> settingsFile; ///< instead of the user's own
    std::vector<std::string> files;      ///< documents to open, whole paths in UTF-8
};

/// Either options, or the exit code with which the program is done and what it says.
struct Launch {
    std::optional<LaunchOptions> options;
    int exitCode = 0;
    std::string output; ///< for standard output
    std::string error;  ///< one line for standard error
};

/// Reads the command line, the program's name first. Any thread, before the application exists.
Launch readLaunch(const QStringList& arguments);

} // namespace veltrano
