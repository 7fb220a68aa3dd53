// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that are not documents, and where they stand in the next run.
#include "app/WindowDesk.h"

#include "settings/PreferencesPanel.h"
#include "tests/engine/ControllerRig.h"

#include <QApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr AnalysisWindowKind kKinds[] = {AnalysisWindowKind::partials, AnalysisWindowKind::hilbert,
                                         AnalysisWindowKind::piano};
const QPoint kPlace(33, 44);

/// One run of the program; the settings outlive it.
struct Session {
    explicit Session(ControllerRig& rig,
                     const QString& folder = QStringLiteral(VELTRANO_SOURCE_RESOURCES))
        : resources(folder), images(resources.images(), rig.log),
          desk(WindowDesk::create({resources, images, rig.defaults,
                                   PartialView::Ports{rig.preferences, rig.notifications, nullptr},
                                   rig.log})),
          panel({.preferences = rig.preferences,
                 .resources = resources,
                 .log = rig.log,
                 .didLoad = [this](QWidget& window) { desk->didLoadPreferences(window); }}) {
        if (!desk) return;
        desk->setPreferencesPanel(&panel);
        desk->setDidMakeWindow([this](QWidget& window) { made.push_back(&window); });
        desk->restoreGeometry();
    }

    ResourceFolder resources;
    ImageLibrary images;
    std::vector<QWidget*> made;
    std::unique_ptr<WindowDesk> desk;
    PreferencesPanel panel;
};

class WindowDeskTest : public testing::Test {
protected:
    static bool isScreenSmall() {
        return QApplication::primaryScreen()->availableGeometry().width() < 800;
    }

    ControllerRig rig;
};

TEST_F(WindowDeskTest, EveryWindowStandsWhereItWasLeft) {
    if (isScreenSmall()) GTEST_SKIP() << "the windows are larger than this screen";
    std::vector<QRect> left;
    {
        Session run(rig);
        ASSERT_TRUE(run.desk);
        run.desk->showHelp();
        run.desk->showPreferences();
        std::vector<QWidget*> windows = run.desk->mainWindows();
        windows.insert(windows.end(), run.made.begin(), run.made.end());
        ASSERT_EQ(windows.size(), 6u);
        for (std::size_t i = 0; i < windows.size(); ++i) {
            windows[i]->resize(620 + 4 * int(i), 420 + 2 * int(i));
            windows[i]->move(kPlace + QPoint(10, 5) * int(i));
            left.push_back(windows[i]->geometry());
        }
        run.desk->keepGeometry();
    }
    Session run(rig);
    std::vector<QRect> found;
    for (const QWidget* window : run.desk->mainWindows())
        found.push_back(window->geometry());
    run.desk->showHelp();
    run.desk->showPreferences();
    for (const QWidget* window : run.made)
        found.push_back(window->geometry());
    EXPECT_EQ(found, left);
}

TEST_F(WindowDeskTest, AWindowThatWasNotMadeKeepsThePlaceOfAnEarlierRun) {
    {
        Session run(rig);
        run.desk->showShortcuts();
        run.desk->help().window()->move(kPlace);
        run.desk->keepGeometry();
    }
    Session(rig).desk->keepGeometry(); // nobody asks for help
    Session run(rig);
    EXPECT_EQ(run.desk->help().window(), nullptr);
    run.desk->showHelp();
    EXPECT_EQ(run.desk->help().window()->pos(), kPlace);
}

TEST_F(WindowDeskTest, EachWindowThatIsMadeLaterIsToldOnce) {
    Session run(rig);
    EXPECT_TRUE(run.made.empty());
    run.desk->showPreferences();
    run.desk->showPreferences();
    EXPECT_EQ(run.made, std::vector<QWidget*>{run.panel.window()});
    run.desk->showShortcuts();
    run.desk->showHelp();
    ASSERT_EQ(run.made.size(), 2u);
    EXPECT_EQ(run.made[1], run.desk->help().window());
    EXPECT_TRUE(run.made[1]->isVisible());
}

TEST_F(WindowDeskTest, HelpThatIsBroughtToTheFrontStaysWhereItIs) {
    Session run(rig);
    run.desk->showHelp();
    run.desk->help().window()->move(kPlace);
    run.desk->showHelp();
    run.desk->showShortcuts();
    EXPECT_EQ(run.desk->help().window()->pos(), kPlace);
}

TEST_F(WindowDeskTest, AMaximisedTunerWindowIsMaximisedAgain) {
    {
        Session run(rig);
        run.desk->tuner().showMaximized();
        QApplication::processEvents();
        run.desk->keepGeometry();
    }
    Session run(rig);
    run.desk->showTunerWindow();
    EXPECT_TRUE(run.desk->tuner().isMaximized());
}

TEST_F(WindowDeskTest, AMinimisedTunerWindowIsShown) {
    Session run(rig);
    run.desk->tuner().showMinimized();
    run.desk->showTunerWindow();
    EXPECT_FALSE(run.desk->tuner().isMinimized());
    EXPECT_TRUE(run.desk->tuner().isVisible());
}

TEST_F(WindowDeskTest, AnalysisWindowsAreShownAndPutAway) {
    Session run(rig);
    WindowDesk& desk = *run.desk;
    for (const AnalysisWindowKind kind : kKinds) {
        SCOPED_TRACE(int(kind));
        EXPECT_FALSE(desk.isVisible(kind));
        desk.orderFront(kind);
        EXPECT_TRUE(desk.isVisible(kind));
        desk.orderOut(kind);
        EXPECT_FALSE(desk.isVisible(kind));
        desk.makeKeyAndOrderFront(kind);
        EXPECT_TRUE(desk.analysis().window(kind)->isVisible());
    }
}

TEST_F(WindowDeskTest, TheFirstRunCentresAll) {
    if (isScreenSmall()) GTEST_SKIP() << "the windows are larger than this screen";
    Session run(rig);
    run.desk->centerWindows();
    for (const QWidget* window : run.desk->mainWindows()) {
        const QPoint offset =
            window->screen()->availableGeometry().center() - window->frameGeometry().center();
        EXPECT_LE(std::abs(offset.x()), 1);
        EXPECT_LE(std::abs(offset.y()), 1);
    }
}

TEST_F(WindowDeskTest, WithoutTheTunersInterfaceFileThereIsNoDesk) {
    const QTemporaryDir empty;
    const Session run(rig, empty.path());
    EXPECT_FALSE(run.desk);
    EXPECT_EQ(rig.log.lines.size(), 1u);
}

} // namespace
} // namespace veltrano
