// SPDX-License-Identifier: GPL-3.0-or-later
// The tone generator: what it renders.
#include "tests/audio/SoundGenRig.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veltrano {
namespace {

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
