// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli tone: its samples, its file, its refusals.
#include "tests/cli/CommandRun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

namespace veltrano {
namespace {

struct Wave {
    int format = 0; ///< 3: floating point
    int channels = 0;
    int rateHz = 0;
    int bits = 0;
    std::vector<float> samples;
};

quint32 number(const QByteArray& bytes, qsizetype at, int size) {
    quint32 value = 0;
    for (int i = 0; i < size; ++i)
        value |= quint32(quint8(bytes[at + i])) << (8 * i);
    return value;
}

Wave readWave(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    Wave wave;
    EXPECT_EQ(bytes.first(4), "RIFF");
    EXPECT_EQ(number(bytes, 4, 4), quint32(bytes.size() - 8));
    for (qsizetype at = 12; at + 8 <= bytes.size();) {
        const QByteArray name = bytes.sliced(at, 4);
        const auto size = qsizetype(number(bytes, at + 4, 4));
        if (name == "fmt ") {
            wave.format = int(number(bytes, at + 8, 2));
            wave.channels = int(number(bytes, at + 10, 2));
            wave.rateHz = int(number(bytes, at + 12, 4));
            wave.bits = int(number(bytes, at + 22, 2));
        } else if (name == "data") {
            wave.samples.resize(std::size_t(size) / sizeof(float));
            std::memcpy(wave.samples.data(), bytes.data() + at + 8, std::size_t(size));
        }
        at += 8 + size;
    }
    return wave;
}

/// What a tone is made of: the value of the plain wave and its mean over a sample.
double area(const QString& waveform, double phase) {
    const double f = phase - std::floor(phase);
    if (waveform == "sawtooth") return f < 0.5 ? f * f : (f - 1) * (f - 1);
    return f < 0.5 ? f : 1 - f;
}

double expectedWave(const QString& waveform, double phase, double increment) {
    if (waveform == "sine") return std::sin(2 * std::numbers::pi * phase);
    if (waveform == "triangle") {
        const double f = phase + 0.25 - std::floor(phase + 0.25);
        return 1 - 4 * std::abs(f - 0.5);
    }
    return (area(waveform, phase + increment) - area(waveform, phase)) / increment;
}

class ToneCommand : public testing::Test {
protected:
    QString path(const char* name = "tone.wav") const { return mFolder.filePath(name); }
    CommandRun tone(const QStringList& options) const {
        return runCommand(QStringList{"tone", path()} + options);
    }
    Wave written(const QStringList& options = {}) const {
        const CommandRun run = tone(options);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "");
        return readWave(path());
    }

