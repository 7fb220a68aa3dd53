// SPDX-License-Identifier: GPL-3.0-or-later
// What a report of a fault says, and what it must not say.
#include "app/Diagnostics.h"

#include "app/LibrariesInUse.h"
#include "tests/engine/ControllerRig.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class DiagnosticsTest : public testing::Test {
protected:
    DiagnosticsTest() {
        VirtualDevice microphone;
        microphone.manufacturer = "Secretmaker";
        microphone.name = "Secretphone";
        microphone.input = VirtualDevice::side(44100, 1);
        rig.hardware.setDefaultDevice(Direction::input, rig.hardware.addDevice(microphone));
        rig.start();
        libraries.temperaments = std::make_unique<MVTemperamentLibrary>(secretFolder(), rig.log);
        libraries.stretches = std::make_unique<MVStretchLibrary>(secretFolder(), rig.log);
    }
    std::string secretFolder() {
        const QString path = folder.filePath("Secretfolder");
        QDir().mkpath(path);
        for (const char* name : {"Secretname.temperament", "Second.temperament", "One.stretch"}) {
            QFile file(path + u'/' + QLatin1String(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("\"Name\"=\"Secret\";\n");
        }
        return path.toStdString();
    }

    QTemporaryDir folder;
    ControllerRig rig;
    LibrariesInUse libraries;
};

TEST_F(DiagnosticsTest, SaysThisAndNothingElse) {
    qputenv("XDG_CURRENT_DESKTOP", "Testing:GNOME");
    const QString text = diagnostics(*rig.controller, libraries);
    qunsetenv("XDG_CURRENT_DESKTOP");
    const char* kLines[] = {"Veltrano .*",
                            "System: .+, \\w+, kernel .+",
                            "Qt: 6\\.[0-9.]+ \\((offscreen|xcb)\\)",
                            "Desktop: Testing:GNOME",
                            "Locale: \\w+",
                            "Screens: \\d+x\\d+ at [0-9.]+",
                            "Input: (running|stopped), 44100 Hz, 2 devices, 0 frames dropped",
                            "Output: none",
                            "Temperaments: 2",
                            "Stretch tables: 1"};
    const QStringList lines = text.split(u'\n');
    ASSERT_EQ(lines.size(), qsizetype(std::size(kLines)) + 1) << text.toStdString();
    EXPECT_TRUE(text.endsWith(u'\n'));
    for (std::size_t i = 0; i < std::size(kLines); ++i) {
        const QRegularExpression line(QRegularExpression::anchoredPattern(QString(kLines[i])));
        EXPECT_TRUE(line.match(lines[qsizetype(i)]).hasMatch())
            << lines[qsizetype(i)].toStdString() << " is not " << kLines[i];
    }
}

TEST_F(DiagnosticsTest, NothingTellsWhoTheUserIs) {
    qputenv("USER", "Secretuser");
    qputenv("LOGNAME", "Secretuser");
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", "/home/Secretuser");
    const QString text = diagnostics(*rig.controller, libraries);
    qputenv("HOME", home);
    for (const QString& secret : {QStringLiteral("secret"), QSysInfo::machineHostName(),
                                  QDir::tempPath(), QStringLiteral("/home")})
        EXPECT_FALSE(text.contains(secret, Qt::CaseInsensitive)) << text.toStdString();
}

TEST_F(DiagnosticsTest, WithoutLibrariesNothingIsCounted) {
    const QString text = diagnostics(*rig.controller, {});
    EXPECT_TRUE(text.endsWith("Temperaments: 0\nStretch tables: 0\n")) << text.toStdString();
}

} // namespace
} // namespace veltrano
