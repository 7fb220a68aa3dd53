// SPDX-License-Identifier: GPL-3.0-or-later
// One update cycle after the other: what is shown, lit and said, and in which order.
#include "tests/engine/ControllerRig.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

/// Period 100 at 44.1 kHz is 441 Hz: A4, 3.9 cents sharp.
FrameRef a4() { return frameOf(toneSamples(100)); }
FrameRef silence() { return frameOf(std::vector<float>(5393, 0.0f)); }

/// The lines that begin with one of the words.
Lines only(const Lines& lines, const Lines& words) {
    Lines found;
    for (const std::string& line : lines) {
        for (const std::string& word : words) {
            if (line.starts_with(word)) found.push_back(line);
        }
    }
    return found;
}

TEST(ControllerCycle, ShowsAReadingInTheGivenOrder) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    const Lines expected{"strobePeak 0.5",
                         "strobeData 5393",
                         "scopePeak 0.5",
                         "scopeData 5393",
                         "text stretchOffset \u00B10.000",
                         "light inTune green28x28",
                         "light flat gray24x24",
                         "light sharp red24x24",
                         "text cent +03.9",
                         "meterCent 3.9",
                         "pianoNote 57",
                         "text note A",
                         "text accidental  ",
                         "hidden accidental yes",
                         "text octave 4",
                         "text frequency 441.000",
                         "text frequencyDiff +1.000",
                         "text idealFrequency 440.000",
                         "strobeFrequency 440",
                         "light level7 gray16x16",
                         "light level6 yellow16x16",
                         "light level5 green16x16",
                         "light level4 green16x16",
                         "light level3 green16x16",
                         "light level2 green16x16",
                         "light level1 green16x16",
                         "light level0 green16x16",
                         "text level -7dB"};
    EXPECT_EQ(rig.display.takeCalls(), expected);
    EXPECT_EQ(controller.partialDetector().collected(), 5393u - 4096u);
}

TEST(ControllerCycle, SameReadingAgainTouchesOnlyTheWaveforms) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    rig.display.takeCalls();
    controller.updateUI(a4());
    EXPECT_EQ(rig.display.takeCalls(),
              (Lines{"strobePeak 0.5", "strobeData 5393", "scopePeak 0.5", "scopeData 5393"}));
}

TEST(ControllerCycle, SmoothsWithinOnePercentAndJumpsToANewNote) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    controller.updateUI(frameOf(toneSamples(99))); // 445.45 Hz: ratio 1.0101, a jump
    EXPECT_EQ(controller.record().frequency, 44100.0f / 99.0f);
    controller.updateUI(frameOf(toneSamples(99.5)));
    const float raw = controller.record().rawFrequency;
    EXPECT_EQ(controller.record().frequency, (44100.0f / 99.0f + raw) * 0.5f);
    controller.updateUI(frameOf(toneSamples(94)));
    EXPECT_EQ(controller.record().frequency, controller.record().rawFrequency);
    EXPECT_EQ(rig.text(TunerText::note), "B");
    EXPECT_EQ(rig.text(TunerText::accidental), "\u266D");
}

TEST(ControllerCycle, AnEstimateOutsideTheRangeLeavesTheDisplays) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    rig.display.takeCalls();
    controller.updateUI(frameOf(toneSamples(4))); // 11025 Hz
    EXPECT_GT(controller.record().rawFrequency, 8133.683f);
    EXPECT_EQ(controller.record().frequency, 441.0f);
    EXPECT_TRUE(only(rig.display.takeCalls(), {"text note", "text cent", "text freq"}).empty());
    EXPECT_EQ(rig.text(TunerText::frequency), "441.000");
}

TEST(ControllerCycle, SilenceEmptiesTheWaveforms) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    EXPECT_NE(controller.partialDetector().partials(), nullptr);
    rig.display.takeCalls();
    controller.updateUI(silence());
    const Lines calls = rig.display.takeCalls();
    EXPECT_EQ(only(calls, {"strobe", "scope"}), (Lines{"strobeData none", "scopeData 1"}));
    EXPECT_EQ(rig.display.scopeData->samples[0], 0.0f);
    EXPECT_EQ(controller.partialDetector().partials(), nullptr);
    EXPECT_EQ(controller.partialDetector().collected(), 5393u - 4096u) << "only one frame came";
}

TEST(ControllerCycle, EverySilentFrameIsANewOneForTheScope) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(silence());
    const FrameRef first = rig.display.scopeData;
    controller.updateUI(silence());
    EXPECT_NE(rig.display.scopeData, first) << "otherwise it would not draw, and traces not fade";
}

