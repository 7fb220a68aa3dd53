// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano: the application.
#include "app/Application.h"
#include "app/TerminationSignals.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

namespace {

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    using namespace veltrano;
    // The command line is refused or answered before a window system is asked for.
    const Launch launch = readLaunch(argumentsOf(argc, argv));
    if (!launch.output.empty()) std::puts(launch.output.c_str());
    if (!launch.error.empty()) std::fprintf(stderr, "%s\n", launch.error.c_str());
    if (!launch.options) return launch.exitCode;

    // Pictures need no display.
    if (launch.options->snapshotDir && !qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication qtApplication(argc, argv);
    QApplication::setApplicationName(QStringLiteral("veltrano"));
    QApplication::setApplicationDisplayName(QStringLiteral("Veltrano"));
    QApplication::setApplicationVersion(QStringLiteral(VELTRANO_VERSION));
    Appearance::choose(launch.options->appearance);
    // The application says itself when it ends: with the tuner window, after the documents.
    QApplication::setQuitOnLastWindowClosed(false);
    bool isRunning = false;
    const TerminationSignals signalsQuit([&isRunning] {
        if (!isRunning) std::_Exit(0); // a question at the start has nothing to lose
        QCoreApplication::exit(0);
    });
    return Application(*launch.options).run([&isRunning] { isRunning = true; });
}
