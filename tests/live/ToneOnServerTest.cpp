// SPDX-License-Identifier: GPL-3.0-or-later
// The reference tone on real sound servers, and the tuner that hears it.
#include "tests/live/PlayingTuner.h"
#include "tests/live/ToneFit.h"
#include "tests/support/SoundServer.h"
#include "tests/support/WavFile.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>
#include <optional>

namespace veltrano {
namespace {

constexpr double kRate = 44100;
constexpr float kVolume = 0.7f; ///< of the settings on a first run
constexpr double kRamp = 0.1;   ///< [s]

bool isSoak() { return qEnvironmentVariableIsSet("VELTRANO_SOAK"); }

double hzOfKey(int key) { return 440 * std::exp2((key - 57) / 12.0); }

class ToneOnServer : public testing::TestWithParam<SoundServer::Kind> {
protected:
    void SetUp() override {
        if (const auto reason = SoundServer::missing(GetParam())) GTEST_SKIP() << *reason;
        mServer = std::make_unique<SoundServer>(GetParam(), SoundServer::Devices::sink);
        ASSERT_TRUE(mServer->start()) << mServer->output();
        mTuner = std::make_unique<PlayingTuner>(mServer->address());
        mMonitor = mTuner->find("Monitor of TestSink", Direction::input);
        ASSERT_NE(mMonitor, 0u);
        ASSERT_NE(mTuner->controller().soundGen(), nullptr);
        // The recorder needs the device for itself.
        mTuner->controller().applicationDidHide();
    }

    void play(double hz, double seconds) {
        mTuner->controller().soundGen()->playFreq(float(hz), float(seconds));
    }
    void awaitSilence() {
        EXPECT_TRUE(
            mTuner->waitFor([this] { return !mTuner->controller().soundGen()->isRunning(); }, 30));
    }

    /// What was heard, without the silence around it, and a sine fitted to its steady part.
    struct Recorded {
        std::vector<float> sound;
        ToneFit fit;
    };
    Recorded recorded(double hz, const std::function<void()>& play);

