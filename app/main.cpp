// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano: the application.
#include "app/Application.h"
#include "app/TerminationSignals.h"
#include "app/Translations.h"
#include "platform/desktop/ResourceFolder.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/foundation/UserDefaults.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

/// A run with a recording, and pictures, go beside a program that is running.
std::unique_ptr<veltrano::SingleInstance> instanceFor(const veltrano::LaunchOptions& options) {
    if (options.snapshotDir || options.input) return nullptr;
    const QString settings = options.settingsFile
                                 ? QFileInfo(*options.settingsFile).absoluteFilePath()
                                 : veltrano::UserDefaults::usersFile();
    return std::make_unique<veltrano::SingleInstance>(settings);
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
    QGuiApplication::setDesktopFileName(QStringLiteral("org.veltrano.tuner"));
    QApplication::setWindowIcon(QIcon::fromTheme(
        QGuiApplication::desktopFileName(),
        QIcon(ResourceFolder::find().path() + QStringLiteral("/icons/org.veltrano.tuner.svg"))));
    installTranslations(QLocale());
    Appearance::choose(launch.options->appearance);
    // The application says itself when it ends: with the tuner window, after the documents.
    QApplication::setQuitOnLastWindowClosed(false);
    bool isRunning = false;
    const TerminationSignals signalsQuit([&isRunning] {
        if (!isRunning) std::_Exit(0); // a question at the start has nothing to lose
        QCoreApplication::exit(0);
    });
    const auto instance = instanceFor(*launch.options);
    if (instance && !instance->isFirst() && instance->handOver(launch.options->files)) return 0;
    Application application(*launch.options);
    return application.run([&] {
        isRunning = true;
        if (!instance) return;
        instance->setReceiver([&application](const auto& files) { application.openFiles(files); });
    });
}
