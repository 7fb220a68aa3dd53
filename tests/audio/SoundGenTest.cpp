// SPDX-License-Identifier: GPL-3.0-or-later
// The tone generator: when it starts and stops its unit, and what it renders.
#include "audio/SoundGen.h"
#include "tests/audio/AUOutputTestBase.h"
#include "tests/support/DrivenTimer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace veltrano {
namespace {

constexpr double kRate = 8000;
constexpr std::uint32_t kRamp = 800; ///< samples

class SoundGenTest : public AUOutputUnitTestBase {
protected:
    void SetUp() override {
        device = hardware.addDevice(loudspeaker("A", kRate));
        auto made = std::make_unique<DrivenTimer>();
        timer = made.get();
        generator = std::make_unique<SoundGen>(std::move(made));
        generator->setAUOutputUnit(unit());
        unit().setOutputDeviceWithName("M : A");
        settle();
        script.takeCalls();
        render(1);
    }
    void TearDown() override { generator.reset(); }

    /// The first channel of one render cycle.
    std::vector<float> render(std::uint32_t frames) {
        std::vector<float> left(frames, -9), right(frames, -9);
        std::array<AudioBuffer, 2> buffers{bufferOf(left), bufferOf(right)};
        EXPECT_EQ(script.render(buffers, frames), 0);
        EXPECT_EQ(left, right);
        return left;
    }
    static AudioBuffer bufferOf(std::vector<float>& samples) {
        return {1, std::uint32_t(samples.size() * sizeof(float)), samples.data()};
    }
    /// Plays to the end of the fade-out, which the event loop then hears of.
    void renderToTheEnd() {
        const float last = render(20000).back();
        EXPECT_EQ(last, 0.0f);
        QCoreApplication::processEvents();
    }
    /// Square waves of 0 Hz show the envelope.
    void playEnvelope(float seconds) {
        generator->setWaveform(3);
        generator->setVolume(1);
        generator->playFreq(0, seconds);
    }

    DeviceId device = 0;
    DrivenTimer* timer = nullptr;
    std::unique_ptr<SoundGen> generator;
};

// --- start and stop ---

TEST_F(SoundGenTest, ATonesRequestStartsTheUnitAndCountsAsPlaying) {
    EXPECT_FALSE(generator->isPlaying());
    EXPECT_FALSE(generator->isRunning()) << "that the device was selected is not of its doing";
    generator->playFreq(440, 1);
    EXPECT_EQ(script.takeCalls(), Lines{"start"});
    EXPECT_TRUE(generator->isPlaying()) << "although nothing has been rendered";
    EXPECT_TRUE(generator->isRunning());
    generator->playFreq(440, 1);
    EXPECT_EQ(script.takeCalls(), Lines{}) << "it runs";
}

TEST_F(SoundGenTest, TheUnitIsStoppedASecondAfterTheFadeOut) {
    generator->playFreq(440, 0.5f);
    script.takeCalls();
    render(4000);
    EXPECT_TRUE(generator->isPlaying()) << "the frame after the last ends it";
    render(kRamp - 1);
    EXPECT_FALSE(generator->isPlaying());
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->waiting(), std::nullopt) << "it still sounds";
    render(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->waiting(), 1000);
    EXPECT_TRUE(generator->isRunning());
    EXPECT_EQ(script.takeCalls(), Lines{});
    timer->fire();
    EXPECT_EQ(script.takeCalls(), Lines{"stop"});
    EXPECT_FALSE(generator->isRunning());
    generator->playFreq(440, 1);
    EXPECT_EQ(script.takeCalls(), Lines{"start"});
}

TEST_F(SoundGenTest, AToneWithinTheDelayKeepsTheUnitRunning) {
    generator->playFreq(440, 0.5f);
    renderToTheEnd();
    script.takeCalls();
    generator->playFreq(660, 0.5f);
    timer->fire();
    EXPECT_EQ(script.takeCalls(), Lines{});
    EXPECT_TRUE(generator->isRunning());
    renderToTheEnd();
    EXPECT_EQ(timer->waiting(), 1000) << "its own end stops the unit";
    timer->fire();
    EXPECT_EQ(script.takeCalls(), Lines{"stop"});
}

