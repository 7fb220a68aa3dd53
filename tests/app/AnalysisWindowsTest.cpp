// SPDX-License-Identifier: GPL-3.0-or-later
// The windows beside the tuner window: loaded or missing, shown, closed, fed, and their commands.
#include "app/AnalysisWindows.h"

#include "analysis/HilbertView.h"
#include "analysis/PianoView.h"
#include "app/ApplicationMenu.h"
#include "app/TunerCommands.h"
#include "tests/engine/ControllerRig.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

constexpr AnalysisWindowKind kKinds[] = {AnalysisWindowKind::partials, AnalysisWindowKind::hilbert,
                                         AnalysisWindowKind::piano};
constexpr const char* kInterfaceFiles[] = {"PartialsWindow", "HilbertWindow", "PianoWindow"};

class AnalysisWindowsTest : public testing::Test {
protected:
    AnalysisWindows load(const ResourceFolder& resources) {
        return {resources, {rig.preferences, rig.notifications, &rig.speech}, rig.log};
    }
    AnalysisWindows load() { return load(ResourceFolder(shipped)); }

    /// Our interface files, that of @p kind with other contents; empty contents: no such file.
    ResourceFolder resourcesBut(std::size_t kind, const QByteArray& contents) {
        const QDir dir(folder.path());
        for (std::size_t i = 0; i < std::size(kKinds); ++i) {
            const QString name = QLatin1String(kInterfaceFiles[i]) + QStringLiteral(".ui");
            QFile::remove(dir.filePath(name));
            if (i != kind) {
                EXPECT_TRUE(QFile::copy(QDir(shipped).filePath(name), dir.filePath(name)));
            } else if (!contents.isEmpty()) {
                QFile file(dir.filePath(name));
                EXPECT_TRUE(file.open(QIODevice::WriteOnly));
                file.write(contents);
            }
        }
        return ResourceFolder(dir.path());
    }

    const QString shipped = QStringLiteral(VELTRANO_SOURCE_RESOURCES);
    QTemporaryDir folder;
    ControllerRig rig;
};

TEST_F(AnalysisWindowsTest, EachHoldsItsOwnViewAlone) {
    const AnalysisWindows windows = load();
    EXPECT_EQ(rig.log.lines, Lines{});
    const char* titles[] = {"Partials", "Hilbert Scope", "Piano Keyboard"};
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        SCOPED_TRACE(titles[i]);
        const AnalysisWindow* window = windows.window(kKinds[i]);
        ASSERT_TRUE(window);
        EXPECT_EQ(window->windowTitle(), titles[i]);
        EXPECT_EQ(window->view<PartialView>() != nullptr,
                  kKinds[i] == AnalysisWindowKind::partials);
        EXPECT_EQ(window->view<HilbertView>() != nullptr, kKinds[i] == AnalysisWindowKind::hilbert);
        EXPECT_EQ(window->view<PianoView>() != nullptr, kKinds[i] == AnalysisWindowKind::piano);
        EXPECT_FALSE(windows.isVisible(kKinds[i])) << "until it is asked for";
    }
}

TEST_F(AnalysisWindowsTest, TheViewsFillTheirWindowsAtAnySize) {
    const AnalysisWindows windows = load();
    const char* names[] = {"mPartialView", "mHilbertView", "mPianoView"};
    const QSize sizes[] = {{781, 207}, {320, 320}, {780, 96}};
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        SCOPED_TRACE(kInterfaceFiles[i]);
        AnalysisWindow& window = *windows.window(kKinds[i]);
        window.orderFront();
        const auto* view = window.findChild<QWidget*>(QLatin1String(names[i]));
        ASSERT_TRUE(view);
        EXPECT_EQ(view->size(), sizes[i]);
        window.resize(500, 400);
        QApplication::processEvents();
        EXPECT_EQ(view->size(), QSize(500, 400));
    }
}

TEST_F(AnalysisWindowsTest, AMissingOrBrokenInterfaceFileIsOneLineAndAWindowThatIsNeverVisible) {
    for (const QByteArray& contents : {QByteArray(), QByteArray("<ui version=\"4.0\"><widget")}) {
        for (std::size_t i = 0; i < std::size(kKinds); ++i) {
            SCOPED_TRACE(std::string(kInterfaceFiles[i]) + contents.constData());
            const AnalysisWindowKind kind = kKinds[i];
            rig.log.lines.clear();
            AnalysisWindows windows = load(resourcesBut(i, contents));
            ASSERT_EQ(rig.log.lines.size(), 1u);
            EXPECT_TRUE(rig.log.lines[0].starts_with(
                "Failed to load a window: " + folder.path().toStdString() + "/" +
                kInterfaceFiles[i] + ".ui: "))
                << rig.log.lines[0];
            windows.orderFront(kind);
            EXPECT_FALSE(windows.isVisible(kind));
            windows.makeKeyAndOrderFront(kind);
            EXPECT_FALSE(windows.isVisible(kind));
            windows.orderOut(kind);
            EXPECT_FALSE(windows.window(kind));
            int others = 0;
            windows.forEach([&others](AnalysisWindow&) { ++others; });
            EXPECT_EQ(others, 2);
            const TunerWindow::Neighbours neighbours = windows.neighbours();
            EXPECT_EQ(neighbours.scopeData != nullptr, kind != AnalysisWindowKind::hilbert);
            EXPECT_EQ(neighbours.scopePeak != nullptr, kind != AnalysisWindowKind::hilbert);
            EXPECT_EQ(neighbours.pianoNote != nullptr, kind != AnalysisWindowKind::piano);
        }
    }
}

