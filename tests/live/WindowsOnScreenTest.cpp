// SPDX-License-Identifier: GPL-3.0-or-later
// The program on a screen of the test's own: its windows, who has the focus, keys, closing.
#include "app/AnalysisWindow.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/TestScreen.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

TestScreen* gScreen = nullptr; ///< the program's only one

constexpr const char* kTuner = "Veltrano";
constexpr const char* kPartials = "Partials";
constexpr const char* kScope = "Hilbert Scope";
constexpr const char* kPiano = "Piano Keyboard";

class WindowsOnScreen : public testing::Test {
protected:
    WindowsOnScreen() {
        QDir(mFolder.path()).mkpath(QStringLiteral("veltrano/Temperaments"));
        QDir(mFolder.path()).mkpath(QStringLiteral("veltrano/Stretches"));
        QFile settings(mFolder.filePath("veltrano.ini"));
        EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[General]\nmorvane.key.Tonic=0\n"); // not the first launch
    }

    void start() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", gScreen->display());
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("XDG_RUNTIME_DIR", mFolder.path());
        environment.insert("XDG_DATA_HOME", mFolder.path());
        environment.insert("PULSE_SERVER", "unix:" + mFolder.filePath("nobody"));
        mProgram.setProcessEnvironment(environment);
        mProgram.start(QStringLiteral(VELTRANO), {"--settings", mFolder.filePath("veltrano.ini")});
        ASSERT_TRUE(becomesActive(kTuner)) << gScreen->active().toStdString();
    }
    /// Ends it by its key.
    void quit() {
        gScreen->press("ctrl+q");
        ASSERT_TRUE(mProgram.waitForFinished(10000));
        EXPECT_EQ(mProgram.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(mProgram.exitCode(), 0);
    }

    static testing::AssertionResult becomesActive(const char* title) {
        if (TestScreen::await([&] { return gScreen->active().startsWith(QLatin1String(title)); }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "\"" << gScreen->active().toStdString() << "\" has the focus, not " << title;
    }
    static bool appears(const char* title) {
        return TestScreen::await([&] { return gScreen->shows(QLatin1String(title)); });
    }
    static bool disappears(const char* title) {
        return TestScreen::await([&] { return !gScreen->shows(QLatin1String(title)); });
    }

    QByteArray stored(const char* key) {
        QFile settings(mFolder.filePath("veltrano.ini"));
        EXPECT_TRUE(settings.open(QIODevice::ReadOnly));
        const QByteArray start = QByteArray("morvane.key.") + key + '=';
        for (const QByteArray& line : settings.readAll().split('\n')) {
            if (line.startsWith(start)) return line.mid(start.size());
        }
        return {};
    }

    QTemporaryDir mFolder;
    QProcess mProgram; ///< killed at the end when it still runs
};

TEST_F(WindowsOnScreen, AllComeUpAndTheTunerWindowHasTheFocus) {
    start();
    EXPECT_TRUE(appears(kPartials));
    EXPECT_TRUE(appears(kScope));
    EXPECT_TRUE(appears(kPiano));
    EXPECT_TRUE(becomesActive(kTuner));
    quit();
}

TEST_F(WindowsOnScreen, TheKeysHideAndShowFromEveryWindow) {
    start();
    ASSERT_TRUE(appears(kPartials) && appears(kScope) && appears(kPiano));
    struct Case {
        const char *key, *title;
    };
    const Case cases[] = {{"ctrl+2", kPartials}, {"ctrl+3", kScope}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.title);
        // From the tuner window; what comes back takes the focus.
        gScreen->press("ctrl+1");
        ASSERT_TRUE(becomesActive(kTuner));
        gScreen->press(row.key);
        EXPECT_TRUE(disappears(row.title));
        EXPECT_TRUE(becomesActive(kTuner));
        gScreen->press(row.key);
        EXPECT_TRUE(becomesActive(row.title));
        // From itself.
        gScreen->press(row.key);
        EXPECT_TRUE(disappears(row.title));
        // From the keyboard's window.
        gScreen->press("ctrl+4");
        ASSERT_TRUE(becomesActive(kPiano));
        gScreen->press(row.key);
        EXPECT_TRUE(becomesActive(row.title));
    }
    // From each other: the scope has the focus.
    gScreen->press("ctrl+2");
    EXPECT_TRUE(disappears(kPartials));
    gScreen->press("ctrl+2");
    EXPECT_TRUE(becomesActive(kPartials));
    gScreen->press("ctrl+3");
    EXPECT_TRUE(disappears(kScope));
    EXPECT_TRUE(gScreen->shows(kPartials));
    quit();
    EXPECT_EQ(stored("HilbertScope"), "false");
    EXPECT_EQ(stored("Partials"), "true");
}

TEST_F(WindowsOnScreen, AMinimizedOneComesBackByItsKey) {
    start();
    ASSERT_TRUE(appears(kPartials));
    gScreen->press("ctrl+2");
    ASSERT_TRUE(disappears(kPartials));
    gScreen->press("ctrl+2");
    ASSERT_TRUE(becomesActive(kPartials));
    gScreen->minimizeActive();
    ASSERT_TRUE(disappears(kPartials));
    gScreen->press("ctrl+1");
    ASSERT_TRUE(becomesActive(kTuner));
    gScreen->press("ctrl+2");
    EXPECT_TRUE(becomesActive(kPartials));
    quit();
}

TEST_F(WindowsOnScreen, AClosedOneStaysClosedAtTheNextStart) {
    start();
    ASSERT_TRUE(appears(kPartials) && appears(kScope) && appears(kPiano));
    gScreen->press("ctrl+4");
    ASSERT_TRUE(becomesActive(kPiano));
    gScreen->press("alt+F4"); // the window manager's key
    EXPECT_TRUE(disappears(kPiano));
    EXPECT_FALSE(mProgram.waitForFinished(300)) << "only that window is closed";
    gScreen->press("ctrl+1");
    ASSERT_TRUE(becomesActive(kTuner));
    quit();
    EXPECT_EQ(stored("PianoKeyboard"), "false");
    EXPECT_EQ(stored("Partials"), "true");
    EXPECT_EQ(stored("HilbertScope"), "true");

    start();
    EXPECT_TRUE(appears(kPartials));
    EXPECT_TRUE(appears(kScope));
    EXPECT_FALSE(gScreen->shows(kPiano));
    gScreen->press("ctrl+4");
    EXPECT_TRUE(becomesActive(kPiano));
    quit(); // from the window that has the focus, which is not the tuner's
    EXPECT_EQ(stored("PianoKeyboard"), "true");
}

TEST_F(WindowsOnScreen, ClosingTheTunerWindowEndsTheProgramAndStoresTheOthersAsTheyAre) {
    start();
    ASSERT_TRUE(appears(kPartials) && appears(kScope) && appears(kPiano));
    gScreen->press("ctrl+2");
    EXPECT_TRUE(disappears(kPartials));
    gScreen->press("alt+F4");
    ASSERT_TRUE(mProgram.waitForFinished(10000));
    EXPECT_EQ(mProgram.exitCode(), 0);
    EXPECT_EQ(stored("Partials"), "false");
    EXPECT_EQ(stored("HilbertScope"), "true");
    EXPECT_EQ(stored("PianoKeyboard"), "true");
}

TEST(AnalysisWindowFocus, OrderedToTheFrontItLeavesTheFocusWhereItIs) {
    QWidget other;
    other.resize(200, 100);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    RecordingLog log;
    const auto window = AnalysisWindow::create(
        QStringLiteral("PianoWindow"), ResourceFolder(QStringLiteral(VELTRANO_SOURCE_RESOURCES)),
        {{QStringLiteral("PianoView"), [](QWidget* parent) { return new QWidget(parent); }}}, log);
    ASSERT_TRUE(window);
    for (const char* which : {"a new window", "one that has had the focus"}) {
        SCOPED_TRACE(which);
        window->orderFront();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        QTest::qWait(300); // the window manager may be late
        EXPECT_TRUE(other.isActiveWindow());
        EXPECT_FALSE(window->isActiveWindow());

        window->hide();
        window->makeKeyAndOrderFront();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        window->hide();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    }
}

} // namespace
} // namespace veltrano

int main(int argc, char** argv) {
    using namespace veltrano;
    testing::InitGoogleTest(&argc, argv);
    constexpr int kSkipped = 77;
    if (const auto reason = TestScreen::missing()) {
        std::printf("Skipped: %s\n", reason->c_str());
        return kSkipped;
    }
    TestScreen screen;
    if (!screen.start()) {
        std::puts("The screen does not start.");
        return 1;
    }
    gScreen = &screen;
    qputenv("DISPLAY", screen.display().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
