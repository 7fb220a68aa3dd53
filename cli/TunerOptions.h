// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner's settings as options of a command.
#pragma once

#include "cli/TuningFiles.h"

#include <QCommandLineParser>
#include <QStringList>
#include <optional>
#include <string>

namespace veltrano {

class Preferences;

/// What a command line says of the tuner; what it does not say is as on a first run.
struct TunerOptions {
    std::optional<double> referencePitchHz; ///< of A4
    std::optional<int> tonic;               ///< 0 (C) ... 11
    std::optional<int> inTuneThreshold;     ///< [cents] >= 0
    TuningFileNames files;                  ///< not read yet

    /// Declares all options on @p parser, or one.
    static void declare(QCommandLineParser& parser);
    static void declareReferencePitch(QCommandLineParser& parser);
    static void declareTonic(QCommandLineParser& parser);
    /// Reads those that are declared. On a bad value returns nullopt and sets @p error to one line.
    static std::optional<TunerOptions> read(const QCommandLineParser& parser, QString& error);

    void applyTo(Preferences& preferences) const; ///< all but the files
};

/// Whether readings are wanted as JSON objects or as a table.
/// @param parser with the options that declareFormat() declared; JSON unless standard output is a
///        terminal or a table is asked for
bool isTableWanted(const QCommandLineParser& parser);
void declareFormat(QCommandLineParser& parser);

/// Parses the arguments of one command, with --help and --version.
/// @param arguments the command's name first
/// @return the exit code with which the command is done already, or nothing to go on
std::optional<int> parseCommand(QCommandLineParser& parser, const QStringList& arguments);

/// Says what is wrong with the use of a command and where it is explained.
/// @return the exit code
int wrongUsage(const QString& command, const QString& error);

} // namespace veltrano
