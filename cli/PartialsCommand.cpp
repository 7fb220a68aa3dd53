// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli partials
#include "cli/Commands.h"
#include "cli/RecordingOptions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace veltrano {

namespace {

QJsonValue partialsJson(const PartialsRef& partials) {
    if (!partials) return QJsonValue();
    QJsonArray entries;
    for (const Partial& partial : *partials) {
        entries.append(
            QJsonArray{static_cast<double>(partial.hz), static_cast<double>(partial.power)});
    }
    return entries;
}

/// One analysis as it is written: keys and meanings are the command line's contract.
QJsonObject analysisJson(qint64 analysis, std::uint64_t frame, const PartialDetector& detector) {
    return {
        {"analysis", analysis},
        {"frame", static_cast<qint64>(frame)},
        {"fundamental", static_cast<double>(detector.fundamental())},
        {"peak", static_cast<double>(detector.peak())},
        {"partials", partialsJson(detector.partials())},
    };
}

} // namespace

int runPartials(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Plays a recording through the tuner and prints the partials of every 4096 samples."));
    RecordingOptions::declare(parser);
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    QString usageError;
    const std::optional<RecordingOptions> recording = RecordingOptions::read(parser, usageError);
    if (!recording) return wrongUsage(QStringLiteral("partials"), usageError);

    Output output;
    HeadlessTuner::Setup setup;
    setup.writesReadings = false;
    return playRecording(*recording, setup, output, [&output](HeadlessTuner& tuner) {
        Controller& controller = tuner.controller();
        PartialDetector& detector = controller.partialDetector();
        detector.setAnalysisObserver([&output, &controller, &detector,
                                      analysis = qint64{0}]() mutable {
            const QJsonDocument line(analysisJson(analysis++, controller.record().frame, detector));
            output.line(line.toJson(QJsonDocument::Compact).toStdString());
        });
    });
}

} // namespace veltrano
