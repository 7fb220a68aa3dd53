// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli as a process: output, errors, exit codes.
#include "tests/cli/CommandRun.h"

#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace veltrano {
namespace {

using Result = CommandRun;

Result run(const QStringList& arguments, const QStringList& environment = {}) {
    return runCommand(arguments, environment);
}

/// A WAV header of one format chunk before raw sample bytes.
QByteArray wav(int format, int channels, int rate, int bits, const QByteArray& data,
               qint64 claimedBytes = -1) {
    const auto number = [](qint64 value, int bytes) {
        QByteArray text;
        for (int i = 0; i < bytes; ++i)
            text.append(char((value >> (8 * i)) & 0xFF));
        return text;
    };
    const int frameBytes = channels * bits / 8;
    const qint64 size = claimedBytes < 0 ? data.size() : claimedBytes;
    return "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(format, 2) +
           number(channels, 2) + number(rate, 4) + number(qint64(rate) * frameBytes, 4) +
           number(frameBytes, 2) + number(bits, 2) + "data" + number(size, 4) + data;
}

QByteArray sine16(double hz, int rate, double seconds) {
    QByteArray data;
    for (int i = 0; i < int(seconds * rate); ++i) {
        const auto x = qint16(std::lround(16384 * std::sin(2 * std::numbers::pi * hz * i / rate)));
        data.append(char(x & 0xFF));
        data.append(char((x >> 8) & 0xFF));
    }
    return data;
}

QByteArray floats(const std::vector<float>& samples) {
    return {reinterpret_cast<const char*>(samples.data()), qsizetype(samples.size() * 4)};
}

class CommandLine : public testing::Test {
protected:
    QString write(const char* name, const QByteArray& bytes) {
        const QString path = mFolder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QTemporaryDir mFolder;
};

TEST_F(CommandLine, AnalyzePrintsOneObjectPerFrame) {
    const QString file = write("a4.wav", wav(1, 1, 44100, 16, sine16(440, 44100, 1)));
    const Result result = run({"analyze", file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 44100 / 5393);
    for (int i = 0; i < lines.size(); ++i) {
        const QJsonObject frame = QJsonDocument::fromJson(lines[i]).object();
        EXPECT_EQ(frame["frame"].toInt(), i);
        EXPECT_EQ(frame["time"].toDouble(), (i + 1) * 5393 / 44100.0);
        EXPECT_EQ(frame["key"].toInt(), 57);
        EXPECT_EQ(frame["dropped"].toInt(), 0);
        EXPECT_NEAR(frame["frequency"].toDouble(), 440, 0.51); // 2 cents at most
    }
}

TEST_F(CommandLine, ReadingsDoNotDependOnTheBlockSize) {
    const QString file = write("e3.wav", wav(1, 1, 8000, 16, sine16(164.81, 8000, 6)));
    const QByteArray expected = run({"analyze", file}).output;
    EXPECT_EQ(expected.count('\n'), 48000 / 978);
    for (const char* block : {"1", "977", "978", "979", "1000000"}) {
        EXPECT_EQ(run({"analyze", file, "--block", block}).output, expected) << block;
    }
}

TEST_F(CommandLine, ALongBlockOfALowRateNeedsLittleMemory) {
#ifdef VELTRANO_SANITIZED
    GTEST_SKIP() << "a sanitizer takes more address space than the limit leaves";
#endif
    const QString file = write("slow.wav", wav(1, 1, 100, 16, sine16(20, 100, 600)));
    QProcess process;
    process.start("/bin/bash",
                  {"-c", "ulimit -v 2000000; exec \"$0\" analyze \"$1\" --block 1048576",
                   QStringLiteral(VELTRANO_CLI), file});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitCode(), 0);
    const QByteArray output = process.readAllStandardOutput();
    EXPECT_EQ(output.count('\n'), 60000 / 12);
    EXPECT_EQ(output, run({"analyze", file}).output);
}

TEST_F(CommandLine, ReadingsDoNotDependOnTheLocale) {
    const QString file = write("a4.wav", wav(1, 1, 44100, 16, sine16(441.7, 44100, 1)));
    const QByteArray expected = run({"analyze", file, "--reference-pitch", "442.5"}).output;
    EXPECT_TRUE(expected.contains("\"idealText\":\"442.500\""));
    EXPECT_EQ(run({"analyze", file, "--reference-pitch", "442.5"},
                  {"LC_ALL=de_DE.UTF-8", "LANG=de_DE.UTF-8"})
                  .output,
              expected);
}

TEST_F(CommandLine, OptionsReachTheTuner) {
    const QString file = write("a4.wav", wav(1, 1, 44100, 16, sine16(441, 44100, 1)));
    EXPECT_TRUE(run({"analyze", file}).output.contains("\"inTune\":\"green\""));
    EXPECT_TRUE(run({"analyze", file, "--threshold", "2"}).output.contains("\"inTune\":\"blue\""));
    EXPECT_TRUE(run({"analyze", file, "--reference-pitch", "415"}).output.contains("\"key\":58"));
}

TEST_F(CommandLine, TuningFilesReachTheTuner) {
    const QString file = write("c5.wav", wav(1, 1, 44100, 16, sine16(523.25, 44100, 0.5)));
    const QString temperament =
        write("t.temperament", "\"C\"=\"11.5\";\"Eb\"=\"-20.5\";\"A\"=\"1.5\";");
    const QString scale = write("t.SCL", "x\n12\n");
    const QString stretch = write("s.stretch", "\"C5\"=\"2.25\";");
    struct {
        const char* name;
        QStringList options;
        double cents;   ///< of C5 against equal temperament, without the stretch
        double stretch; ///< [cents]
    } const cases[] = {
        {"nothing", {}, 0, 0},
        {"temperament", {"--temperament", temperament}, 10, 0},
        // C is the degree of the file's A, A that of its F#: 0 and -1.5 once A is 0.
        {"on another tonic", {"--temperament", temperament, "--tonic", "3"}, 1.5, 0},
        {"the tonic first", {"--tonic", "3", "--temperament", temperament}, 1.5, 0},
        // kept: ratios for cents, 1 on C and 2^(9/12) on A
        {"scale", {"--temperament", scale}, 1 - std::exp2(0.75), 0},
        {"stretch", {"--stretch", stretch}, 0, 2.25},
        {"both", {"--temperament", temperament, "--stretch", stretch}, 10, 2.25},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Result result = run(QStringList{"analyze", file} + c.options);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        const QByteArray line = result.output.trimmed().split('\n').last();
        const QJsonObject frame = QJsonDocument::fromJson(line).object();
        ASSERT_EQ(frame["key"].toInt(), 60);
        EXPECT_NEAR(frame["ideal"].toDouble(), 440 * std::exp2((300 + c.cents + c.stretch) / 1200),
                    1e-4);
        EXPECT_EQ(frame["stretch"].toDouble(), c.stretch);
    }
}

TEST_F(CommandLine, RefusedTuningFilesEndBeforeTheFirstReading) {
    const QString file = write("a4.wav", wav(1, 1, 44100, 16, sine16(440, 44100, 0.5)));
    const QString good = write("good.stretch", "");
    const QStringList cases[] = {
        {"analyze", file, "--temperament", mFolder.filePath("nothing")},
        {"analyze", file, "--temperament", write("bad.temperament", "C=1")},
        {"analyze", file, "--temperament", write("bad.scl", "x\n7\n")},
        {"analyze", file, "--stretch", write("bad.stretch", "\"C0\"=\"51\";")},
        {"analyze", file, "--stretch", good, "--temperament", mFolder.path()},
        {"listen", "--seconds", "0", "--temperament", mFolder.filePath("nothing")},
        {"listen", "--seconds", "0", "--stretch", mFolder.filePath("bad.stretch")},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Result result = run(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.reasons().size(), 1) << result.errors.toStdString();
    }
}

TEST_F(CommandLine, TheTableHasALinePerNote) {
    const QByteArray tune =
        sine16(440, 44100, 1) + sine16(523.25, 44100, 1) + sine16(440, 44100, 1);
    const Result result =
        run({"analyze", write("tune.wav", wav(1, 1, 44100, 16, tune)), "--table"});
    EXPECT_EQ(result.exitCode, 0);
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    ASSERT_GE(lines.size(), 4);
    EXPECT_TRUE(lines[0].contains("cents"));
    EXPECT_TRUE(lines[1].contains("A4"));
    EXPECT_TRUE(lines.last().contains("A4"));
    EXPECT_EQ(result.output.count("C5"), 1);
}

TEST_F(CommandLine, BadRecordingsGetOneLineAndExitCodeOne) {
    const QByteArray sound = sine16(440, 44100, 0.5);
    const QByteArray good = wav(1, 1, 44100, 16, sound);
    struct {
        const char* name;
        QString path;
    } const cases[] = {
        {"missing", mFolder.filePath("nothing.wav")},
        {"a folder", mFolder.path()},
        {"zero length", write("empty.wav", "")},
        {"no channels", write("none.wav", wav(1, 0, 44100, 16, sound))},
        {"no samples", write("nosound.wav", wav(1, 1, 44100, 16, {}))},
        {"cut within the header", write("cut.wav", good.left(30))},
        {"a text", write("text.wav", "This is not a recording.\n")},
        {"65 channels", write("wide.wav", wav(1, 65, 44100, 16, sound))},
        {"rate 0", write("still.wav", wav(1, 1, 0, 16, sound))},
        {"rate above 384 kHz", write("fast.wav", wav(1, 1, 400000, 16, sound))},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Result result = run({"analyze", c.path});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.startsWith("veltrano-cli: "));
    }
}

TEST_F(CommandLine, BrokenRecordingsAreTunedAsFarAsTheyGo) {
    const QByteArray sound = sine16(440, 44100, 0.5);
    const Result cut = run({"analyze", write("cut.wav", wav(1, 1, 44100, 16, sound, 10000000))});
    EXPECT_EQ(cut.exitCode, 0);
    EXPECT_EQ(cut.output.count('\n'), 22050 / 5393);

    std::vector<float> samples(20000, std::numeric_limits<float>::quiet_NaN());
    const Result nan = run({"analyze", write("nan.wav", wav(3, 1, 44100, 32, floats(samples)))});
    EXPECT_EQ(nan.exitCode, 0);
    EXPECT_EQ(nan.output.count('\n'), 20000 / 5393);
    EXPECT_TRUE(nan.output.contains("\"key\":null"));
}

TEST_F(CommandLine, WrongUsageExitsWithTwo) {
    const QString file = write("a4.wav", wav(1, 1, 44100, 16, sine16(440, 44100, 0.5)));
    const QStringList cases[] = {
        {},
        {"tune"},
        {"analyze"},
        {"analyze", file, file},
        {"analyze", file, "--loud"},
        {"analyze", file, "--block", "0"},
        {"analyze", file, "--block", "x"},
        {"analyze", file, "--tonic", "12"},
        {"analyze", file, "--tonic", "-1"},
        {"analyze", file, "--reference-pitch", "0"},
        {"analyze", file, "--reference-pitch", "440,5"},
        {"analyze", file, "--reference-pitch", "nan"},
        {"analyze", file, "--reference-pitch", "1e300"},
        {"analyze", file, "--reference-pitch", "1e-300"},
        {"analyze", file, "--threshold", "1.5"},
        {"devices", "x"},
        {"listen", "x"},
        {"listen", "--seconds", "soon"},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Result result = run(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.toStdString();
    }
}

TEST_F(CommandLine, HelpAndVersionOnEveryCommand) {
    for (const QStringList& command :
         {QStringList{}, QStringList{"analyze"}, QStringList{"listen"}, QStringList{"devices"},
          QStringList{"temperament"}, QStringList{"stretch"}, QStringList{"scl"}}) {
        const Result help = run(command + QStringList{"--help"});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_TRUE(help.output.startsWith("Usage: ")) << help.output.toStdString();
        const Result version = run(command + QStringList{"--version"});
        EXPECT_EQ(version.exitCode, 0);
        EXPECT_TRUE(version.output.startsWith("veltrano-cli "));
    }
}

TEST_F(CommandLine, AClosedPipeEndsQuietly) {
    const QString file = write("long.wav", wav(1, 1, 8000, 16, sine16(440, 8000, 60)));
    QProcess process;
    process.start("/bin/bash", {"-c",
                                QStringLiteral("\"$0\" analyze \"$1\" | head -1; "
                                               "echo ${PIPESTATUS[0]} >&2"),
                                QStringLiteral(VELTRANO_CLI), file});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.readAllStandardError(), "0\n");
    EXPECT_EQ(process.readAllStandardOutput().count('\n'), 1);
}

TEST_F(CommandLine, ReadingsThatCannotBeWrittenAreAFailure) {
    const QString recording = write("short.wav", wav(1, 1, 8000, 16, sine16(440, 8000, 1)));
    const QString cases[] = {"analyze " + recording,
                             "partials " + recording,
                             "temperament " + write("t", ""),
                             "stretch " + write("s", ""),
                             "scl " + write("c", "!\n"),
                             "--help",
                             "scl --help"};
    for (const QString& arguments : cases) {
        SCOPED_TRACE(arguments.toStdString());
        QProcess process;
        process.start("/bin/sh", {"-c", VELTRANO_CLI " " + arguments + " > /dev/full"});
        ASSERT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitCode(), 1);
        EXPECT_EQ(process.readAllStandardError(),
                  "veltrano-cli: standard output: " + QByteArray(std::strerror(ENOSPC)) + "\n");
    }
}

TEST_F(CommandLine, HelpSaysHowTheCommandIsCalled) {
    const QByteArrayList commands{"analyze", "partials",    "listen",  "devices",
                                  "tone",    "temperament", "stretch", "scl"};
    for (const QByteArray& command : commands) {
        const QByteArray help = runCommand({command, "--help"}).output;
        EXPECT_TRUE(help.startsWith("Usage: veltrano-cli " + command + " [options]"))
            << help.toStdString();
    }
}

TEST_F(CommandLine, NoWindowSystemIsLinkedIn) {
    QProcess process;
    process.start("ldd", {QStringLiteral(VELTRANO_CLI)});
    ASSERT_TRUE(process.waitForFinished(30000));
    const QByteArray libraries = process.readAllStandardOutput();
    EXPECT_TRUE(libraries.contains("libQt6Core"));
    EXPECT_FALSE(libraries.contains("libQt6Gui"));
    EXPECT_FALSE(libraries.contains("libQt6Widgets"));
}

} // namespace
} // namespace veltrano