TEST(ControllerCycle, InTuneLightGreysAfterAFifthOfASecondWithoutEstimate) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.clock.set(10.0);
    controller.updateUI(a4());
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::green28x28);
    rig.clock.set(10.2); // not yet: the deadline itself does not count
    controller.updateUI(silence());
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::green28x28);
    rig.clock.set(10.21);
    controller.updateUI(silence());
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::gray28x28);
    EXPECT_EQ(rig.text(TunerText::note), "A") << "the texts keep their last values";
}

TEST(ControllerCycle, ABitIdenticalFrequencyAfterAPauseLeavesTheLightGrey) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.clock.set(10.0);
    controller.updateUI(a4());
    rig.clock.set(11.0);
    controller.updateUI(silence());
    rig.clock.set(12.0);
    controller.updateUI(a4());
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::gray28x28);
}

TEST(ControllerCycle, HeldPeakLastsASecondAndShowsItsReleaseOnTheNextChange) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.clock.set(10.0);
    controller.updateUI(frameOf(toneSamples(100, 1.0f)));
    EXPECT_EQ(rig.text(TunerText::level), "0dB");
    EXPECT_EQ(rig.display.light(TunerLight::level7), LightImage::red16x16);
    rig.clock.set(10.5);
    controller.updateUI(a4());
    EXPECT_EQ(rig.text(TunerText::level), "0dB");
    EXPECT_EQ(rig.display.light(TunerLight::level7), LightImage::red16x16);
    rig.clock.set(11.0);
    controller.updateUI(a4());
    EXPECT_EQ(rig.text(TunerText::level), "0dB") << "at the deadline the hold still lasts";
    rig.clock.set(11.01);
    controller.updateUI(a4());
    EXPECT_EQ(rig.text(TunerText::level), "0dB") << "released, not yet shown";
    rig.clock.set(11.1);
    controller.updateUI(a4());
    EXPECT_EQ(rig.text(TunerText::level), "-7dB");
}

TEST(ControllerCycle, MeterLightsFollowTheThreshold) {
    struct {
        const char* name;
        float deviation;
        int threshold;
        LightImage inTune, flat, sharp;
        const char* cents;
    } const cases[] = {
        {"the threshold itself is in tune", 0.02f, 2, LightImage::green28x28, LightImage::gray24x24,
         LightImage::red24x24, "+02.0"},
        {"above it is not", 0.03f, 2, LightImage::blue28x28, LightImage::gray24x24,
         LightImage::red24x24, "+03.0"},
        {"below it flat", -0.0301f, 2, LightImage::blue28x28, LightImage::red24x24,
         LightImage::gray24x24, "-03.0"},
        {"minus 0.4 cents lights neither", -0.004f, 3, LightImage::green28x28,
         LightImage::gray24x24, LightImage::gray24x24, "-00.4"},
        {"a whole cent flat", -0.011f, 3, LightImage::green28x28, LightImage::red24x24,
         LightImage::gray24x24, "-01.1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ControllerRig rig;
        Controller& controller = rig.start();
        rig.preferences.setInTuneThreshold(c.threshold);
        controller.setTuningMeter(c.deviation);
        EXPECT_EQ(rig.display.light(TunerLight::inTune), c.inTune);
        EXPECT_EQ(rig.display.light(TunerLight::flat), c.flat);
        EXPECT_EQ(rig.display.light(TunerLight::sharp), c.sharp);
        EXPECT_EQ(rig.text(TunerText::cent), c.cents);
    }
}

TEST(ControllerCycle, TheFirstDeviationIsAlwaysWrittenAndAnEqualOneNotAgain) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.setTuningMeter(0.0f);
    EXPECT_EQ(rig.display.callsOf("text cent"), Lines{"text cent \u00B100.0"});
    rig.display.takeCalls();
    controller.setTuningMeter(0.00005f); // the same tenth
    EXPECT_TRUE(only(rig.display.takeCalls(), {"text cent", "meterCent"}).empty());
}

TEST(ControllerCycle, ADeviationThatIsNoNumberIsDefined) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.setTuningMeter(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(rig.text(TunerText::cent), "\u00B100.0");
    controller.setTuningMeter(std::numeric_limits<float>::infinity());
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::blue28x28);
}

TEST(ControllerCycle, NothingIsShownAtTheStartWithoutAFrequency) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateTunerUI(true);
    EXPECT_TRUE(rig.display.takeCalls().empty());
    EXPECT_FALSE(controller.record().shown);
    EXPECT_EQ(rig.text(TunerText::note), "");
}

TEST(ControllerCycle, UpdateTunerUiWithNoDoesNothing) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    rig.display.takeCalls();
    controller.updateTunerUI(false);
    EXPECT_TRUE(rig.display.takeCalls().empty());
}

