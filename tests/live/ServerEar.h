// SPDX-License-Identifier: GPL-3.0-or-later
// Listens to what a sound server plays.
#pragma once

#include "tests/support/SoundServer.h"
#include "tests/support/TestProcess.h"

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <vector>

namespace veltrano {

/// Records the sink "test" of a server while this object lives. Thread: main.
class ServerEar {
public:
    explicit ServerEar(const SoundServer& server)
        : mRecorder({"parec", "--server=" + server.address(), "--device=test.monitor",
                     "--format=float32le", "--rate=44100", "--channels=1", "--latency-msec=50"},
                    {}, file().toStdString()) {}

    /// How often the last fifth of a second swings, in Hz, give or take 5; 0: silence.
    double heardHz() const {
        constexpr float kSilence = 0.001F;
        const std::vector<float> samples = last();
        const bool isSilent = std::all_of(samples.begin(), samples.end(),
                                          [](float it) { return std::abs(it) < kSilence; });
        if (isSilent) return 0;
        int rises = 0;
        for (std::size_t i = 1; i < samples.size(); ++i)
            rises += samples[i - 1] < 0 && samples[i] >= 0 ? 1 : 0;
        return rises * kRateHz / static_cast<double>(kSamples);
    }

private:
    static constexpr double kRateHz = 44100;
    static constexpr int kSamples = 8820;

    QString file() const { return mFolder.filePath(QStringLiteral("heard.raw")); }

    /// Empty while there are too few.
    std::vector<float> last() const {
        constexpr qint64 kBytes = kSamples * sizeof(float);
        QFile recorded(file());
        if (!recorded.open(QIODevice::ReadOnly) || recorded.size() < kBytes) return {};
        const qint64 whole = recorded.size() / qint64(sizeof(float)) * qint64(sizeof(float));
        recorded.seek(whole - kBytes);
        std::vector<float> samples(kSamples);
        recorded.read(reinterpret_cast<char*>(samples.data()), kBytes);
        return samples;
    }

    QTemporaryDir mFolder;
    TestProcess mRecorder;
};

} // namespace veltrano
