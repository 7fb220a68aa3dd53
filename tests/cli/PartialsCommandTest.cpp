// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli partials
#include "tests/cli/CommandRun.h"
#include "tests/support/WavFile.h"

#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace veltrano {
namespace {

constexpr int kUpdate = 5393;   ///< samples of an update frame at 44.1 kHz
constexpr int kAnalysis = 4096; ///< samples of an analysis

std::vector<float> sine(double hz, double amplitude, int count, int rate = 44100) {
    std::vector<float> samples;
    for (int n = 0; n < count; ++n)
        samples.push_back(
            static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * hz * n / rate)));
    return samples;
}

std::vector<float> joined(std::initializer_list<std::vector<float>> parts) {
    std::vector<float> whole;
    for (const std::vector<float>& part : parts)
        whole.insert(whole.end(), part.begin(), part.end());
    return whole;
}

std::vector<QJsonObject> objects(const QByteArray& output) {
    std::vector<QJsonObject> result;
    if (output.isEmpty()) return result;
    EXPECT_TRUE(output.endsWith('\n'));
    for (const QByteArray& line : output.chopped(1).split('\n')) {
        EXPECT_TRUE(QJsonDocument::fromJson(line).isObject()) << line.toStdString();
        result.push_back(QJsonDocument::fromJson(line).object());
    }
    return result;
}

class PartialsCommand : public testing::Test {
protected:
    QString write(const char* name, const std::vector<float>& samples, unsigned rate = 44100,
                  unsigned channels = 1) {
        const QString path = mFolder.filePath(QString::fromUtf8(name));
        EXPECT_TRUE(writeWav(path.toStdString(), samples, rate, channels, WavFormat::float32));
        return path;
    }
    /// What is printed for a recording, without complaint.
    std::vector<QJsonObject> analyses(const QString& path) {
        const CommandRun run = runCommand({"partials", path});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, "");
        return objects(run.output);
    }

    QTemporaryDir mFolder;
};

TEST_F(PartialsCommand, PrintsOneObjectPerAnalysis) {
    // Eight update frames hold ten analyses; the rest of the recording fills no frame.
    const auto lines = analyses(write("a4.wav", sine(440, 0.5, 44100)));
    ASSERT_EQ(lines.size(), 10u);
    for (int i = 0; i < 10; ++i) {
        SCOPED_TRACE(i);
        const QJsonObject& line = lines[static_cast<std::size_t>(i)];
        EXPECT_EQ(line.keys(),
                  (QStringList{"analysis", "frame", "fundamental", "partials", "peak"}));
        EXPECT_EQ(line["analysis"].toInt(-1), i);
        EXPECT_EQ(line["frame"].toInt(-1), ((i + 1) * kAnalysis - 1) / kUpdate);
        EXPECT_NEAR(line["fundamental"].toDouble(), 440, 0.05);
        EXPECT_NEAR(line["peak"].toDouble(), 0.3046 * 0.25, 0.001);
        EXPECT_EQ(line["partials"],
                  QJsonValue(QJsonArray{QJsonArray{line["fundamental"], line["peak"]}}));
    }
}

TEST_F(PartialsCommand, NumbersReadBackAsTheSameFloats) {
    const auto lines = analyses(write("a4.wav", sine(441.7, 0.37, 3 * kUpdate)));
    ASSERT_EQ(lines.size(), 3u);
    for (const QJsonObject& line : lines) {
        for (const char* key : {"fundamental", "peak"}) {
            const double value = line[key].toDouble();
            EXPECT_GT(value, 0);
            EXPECT_EQ(static_cast<double>(static_cast<float>(value)), value) << key;
        }
    }
}

