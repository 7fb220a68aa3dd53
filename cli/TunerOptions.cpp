// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TunerOptions.h"

#include "cli/Output.h"
#include "settings/Preferences.h"

#include <QCoreApplication>
#include <QLocale>
#include <limits>
#include <unistd.h>

namespace veltrano {

namespace {

const QString kReferencePitch = QStringLiteral("reference-pitch");
const QString kTonic = QStringLiteral("tonic");
const QString kThreshold = QStringLiteral("threshold");
const QString kTemperament = QStringLiteral("temperament");
const QString kStretch = QStringLiteral("stretch");
const QString kJson = QStringLiteral("json");
const QString kTable = QStringLiteral("table");

/// Also of an option that the command does not have.
bool isGiven(const QCommandLineParser& parser, const QString& option) {
    return parser.optionNames().contains(option);
}

std::optional<std::string> file(const QCommandLineParser& parser, const QString& option) {
    if (!isGiven(parser, option)) return std::nullopt;
    return wholePath(parser.value(option));
}

/// A whole number within limits, or an error.
std::optional<int> wholeNumber(const QCommandLineParser& parser, const QString& option, int least,
                               int most, QString& error) {
    if (!isGiven(parser, option)) return std::nullopt;
    bool isNumber = false;
    const int value = parser.value(option).toInt(&isNumber);
    if (isNumber && value >= least && value <= most) return value;
    error = QStringLiteral("--%1 takes a whole number from %2 to %3, not \"%4\"")
                .arg(option)
                .arg(least)
                .arg(most)
                .arg(parser.value(option));
    return std::nullopt;
}

/// The parser knows the program's path, but not that the command comes first.
QString helpOf(const QCommandLineParser& parser, const QString& command) {
    const QString program = QCoreApplication::arguments().value(0);
    QString help = parser.helpText().trimmed();
    return help.replace(help.indexOf(program), program.size(),
                        QStringLiteral("veltrano-cli ") + command);
}

std::optional<double> pitch(const QCommandLineParser& parser, QString& error) {
    if (!isGiven(parser, kReferencePitch)) return std::nullopt;
    bool isNumber = false;
    const double hz = QLocale::c().toDouble(parser.value(kReferencePitch), &isNumber);
    // The tuner works with it in single precision.
    using Limits = std::numeric_limits<float>;
    if (isNumber && hz >= double(Limits::min()) && hz <= double(Limits::max())) return hz;
    error = QStringLiteral("--reference-pitch takes a frequency in hertz above 0, not \"%1\"")
                .arg(parser.value(kReferencePitch));
    return std::nullopt;
}

} // namespace

void TunerOptions::declareReferencePitch(QCommandLineParser& parser) {
    parser.addOption(
        {kReferencePitch, QStringLiteral("Frequency of A4 (440)."), QStringLiteral("HZ")});
}

void TunerOptions::declareTonic(QCommandLineParser& parser) {
    parser.addOption({kTonic, QStringLiteral("Root key of the temperament, 0 (C) to 11 (0)."),
                      QStringLiteral("0..11")});
}

void TunerOptions::declare(QCommandLineParser& parser) {
    declareReferencePitch(parser);
    parser.addOption({kTemperament,
                      QStringLiteral("Temperament or Scala file (equal temperament)."),
                      QStringLiteral("FILE")});
    declareTonic(parser);
    parser.addOption(
        {kStretch, QStringLiteral("Stretch table (no stretch)."), QStringLiteral("FILE")});
    parser.addOption({kThreshold, QStringLiteral("Deviation that counts as in tune (3)."),
                      QStringLiteral("CENTS")});
}

std::optional<TunerOptions> TunerOptions::read(const QCommandLineParser& parser, QString& error) {
    error.clear();
    TunerOptions options;
    options.referencePitchHz = pitch(parser, error);
    if (error.isEmpty()) options.tonic = wholeNumber(parser, kTonic, 0, 11, error);
    if (error.isEmpty()) options.inTuneThreshold = wholeNumber(parser, kThreshold, 0, 1000, error);
    if (!error.isEmpty()) return std::nullopt;
    options.files = {file(parser, kTemperament), file(parser, kStretch)};
    return options;
}

void TunerOptions::applyTo(Preferences& preferences) const {
    if (referencePitchHz) preferences.setReferencePitch(*referencePitchHz);
    if (tonic) preferences.setTonic(*tonic);
    if (inTuneThreshold) preferences.setInTuneThreshold(*inTuneThreshold);
}

void declareFormat(QCommandLineParser& parser) {
    parser.addOption(
        {kJson, QStringLiteral("One JSON object per frame (default unless on a terminal).")});
    parser.addOption({kTable, QStringLiteral("A line per note (default on a terminal).")});
}

bool isTableWanted(const QCommandLineParser& parser) {
    if (parser.isSet(kTable)) return true;
    return !parser.isSet(kJson) && ::isatty(STDOUT_FILENO) == 1;
}

std::optional<int> parseCommand(QCommandLineParser& parser, const QStringList& arguments) {
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Shows the version."));
    parser.addOption(help);
    parser.addOption(version);
    const bool isParsed = parser.parse(arguments);
    Output output;
    if (parser.isSet(version)) {
        output.line("veltrano-cli " + QCoreApplication::applicationVersion().toStdString());
        return kDone;
    }
    if (parser.isSet(help)) {
        output.line(helpOf(parser, arguments.value(0)).toStdString());
        return kDone;
    }
    if (!isParsed) {
        complain(parser.errorText().toStdString() + " See --help.");
        return kWrongUsage;
    }
    return std::nullopt;
}

int wrongUsage(const QString& command, const QString& error) {
    complain((error + ". See veltrano-cli " + command + " --help.").toStdString());
    return kWrongUsage;
}

} // namespace veltrano