TEST_F(SoundGenTest, AToneWithinTheDelayIsNotCutInItsFadeOut) {
    generator->playFreq(440, 0.5f);
    renderToTheEnd();
    generator->playFreq(660, 0.5f);
    render(4000 + kRamp / 2);
    EXPECT_FALSE(generator->isPlaying()) << "but it still sounds";
    script.takeCalls();
    timer->fire(); // a second after the first tone
    EXPECT_EQ(script.takeCalls(), Lines{});
    renderToTheEnd();
    EXPECT_EQ(timer->waiting(), 1000);
}

TEST_F(SoundGenTest, AToneThatBeginsBeforeItsEndIsServedKeepsTheUnitRunning) {
    generator->playFreq(440, 0.5f);
    render(20000);
    generator->playFreq(660, 0.5f);
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->waiting(), std::nullopt);
    EXPECT_TRUE(generator->isRunning());
}

TEST_F(SoundGenTest, AToneOfLengthZeroIsSilentAndLeavesTheUnitRunning) {
    playEnvelope(0);
    EXPECT_TRUE(generator->isPlaying());
    EXPECT_TRUE(generator->isRunning());
    const auto samples = render(100);
    EXPECT_EQ(samples, std::vector<float>(100, 0.0f));
    EXPECT_FALSE(generator->isPlaying());
    QCoreApplication::processEvents();
    generator->playFreq(440, 0.5f);
    script.takeCalls();
    renderToTheEnd();
    timer->fire();
    EXPECT_EQ(script.takeCalls(), Lines{"stop"}) << "when the next tone ends";
}

TEST_F(SoundGenTest, AToneOfLengthZeroAsksForNoStop) {
    playEnvelope(0);
    render(20000);
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->starts(), 0);
}

