// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the desktop's sound settings.
#include "platform/desktop/SoundSettings.h"

#include "tests/support/RecordingDesktop.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

/// A desktop with the programs that a test lists.
class SoundSettingsTest : public testing::Test {
protected:
    SoundSettings settingsOf(const QString& desktop) {
        return {panels,
                {.find =
                     [this](const QString& program) {
                         return installed.contains(program) ? "/bin/" + program : QString();
                     },
                 .start =
                     [this](const QString& path, const QStringList& arguments) {
                         started.append(path + u' ' + arguments.join(u' '));
                         return !broken.contains(path);
                     },
                 .currentDesktop = desktop}};
    }

    RecordingPanels panels;
    QStringList installed, broken, started;
};

TEST_F(SoundSettingsTest, TheFirstThatIsInstalledIsStarted) {
    const struct {
        const char* desktop;
        QStringList installed;
        const char* started;
    } kCases[] = {
        {"GNOME", {"gnome-control-center", "pavucontrol"}, "/bin/gnome-control-center sound"},
        {"ubuntu:GNOME",
         {"systemsettings", "gnome-control-center"},
         "/bin/gnome-control-center sound"},
        {"GNOME", {"pavucontrol", "systemsettings"}, "/bin/pavucontrol --tab=4"},
        {"KDE", {"systemsettings5", "kcmshell5"}, "/bin/systemsettings5 kcm_pulseaudio"},
        {"KDE", {"systemsettings", "systemsettings5"}, "/bin/systemsettings kcm_pulseaudio"},
        {"XFCE", {"gnome-control-center", "pavucontrol"}, "/bin/pavucontrol --tab=4"},
        {"sway", {"gnome-control-center"}, "/bin/gnome-control-center sound"},
        {"Deepin", {"dde-control-center"}, "/bin/dde-control-center -p sound"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.started);
        installed = c.installed;
        started.clear();
        settingsOf(c.desktop).open();
        EXPECT_EQ(started, QStringList{c.started});
    }
    EXPECT_TRUE(panels.asked.empty());
}

TEST_F(SoundSettingsTest, OneThatCannotBeStartedIsFollowedByTheNext) {
    installed = {"gnome-control-center", "pavucontrol", "pwvucontrol"};
    broken = {"/bin/gnome-control-center"};
    settingsOf("GNOME").open();
    EXPECT_EQ(started,
              (QStringList{"/bin/gnome-control-center sound", "/bin/pavucontrol --tab=4"}));
    EXPECT_TRUE(panels.asked.empty());
}

TEST_F(SoundSettingsTest, NoneIsOneMessageThatSaysWhatToDo) {
    const std::vector<std::string> message = {
        "The sound settings could not be opened.\n"
        "No program for the sound settings was found on this desktop. Install one, such as "
        "pavucontrol, or choose the devices in the preferences."};
    settingsOf("GNOME").open();
    EXPECT_EQ(panels.alerts, message);
    EXPECT_TRUE(started.isEmpty());

    panels.alerts.clear();
    installed = {"pwvucontrol"};
    broken = {"/bin/pwvucontrol"};
    settingsOf("GNOME").open();
    EXPECT_EQ(panels.alerts, message) << "none that can be started";
    EXPECT_EQ(started.size(), 1);
}

TEST_F(SoundSettingsTest, TheSystemsProgramsAreFoundInThePathAndLeftToThemselves) {
    const QTemporaryDir folder;
    const QString program = folder.filePath("mate-volume-control");
    const QString said = folder.filePath("said");
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"$1\" > " + QFile::encodeName(said) + "\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("XDG_CURRENT_DESKTOP", "MATE");
    qputenv("PATH", QFile::encodeName(folder.path()) + ":" + path);
    SoundSettings(panels).open();
    qputenv("PATH", path);
    qunsetenv("XDG_CURRENT_DESKTOP");
    QFile answer(said);
    for (int i = 0; i < 500 && answer.size() == 0; ++i)
        QThread::msleep(10);
    ASSERT_TRUE(answer.open(QIODevice::ReadOnly));
    EXPECT_EQ(answer.readAll(), "--page=input\n");
    EXPECT_TRUE(panels.asked.empty());
}

} // namespace
} // namespace veltrano
