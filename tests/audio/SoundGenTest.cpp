// SPDX-License-Identifier: GPL-3.0-or-later
// The tone generator: when it starts and stops its unit, and what becomes of requests.
#include "tests/audio/SoundGenRig.h"

#include <QElapsedTimer>
#include <QThread>

namespace veltrano {
namespace {

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

} // namespace
} // namespace veltrano