TEST_F(SoundGenTest, TheEventLoopHearsOfTheEndOnItsOwn) {
    generator->playFreq(440, 0.01f);
    render(20000);
    EXPECT_EQ(timer->starts(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->starts(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(timer->starts(), 1) << "once";
}

TEST_F(SoundGenTest, ByTheEventLoopsClockTheStopIsASecondLater) {
    generator = std::make_unique<SoundGen>();
    generator->setAUOutputUnit(unit());
    render(1);
    generator->playFreq(440, 0.01f);
    script.takeCalls();
    render(20000);
    QElapsedTimer elapsed;
    elapsed.start();
    while (generator->isRunning() && elapsed.elapsed() < 10000) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    EXPECT_GE(elapsed.elapsed(), 950);
    EXPECT_EQ(script.takeCalls(), Lines{"stop"});
}

TEST_F(SoundGenTest, AFailedStartIsLoggedAndCountsAsRunning) {
    script.fail("start", -4);
    generator->playFreq(440, 1);
    EXPECT_TRUE(generator->isRunning());
    EXPECT_EQ(log.lines, Lines{"AudioOutputUnitStart failed: -4"});
}

TEST_F(SoundGenTest, AtItsEndTheUnitIsSilencedAndForgetsIt) {
    generator->playFreq(440, 1);
    script.takeCalls();
    generator.reset();
    EXPECT_EQ(script.takeCalls(), (Lines{"stop", "setRenderCallback"}));
    EXPECT_EQ(script.renderProc, nullptr);
    generator = std::make_unique<SoundGen>();
    generator.reset();
    EXPECT_EQ(script.takeCalls(), Lines{}) << "it never had a unit";
}

TEST_F(SoundGenTest, WithoutAUnitATonePlaysNowhere) {
    SoundGen lonely;
    lonely.playFreq(440, 1);
    EXPECT_TRUE(lonely.isRunning());
    lonely.stop();
    EXPECT_FALSE(lonely.isRunning());
}

// --- requests ---

TEST_F(SoundGenTest, LengthZeroEndsAPlayingToneWithItsFadeOut) {
    playEnvelope(100);
    EXPECT_EQ(render(1000).back(), 1.0f);
    generator->setLength(0);
    EXPECT_TRUE(generator->isPlaying()) << "until the next cycle";
    const auto samples = render(1000);
    EXPECT_FALSE(generator->isPlaying());
    EXPECT_EQ(samples[0], 1 - 1.0f / kRamp);
    EXPECT_EQ(samples[kRamp / 2 - 1], 0.5f);
    EXPECT_GT(samples[kRamp - 2], 0.0f);
    EXPECT_EQ(samples[kRamp - 1], 0.0f);
}

TEST_F(SoundGenTest, LengthZeroRightAfterTheRequestLeavesSilence) {
    playEnvelope(1);
    generator->setLength(0);
    EXPECT_TRUE(generator->isPlaying());
    EXPECT_EQ(render(1000), std::vector<float>(1000, 0.0f));
    EXPECT_FALSE(generator->isPlaying());
}

TEST_F(SoundGenTest, ANewLengthIsWhatIsLeftFromThereOn) {
    playEnvelope(100);
    render(1000);
    generator->setLength(0.25f); // 2000 samples
    const auto samples = render(2001);
    EXPECT_EQ(samples[1999], 1.0f);
    EXPECT_LT(samples[2000], 1.0f);
    EXPECT_FALSE(generator->isPlaying());
}

TEST_F(SoundGenTest, ALengthAloneStartsNothing) {
    generator->setLength(10);
    EXPECT_FALSE(generator->isPlaying());
    EXPECT_EQ(script.takeCalls(), Lines{});
    EXPECT_EQ(render(1000), std::vector<float>(1000, 0.0f));
    playEnvelope(100);
    render(1000);
    generator->setLength(0);
    render(400);
    generator->setLength(10); // in the middle of the release
    EXPECT_EQ(render(kRamp).back(), 0.0f);
    EXPECT_FALSE(generator->isPlaying());
}

TEST_F(SoundGenTest, AToneDuringTheReleaseRampsUpFromTheLevelReached) {
    playEnvelope(100);
    render(1000);
    generator->setLength(0);
    EXPECT_EQ(render(600).back(), 0.25f);
    generator->playFreq(0, 1);
    EXPECT_TRUE(generator->isPlaying());
    const auto samples = render(700);
    EXPECT_EQ(samples[0], 0.25f + 1.0f / kRamp);
    EXPECT_EQ(samples[599], 1.0f);
    EXPECT_EQ(samples[699], 1.0f);
}

TEST_F(SoundGenTest, TheUnitsRateIsKnownBeforeTheFirstCycle) {
    generator = std::make_unique<SoundGen>();
    generator->setAUOutputUnit(unit());
    playEnvelope(0.5f); // 4000 samples
    const auto samples = render(4001);
    EXPECT_EQ(samples[3999], 1.0f);
    EXPECT_LT(samples[4000], 1.0f);
}

TEST_F(SoundGenTest, LengthIsCountedAtTheUnitsRateInSinglePrecision) {
    hardware.changeFormat(device, kOut, VirtualDevice::format(44100, 2));
    settle();
    render(1);
    playEnvelope(0.7f); // 30870 samples, a product in double precision would say 30869
    const auto samples = render(30871);
    EXPECT_EQ(samples[30869], 1.0f);
    EXPECT_LT(samples[30870], 1.0f);
}

// --- rendering ---

TEST_F(SoundGenTest, RendersTheWaveformsAtTheirVolume) {
    generator->setVolume(0.5f);
    generator->setWaveform(1);
    generator->playFreq(1000, 100); // eight samples per period
    render(kRamp);
    const std::vector<float> expected{0.25f, 0.5f, 0.25f, 0, -0.25f, -0.5f, -0.25f, 0};
    std::vector<float> period = render(8);
    std::ranges::rotate(period, std::ranges::max_element(period) - 1);
    EXPECT_EQ(period, expected);
}

TEST_F(SoundGenTest, AtFirstItIsASineOfVolumeOneBySquareRootOfTwo) {
    generator->playFreq(500, 100);
    render(kRamp);
    const auto samples = render(16);
    EXPECT_EQ(*std::ranges::max_element(samples), 0.70710677f);
    double power = 0;
    for (const float x : samples)
        power += double(x) * double(x);
    EXPECT_NEAR(power / 16, 0.25, 1e-6);
}

TEST_F(SoundGenTest, AnOddWaveformIsASine) {
    for (const int index : {-1, 4, 2147483647}) {
        generator->setWaveform(0);
        generator->playFreq(500, 100);
        render(kRamp);
        const auto sine = render(16);
        generator->setWaveform(index);
        const auto odd = render(16);
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_NEAR(odd[i], sine[i], 1e-6) << index;
    }
}

TEST_F(SoundGenTest, ASquareWaveOf440HertzIsFullButForTheSamplesAtItsEdges) {
    hardware.changeFormat(device, kOut, VirtualDevice::format(44100, 2));
    settle();
    render(1);
    generator->setWaveform(3);
    generator->setVolume(0.5f);
    generator->playFreq(440, 100);
    render(4410);
    const auto samples = render(44100);
    int between = 0;
    for (std::size_t i = 1; i + 1 < samples.size(); ++i) {
        const float x = std::abs(samples[i]);
        ASSERT_LE(x, 0.5f);
        if (x == 0.5f) continue;
        ++between;
        ASSERT_NE(samples[i - 1] > 0, samples[i + 1] > 0) << "not an edge: " << i;
    }
    EXPECT_NEAR(between, 880, 3);
}

TEST_F(SoundGenTest, OnlyTheFirstTwoBuffersAreFilled) {
    playEnvelope(100);
    render(kRamp);
    std::vector<float> first(4, -9), second(4, -9), third(4, -9);
    std::array<AudioBuffer, 3> three{bufferOf(first), bufferOf(second), bufferOf(third)};
    script.render(three, 3); // fewer frames than there is room
    EXPECT_EQ(first, (std::vector<float>{1, 1, 1, -9}));
    EXPECT_EQ(second, first);
    EXPECT_EQ(third, std::vector<float>(4, -9));
    first.assign(4, -9);
    script.render(std::span(three).first(1), 4);
    EXPECT_EQ(first, std::vector<float>(4, 1));
    EXPECT_EQ(second[0], 1) << "as it was";
    EXPECT_EQ(script.render({}, 4), 0);
    first.assign(4, -9);
    script.render(std::span(three).first(1), 0);
    EXPECT_EQ(first, std::vector<float>(4, -9));
}

TEST_F(SoundGenTest, TheDevicesNewRateTakesEffectAtTheNextCycle) {
    generator->setVolume(1);
    generator->playFreq(1000, 100);
    render(2 * kRamp);
    hardware.changeFormat(device, kOut, VirtualDevice::format(16000, 2));
    settle();
    EXPECT_EQ(unit().sampleRate(), 16000.0);
    render(1600); // the new ramp is longer
    const auto samples = render(32);
    EXPECT_EQ(*std::ranges::max_element(samples), 1.0f);
    for (std::size_t i = 16; i < 32; ++i)
        EXPECT_NEAR(samples[i], samples[i - 16], 1e-6) << "sixteen samples per period";
    EXPECT_NEAR(samples[8], -samples[0], 1e-6);
}

TEST_F(SoundGenTest, WithoutADeviceThereIsSilenceOfNumbers) {
    generator.reset();
    endUnit();
    hardware.removeDevice(device);
    mainThread.runAll();
    SoundGen silent;
    silent.setAUOutputUnit(unit());
    EXPECT_EQ(unit().sampleRate(), 0.0);
    silent.playFreq(440, 1);
    EXPECT_TRUE(silent.isPlaying());
    EXPECT_EQ(render(100), std::vector<float>(100, 0.0f));
    EXPECT_FALSE(silent.isPlaying()) << "no samples are a second at no rate";
}

TEST_F(SoundGenTest, ConsecutiveTonesContinueThePhase) {
    generator->setVolume(1);
    generator->playFreq(440, 0.2f);
    std::vector<float> all = render(2000);
    generator->playFreq(440, 0.2f);
    const auto more = render(4000);
    all.insert(all.end(), more.begin(), more.end());
    const float most = float(2 * std::numbers::pi * 440 / kRate + 1.0 / kRamp);
    for (std::size_t i = 1; i < all.size(); ++i)
        ASSERT_LE(std::abs(all[i] - all[i - 1]), most) << i;
}

TEST_F(SoundGenTest, HasTheParametersOfItsLastRequestOnly) {
    generator->setVolume(1);
    generator->setWaveform(1);
    generator->playFreq(1, 1);
    generator->playFreq(2000, 100);
    render(kRamp);
    const auto samples = render(4); // four samples per period
    EXPECT_EQ(*std::ranges::max_element(samples) - *std::ranges::min_element(samples), 2.0f);
}

} // namespace
} // namespace veltrano
