// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano as a process, without a display of its own: starts, pictures, recordings, settings.
#include "tests/live/ListeningTuner.h"
#include "tests/support/SoundServer.h"
#include "tests/support/WavFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace veltrano {
namespace {

constexpr int kRate = 44100;

struct Result {
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

class Program : public testing::Test {
protected:
    void SetUp() override {
        mEnvironment = QProcessEnvironment::systemEnvironment();
        mEnvironment.insert("QT_QPA_PLATFORM", "offscreen");
        mEnvironment.insert("XDG_RUNTIME_DIR", mFolder.path());
        mEnvironment.insert("XDG_DATA_HOME", mFolder.path());
        // Libraries that need not be filled first.
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Temperaments"));
        EXPECT_TRUE(QDir(mFolder.path()).mkpath("veltrano/Stretches"));
        mEnvironment.insert("PULSE_SERVER", "unix:" + mFolder.filePath("nobody"));
    }

    QString path(const char* name) const { return mFolder.filePath(QLatin1String(name)); }

    /// One second of A4, one of C5, then silence.
    QString recording() {
        std::vector<float> samples;
        for (const double hz : {440.0, 523.25}) {
            for (int i = 0; i < kRate; ++i) {
                samples.push_back(0.5f *
                                  float(std::sin(2 * std::numbers::pi * hz * double(i) / kRate)));
            }
        }
        samples.resize(3 * kRate);
        EXPECT_TRUE(writeWav(path("two notes.wav").toStdString(), samples, kRate));
        return path("two notes.wav");
    }

    void start(QProcess& process, const QStringList& arguments,
               const QString& program = QStringLiteral(VELTRANO)) {
        process.setProcessEnvironment(mEnvironment);
        process.start(program, arguments);
    }

    Result run(const QStringList& arguments, const QString& program = QStringLiteral(VELTRANO)) {
        QProcess process;
        start(process, arguments, program);
        EXPECT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    /// Starts with settings that name a microphone, ends it by SIGTERM once it runs.
    /// @return the microphone in the settings afterwards
    QByteArray microphoneAfterARun() {
        QFile settings(path("veltrano.ini"));
        EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[General]\nmorvane.key.Tonic=0\nmorvane.key.InputDeviceKey=My : Mic\n");
        settings.close();
        QProcess process;
        process.setReadChannel(QProcess::StandardError);
        start(process, {"--settings", settings.fileName()});
        QByteArray errors;
        while (!errors.contains("veltrano.detail") && process.waitForReadyRead(10000)) {
            errors += process.readAllStandardError();
        }
        QThread::msleep(50);
        process.terminate();
        EXPECT_TRUE(process.waitForFinished(10000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_TRUE(settings.open(QIODevice::ReadOnly));
        for (const QByteArray& line : settings.readAll().split('\n')) {
            if (line.startsWith("morvane.key.InputDeviceKey=")) return line.mid(27);
        }
        return {};
    }

    QTemporaryDir mFolder;
    QProcessEnvironment mEnvironment;
};

TEST_F(Program, StartsWithoutASoundServerAndKeepsTheMicrophone) {
    const int starts = qEnvironmentVariableIsSet("VELTRANO_SOAK") ? 100 : 10;
    for (int i = 0; i < starts; ++i)
        ASSERT_EQ(microphoneAfterARun(), "My : Mic") << i;
}

TEST_F(Program, StartsWithAServerThatHasNoSourceAndKeepsTheMicrophone) {
    if (const auto reason = SoundServer::missing(SoundServer::Kind::pulseAudio)) {
        GTEST_SKIP() << *reason;
    }
    SoundServer server(SoundServer::Kind::pulseAudio, SoundServer::Devices::none);
    ASSERT_TRUE(server.start());
    mEnvironment.insert("PULSE_SERVER", QString::fromStdString(server.address()));
    const int starts = qEnvironmentVariableIsSet("VELTRANO_SOAK") ? 100 : 10;
    for (int i = 0; i < starts; ++i)
        ASSERT_EQ(microphoneAfterARun(), "My : Mic") << i;
}

TEST_F(Program, ARecordingIsPlayedOnceAndGivesTheReadingsOfTheCommandLine) {
    const QString file = recording();
    const QByteArray expected =
        run({"analyze", "--table", file}, QStringLiteral(VELTRANO_CLI)).output;
    ASSERT_EQ(expected.count('\n'), 3); // the heading and two notes
    QProcess process;
    start(process, {"--input", file, "--settings", path("veltrano.ini")});
    QByteArray output;
    while (output.count('\n') < 3 && process.waitForReadyRead(10000)) {
        output += process.readAllStandardOutput();
    }
    EXPECT_EQ(output, expected);
    process.terminate();
    EXPECT_TRUE(process.waitForFinished(10000));
    EXPECT_EQ(process.readAllStandardOutput(), "");
    QFile settings(path("veltrano.ini"));
    EXPECT_TRUE(settings.open(QIODevice::ReadOnly));
    const QByteArray stored = settings.readAll();
    EXPECT_TRUE(stored.contains("morvane.key.ReferencePitch=440"));
    EXPECT_FALSE(stored.contains("Recording")) << "it is the input of that run only";
}

TEST_F(Program, SnapshotsAreTheSameEachTime) {
    const QString file = recording();
    QByteArrayList pictures[2]; // those of a first run, where every window is open
    for (QByteArrayList& taken : pictures) {
        const Result result =
            run({"--snapshot", path("pictures/new"), "--input", file, "--at", "0.9"});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        for (const char* name : {"tuner", "partials", "hilbert", "piano"}) {
            QFile png(path("pictures/new/") + name + ".png");
            ASSERT_TRUE(png.open(QIODevice::ReadOnly)) << name;
            taken.append(png.readAll());
            EXPECT_TRUE(taken.last().startsWith("\x89PNG")) << name;
            EXPECT_TRUE(png.remove());
        }
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_EQ(QDir(mFolder.path()).entryList({"*.ini", "*.conf"}).size(), 0);
}

TEST_F(Program, BadInputIsOneLineAndExitCodeOne) {
    const QString file = recording();
    QFile(path("file")).open(QIODevice::WriteOnly);
    const QStringList cases[] = {
        {"--input", path("nothing.wav")},
        {"--input", path("file")},
        {"--snapshot", path("pictures"), "--input", path("nothing.wav"), "--at", "1"},
        {"--snapshot", path("file/pictures"), "--input", file, "--at", "1"},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Result result = run(arguments);
        EXPECT_EQ(result.exitCode, 1);
        const QList<QByteArray> lines = result.errors.trimmed().split('\n');
        EXPECT_TRUE(lines.last().startsWith("veltrano: ")) << result.errors.toStdString();
        EXPECT_EQ(result.errors.count("veltrano: "), 1);
    }
    EXPECT_EQ(run({"--loud"}).exitCode, 2);
}

} // namespace
} // namespace veltrano
