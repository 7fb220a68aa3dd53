// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli analyze
#include "cli/Commands.h"
#include "cli/RecordingOptions.h"

namespace veltrano {

namespace {

struct AnalyzeOptions {
    RecordingOptions recording;
    HeadlessTuner::Setup setup;
};

void declare(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Plays a recording through the tuner and prints "
                       "the readings of every frame."));
    RecordingOptions::declare(parser);
    TunerOptions::declare(parser);
    declareFormat(parser);
}

/// nullopt and one line in @p error when an option is wrong.
std::optional<AnalyzeOptions> read(const QCommandLineParser& parser, QString& error) {
    const std::optional<RecordingOptions> recording = RecordingOptions::read(parser, error);
    if (!recording) return std::nullopt;
    const std::optional<TunerOptions> tuner = TunerOptions::read(parser, error);
    if (!tuner) return std::nullopt;
    AnalyzeOptions options;
    options.recording = *recording;
    options.setup.options = *tuner;
    options.setup.isTable = isTableWanted(parser);
    return options;
}

} // namespace

int runAnalyze(const QStringList& arguments) {
    QCommandLineParser parser;
    declare(parser);
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    QString usageError;
    std::optional<AnalyzeOptions> options = read(parser, usageError);
    if (!options) return wrongUsage(QStringLiteral("analyze"), usageError);

    StandardErrorLog log;
    std::optional<TuningEntries> entries = readTuningEntries(options->setup.options.files, log);
    if (!entries) return kRefused;
    options->setup.entries = std::move(*entries);
    Output output;
    return playRecording(options->recording, options->setup, output);
}

} // namespace veltrano