TEST(ControllerCycle, SpeaksWhatIsSwitchedOnAndDropsWhileSpeaking) {
    struct {
        bool tune, hertz, speaking;
        Lines said;
    } const cases[] = {
        {false, false, false, {}},
        {true, false, false, {"ay  , +3.9 cent"}},
        {false, true, false, {"441.000 hertz"}},
        {true, true, false, {"ay  , +3.9 cent 441.000 hertz"}},
        {true, true, true, {}},
    };
    for (const auto& c : cases) {
        ControllerRig rig;
        Controller& controller = rig.start();
        rig.preferences.setTuneSpeech(c.tune);
        rig.preferences.setHertzSpeech(c.hertz);
        rig.speech.speaking = c.speaking;
        controller.updateUI(a4());
        EXPECT_EQ(rig.speech.said, c.said);
    }
}

TEST(ControllerCycle, StatusAndDetailsAreSpokenAfterTheActionReturned) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    controller.iaSpeakStatus();
    EXPECT_TRUE(rig.speech.said.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.speech.said, Lines{"ay  , +3.9 cent, 441.000 hertz"});
    controller.iaSpeakDetails();
    EXPECT_EQ(rig.speech.said.size(), 1u);
    QCoreApplication::processEvents();
    ASSERT_EQ(rig.speech.said.size(), 2u);
    EXPECT_EQ(rig.speech.said[1],
              "ay  , +3.9 cent, 441.000 hertz. Reference Pitch: 440.000 hertz. "
              "Temperament: Equal Tempered. Stretch: None. Input Device: ACME : Mic. "
              "Input Peak Level: -7 dB. ");
}

TEST(ControllerCycle, SpeechSwitchesToggle) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.iaSpeakTune();
    EXPECT_TRUE(rig.preferences.tuneSpeech());
    controller.iaSpeakTune();
    EXPECT_FALSE(rig.preferences.tuneSpeech());
    controller.iaSpeakHertz();
    EXPECT_TRUE(rig.preferences.hertzSpeech());
}

TEST(ControllerCycle, SoundBackPlaysTheTargetWhileTheInputRuns) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    EXPECT_TRUE(rig.tone.played.empty());
    rig.preferences.setSoundBack(true);
    controller.updateTunerUI(true);
    ASSERT_EQ(rig.tone.played.size(), 1u);
    EXPECT_EQ(rig.tone.played[0], (std::pair<float, float>(440.0f, 1.0f)));
    controller.applicationDidHide();
    controller.updateTunerUI(true);
    EXPECT_EQ(rig.tone.played.size(), 1u);
    rig.preferences.setSoundBack(false);
    controller.updateSoundBack(true);
    EXPECT_EQ(rig.tone.played.size(), 2u);
}

TEST(ControllerCycle, ManualKeyShowsItsTargetAndPlaceholders) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(a4());
    rig.preferences.setManualNote(63); // E flat 5
    rig.display.takeCalls();
    rig.preferences.setManualMode(true);
    EXPECT_EQ(rig.text(TunerText::note), "E");
    EXPECT_EQ(rig.text(TunerText::accidental), "\u266D");
    EXPECT_EQ(rig.text(TunerText::octave), "5");
    EXPECT_EQ(rig.text(TunerText::cent), "--.-");
    EXPECT_EQ(rig.text(TunerText::frequency), "---.---");
    EXPECT_EQ(rig.text(TunerText::frequencyDiff), "---.---");
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "622.254");
    EXPECT_EQ(rig.text(TunerText::stretchOffset), "\u00B10.000");
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::gray28x28);
    EXPECT_EQ(rig.display.light(TunerLight::sharp), LightImage::gray24x24);
    EXPECT_FALSE(rig.display.meterEnabled);
    EXPECT_EQ(rig.display.pianoNote, 63);
    EXPECT_NEAR(rig.preferences.manualPitch(), 622.2539674, 1e-6);
}

TEST(ControllerCycle, ManualPitchMarksNoKey) {
    ControllerRig rig;
    rig.start();
    rig.preferences.setManualType(1);
    rig.preferences.setManualPitch(123.456789);
    rig.preferences.setManualMode(true);
    EXPECT_EQ(rig.text(TunerText::note), "-");
    EXPECT_EQ(rig.text(TunerText::accidental), "");
    EXPECT_EQ(rig.text(TunerText::octave), "-");
    EXPECT_EQ(rig.text(TunerText::stretchOffset), "--.---");
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "123.457");
    EXPECT_EQ(rig.display.pianoNote, -1);
    EXPECT_EQ(rig.display.strobeFrequency, 123.456789f);
}

} // namespace
} // namespace veltrano
