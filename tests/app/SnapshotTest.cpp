// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the open windows at a moment of a recording.
#include "analysis/HilbertView.h"
#include "analysis/PartialView.h"
#include "analysis/PianoView.h"
#include "app/Application.h"
#include "displays/StrobeView.h"
#include "tests/support/Pictures.h"
#include "tests/support/WavFile.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

namespace veltrano {
namespace {

constexpr int kRate = 44100;
constexpr int kFrameSamples = 5393;
constexpr QRgb kRed = 0xffff0000;

/// Counts the paint events of all widgets by their names.
class PassCounter : public QObject {
public:
    PassCounter() { qApp->installEventFilter(this); }

    std::map<std::string, int> passes;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++passes[watched->objectName().toStdString()];
        return false;
    }
};

class SnapshotTest : public testing::Test {
protected:
    SnapshotTest() : mDataHome(qgetenv("XDG_DATA_HOME")) {
        qputenv("XDG_DATA_HOME", QFile::encodeName(mFolder.path()));
        // Libraries that need not be filled first.
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Temperaments"));
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Stretches"));
    }
    ~SnapshotTest() override {
        if (mDataHome.isNull()) {
            qunsetenv("XDG_DATA_HOME");
        } else {
            qputenv("XDG_DATA_HOME", mDataHome);
        }
    }

    QString path(const char* name) const { return mFolder.filePath(QLatin1String(name)); }

    /// A3 with three overtones, two seconds, then a second of silence.
    std::string recording() {
        std::vector<float> samples(3 * kRate);
        for (std::size_t i = 0; i < 2 * kRate; ++i) {
            for (int n = 1; n <= 4; ++n) {
                const double turns = 221.0 * n * double(i) / kRate;
                samples[i] += float(0.4 / n * std::sin(2 * std::numbers::pi * turns));
            }
        }
        const std::string file = path("a3.wav").toStdString();
        EXPECT_TRUE(writeWav(file, samples, kRate));
        return file;
    }

    /// @param settings lines of a settings file; empty: without one
    void takePictures(double seconds, const char* folder, const QByteArray& settings = {}) {
        LaunchOptions options;
        options.input = recording();
        options.snapshotDir = path(folder);
        options.snapshotSeconds = seconds;
        if (!settings.isEmpty()) {
            QFile file(path("settings.ini"));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("[General]\n" + settings);
            options.settingsFile = file.fileName();
        }
        EXPECT_EQ(Application(options).run(), 0);
    }

    QStringList pictures(const char* folder) const {
        return QDir(path(folder)).entryList(QDir::Files, QDir::Name);
    }
    QByteArray bytes(const char* folder, const QString& name) const {
        QFile file(QDir(path(folder)).filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QImage picture(const char* folder, const char* name) const {
        return QImage(QDir(path(folder)).filePath(QLatin1String(name)))
            .convertToFormat(QImage::Format_ARGB32);
    }

    const QByteArray mDataHome;
    QTemporaryDir mFolder;
};

TEST_F(SnapshotTest, OfEveryWindowOfAFirstRun) {
    takePictures(1.0, "first");
    EXPECT_EQ(pictures("first"),
              (QStringList{"hilbert.png", "partials.png", "piano.png", "tuner.png"}));
}

TEST_F(SnapshotTest, OnlyOfTheWindowsThatTheSettingsSayAreOpen) {
    struct Case {
        const char* folder;
        QByteArray settings;
        QStringList pictures;
    };
    const QByteArray partials = "morvane.key.Partials=", scope = "morvane.key.HilbertScope=",
                     piano = "morvane.key.PianoKeyboard=";
    const QByteArray on = "true\n", off = "false\n";
    const Case cases[] = {
        {"none", partials + off + scope + off + piano + off, {"tuner.png"}},
        {"partials", partials + on + scope + off + piano + off,
         QStringList{"partials.png", "tuner.png"}},
        {"hilbert", partials + off + scope + on + piano + off,
         QStringList{"hilbert.png", "tuner.png"}},
        {"piano", partials + off + scope + off + piano + on, QStringList{"piano.png", "tuner.png"}},
        {"unsaid", scope + off, QStringList{"partials.png", "piano.png", "tuner.png"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.folder);
        takePictures(0.3, row.folder, row.settings);
        EXPECT_EQ(pictures(row.folder), row.pictures);
    }
}

TEST_F(SnapshotTest, EveryOpenWindowIsDrawnExactlyOncePerFrame) {
    struct Case {
        double seconds;
        int passes;
    };
    const double frame = double(kFrameSamples) / kRate;
    const Case cases[] = {{0.05, 1}, // the windows as they are before the first frame
                          {frame, 1},
                          {1.0, int(1.0 / frame)},
                          {3.0, int(3.0 / frame)},
                          {100.0, int(3.0 / frame)}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.seconds);
        PassCounter counter;
        takePictures(row.seconds, "passes");
        for (const char* view : {"mPartialView", "mHilbertView", "mPianoView", "mStrobeView"})
            EXPECT_EQ(counter.passes[view], row.passes) << view;
    }
}

TEST_F(SnapshotTest, WhatIsNotOpenIsNotDrawn) {
    PassCounter counter;
    takePictures(0.5, "passes",
                 "morvane.key.Partials=false\nmorvane.key.HilbertScope=false\n"
                 "morvane.key.PianoKeyboard=false\n");
    for (const char* view : {"mPartialView", "mHilbertView", "mPianoView"})
        EXPECT_EQ(counter.passes[view], 0) << view;
    EXPECT_EQ(counter.passes["mStrobeView"], 4);
}

TEST_F(SnapshotTest, TheSameAtEachRun) {
    // Decay and smoothing would show any pass more or less.
    const QByteArray settings = "morvane.key.HilbertDecay=true\nmorvane.key.HilbertLine=true\n";
    takePictures(1.5, "first", settings);
    takePictures(1.5, "second", settings);
    for (const QString& name : pictures("first"))
        EXPECT_EQ(bytes("first", name), bytes("second", name)) << name.toStdString();
}

TEST_F(SnapshotTest, ShowsTheSoundOfThatMoment) {
    takePictures(0.05, "before");
    takePictures(1.5, "sounding");
    takePictures(3.0, "after", "morvane.key.PartialsHold=false\n");
    for (const char* name : {"partials.png", "hilbert.png", "piano.png"})
        EXPECT_NE(picture("sounding", name), picture("before", name)) << name;
    for (const char* name : {"partials.png", "hilbert.png"})
        EXPECT_EQ(picture("after", name), picture("before", name)) << name;
    EXPECT_EQ(picture("after", "piano.png"), picture("sounding", "piano.png")) << "the last note";
    EXPECT_TRUE(extentOfColor(picture("before", "piano.png"), kRed).isEmpty());
    const QRect mark = extentOfColor(picture("sounding", "piano.png"), kRed);
    const double keyWidth = picture("sounding", "piano.png").width() / 52.0;
    EXPECT_NEAR(mark.x() / keyWidth, 7 * 3 - 5 + 5, 0.2) << "A3";
}

} // namespace
} // namespace veltrano
