// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the desktop's own sound settings.
#include "platform/desktop/SoundSettings.h"

#include "platform/desktop/DocumentPorts.h"
#include "platform/desktop/SoundSettingsTools.h"

#include <QProcess>
#include <QStandardPaths>
#include <utility>

namespace veltrano {

SoundSettings::SoundSettings(DocumentPanels& panels, System system)
    : mPanels(panels), mSystem(std::move(system)) {
    if (!mSystem.find)
        mSystem.find = [](const QString& program) {
            return QStandardPaths::findExecutable(program);
        };
    if (!mSystem.start)
        mSystem.start = [](const QString& path, const QStringList& arguments) {
            return QProcess::startDetached(path, arguments);
        };
    if (mSystem.currentDesktop.isEmpty())
        mSystem.currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

void SoundSettings::open() {
    for (const SoundSettingsTool& tool : soundSettingsTools(mSystem.currentDesktop.toStdString())) {
        const QString path = mSystem.find(QString::fromStdString(tool.program));
        if (path.isEmpty()) continue;
        QStringList arguments;
        for (const std::string& argument : tool.arguments)
            arguments.append(QString::fromStdString(argument));
        if (mSystem.start(path, arguments)) return;
    }
    mPanels.alert(tr("The sound settings could not be opened.").toStdString(),
                  tr("No program for the sound settings was found on this desktop. Install one, "
                     "such as pavucontrol, or choose the devices in the preferences.")
                      .toStdString());
}

} // namespace veltrano