TEST_F(AnalysisWindowsTest, ClosingHidesAndTheSameWindowComesBack) {
    AnalysisWindows windows = load();
    for (const AnalysisWindowKind kind : kKinds) {
        AnalysisWindow* const window = windows.window(kind);
        windows.orderFront(kind);
        EXPECT_TRUE(windows.isVisible(kind));
        EXPECT_TRUE(window->close());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(windows.isVisible(kind));
        ASSERT_EQ(windows.window(kind), window);
        windows.makeKeyAndOrderFront(kind);
        EXPECT_TRUE(windows.isVisible(kind));
        windows.orderOut(kind);
        EXPECT_FALSE(windows.isVisible(kind));
    }
}

TEST_F(AnalysisWindowsTest, OneByOne) {
    AnalysisWindows windows = load();
    windows.orderFront(AnalysisWindowKind::hilbert);
    EXPECT_FALSE(windows.isVisible(AnalysisWindowKind::partials));
    EXPECT_TRUE(windows.isVisible(AnalysisWindowKind::hilbert));
    EXPECT_FALSE(windows.isVisible(AnalysisWindowKind::piano));
}

TEST_F(AnalysisWindowsTest, AMinimizedWindowIsBroughtBack) {
    AnalysisWindows windows = load();
    AnalysisWindow& window = *windows.window(AnalysisWindowKind::piano);
    window.showMinimized();
    EXPECT_FALSE(windows.isVisible(AnalysisWindowKind::piano)) << "out of sight";
    windows.makeKeyAndOrderFront(AnalysisWindowKind::piano);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(windows.isVisible(AnalysisWindowKind::piano));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(AnalysisWindowsTest, WhatTheTunerSendsReachesTheViews) {
    AnalysisWindows windows = load();
    const TunerWindow::Neighbours neighbours = windows.neighbours();
    neighbours.pianoNote(57);
    EXPECT_EQ(windows.window(AnalysisWindowKind::piano)->view<PianoView>()->midiNote(), 57);

    AnalysisWindow& scope = *windows.window(AnalysisWindowKind::hilbert);
    const FrameRef tone = frameOf(toneSamples(128, 0.5f, 4096));
    neighbours.scopeData(tone);
    EXPECT_EQ(tone.use_count(), 2) << "it keeps the frame";
    neighbours.scopePeak(0.5f);
    const QImage large = scope.grab().toImage();
    neighbours.scopePeak(1.0f);
    EXPECT_NE(scope.grab().toImage(), large);
}

/// A window with the commands that it has in the program.
class AnalysisCommandsTest : public AnalysisWindowsTest {
protected:
    AnalysisCommandsTest() {
        windows.forEach([this](AnalysisWindow& window) {
            menus.push_back(
                new ApplicationMenu(window, {&window, &tuner}, {})); // owned by the window
        });
    }
    QAction& item(AnalysisWindowKind kind, MenuCommand command) {
        return *menus[static_cast<std::size_t>(kind)]->action(command);
    }
    /// What is heard after the command.
    Lines spokenBy(AnalysisWindowKind kind, MenuCommand command) {
        rig.speech.said.clear();
        item(kind, command).trigger();
        QApplication::processEvents(); // reports are spoken from the event loop
        return rig.speech.said;
    }

    AnalysisWindows windows = load();
    TunerCommands tuner{rig.start(), rig.preferences, rig.windows};
    std::vector<ApplicationMenu*> menus; ///< by kind
};

TEST_F(AnalysisCommandsTest, SpeakStatusAndDetailsAreThePartialsInTheirWindowTheTunersElsewhere) {
    const auto partials = std::make_shared<const Partials>(Partials{{440.0f, 0.1f}});
    auto* view = windows.window(AnalysisWindowKind::partials)->view<PartialView>();
    view->setPartials(partials);
    view->grab();
    using enum MenuCommand;
    EXPECT_EQ(spokenBy(AnalysisWindowKind::partials, speakStatus),
              Lines{"one partial: ay 4, in tune. "});
    EXPECT_EQ(spokenBy(AnalysisWindowKind::partials, speakDetails),
              Lines{"one partial: root note, ay 4, in tune cent. "});

    rig.controller->updateUI(frameOf(toneSamples(100))); // 441 Hz
    for (const AnalysisWindowKind kind : {AnalysisWindowKind::hilbert, AnalysisWindowKind::piano}) {
        EXPECT_EQ(spokenBy(kind, speakStatus), Lines{"ay  , +3.9 cent, 441.000 hertz"});
        const Lines details = spokenBy(kind, speakDetails);
        ASSERT_EQ(details.size(), 1u);
        EXPECT_NE(details[0].find("Temperament: "), std::string::npos) << details[0];
    }
}

TEST_F(AnalysisCommandsTest, CloseIsThatOfTheWindowItself) {
    for (const AnalysisWindowKind kind : kKinds) {
        windows.forEach([](AnalysisWindow& window) { window.orderFront(); });
        item(kind, MenuCommand::closeWindow).trigger();
        for (const AnalysisWindowKind other : kKinds)
            EXPECT_EQ(windows.isVisible(other), other != kind);
    }
}

TEST_F(AnalysisCommandsTest, TheTunersCommandsWorkInEachWindow) {
    for (const AnalysisWindowKind kind : kKinds) {
        rig.windows.calls.clear();
        item(kind, MenuCommand::showTunerWindow).trigger();
        item(kind, MenuCommand::showPianoKeyboard).trigger();
        EXPECT_EQ(rig.windows.calls, (Lines{"tuner", "key piano"}));
    }
}

} // namespace
} // namespace veltrano