TEST_F(PartialsCommand, ListsThePartialsInTheDetectorsOrder) {
    // The strongest peak lies above the scanned range and comes last, the others rise.
    std::vector<float> samples(kUpdate);
    const double parts[][2] = {{6000, 0.6}, {2000, 0.2}, {1000, 0.15}};
    for (const auto& [hz, amplitude] : parts) {
        const std::vector<float> part = sine(hz, amplitude, kUpdate);
        for (std::size_t n = 0; n < part.size(); ++n)
            samples[n] += part[n];
    }
    const auto lines = analyses(write("three.wav", samples));
    ASSERT_EQ(lines.size(), 1u);
    const QJsonArray partials = lines[0]["partials"].toArray();
    ASSERT_EQ(partials.size(), 3);
    EXPECT_NEAR(partials[0][0].toDouble(), 1000, 0.2);
    EXPECT_NEAR(partials[1][0].toDouble(), 2000, 0.2);
    EXPECT_EQ(partials[2][0], lines[0]["fundamental"]);
    EXPECT_NEAR(partials[2][0].toDouble(), 6000, 0.2);
    EXPECT_NEAR(partials[0][1].toDouble(), 0.3046 * 0.15 * 0.15, 1e-4);
    EXPECT_EQ(partials[2][1], lines[0]["peak"]);
}

TEST_F(PartialsCommand, NoPartialsAreNull) {
    // Loud enough to be heard, too weak in every bin; the peak is that of the analysis before.
    const auto lines =
        analyses(write("fading.wav", joined({sine(440, 0.5, kUpdate), sine(440, 0.015, kUpdate),
                                             sine(440, 0.015, kUpdate)})));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(lines[0]["partials"].isArray());
    EXPECT_TRUE(lines[2]["partials"].isNull());
    EXPECT_EQ(lines[2]["fundamental"].toDouble(-1), 0);
    EXPECT_EQ(lines[2]["peak"], lines[1]["peak"]);
    EXPECT_GT(lines[2]["peak"].toDouble(), 0);
}

TEST_F(PartialsCommand, SilenceIsNotCollected) {
    struct {
        const char* name;
        std::vector<float> samples;
        std::vector<int> frames; ///< of each analysis
    } const cases[] = {
        {"silence", std::vector<float>(3 * kUpdate), {}},
        {"one hundredth", std::vector<float>(3 * kUpdate, -0.01f), {}},
        {"a pause between",
         joined(
             {sine(440, 0.5, kUpdate), std::vector<float>(2 * kUpdate), sine(440, 0.5, kUpdate)}),
         {0, 3}},
        {"less than an update frame", sine(440, 0.5, kUpdate - 1), {}},
        {"one update frame", sine(440, 0.5, kUpdate), {0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<int> frames;
        for (const QJsonObject& line : analyses(write("pause.wav", c.samples))) {
            EXPECT_EQ(line["analysis"].toInt(-1), static_cast<int>(frames.size()));
            frames.push_back(line["frame"].toInt(-1));
        }
        EXPECT_EQ(frames, c.frames);
    }
}

TEST_F(PartialsCommand, DoesNotDependOnTheBlockSize) {
    const QString file = write("c3.wav", sine(130.8, 0.5, 48000, 8000), 8000);
    const QByteArray expected = runCommand({"partials", file}).output;
    EXPECT_EQ(expected.count('\n'), 48000 / 978 * 978 / kAnalysis);
    for (const char* block : {"1", "977", "978", "4096", "1000000"})
        EXPECT_EQ(runCommand({"partials", file, "--block", block}).output, expected) << block;
}

TEST_F(PartialsCommand, DoesNotDependOnTheLocale) {
    const QString file = write("a4.wav", sine(441.7, 0.37, 3 * kUpdate));
    const QByteArray expected = runCommand({"partials", file}).output;
    EXPECT_TRUE(expected.contains("\"fundamental\":441.7"));
    EXPECT_EQ(runCommand({"partials", file}, {"LC_ALL=de_DE.UTF-8", "LANG=de_DE.UTF-8"}).output,
              expected);
}

TEST_F(PartialsCommand, AMonoSoundOnTwoChannelsIsTheSameSound) {
    const std::vector<float> mono = sine(440, 0.5, 2 * kUpdate);
    const float gains[] = {1, 1};
    const QByteArray expected = runCommand({"partials", write("mono.wav", mono)}).output;
    EXPECT_EQ(expected.count('\n'), 2);
    EXPECT_EQ(
        runCommand({"partials", write("stereo.wav", onChannels(mono, gains), 44100, 2)}).output,
        expected);
}

TEST_F(PartialsCommand, KnowsTheRecordingsRate) {
    struct {
        unsigned rate;
        double hz, tolerance;
    } const cases[] = {
        {8000, 440, 0.05}, {48000, 440, 0.05}, {96000, 440, 0.1}, {384000, 440, 0.2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rate);
        const int rate = static_cast<int>(c.rate);
        const int count = 20000 + rate / 2; // four analyses and more, for the history
        const auto lines = analyses(write("rate.wav", sine(c.hz, 0.5, count, rate), c.rate));
        ASSERT_GE(lines.size(), 4u);
        EXPECT_NEAR(lines.back()["fundamental"].toDouble(), c.hz, c.tolerance);
    }
}

TEST_F(PartialsCommand, AtNineHertzAnUpdateFrameIsASample) {
    // kept: a positive sample alone is no peak, so that four of nine are heard
    const auto lines = analyses(write("slow.wav", sine(1, 0.5, 2 * kAnalysis * 9 / 4, 9), 9));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1]["analysis"].toInt(), 1);
    EXPECT_LT(lines[1]["frame"].toInt(), 2 * kAnalysis * 9 / 4);
}

