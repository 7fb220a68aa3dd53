// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli listen
#include "cli/Commands.h"
#include "cli/HeadlessTuner.h"
#include "cli/LiveHardware.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTimer>
#include <cmath>

namespace veltrano {

namespace {

const QString kDevice = QStringLiteral("device");
const QString kSeconds = QStringLiteral("seconds");
constexpr double kLongestSeconds = 1e6;

struct ListenOptions {
    std::optional<std::string> device; ///< nullopt: the default input
    std::optional<double> seconds;     ///< nullopt: until interrupted
    HeadlessTuner::Setup setup;
};

std::optional<ListenOptions> read(const QCommandLineParser& parser, QString& error) {
    ListenOptions options;
    const std::optional<TunerOptions> tuner = TunerOptions::read(parser, error);
    if (!tuner) return std::nullopt;
    options.setup.options = *tuner;
    options.setup.isTable = isTableWanted(parser);
    if (parser.isSet(kDevice)) options.device = parser.value(kDevice).toStdString();
    if (parser.isSet(kSeconds)) {
        bool isNumber = false;
        const double seconds = QLocale::c().toDouble(parser.value(kSeconds), &isNumber);
        if (!isNumber || !(seconds >= 0) || seconds > kLongestSeconds) {
            error = QStringLiteral("--seconds takes a time in seconds");
            return std::nullopt;
        }
        options.seconds = seconds;
    }
    if (!parser.positionalArguments().isEmpty()) {
        error = QStringLiteral("listen takes no file");
        return std::nullopt;
    }
    return options;
}

} // namespace

int runListen(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the readings of live input."));
    TunerOptions::declare(parser);
    parser.addOption({kDevice,
                      QStringLiteral("Input device as \"devices\" names it (the default one)."),
                      QStringLiteral("NAME")});
    parser.addOption({kSeconds, QStringLiteral("Ends after that time."), QStringLiteral("S")});
    declareFormat(parser);
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    QString error;
    std::optional<ListenOptions> options = read(parser, error);
    if (!options) return wrongUsage(QStringLiteral("listen"), error);

    StandardErrorLog log;
    std::optional<TuningEntries> entries = readTuningEntries(options->setup.options.files, log);
    if (!entries) return kRefused;
    options->setup.entries = std::move(*entries);
    const std::unique_ptr<AudioHardware> hardware = liveHardware(log);
    Output output;
    HeadlessTuner tuner(*hardware, output, options->setup);
    output.onClosed = [] { QCoreApplication::quit(); };
    if (options->seconds) {
        const auto milliseconds = static_cast<int>(std::ceil(*options->seconds * 1000.0));
        QTimer::singleShot(milliseconds, qApp, &QCoreApplication::quit);
    }
    tuner.start(options->device);
    log.detail("Listening to " + tuner.inputDeviceName());
    QCoreApplication::exec();
    tuner.finish();
    return kDone;
}

} // namespace veltrano
