// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of a command that shows one file and may write others.
#pragma once

#include "cli/TunerOptions.h"

#include <QCommandLineParser>
#include <QStringList>
#include <optional>
#include <string>

namespace veltrano {

/// Thread: main.
class FileCommand {
public:
    /// What the command line says. Paths are whole.
    struct Request {
        std::string path;
        TunerOptions options;
        std::optional<std::string> writePath;
        std::optional<std::string> exportPath;
    };

    /// @param name of the command @param purpose one sentence @param file what FILE is
    FileCommand(const QString& name, const QString& purpose, const QString& file);

    QCommandLineParser& parser() { return mParser; } ///< for the tuner's options
    void declareWrite(const QString& meaning, const QString& file);
    void declareExport(const QString& meaning, const QString& file);

    /// nullopt: the command is done; exitCode() says how.
    std::optional<Request> read(const QStringList& arguments);
    int exitCode() const { return mExitCode; }

private:
    std::optional<std::string> path(const QString& option) const;
    std::optional<Request> fail(const QString& error);

    QCommandLineParser mParser;
    const QString mName;
    int mExitCode = 0;
};

} // namespace veltrano
