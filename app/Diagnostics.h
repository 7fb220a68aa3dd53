// SPDX-License-Identifier: GPL-3.0-or-later
// What a report of a fault should say.
#pragma once

#include <QString>

namespace veltrano {

class Controller;
struct LibrariesInUse;

/// The program, the system and the state of the audio, a line each, in English. Nothing in it tells
/// who the user is: no names of files, folders or devices. Thread: main.
QString diagnostics(Controller& controller, const LibrariesInUse& libraries);

} // namespace veltrano