TEST_F(PartialsCommand, ASampleThatIsNoNumberSpoilsItsAnalysisAlone) {
    std::vector<float> samples = sine(440, 0.5, 4 * kUpdate);
    samples[kAnalysis + 100] = std::numeric_limits<float>::quiet_NaN();
    const auto lines = analyses(write("nan.wav", samples));
    ASSERT_EQ(lines.size(), 5u);
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i]["partials"].isNull(), i == 1) << i;
}

TEST_F(PartialsCommand, BadRecordingsGetOneLineAndExitCodeOne) {
    QFile text(mFolder.filePath("text.wav"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("This is not a recording.\n");
    text.close();
    for (const QString& path :
         {mFolder.filePath("nothing.wav"), mFolder.path(), text.fileName(), write("empty.wav", {}),
          write("wide.wav", std::vector<float>(650), 44100, 65),
          write("fast.wav", sine(440, 0.5, 9000), 400000)}) {
        SCOPED_TRACE(path.toStdString());
        const CommandRun run = runCommand({"partials", path});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.startsWith("veltrano-cli: "));
    }
}

TEST_F(PartialsCommand, WrongUsageExitsWithTwo) {
    const QString file = write("a4.wav", sine(440, 0.5, kUpdate));
    const QStringList cases[] = {
        {},
        {file, file},
        {file, "--loud"},
        {file, "--block", "0"},
        {file, "--block", "-1"},
        {file, "--block", "x"},
        {file, "--block", "1048577"},
        {file, "--json"},
        {file, "--reference-pitch", "440"},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CommandRun run = runCommand(QStringList{"partials"} + arguments);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    }
}

TEST_F(PartialsCommand, HasHelpAndVersion) {
    const CommandRun help = runCommand({"partials", "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.output.startsWith("Usage: ")) << help.output.toStdString();
    EXPECT_TRUE(help.output.contains("--block"));
    const CommandRun version = runCommand({"partials", "--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.output.startsWith("veltrano-cli "));
    EXPECT_TRUE(runCommand({"--help"}).output.contains("partials"));
}

TEST_F(PartialsCommand, AClosedPipeEndsQuietly) {
    const QString file = write("long.wav", sine(440, 0.5, 4000000, 8000), 8000);
    QProcess process;
    process.start("/bin/bash", {"-c",
                                QStringLiteral("\"$0\" partials \"$1\" | head -1; "
                                               "echo ${PIPESTATUS[0]} >&2"),
                                QStringLiteral(VELTRANO_CLI), file});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.readAllStandardError(), "0\n");
    EXPECT_EQ(process.readAllStandardOutput().count('\n'), 1);
}

} // namespace
} // namespace veltrano
