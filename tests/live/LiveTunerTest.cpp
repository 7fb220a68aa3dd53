// SPDX-License-Identifier: GPL-3.0-or-later
// The running program on a real sound server: notes, hot-plug, dying and hanging servers.
#include "tests/live/ListeningTuner.h"
#include "tests/support/SoundServer.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <numbers>

namespace veltrano {
namespace {

constexpr int kRate = 44100;

bool isSoak() { return qEnvironmentVariableIsSet("VELTRANO_SOAK"); }

std::vector<float> sine(double hz, double seconds) {
    std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = 0.5f * float(std::sin(2 * std::numbers::pi * hz * double(i) / kRate));
    }
    return samples;
}

/// A frame that heard the tone source, A4.
bool isA4(const QJsonObject& frame) {
    return frame["rawFrequency"].toDouble() > 1 && frame["key"].toInt(-1) == 57;
}

int openFiles(qint64 process) {
    return int(QDir(QStringLiteral("/proc/%1/fd").arg(process)).entryList(QDir::NoFilter).size());
}

int residentKib(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toInt();
    }
    return -1;
}

class LiveTuner : public testing::TestWithParam<SoundServer::Kind> {
protected:
    void SetUp() override {
        if (const auto reason = SoundServer::missing(GetParam())) GTEST_SKIP() << *reason;
        mServer = std::make_unique<SoundServer>(GetParam());
        ASSERT_TRUE(mServer->start()) << mServer->output();
    }

    /// The name under which the tuner lists the input of that description.
    QString inputNamed(const QString& description) {
        QString name;
        ListeningTuner lister(mServer->address(), {"devices", "--json"});
        lister.await(10, [&](const QJsonObject& device) {
            if (device["direction"] != "input") return false;
            name = device["name"].toString();
            return name.endsWith(description);
        });
        EXPECT_TRUE(name.endsWith(description)) << name.toStdString();
        return name;
    }

    std::unique_ptr<SoundServer> mServer;
};

TEST_P(LiveTuner, NamesANotePlayedIntoTheSink) {
    ListeningTuner tuner(mServer->address(),
                         {"listen", "--json", "--device", inputNamed("Monitor of TestSink")});
    const std::vector<float> c5 = sine(523.2511, 6);
    mServer->play(c5, kRate, "test");
    QJsonObject last;
    int named = 0;
    EXPECT_TRUE(tuner.await(6, [&](const QJsonObject& frame) {
        if (frame["key"].toInt(-1) == 60 && frame["rawFrequency"].toDouble() > 1) ++named;
        last = frame;
        return named == 10;
    })) << QJsonDocument(last).toJson().toStdString();
    EXPECT_EQ(last["note"].toString(), "C");
    EXPECT_EQ(last["octave"].toInt(), 5);
    EXPECT_NEAR(last["deviation"].toDouble(), 0, 0.03);
}

TEST_P(LiveTuner, TheDeviceListFollowsLoadingAndUnloading) {
    ListeningTuner lister(mServer->address(), {"devices", "--json", "--watch"});
    const auto isNew = [](const QJsonObject& device) {
        return device["name"].toString().endsWith("Plugged");
    };
    ASSERT_TRUE(
        lister.await(5, [](const QJsonObject& device) { return device["direction"] == "output"; }));
    const auto module = mServer->loadModule(
        {"module-null-sink", "sink_name=plugged", "sink_properties=device.description=Plugged"});
    ASSERT_TRUE(module);
    EXPECT_TRUE(lister.await(5, isNew));
    EXPECT_TRUE(mServer->unloadModule(*module));
    // After a blank line a whole list follows in which it is missing.
    bool isMissing = false;
    EXPECT_TRUE(lister.await(5, [&](const QJsonObject& device) {
        if (device.isEmpty()) isMissing = true;
        if (isNew(device)) isMissing = false;
        return isMissing && device["direction"] == "output" && device["index"].toInt() == 1;
    }));
}

TEST_P(LiveTuner, ResumesEachTimeTheServerIsKilledAndBack) {
    const int kills = isSoak() ? 100 : 10;
    ListeningTuner tuner(mServer->address(),
                         {"listen", "--json", "--device", inputNamed("TestTone")});
    ASSERT_TRUE(tuner.await(10, isA4));
    std::vector<double> delays;
    int filesAtStart = 0;
    int memoryAtStart = 0;
    for (int i = 0; i < kills; ++i) {
        mServer->kill();
        ASSERT_TRUE(mServer->start()) << mServer->output();
        tuner.forget();
        QElapsedTimer timer;
        timer.start();
        ASSERT_TRUE(tuner.await(10, isA4)) << "after kill " << i + 1;
        delays.push_back(double(timer.nsecsElapsed()) * 1e-9);
        if (i == 1) { // what the first connections keep is kept once
            filesAtStart = openFiles(tuner.id());
            memoryAtStart = residentKib(tuner.id());
        }
    }
    EXPECT_TRUE(tuner.isRunning());
    std::sort(delays.begin(), delays.end());
    const int files = openFiles(tuner.id());
    const int memory = residentKib(tuner.id());
    std::printf(
        "%d kills: server ready to first reading: median %.3f s, least %.3f s, most %.3f s; "
        "open files %d -> %d, resident %d -> %d KiB\n",
        kills, delays[delays.size() / 2], delays.front(), delays.back(), filesAtStart, files,
        memoryAtStart, memory);
    EXPECT_LT(delays[delays.size() / 2], 0.5);
    EXPECT_LE(files, filesAtStart + 1);
#ifndef VELTRANO_SANITIZED
    EXPECT_LT(memory, memoryAtStart + 2048) << "it leaks";
#endif
}

TEST_P(LiveTuner, AHungServerIsNoticedAndSurvived) {
    ListeningTuner tuner(mServer->address(),
                         {"listen", "--json", "--device", inputNamed("TestTone")});
    ASSERT_TRUE(tuner.await(10, isA4));
    mServer->hang();
    tuner.forget();
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(tuner.await(2, [](const QJsonObject& frame) {
        return frame["rawPeak"].toDouble(1) == 0 && frame["inTune"] == "gray";
    })) << "the display must come to rest";
    std::printf("hung server: the in-tune light is grey after %.3f s\n",
                double(timer.elapsed()) / 1000);
    while (timer.elapsed() < 3000)
        tuner.await(0.5, [](const QJsonObject&) { return false; });
    mServer->goOn();
    EXPECT_TRUE(tuner.await(10, isA4));
    EXPECT_TRUE(tuner.isRunning());
}

INSTANTIATE_TEST_SUITE_P(Servers, LiveTuner,
                         testing::Values(SoundServer::Kind::pulseAudio,
                                         SoundServer::Kind::pipeWire),
                         [](const auto& kind) {
                             return kind.param == SoundServer::Kind::pulseAudio ? "PulseAudio"
                                                                                : "PipeWire";
                         });

} // namespace
} // namespace veltrano
