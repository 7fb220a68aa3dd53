// SPDX-License-Identifier: GPL-3.0-or-later
// What the displays show at the limits: shifts, gates, deadlines, manual mode.
#include "tests/engine/ControllerRig.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

FrameRef silence() { return frameOf(std::vector<float>(5393, 0.0f)); }

/// Pulses at exact distances, so that the estimate is exactly rate / period.
FrameRef pulses(std::size_t period, std::size_t samples = 5393) {
    std::vector<float> frame(samples, -0.1f);
    for (std::size_t i = period / 2; i < samples; i += period)
        frame[i] = 0.5f;
    return frameOf(frame);
}

TEST(ControllerShown, AfterAShiftTheOctaveIsThatOfBefore) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.stretchKey(60, 45);
    controller.updateUI(pulses(85)); // 518.82 Hz: 14.7 cents below C5
    EXPECT_EQ(rig.text(TunerText::note), "B");
    EXPECT_EQ(rig.text(TunerText::octave), "5");
    EXPECT_EQ(rig.display.pianoNote, 59);
    EXPECT_EQ(rig.text(TunerText::cent), "+40.2");
}

TEST(ControllerShown, AccidentalIsHiddenOnlyWhenBlank) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(pulses(95)); // 464.2 Hz: B flat
    EXPECT_FALSE(rig.display.hidden[std::size_t(TunerText::accidental)]);
    controller.updateUI(pulses(100));
    EXPECT_TRUE(rig.display.hidden[std::size_t(TunerText::accidental)]);
}

TEST(ControllerShown, IdealAndDifferenceAreWorkedOutInDouble) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(pulses(40)); // 1102.5 Hz; in single precision 1108.730 and -6.230
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "1108.731");
    EXPECT_EQ(rig.text(TunerText::frequencyDiff), "-6.231");
}

TEST(ControllerShown, FifteenHertzIsIgnored) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(pulses(100));
    rig.display.takeCalls();
    std::vector<float> low(6000, -0.1f);
    low[10] = low[2950] = low[5890] = 0.5f;
    controller.updateUI(frameOf(low));
    EXPECT_EQ(controller.record().rawFrequency, 15.0f);
    EXPECT_EQ(rig.text(TunerText::frequency), "441.000");
    EXPECT_TRUE(rig.display.callsOf("text note").empty());
}

TEST(ControllerShown, AKeyOutOfRangeIsTriedAgainOnEachFrame) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.preferences.setReferencePitch(392);
    rig.display.takeCalls();
    controller.updateUI(pulses(6)); // 7350 Hz: above B8 at that pitch
    EXPECT_TRUE(rig.display.callsOf("text note").empty());
    rig.preferences.setReferencePitch(440);
    EXPECT_EQ(rig.text(TunerText::note), "B");
    controller.updateUI(silence());
    EXPECT_EQ(controller.record().frequency, 7350.0f);
}

TEST(ControllerShown, WaveformsNeedMoreThanAHundredth) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(100, 0.0099f)));
    EXPECT_EQ(rig.display.callsOf("strobeData"), Lines{"strobeData none"});
    rig.display.takeCalls();
    controller.updateUI(frameOf(toneSamples(100, 0.0101f)));
    EXPECT_EQ(rig.display.callsOf("strobeData"), Lines{"strobeData 5393"});
}

TEST(ControllerShown, AnEqualPeakRenewsTheHold) {
    ControllerRig rig;
    Controller& controller = rig.start();
    const FrameRef loud = frameOf(toneSamples(100));
    rig.clock.set(10.0);
    controller.updateUI(loud);
    rig.clock.set(10.9);
    controller.updateUI(loud);
    for (const double now : {11.05, 11.2}) {
        rig.clock.set(now);
        controller.updateUI(silence());
        EXPECT_EQ(rig.text(TunerText::level), "-7dB") << now;
    }
}

TEST(ControllerShown, AReleasedHoldTakesTheNextPeakWhateverItIs) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.clock.set(10.0);
    controller.updateUI(frameOf(toneSamples(100)));
    rig.clock.set(11.01);
    controller.updateUI(silence());
    rig.clock.set(11.1);
    controller.updateUI(frameOf(toneSamples(100, 0.1f)));
    EXPECT_EQ(rig.text(TunerText::level), "-21dB");
}

TEST(ControllerShown, TheLevelMovesUnderAHeldPeak) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(100)));
    controller.updateUI(frameOf(toneSamples(100, 0.1f)));
    EXPECT_EQ(rig.display.light(TunerLight::level6), LightImage::yellow16x16);
    EXPECT_EQ(rig.display.light(TunerLight::level5), LightImage::gray16x16);
    EXPECT_EQ(rig.text(TunerText::level), "-7dB");
}

TEST(ControllerShown, TheInTuneLightIsGreyedOncePerFifthOfASecond) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.clock.set(10.0);
    controller.updateUI(frameOf(toneSamples(100)));
    rig.display.takeCalls();
    for (const double now : {10.25, 10.3, 10.44, 10.46}) {
        rig.clock.set(now);
        controller.updateUI(silence());
    }
    EXPECT_EQ(rig.display.callsOf("light inTune").size(), 2u); // at 10.25 and 10.46
}

TEST(ControllerShown, AnyOtherManualTypeIsAFreePitch) {
    ControllerRig rig;
    rig.start();
    rig.preferences.setManualType(2);
    rig.preferences.setManualMode(true);
    EXPECT_EQ(rig.text(TunerText::note), "-");
}

TEST(ControllerShown, ManualOctaveIsTheKeysOwn) {
    ControllerRig rig;
    rig.start();
    rig.preferences.setManualMode(true);
    rig.preferences.setManualNote(59);
    EXPECT_EQ(rig.text(TunerText::note), "B");
    EXPECT_EQ(rig.text(TunerText::octave), "4");
}

TEST(ControllerShown, ManualModeIsBroughtUpToDateOnFramesOfAnotherFrequency) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.preferences.setManualMode(true);
    controller.updateUI(frameOf(toneSamples(100))); // 441 Hz against the shown 440 Hz
    rig.display.takeCalls();
    controller.updateUI(silence());
    EXPECT_EQ(rig.display.callsOf("text idealFrequency"), Lines{"text idealFrequency 440.000"});
}

TEST(ControllerShown, AfterManualModeTheCentTextWaitsForAnotherTenth) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(100)));
    rig.preferences.setManualMode(true);
    rig.preferences.setManualMode(false);
    EXPECT_EQ(rig.text(TunerText::cent), "--.-"); // kept
    EXPECT_EQ(rig.text(TunerText::frequency), "441.000");
}

TEST(ControllerShown, TheLeastThresholdIsDefined) {
    UserDefaults stored = UserDefaults::inMemory();
    stored.setInteger("morvane.key.InTuneThreshold", INT32_MIN);
    ControllerRig rig(std::move(stored));
    rig.start().setTuningMeter(0.0f);
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::blue28x28);
}

} // namespace
} // namespace veltrano
