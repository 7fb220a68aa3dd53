// SPDX-License-Identifier: GPL-3.0-or-later
// What a report of a fault should say.
#include "app/Diagnostics.h"

#include "app/LibrariesInUse.h"
#include "engine/Controller.h"

#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>

namespace veltrano {

namespace {

QString number(double value) { return QString::number(value, 'g', 9); }

QString screens() {
    QStringList list;
    for (const QScreen* screen : QGuiApplication::screens()) {
        list.append(QStringLiteral("%1x%2 at %3")
                        .arg(screen->size().width())
                        .arg(screen->size().height())
                        .arg(number(screen->devicePixelRatio())));
    }
    return list.join(QStringLiteral(", "));
}

QString inputState(Controller& controller) {
    const AUInputUnit& unit = controller.inputUnit();
    return QStringLiteral("%1, %2 Hz, %3 devices, %4 frames dropped")
        .arg(unit.isRunning() ? QStringLiteral("running") : QStringLiteral("stopped"),
             number(unit.sampleRate()), QString::number(unit.deviceList().size()),
             QString::number(controller.record().dropped));
}

QString outputState(Controller& controller) {
    const AUOutputUnit* unit = controller.outputUnit();
    if (!unit) return QStringLiteral("none");
    return QStringLiteral("%1, %2 Hz, %3 devices")
        .arg(unit->isRunning() ? QStringLiteral("running") : QStringLiteral("stopped"),
             number(unit->sampleRate()), QString::number(unit->deviceList().size()));
}

} // namespace

QString diagnostics(Controller& controller, const LibrariesInUse& libraries) {
    const auto count = [](const auto& library) {
        return QString::number(library ? library->entries().size() : 0);
    };
    const QStringList lines{
        QStringLiteral("Veltrano ") + QCoreApplication::applicationVersion(),
        QStringLiteral("System: %1, %2, kernel %3")
            .arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture(),
                 QSysInfo::kernelVersion()),
        QStringLiteral("Qt: %1 (%2)")
            .arg(QString::fromLatin1(qVersion()), QGuiApplication::platformName()),
        QStringLiteral("Desktop: ") + qEnvironmentVariable("XDG_CURRENT_DESKTOP"),
        QStringLiteral("Locale: ") + QLocale().name(),
        QStringLiteral("Screens: ") + screens(),
        QStringLiteral("Input: ") + inputState(controller),
        QStringLiteral("Output: ") + outputState(controller),
        QStringLiteral("Temperaments: ") + count(libraries.temperaments),
        QStringLiteral("Stretch tables: ") + count(libraries.stretches)};
    return lines.join(u'\n') + u'\n';
}

} // namespace veltrano
