// SPDX-License-Identifier: GPL-3.0-or-later
// A user at the program: keys, mouse, what is on the screen, what is on the disk.
#pragma once

#include "tests/accessibility/AccessibleNode.h"
#include "tests/support/TestScreen.h"
#include "tests/support/WavFile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <numbers>
#include <sys/prctl.h>

namespace veltrano {

/// Runs the program with a home of its own on a screen and desktop of the test's own. Several runs
/// of one test share the home. Thread: main.
class SessionRig : public testing::Test {
public:
    static void useScreen(TestScreen& only) { screen = &only; }

protected:
    static constexpr int kPatience = 20000; ///< [ms]
    static constexpr const char* kA4 = "A4";
    static constexpr const char* kC5 = "C5";

    static inline TestScreen* screen = nullptr; ///< the test program's only one

    SessionRig() {
        mEnvironment = QProcessEnvironment::systemEnvironment();
        const QPair<const char*, QString> variables[] = {{"HOME", mHome.path()},
                                                         {"XDG_CONFIG_HOME", path(".config")},
                                                         {"XDG_DATA_HOME", path(".local/share")},
                                                         {"XDG_RUNTIME_DIR", mHome.path()},
                                                         {"PULSE_SERVER", "unix:" + path("nobody")},
                                                         {"QT_QPA_PLATFORM", "xcb"},
                                                         {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"},
                                                         {"LC_ALL", "C.UTF-8"}};
        for (const auto& [name, value] : variables)
            mEnvironment.insert(QLatin1String(name), value);
    }

    ~SessionRig() override {
        mProgram.kill(); // nothing happens when it has ended
        mProgram.waitForFinished();
    }

    QString path(const char* name) const { return mHome.filePath(QLatin1String(name)); }
    QString temperaments() const { return path(".local/share/veltrano/Temperaments/"); }
    QString stretches() const { return path(".local/share/veltrano/Stretches/"); }

    void setSoundServer(const std::string& address) {
        mEnvironment.insert("PULSE_SERVER", QString::fromStdString(address));
    }
    void launch(QProcess& process, const QStringList& arguments) const {
        process.setProcessEnvironment(mEnvironment);
        process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        process.start(QStringLiteral(VELTRANO), arguments);
    }
    /// Starts and waits for the tuner window.
    void start(const QStringList& arguments) {
        QFile::remove(path("output"));
        mProgram.setStandardOutputFile(path("output"));
        mProgram.setStandardErrorFile(path("errors"));
        launch(mProgram, arguments);
        ASSERT_TRUE(accessible::await([this] {
            mTree = accessible::program("veltrano");
            return mTree && screen->shows("Veltrano$");
        })) << "the program does not come up";
    }
    QProcess& program() { return mProgram; }
    void expectNormalEnd() {
        ASSERT_TRUE(mProgram.waitForFinished(kPatience)) << "it does not end";
        EXPECT_EQ(mProgram.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(mProgram.exitCode(), 0);
    }
    bool isRunning() { return !mProgram.waitForFinished(0); }

    /// The whole title of the active window becomes this.
    static testing::AssertionResult becomesActive(const QString& title) {
        if (TestScreen::await([&] { return screen->active() == title; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "\"" << screen->active().toStdString()
                                           << "\" has the focus, not " << title.toStdString();
    }
    static bool disappears(const QString& title) {
        return TestScreen::await([&] { return !screen->shows(title); });
    }
    static QString titled(const char* name) { return QString::fromUtf8(name) + " — Veltrano"; }

    /// Something in sight whose name begins so; no node if there is none. @param role empty: any
    AccessibleNode seen(const std::string& name, const std::string& role = {}) const {
        return mTree.find([&](const AccessibleNode& node) {
            // Items of a closed list say that they show.
            return node.name().starts_with(name) && (role.empty() || node.role() == role) &&
                   node.is(NodeState::showing) && node.parent().is(NodeState::showing);
        });
    }
    /// Something whose name begins so comes into sight.
    bool says(const std::string& start) const {
        return accessible::await([&] { return bool(mTree.findByName(start)); });
    }
    /// Whether a field comes to hold that text.
    bool showsText(const std::string& text) const {
        return accessible::await([&] {
            return bool(mTree.find([&](const AccessibleNode& node) {
                return node.role() == "text" && node.text() == text;
            }));
        });
    }
    /// Clicks into the middle of something in sight.
    void click(const std::string& name, const std::string& role = {}) const {
        AccessibleNode node;
        ASSERT_TRUE(accessible::await([&] { return bool(node = seen(name, role)); })) << name;
        const auto middle = node.middle();
        ASSERT_TRUE(middle) << name;
        screen->click({middle->first, middle->second});
    }

    /// Takes a picture of the screen where pictures are wanted, numbered in the order of the steps.
    void picture(const char* step) {
        const QString folder = qEnvironmentVariable("VELTRANO_SESSION_PICTURES");
        if (folder.isEmpty()) return;
        QDir().mkpath(folder);
        const QString name =
            QStringLiteral("%1/%2-%3-%4.png")
                .arg(folder, testing::UnitTest::GetInstance()->current_test_info()->name())
                .arg(++mPictures, 2, 10, QLatin1Char('0'))
                .arg(QLatin1String(step));
        EXPECT_TRUE(screen->takePicture(name)) << name.toStdString();
    }

    QByteArray contents(const QString& file) const {
        QFile stream(file);
        return stream.open(QIODevice::ReadOnly) ? stream.readAll() : QByteArray();
    }
    void write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    /// Whether a file comes to hold that.
    bool becomesFile(const QString& file, const char* part) const {
        return TestScreen::await([&] { return contents(file).contains(part); });
    }
    QByteArray stored(const char* key) const {
        const QByteArray start = QByteArray("morvane.key.") + key + '=';
        for (const QByteArray& line : contents(path(".config/veltrano/veltrano.ini")).split('\n')) {
            if (line.startsWith(start)) return line.mid(start.size());
        }
        return {};
    }
    /// The readings so far, a line each.
    QList<QByteArray> readings() const {
        QList<QByteArray> lines = contents(path("output")).split('\n');
        lines.removeLast();                        // the one that is being written, or nothing
        if (!lines.isEmpty()) lines.removeFirst(); // the heading
        return lines;
    }
    /// Whether the next readings of a note, from here, have that target.
    bool nextTargetIs(const char* note, const char* targetHz) const {
        constexpr int kNote = 1, kTarget = 4;
        const qsizetype before = readings().size();
        QByteArray target;
        return accessible::await([&] {
            // The note at this moment began before, and may have two targets.
            for (const QByteArray& line : readings().mid(before + 1)) {
                const QList<QByteArray> words = line.simplified().split(' ');
                if (words.value(kNote) == note) target = words.value(kTarget);
            }
            return target == targetHz;
        });
    }

    /// Minutes of A4, 10 cents sharp, and C5, 20 cents flat, in turn.
    QString recording() const {
        constexpr unsigned kRate = 22050;
        constexpr int kTurns = 400;
        constexpr double kNoteSeconds = 1.2;
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

private:
    QTemporaryDir mHome;
    QProcessEnvironment mEnvironment;
    AccessibleNode mTree;
    QProcess mProgram;
    int mPictures = 0;
};

} // namespace veltrano
