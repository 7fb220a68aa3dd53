// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of veltrano-cli.
#pragma once

#include <QStringList>

namespace veltrano {

/// Each takes its arguments with the command's own name first and answers the exit code.
/// Thread: main, with a QCoreApplication.

/// The readings of a recording, a line per frame or per note.
int runAnalyze(const QStringList& arguments);
/// The partials of a recording, a line per analysis.
int runPartials(const QStringList& arguments);
/// The input and output devices.
int runDevices(const QStringList& arguments);
/// The readings of live input.
int runListen(const QStringList& arguments);
/// A reference tone as a file.
int runTone(const QStringList& arguments);
/// What a temperament file, a stretch table or a Scala file holds, as one object.
int runTemperament(const QStringList& arguments);
int runStretch(const QStringList& arguments);
int runScala(const QStringList& arguments);

} // namespace veltrano