    std::unique_ptr<SoundServer> mServer;
    std::unique_ptr<PlayingTuner> mTuner;
    DeviceId mMonitor = 0;
};

/// The samples without both ramps and a little more.
std::span<const float> steadyPart(std::span<const float> sound) {
    const auto margin = std::size_t((kRamp + 0.02) * kRate);
    return sound.subspan(margin, sound.size() - 2 * margin);
}

constexpr double kCleanResidual = 0.003; ///< beyond it there is a gap or a click

/// Plays and records until it comes out clean. A server that has to share a busy machine skips now
/// and then, so one of three has to be.
ToneOnServer::Recorded ToneOnServer::recorded(double hz, const std::function<void()>& play) {
    Recorded result;
    for (int attempt = 0; attempt < 3; ++attempt) {
        DeviceRecorder recorder(mTuner->hardware(),
                                mTuner->find("Monitor of TestSink", Direction::input), 20);
        if (!mTuner->waitFor([&] { return recorder.frames() > 4410; }, 10)) return result;
        play();
        awaitSilence();
        recorder.stop();
        const std::vector<float> all = recorder.firstChannel();
        const SoundingPart part = soundingPart(all);
        result.sound.assign(all.begin() + std::ptrdiff_t(part.begin),
                            all.begin() + std::ptrdiff_t(part.end));
        if (double(result.sound.size()) < 0.5 * kRate) continue;
        result.fit = fitTone(steadyPart(result.sound), kRate, hz);
        if (result.fit.largestResidual < kCleanResidual) break;
        std::printf("the server skipped (%.4f)\n", result.fit.largestResidual);
    }
    return result;
}

TEST_P(ToneOnServer, HasItsFrequencyLevelAndLength) {
    constexpr double kHz = 440, kSeconds = 2.5;
    const Recorded tone = recorded(kHz, [this] {
        play(kHz, kSeconds);
        EXPECT_TRUE(mTuner->controller().soundGen()->isPlaying());
    });
    const double seconds = double(tone.sound.size()) / kRate;
    const ToneFit& fit = tone.fit;
    EXPECT_NEAR(seconds, kSeconds + kRamp, 0.005);
    EXPECT_NEAR(centsBetween(fit.hz, kHz), 0, 0.01);
    EXPECT_NEAR(20 * std::log10(fit.amplitude / double(kVolume)), 0, 0.1);
    EXPECT_LT(fit.largestResidual, kCleanResidual);
    std::printf("%.6f cents, %.4f dB, %.4f s, residual %.6f\n", centsBetween(fit.hz, kHz),
                20 * std::log10(fit.amplitude / double(kVolume)), seconds, fit.largestResidual);
    ASSERT_GT(seconds, 2);
    // Half way up and down the ramps.
    const auto levelAt = [&](double at) {
        const auto begin = std::size_t((at - 0.005) * kRate);
        return amplitudeOf(std::span(tone.sound).subspan(begin, 441), kRate, kHz) / fit.amplitude;
    };
    EXPECT_NEAR(levelAt(kRamp / 2), 0.5, 0.05);
    EXPECT_NEAR(levelAt(seconds - kRamp / 2), 0.5, 0.05);
}

TEST_P(ToneOnServer, TonesJoinWithoutAJump) {
    const Recorded tones = recorded(523.2511, [this] {
        for (int tone = 0; tone < 5; ++tone) {
            play(523.2511, 1);
            mTuner->pass(0.45);
        }
    });
    ASSERT_GT(double(tones.sound.size()), 2.5 * kRate);
    EXPECT_LT(tones.fit.largestResidual, kCleanResidual);
}

TEST_P(ToneOnServer, AServerThatDiesEndsTheToneAndTheNextOneIsHeard) {
    play(440, 1);
    mTuner->pass(0.3);
    mServer->kill();
    EXPECT_TRUE(
        mTuner->waitFor([this] { return !mTuner->controller().soundGen()->isPlaying(); }, 5));
    ASSERT_TRUE(mServer->start()) << mServer->output();
    ASSERT_TRUE(
        mTuner->waitFor([this] { return mTuner->find("TestSink", Direction::output) != 0; }, 10));
    mTuner->pass(0.5);
    const Recorded tone = recorded(660, [this] { play(660, 1); });
    ASSERT_GT(double(tone.sound.size()), 0.8 * kRate);
    EXPECT_NEAR(centsBetween(tone.fit.hz, 660), 0, 0.1);
    EXPECT_LT(tone.fit.largestResidual, kCleanResidual);
}

/// What is kept of a live reading, and what `analyze` prints of the same.
struct Reading {
    int key = -1;
    double rawFrequency = 0;
    double deviation = 0;
    bool operator==(const Reading&) const = default;
};

std::vector<Reading> analyzed(const QString& path) {
    QProcess cli;
    cli.start(QStringLiteral(VELTRANO_CLI), {"analyze", path, "--json"});
    cli.waitForFinished(60000);
    std::vector<Reading> readings;
    for (const QByteArray& line : cli.readAllStandardOutput().split('\n')) {
        if (line.isEmpty()) continue;
        const QJsonObject frame = QJsonDocument::fromJson(line).object();
        readings.push_back({frame["key"].toInt(-1), frame["rawFrequency"].toDouble(),
                            frame["deviation"].toDouble()});
    }
    return readings;
}

/// Where @p frame begins in the first channel of what was recorded.
std::optional<std::size_t> placeOf(std::span<const float> frame, std::span<const float> recorded) {
    const auto found = std::ranges::search(recorded, frame);
    if (found.empty()) return std::nullopt;
    return std::size_t(found.begin() - recorded.begin());
}

TEST_P(ToneOnServer, TheTunerNamesEveryKeyThatItPlays) {
    constexpr int kLowest = 13, kHighest = 96; // C#1 ... C8
    constexpr double kToneSeconds = 1.2;
    const int step = isSoak() ? 1 : 11;
    const double mostSeconds = 20 + (kHighest - kLowest) / step * (kToneSeconds + 2);
    InputTap tap(mTuner->controller(), mTuner->hardware(), mMonitor, mostSeconds);

    std::vector<Reading> live;
    FrameRef firstHeard;        // the first frame with sound in it
    std::size_t firstIndex = 0; // its place among the readings
    int playing = -1;
    double playingSince = 0;
    SteadyClock clock;
    int readings = 0, near = 0;
    mTuner->onReading = [&](const ReadingRecord& record, const FrameRef& frame) {
        if (frame && !firstHeard) firstHeard = frame, firstIndex = live.size();
        live.push_back({record.shown ? record.shown->key : -1, double(record.rawFrequency),
                        record.shown ? double(record.deviation) : 0});
        // After the attack: two frames, and what the server holds back.
        if (playing < 0 || clock.now() < playingSince + 0.55 || record.rawFrequency <= 0) return;
        ++readings;
        EXPECT_EQ(live.back().key, playing);
        EXPECT_LT(std::abs(live.back().deviation), 0.25) << "key " << playing;
        if (std::abs(live.back().deviation) <= 0.01) ++near;
    };
    mTuner->controller().applicationDidUnhide();
    mTuner->pass(0.5);
    for (int key = kLowest; key <= kHighest; key += step) {
        play(hzOfKey(key), kToneSeconds);
        playing = key, playingSince = clock.now();
        mTuner->pass(kToneSeconds);
        playing = -1;
        mTuner->pass(0.4);
    }
    mTuner->controller().applicationDidHide();
    ASSERT_GT(readings, 4 * (kHighest - kLowest) / step);
    // Of few keys the lowest one, hardly two periods of which are in a frame, counts for more.
    EXPECT_GE(near, readings * (isSoak() ? 9 : 8) / 10);
    std::printf("%d readings, %d within a cent, %d blocks with unequal channels\n", readings, near,
                tap.unequalBlocks());

    // The recording from the first live frame on gives the live readings again.
    ASSERT_TRUE(firstHeard);
    const auto place = placeOf(firstHeard->samples, tap.firstChannel());
    ASSERT_TRUE(place);
    QTemporaryDir folder;
    const QString path = folder.filePath("monitor.wav");
    ASSERT_TRUE(writeWav(path.toStdString(), tap.samples().subspan(*place * tap.channels()),
                         unsigned(kRate), tap.channels(), WavFormat::float32));
    const std::vector<Reading> again = analyzed(path);
    const std::size_t compared = std::min(again.size(), live.size() - firstIndex);
    ASSERT_GT(compared, std::size_t(4 * (kHighest - kLowest) / step));
    for (std::size_t i = 0; i < compared; ++i) {
        EXPECT_EQ(again[i].rawFrequency, live[firstIndex + i].rawFrequency) << i;
    }
}

std::string nameOf(const testing::TestParamInfo<SoundServer::Kind>& info) {
    return info.param == SoundServer::Kind::pulseAudio ? "PulseAudio" : "PipeWire";
}

INSTANTIATE_TEST_SUITE_P(, ToneOnServer,
                         testing::Values(SoundServer::Kind::pulseAudio,
                                         SoundServer::Kind::pipeWire),
                         nameOf);

} // namespace
} // namespace veltrano

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