    QTemporaryDir mFolder;
};

TEST_F(ToneCommand, EverySampleOfTheFourWaveforms) {
    constexpr double kHz = 440, kVolume = 0.5;
    constexpr int kFrames = 13230, kRamp = 4410; // 0.3 s and 0.1 s at 44.1 kHz
    const double increment = double(float(kHz) / 44100.0f);
    for (const char* waveform : {"sine", "triangle", "sawtooth", "square"}) {
        SCOPED_TRACE(waveform);
        const Wave wave = written({"--frequency", "440", "--length", "0.3", "--volume", "50",
                                   "--rate", "44100", "--waveform", waveform});
        EXPECT_EQ(wave.format, 3);
        EXPECT_EQ(wave.channels, 1);
        EXPECT_EQ(wave.rateHz, 44100);
        EXPECT_EQ(wave.bits, 32);
        ASSERT_EQ(wave.samples.size(), std::size_t(kFrames + kRamp));
        for (int i = 0; i < kFrames + kRamp; ++i) {
            const int level = i < kFrames ? std::min(i + 1, kRamp) : kRamp - (i - kFrames + 1);
            const double x = expectedWave(waveform, i * increment, increment);
            ASSERT_NEAR(double(wave.samples[std::size_t(i)]), kVolume * x * level / kRamp, 1e-7)
                << i;
        }
    }
}

TEST_F(ToneCommand, WithoutOptionsItIsASecondOfA4) {
    const Wave wave = written();
    EXPECT_EQ(wave.rateHz, 44100);
    ASSERT_EQ(wave.samples.size(), 44100u + 4410u);
    EXPECT_EQ(wave.samples, written({"--frequency", "440", "--length", "1", "--volume", "70",
                                     "--rate", "44100", "--waveform", "sine"})
                                .samples);
    EXPECT_NEAR(*std::ranges::max_element(wave.samples), 0.7f, 1e-4);
}

TEST_F(ToneCommand, TheLengthIsThatOfTheToneAndOneRamp) {
    const struct {
        const char* name;
        QStringList options;
        std::size_t samples;
    } cases[] = {
        {"no length: the ramp alone", {"--length", "0"}, 4410},
        {"a product in single precision", {"--length", "0.7"}, 30870 + 4410},
        {"shorter than the ramp", {"--length", "0.01"}, 441 + 4410},
        {"another rate", {"--length", "2.3", "--rate", "48000"}, 110400 + 4800},
        {"a ramp that is truncated", {"--length", "1", "--rate", "11025"}, 11025 + 1102},
        {"a rate without a ramp", {"--length", "1", "--rate", "9"}, 9},
        {"the highest rate", {"--length", "0.5", "--rate", "384000"}, 192000 + 38400},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        EXPECT_EQ(written(test.options).samples.size(), test.samples);
    }
}

TEST_F(ToneCommand, LengthZeroAndVolumeZeroAreSilent) {
    for (const char* option : {"--length", "--volume"}) {
        const Wave wave = written({option, "0"});
        EXPECT_EQ(std::ranges::count(wave.samples, 0.0f), std::ssize(wave.samples)) << option;
    }
}

TEST_F(ToneCommand, ItEndsInSilence) {
    const Wave wave = written({"--waveform", "square"});
    EXPECT_EQ(wave.samples.back(), 0.0f);
    EXPECT_NE(wave.samples[wave.samples.size() - 2], 0.0f);
}

TEST_F(ToneCommand, TheSameToneIsTheSameFileInAnyLocale) {
    written({"--frequency", "261.6256"});
    QFile first(path());
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    const QByteArray bytes = first.readAll();
    runCommand({"tone", path("again.wav"), "--frequency", "261.6256"},
               {"LC_ALL=de_DE.UTF-8", "LANG=de_DE.UTF-8"});
    QFile second(path("again.wav"));
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    EXPECT_EQ(second.readAll(), bytes);
}

TEST_F(ToneCommand, AnalyzeNamesTheKeyThatItHolds) {
    written({"--frequency", "523.2511", "--length", "2"});
    const CommandRun run = runCommand({"analyze", path()});
    EXPECT_EQ(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.trimmed().split('\n');
    ASSERT_GT(lines.size(), 10);
    for (int i = 1; i + 1 < lines.size(); ++i)
        EXPECT_EQ(QJsonDocument::fromJson(lines[i]).object()["key"].toInt(), 60) << i;
}

TEST_F(ToneCommand, WrongUsageExitsWithTwoAndWritesNothing) {
    const struct {
        QStringList options;
        const char* reason;
    } cases[] = {
        {{"more.wav"}, "one OUT.wav"},
        {{"--loud"}, "loud"},
        {{"--frequency", "0"}, "--frequency takes a number from 0.001 to 192000"},
        {{"--frequency", "-440"}, "--frequency takes"},
        {{"--frequency", "192001"}, "--frequency takes"},
        {{"--frequency", "nan"}, "--frequency takes"},
        {{"--frequency", "440,5"}, "--frequency takes"},
        {{"--frequency", "A4"}, "--frequency takes"},
        {{"--frequency", ""}, "--frequency takes"},
        {{"--length", "-0.1"}, "--length takes a number from 0 to 3600"},
        {{"--length", "3600.5"}, "--length takes"},
        {{"--length", "inf"}, "--length takes"},
        {{"--volume", "-1"}, "--volume takes a number from 0 to 100"},
        {{"--volume", "100.5"}, "--volume takes"},
        {{"--rate", "0"}, "--rate takes a number from 1 to 384000"},
        {{"--rate", "384001"}, "--rate takes"},
        {{"--rate", "44100.5"}, "--rate takes a whole number"},
        {{"--waveform", "saw"}, "--waveform takes sine, triangle, sawtooth or square"},
        {{"--waveform", "Sine"}, "--waveform takes"},
        {{"--waveform", "0"}, "--waveform takes"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.options.join(' ').toStdString());
        const CommandRun run = tone(test.options);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(test.reason)) << run.errors.toStdString();
        EXPECT_FALSE(QFile::exists(path()));
    }
    EXPECT_EQ(runCommand({"tone"}).exitCode, 2);
}

TEST_F(ToneCommand, APathThatCannotBeWrittenExitsWithOne) {
    for (const QString& place : {path("no/such/folder.wav"), mFolder.path(),
                                 QStringLiteral("/dev/full"), QStringLiteral("/proc/tone.wav")}) {
        SCOPED_TRACE(place.toStdString());
        const CommandRun run = runCommand({"tone", place});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.reasons().size(), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.startsWith("veltrano-cli: " + place.toUtf8() + ": "));
    }
    EXPECT_TRUE(QDir(mFolder.path()).isEmpty()) << "nothing was left behind";
}

TEST_F(ToneCommand, AFailedFileLeavesTheOldOne) {
    written();
    const CommandRun run = tone({"--rate", "384000", "--length", "3600"}); // 5.5 GB of samples
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors,
              "veltrano-cli: " + path().toUtf8() + ": not a sound that a WAV file can hold\n");
    EXPECT_EQ(readWave(path()).samples.size(), 44100u + 4410u);
}

TEST_F(ToneCommand, WhatDoesNotFitIntoMemoryIsRefused) {
#ifdef VELTRANO_SANITIZED
    GTEST_SKIP() << "a sanitizer takes more address space than the limit leaves";
#endif
    QProcess process;
    process.start("/bin/bash", {"-c",
                                "ulimit -v 1000000; exec \"$0\" tone \"$1\" --length 3600 "
                                "--rate 192000",
                                QStringLiteral(VELTRANO_CLI), path()});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(),
              "veltrano-cli: " + path().toUtf8() + ": not enough memory\n");
}

TEST_F(ToneCommand, HelpAndVersion) {
    const CommandRun help = runCommand({"tone", "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.output.startsWith("Usage: "));
    for (const char* option : {"--frequency", "--length", "--volume", "--rate", "--waveform"})
        EXPECT_TRUE(help.output.contains(option)) << option;
    EXPECT_TRUE(runCommand({"tone", "--version"}).output.startsWith("veltrano-cli "));
}

} // namespace
} // namespace veltrano
