// SPDX-License-Identifier: GPL-3.0-or-later
// Runs of the whole program, one after the other, with the settings of the one before.
#include "app/Application.h"
#include "app/TunerWindow.h"
#include "displays/StrobeView.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QSessionManager>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr const char* kReduceMotion = "veltrano.ReduceMotion";

class ApplicationRunTest : public testing::Test {
protected:
    ApplicationRunTest() {
        qputenv("XDG_DATA_HOME", QFile::encodeName(mFolder.path()));
        qputenv("PULSE_SERVER", "unix:/nobody/there");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nobody/there");
        // Libraries that need not be filled first.
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Temperaments"));
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Stretches"));
        mOptions.settingsFile = mFolder.filePath("settings.ini");
    }

    /// @param user what is done when the windows are there; the run ends by it, or after it
    int run(const std::function<void(TunerWindow& tuner)>& user) {
        Application application(mOptions);
        return application.run([&user] {
            QTimer::singleShot(0, qApp, [&user] {
                for (QWidget* window : QApplication::topLevelWidgets()) {
                    if (auto* tuner = qobject_cast<TunerWindow*>(window)) user(*tuner);
                }
                QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(42); });
            });
        });
    }
    static QAction& item(TunerWindow& tuner, const char* text) {
        static QAction none;
        for (QAction* title : tuner.menuBar()->actions()) {
            for (QAction* action : title->menu()->actions()) {
                if (action->text() != QLatin1String(text)) continue;
                emit title->menu()->aboutToShow(); // as seen when the menu is open
                return *action;
            }
        }
        ADD_FAILURE() << "no item " << text;
        return none;
    }
    bool isStored(const char* key) { return UserDefaults(*mOptions.settingsFile).boolForKey(key); }

    QTemporaryDir mFolder;
    LaunchOptions mOptions;
};

TEST_F(ApplicationRunTest, ReducedMotionIsRememberedAndChangesNoOtherSetting) {
    run([](TunerWindow& tuner) { EXPECT_FALSE(item(tuner, "&Reduce Motion").isChecked()); });
    QSettings before(*mOptions.settingsFile, QSettings::IniFormat);
    const QStringList keysBefore = before.allKeys();
    run([](TunerWindow& tuner) { item(tuner, "&Reduce Motion").trigger(); });
    EXPECT_TRUE(isStored(kReduceMotion));
    QSettings after(*mOptions.settingsFile, QSettings::IniFormat);
    after.sync();
    for (const QString& key : keysBefore) {
        EXPECT_EQ(after.value(key), before.value(key)) << key.toStdString();
    }
    EXPECT_EQ(after.allKeys().size(), keysBefore.size() + 1);

    run([](TunerWindow& tuner) {
        EXPECT_TRUE(item(tuner, "&Reduce Motion").isChecked());
        static const Frame frame{}; // shown until the window goes
        tuner.setStrobeData(FrameRef(FrameRef(), &frame));
        EXPECT_EQ(tuner.outlets().strobe->accessibleValue(), "no signal") << "from the start";
        item(tuner, "&Reduce Motion").trigger();
        tuner.setStrobeData(FrameRef(FrameRef(), &frame));
        EXPECT_EQ(tuner.outlets().strobe->accessibleValue(), "signal");
    });
    EXPECT_FALSE(isStored(kReduceMotion));
}

TEST_F(ApplicationRunTest, TheEndOfTheSessionWritesTheSettingsAndAsksNothing) {
    const int exitCode = run([](TunerWindow& tuner) {
        item(tuner, "&New Temperament").trigger();
        EXPECT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
            const auto* table = window->findChild<QTableView*>("table");
            return table && table->model()->setData(table->model()->index(0, 1), "3") &&
                   window->isWindowModified();
        })) << "something that would be asked for";
        tuner.move(33, 44);
        QEvent quit(QEvent::Quit); // as the desktop sends it
        QCoreApplication::sendEvent(qApp, &quit);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_TRUE(tuner.isVisible());
    });
    EXPECT_EQ(exitCode, 0);
    run([](TunerWindow& tuner) { EXPECT_EQ(tuner.pos(), QPoint(33, 44)); });
}

TEST_F(ApplicationRunTest, ASessionThatIsSavedHasTheSettingsWrittenAndGoesOn) {
    const int exitCode = run([this](TunerWindow& tuner) {
        EXPECT_FALSE(QFile::exists(*mOptions.settingsFile));
        item(tuner, "Show &Partials").trigger(); // its title until the menu was opened: it hides
        // Qt's own signal; a session manager cannot be made here, and none of it is looked at.
        alignas(QSessionManager) unsigned char manager[sizeof(QSessionManager)] = {};
        emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
        EXPECT_TRUE(isStored("morvane.key.PianoKeyboard"));
        EXPECT_TRUE(QFile::exists(*mOptions.settingsFile));
        EXPECT_FALSE(isStored("morvane.key.Partials"));
        EXPECT_TRUE(tuner.isVisible());
        item(tuner, "Hide &Partials").trigger(); // its title when it was seen last: it shows
    });
    EXPECT_EQ(exitCode, 42) << "it was still running";
    EXPECT_TRUE(isStored("morvane.key.Partials")) << "the end writes them again";
}

TEST_F(ApplicationRunTest, FilesOfALaterStartAreOpenedAndNoneBringsTheTunerToTheFront) {
    const QString path = mFolder.filePath("Young.temperament");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\"Name\"=\"Young\";\n\"C\"=\"6\";\n\"A\"=\"0\";\n");
    file.close();
    Application application(mOptions);
    application.openFiles({path.toStdString()}); // too early: there are no windows
    application.run([&] {
        QTimer::singleShot(0, qApp, [&] {
            const auto windows = QApplication::topLevelWidgets();
            const auto tuner = std::ranges::find_if(
                windows, [](QWidget* window) { return qobject_cast<TunerWindow*>(window); });
            ASSERT_NE(tuner, windows.end());
            (*tuner)->showMinimized();
            application.openFiles({path.toStdString()});
            const auto all = QApplication::topLevelWidgets();
            EXPECT_TRUE(std::ranges::any_of(all, [&path](const QWidget* window) {
                return window->windowFilePath() == path && window->isVisible();
            }));
            EXPECT_TRUE((*tuner)->isMinimized());
            application.openFiles({});
            EXPECT_FALSE((*tuner)->isMinimized());
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        });
    });
}

} // namespace
} // namespace veltrano
