// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli: the tuner without a window.
#include "cli/Commands.h"
#include "cli/Output.h"

#include <QCoreApplication>
#include <csignal>

namespace {

constexpr const char* kUsage = "Usage: veltrano-cli COMMAND [OPTIONS]\n"
                               "The piano tuner without a window.\n"
                               "\n"
                               "Commands:\n"
                               "  analyze FILE   the readings of a recording\n"
                               "  partials FILE  the partials of a recording\n"
                               "  listen         the readings of live input\n"
                               "  devices        the input and output devices\n"
                               "  tone OUT.wav   writes a reference tone\n"
                               "  temperament FILE\n"
                               "                 what a temperament file holds\n"
                               "  stretch FILE   what a stretch table holds\n"
                               "  scl FILE       what a Scala file holds\n"
                               "\n"
                               "Options:\n"
                               "  -h, --help     shows this help, or that of a command\n"
                               "  -v, --version  shows the version\n"
                               "\n"
                               "Exit code: 0 done, 1 the input was refused, 2 wrong usage.";

int run(const QStringList& arguments) {
    using namespace veltrano;
    const QString command = arguments.value(0);
    if (command == QLatin1String("analyze")) return runAnalyze(arguments);
    if (command == QLatin1String("partials")) return runPartials(arguments);
    if (command == QLatin1String("listen")) return runListen(arguments);
    if (command == QLatin1String("devices")) return runDevices(arguments);
    if (command == QLatin1String("tone")) return runTone(arguments);
    if (command == QLatin1String("temperament")) return runTemperament(arguments);
    if (command == QLatin1String("stretch")) return runStretch(arguments);
    if (command == QLatin1String("scl")) return runScala(arguments);

    Output output;
    if (command == QLatin1String("--version") || command == QLatin1String("-v")) {
        output.line("veltrano-cli " VELTRANO_VERSION);
        return kDone;
    }
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        output.line(kUsage);
        return kDone;
    }
    complain(command.isEmpty()
                 ? "a command is needed. See veltrano-cli --help."
                 : "unknown command \"" + command.toStdString() + "\". See veltrano-cli --help.");
    return kWrongUsage;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe ends the program quietly, by the failed write
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("veltrano-cli"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELTRANO_VERSION));
    return veltrano::exitCodeAfterOutput(run(QCoreApplication::arguments().mid(1)));
}
