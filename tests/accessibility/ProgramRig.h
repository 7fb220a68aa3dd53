// SPDX-License-Identifier: GPL-3.0-or-later
// The program, as assistive technologies meet it.
#pragma once

#include "tests/accessibility/AccessibleNode.h"
#include "tests/support/TestProcess.h"
#include "tests/support/TestScreen.h"
#include "tests/support/WavFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <numbers>

namespace veltrano {

/// Runs the program on a screen and desktop of its own; it listens to a recording of two notes that
/// take turns.
class ProgramRig : public testing::Test {
public:
    static void useScreen(TestScreen& only) { screen = &only; }

protected:
    static constexpr double kNoteSeconds = 2;

    static inline TestScreen* screen = nullptr; ///< the test program's only one

    void start(const std::vector<std::string>& documents = {}) {
        for (const char* folder : {"veltrano/Temperaments", "veltrano/Stretches"})
            ASSERT_TRUE(QDir(mFolder.path()).mkpath(folder));
        QFile settings(path("veltrano.ini"));
        ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[General]\nmorvane.key.Tonic=0\n"); // not the first launch
        settings.close();
        std::vector<std::string> command{VELTRANO, "--settings", path("veltrano.ini").toStdString(),
                                         "--input", recording().toStdString()};
        command.insert(command.end(), documents.begin(), documents.end());
        mProgram = std::make_unique<TestProcess>(
            command,
            std::vector<std::string>{"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1", "QT_QPA_PLATFORM=xcb",
                                     "XDG_DATA_HOME=" + mFolder.path().toStdString(),
                                     "XDG_RUNTIME_DIR=" + mFolder.path().toStdString(),
                                     "PULSE_SERVER=unix:" + path("nobody").toStdString()},
            path("log").toStdString());
        ASSERT_TRUE(accessible::await([this] {
            mTree = accessible::program("veltrano");
            return mTree && window("Veltrano") && window("Piano Keyboard");
        })) << "the program does not come up";
        if (documents.empty()) {
            ASSERT_TRUE(becomesActive("Veltrano"));
        }
    }
    void TearDown() override {
        if (!mProgram) return;
        mProgram->signal(SIGTERM);
        EXPECT_EQ(mProgram->await(), 0);
    }

    /// A window in sight whose title begins or ends so.
    AccessibleNode window(const std::string& title) const {
        for (const AccessibleNode& node : mTree.children()) {
            const std::string name = node.name();
            const bool fits = name.starts_with(title) || name.ends_with(title);
            if (fits && node.is(NodeState::showing)) return node;
        }
        return {};
    }
    bool appears(const std::string& title) const {
        return accessible::await([&] { return bool(window(title)); });
    }
    static bool becomesActive(const char* title) {
        return TestScreen::await([&] { return screen->active().startsWith(QLatin1String(title)); });
    }
    /// What has the keyboard focus below @p node; no node if nothing has.
    static AccessibleNode focusIn(const AccessibleNode& node) {
        return node.find([](const AccessibleNode& it) { return it.is(NodeState::focused); });
    }
    /// Whether something below @p node gets a name that begins so.
    static bool says(const AccessibleNode& node, const std::string& start) {
        return accessible::await([&] { return bool(node.findByName(start)); });
    }

private:
    QString path(const char* name) const { return mFolder.filePath(QLatin1String(name)); }

    /// A4, 10 cents sharp, and C5, 20 cents flat.
    QString recording() {
        constexpr unsigned kRate = 44100;
        constexpr int kTurns = 30;
        std::vector<float> samples;
        for (int note = 0; note < kTurns; ++note) {
            const double semitones = note % 2 == 0 ? 0.10 : 2.80;
            const double step = 2 * std::numbers::pi * 440 * std::exp2(semitones / 12) / kRate;
            for (int i = 0; i < kNoteSeconds * kRate; ++i)
                samples.push_back(0.5f * static_cast<float>(std::sin(step * i)));
        }
        EXPECT_TRUE(writeWav(path("notes.wav").toStdString(), samples, kRate));
        return path("notes.wav");
    }

    QTemporaryDir mFolder;
    AccessibleNode mTree;
    std::unique_ptr<TestProcess> mProgram; ///< killed at the end when it still runs
};

} // namespace veltrano
