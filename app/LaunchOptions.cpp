// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LaunchOptions.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace veltrano {

namespace {

constexpr int kWrongUsage = 2;

const QString kInput = QStringLiteral("input");
const QString kSnapshot = QStringLiteral("snapshot");
const QString kAt = QStringLiteral("at");
const QString kAppearance = QStringLiteral("appearance");
const QString kSettings = QStringLiteral("settings");

void declare(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral("Piano tuner."));
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")});
    parser.addOption(
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Shows the version.")});
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("Temperaments, stretch tables and Scala scales to "
                                                "open."),
                                 QStringLiteral("[FILE...]"));
    parser.addOption({kInput, QStringLiteral("Plays a recording as the input device of this run."),
                      QStringLiteral("RECORDING")});
    parser.addOption({kSnapshot,
                      QStringLiteral("Plays the recording as fast as possible, writes a picture of "
                                     "every open window into DIR and ends."),
                      QStringLiteral("DIR")});
    parser.addOption({kAt, QStringLiteral("Moment of the recording for --snapshot."),
                      QStringLiteral("SECONDS")});
    parser.addOption({kAppearance, QStringLiteral("light, dark or system (as the desktop has it)."),
                      QStringLiteral("NAME")});
    parser.addOption(
        {kSettings, QStringLiteral("Uses another settings file."), QStringLiteral("FILE")});
}

/// The parser would name the program as it was called, and not at all before the application
/// exists.
std::string helpText(const QCommandLineParser& parser) {
    const QString text = parser.helpText().trimmed();
    return "Usage: veltrano [options] [FILE...]" + text.mid(text.indexOf(u'\n')).toStdString();
}

/// A session manager that brings the program back adds "-session ID", which is for QApplication.
QStringList withoutSession(QStringList arguments) {
    const auto at = arguments.indexOf(QStringLiteral("-session"));
    if (at > 0 && at + 1 < arguments.size()) arguments.remove(at, 2);
    return arguments;
}

Launch refused(const QString& reason) {
    Launch launch;
    launch.exitCode = kWrongUsage;
    launch.error = "veltrano: " + reason.toStdString() + ". See veltrano --help.";
    return launch;
}

/// An empty text when every argument is a document.
QString readFiles(const QCommandLineParser& parser, LaunchOptions& options) {
    const QStringList extensions{QStringLiteral("temperament"), QStringLiteral("stretch"),
                                 QStringLiteral("scl")};
    for (const QString& argument : parser.positionalArguments()) {
        const QFileInfo file(argument);
        if (!extensions.contains(file.suffix(), Qt::CaseInsensitive)) {
            return QStringLiteral("unexpected argument \"%1\": documents end in .temperament, "
                                  ".stretch or .scl, a recording goes with --input")
                .arg(argument);
        }
        options.files.push_back(file.absoluteFilePath().toStdString());
    }
    return {};
}

/// An empty text when @p options took everything.
QString readSnapshot(const QCommandLineParser& parser, LaunchOptions& options) {
    if (!parser.isSet(kSnapshot)) {
        return parser.isSet(kAt) ? QStringLiteral("--at goes with --snapshot") : QString();
    }
    if (!options.input) return QStringLiteral("--snapshot needs a recording: --input RECORDING");
    options.snapshotDir = parser.value(kSnapshot);
    bool isNumber = parser.isSet(kAt);
    if (isNumber) options.snapshotSeconds = QLocale::c().toDouble(parser.value(kAt), &isNumber);
    if (isNumber && options.snapshotSeconds >= 0) return {};
    return QStringLiteral("--snapshot needs a moment: --at SECONDS");
}

} // namespace

Launch readLaunch(const QStringList& arguments) {
    QCommandLineParser parser;
    declare(parser);
    const bool isParsed = parser.parse(withoutSession(arguments));
    Launch launch;
    if (parser.isSet(QStringLiteral("version"))) {
        launch.output = "veltrano " VELTRANO_VERSION;
        return launch;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        launch.output = helpText(parser);
        return launch;
    }
    if (!isParsed)
        return refused(parser.errorText().chopped(parser.errorText().endsWith(u'.') ? 1 : 0));

    LaunchOptions options;
    if (const QString reason = readFiles(parser, options); !reason.isEmpty())
        return refused(reason);
    if (parser.isSet(kInput)) options.input = QFile::encodeName(parser.value(kInput)).toStdString();
    if (parser.isSet(kSettings)) options.settingsFile = parser.value(kSettings);
    if (parser.isSet(kAppearance)) {
        const auto appearance = Appearance::choiceNamed(parser.value(kAppearance));
        if (!appearance) return refused(QStringLiteral("--appearance is light, dark or system"));
        options.appearance = *appearance;
    }
    if (const QString reason = readSnapshot(parser, options); !reason.isEmpty())
        return refused(reason);
    launch.options = options;
    return launch;
}

} // namespace veltrano
