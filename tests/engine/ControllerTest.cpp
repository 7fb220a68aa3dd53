// SPDX-License-Identifier: GPL-3.0-or-later
// Start and stop, devices, settings, and the road from a block to the displays.
#include "tests/engine/ControllerRig.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

TEST(Controller, StartsByTheSavedDevice) {
    ControllerRig rig;
    VirtualDevice second;
    second.manufacturer = "Other";
    second.name = "Line";
    second.input = VirtualDevice::side(48000, 2);
    const DeviceId id = rig.hardware.addDevice(second);
    rig.preferences.setInputDeviceName("Other : Line");
    Controller& controller = rig.make();
    controller.awakeFromNib();
    EXPECT_TRUE(rig.hardware.isStarted(id));
    EXPECT_FALSE(rig.hardware.isStarted(rig.device));
    EXPECT_EQ(rig.text(TunerText::inputDevice), "Other : Line");
    EXPECT_EQ(rig.display.strobeSampleRate, 48000.0f);
    EXPECT_EQ(controller.partialDetector().sampleRate(), 48000.0f);
    EXPECT_EQ(controller.sampleRate(), 48000.0f);
}

TEST(Controller, FirstDisplayComesBeforeTheDevice) {
    ControllerRig rig;
    rig.make().awakeFromNib();
    const Lines calls = rig.display.takeCalls();
    const Lines expected{"light level7 gray16x16",
                         "light level6 gray16x16",
                         "light level5 gray16x16",
                         "light level4 gray16x16",
                         "light level3 gray16x16",
                         "light level2 gray16x16",
                         "light level1 gray16x16",
                         "light level0 gray16x16",
                         "text level -96dB",
                         "text referencePitch A4 = 440.000Hz",
                         "meterThreshold 3",
                         "meterEnabled yes",
                         "text tuningName Equal Tempered",
                         "tip tuningName " + rig.preferences.tuningToolTipString(),
                         "text stretchName None",
                         "tip stretchName No Stretch.",
                         "strobeSampleRate 44100",
                         "text inputDevice ACME : Mic"};
    EXPECT_EQ(calls, expected);
}

TEST(Controller, FirstLaunchCentresTheWindowsAndShowsHelp) {
    ControllerRig rig;
    Controller& controller = rig.make();
    controller.awakeFromNib();
    controller.applicationDidFinishLaunching();
    EXPECT_EQ(rig.windows.calls,
              (Lines{"center", "front partials", "front hilbert", "front piano", "tuner", "help"}));
}

TEST(Controller, LaterLaunchesDoNot) {
    UserDefaults stored = UserDefaults::inMemory();
    stored.setInteger("morvane.key.Tonic", 0);
    ControllerRig rig(std::move(stored));
    Controller& controller = rig.make();
    controller.awakeFromNib();
    controller.applicationDidFinishLaunching();
    EXPECT_EQ(rig.windows.calls,
              (Lines{"front partials", "front hilbert", "front piano", "tuner"}));
}

TEST(Controller, TerminatingStopsTheInputAndSavesItsName) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.applicationWillTerminate();
    EXPECT_FALSE(rig.hardware.isStarted(rig.device));
    EXPECT_EQ(rig.defaults.stringForKey("morvane.key.InputDeviceKey"), "ACME : Mic");
    rig.preferences.setReferencePitch(442);
    EXPECT_TRUE(rig.display.takeCalls().empty()) << "it no longer hears the settings";
}

TEST(Controller, ADeviceForThisRunIsNotSaved) {
    ControllerRig rig;
    rig.defaults.setString("morvane.key.InputDeviceKey", "My : Microphone");
    VirtualDevice recording;
    recording.manufacturer = "Recording";
    recording.name = "a4";
    recording.input = VirtualDevice::side(8000, 1);
    const DeviceId id = rig.hardware.addDevice(recording);
    rig.ports.inputDeviceForThisRun = "Recording : a4";
    Controller& controller = rig.make();
    controller.awakeFromNib();
    EXPECT_TRUE(rig.hardware.isStarted(id));
    controller.applicationWillTerminate();
    EXPECT_EQ(rig.defaults.stringForKey("morvane.key.InputDeviceKey"), "My : Microphone");
}

TEST(Controller, HidingStopsTheInputAndShowingResumes) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.applicationDidHide();
    rig.deliver(toneSamples(100));
    controller.serveFrames();
    EXPECT_TRUE(rig.display.takeCalls().empty()) << "the displays freeze";
    controller.applicationDidUnhide();
    rig.deliver(toneSamples(100));
    controller.serveFrames();
    EXPECT_EQ(rig.text(TunerText::note), "A");
}

TEST(Controller, SettingsAreAnswered) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(100)));
    rig.display.takeCalls();
    rig.preferences.setReferencePitch(441);
    EXPECT_EQ(rig.text(TunerText::referencePitch), "A4 = 441.000Hz");
    EXPECT_EQ(rig.text(TunerText::cent), "\u00B100.0");
    rig.preferences.setInTuneThreshold(7);
    EXPECT_EQ(rig.display.meterThreshold, 7);
    rig.preferences.setManualMode(true);
    EXPECT_FALSE(rig.display.meterEnabled);
    rig.preferences.setManualMode(false);
    EXPECT_TRUE(rig.display.meterEnabled);
}

TEST(Controller, ADeviceThatTheUserPicksStartsANewFrame) {
    ControllerRig rig;
    VirtualDevice second;
    second.manufacturer = "Other";
    second.name = "Line";
    second.input = VirtualDevice::side(44100, 1);
    const DeviceId id = rig.hardware.addDevice(second);
    Controller& controller = rig.start();
    rig.deliver(std::vector<float>(1000, 0.25f));
    controller.inputUnit().setInputDeviceAtIndex(1);
    controller.inputDevicePopupChanged();
    EXPECT_EQ(rig.display.takeCalls(),
              (Lines{"strobeSampleRate 44100", "text inputDevice Other : Line"}));
    rig.device = id;
    rig.deliver(toneSamples(100, 0.5f, 5392));
    controller.serveFrames();
    EXPECT_TRUE(rig.display.callsOf("strobeData").empty()) << "the partial frame is dropped";
    rig.deliver({0.0f});
    controller.serveFrames();
    EXPECT_EQ(rig.display.callsOf("strobeData"), Lines{"strobeData 5393"});
    EXPECT_EQ(rig.display.strobeData->samples[25], 0.5f);
}

TEST(Controller, ARateChangeIsPassedOn) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.deliver(std::vector<float>(1000, 0.5f));
    rig.hardware.changeFormat(rig.device, Direction::input, VirtualDevice::format(48000, 1));
    rig.mainThread.runPending();
    EXPECT_EQ(controller.sampleRate(), 48000.0f);
    EXPECT_EQ(rig.display.strobeSampleRate, 48000.0f);
    EXPECT_EQ(controller.partialDetector().sampleRate(), 48000.0f);
    rig.deliver(toneSamples(100, 0.5f, 5870));
    controller.serveFrames();
    EXPECT_EQ(rig.text(TunerText::frequency), "480.000");
}

TEST(Controller, AnEqualRateIsNotPassedOn) {
    ControllerRig rig;
    rig.start();
    rig.hardware.announce(rig.device, 0, Direction::input, PropertyCode::streamFormat);
    rig.mainThread.runPending();
    EXPECT_TRUE(rig.display.takeCalls().empty());
}

TEST(Controller, ListenerIgnoresTheOutputSide) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.hardware.changeFormat(rig.device, Direction::input, VirtualDevice::format(48000, 1));
    controller.inputUnit().setStreamFormat(); // the unit knows; its listener has not been called
    Controller::listenerProc(rig.device, 0, false, PropertyCode::streamFormat, &controller);
    EXPECT_TRUE(rig.display.takeCalls().empty());
}

TEST(Controller, ARateAboveTheLimitIsRefusedWithALine) {
    ControllerRig rig;
    Controller& controller = rig.start();
    rig.hardware.changeFormat(rig.device, Direction::input, VirtualDevice::format(768000, 1));
    rig.mainThread.runPending();
    EXPECT_EQ(rig.log.details.size(), 1u);
    rig.deliver(std::vector<float>(200000, 0.5f));
    controller.serveFrames();
    EXPECT_TRUE(rig.display.callsOf("strobeData").empty());
}

TEST(Controller, AReplacedDeviceIsNamed) {
    ControllerRig rig;
    VirtualDevice second;
    second.manufacturer = "Other";
    second.name = "Line";
    second.input = VirtualDevice::side(44100, 1);
    rig.hardware.addDevice(second);
    rig.start();
    rig.hardware.removeDevice(rig.device);
    rig.mainThread.runPending();
    EXPECT_EQ(rig.text(TunerText::inputDevice), "Other : Line");
}

TEST(Controller, BlocksReachTheDisplaysThroughTheEventLoop) {
    ControllerRig rig;
    rig.start();
    std::thread audio([&rig] {
        double sampleTime = 0;
        for (int block = 0; block < 50; ++block) {
            rig.deliver(toneSamples(100, 0.5f, 600), sampleTime += 600);
        }
    });
    QElapsedTimer timer;
    timer.start();
    while (rig.text(TunerText::note).empty() && timer.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    audio.join();
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.text(TunerText::note), "A");
    EXPECT_EQ(rig.display.callsOf("strobeData").size(), 5u); // 30000 samples
}

TEST(Controller, AStalledMainThreadDropsWholeFramesAndSaysSo) {
    ControllerRig rig;
    Controller& controller = rig.start();
    for (int frame = 0; frame < 40; ++frame)
        rig.deliver(toneSamples(100));
    EXPECT_EQ(controller.record().dropped, 8u);
    controller.serveFrames();
    EXPECT_EQ(rig.display.callsOf("strobeData").size(), 32u);
    EXPECT_EQ(rig.log.details, Lines{"The display was late: 8 frames of input were dropped."});
    EXPECT_TRUE(rig.log.lines.empty());
    rig.deliver(toneSamples(100));
    controller.serveFrames();
    EXPECT_EQ(rig.display.callsOf("strobeData").size(), 33u);
    EXPECT_EQ(rig.log.details.size(), 1u) << "a drop is told once";
}

TEST(Controller, StartsWithoutAnyDevice) {
    ControllerRig rig;
    rig.hardware.removeDevice(rig.device);
    rig.preferences.setInputDeviceName("ACME : Mic");
    Controller& controller = rig.make();
    controller.awakeFromNib();
    rig.mainThread.runPending();
    EXPECT_EQ(rig.text(TunerText::inputDevice), "ACME : Mic");
    EXPECT_FALSE(controller.inputUnit().isRunning());
    rig.hardware.returnDevice(rig.device);
    rig.mainThread.runPending();
    EXPECT_TRUE(rig.hardware.isStarted(rig.device));
    rig.deliver(toneSamples(100));
    controller.serveFrames();
    EXPECT_EQ(rig.text(TunerText::note), "A");
    controller.applicationWillTerminate();
    EXPECT_EQ(rig.defaults.stringForKey("morvane.key.InputDeviceKey"), "ACME : Mic");
}

TEST(Controller, ARateThatIsNoFloatIsTakenEachTime) {
    // kept: the rates are compared in double precision, the stored one is a float
    ControllerRig rig;
    rig.start();
    rig.hardware.changeFormat(rig.device, Direction::input, VirtualDevice::format(44100.1, 1));
    rig.mainThread.runPending();
    rig.display.takeCalls();
    rig.hardware.announce(rig.device, 0, Direction::input, PropertyCode::streamFormat);
    rig.mainThread.runPending();
    EXPECT_EQ(rig.display.takeCalls(), Lines{"strobeSampleRate 44100.1"});
}

TEST(Controller, StartsWithTheStoredSettings) {
    UserDefaults stored = UserDefaults::inMemory();
    stored.setFloat("morvane.key.ReferencePitch", 415.5f);
    stored.setInteger("morvane.key.InTuneThreshold", 7);
    stored.setBool("morvane.key.ManualMode", true);
    ControllerRig rig(std::move(stored));
    rig.make().awakeFromNib();
    EXPECT_EQ(rig.text(TunerText::referencePitch), "A4 = 415.500Hz");
    EXPECT_EQ(rig.display.meterThreshold, 7);
    EXPECT_FALSE(rig.display.meterEnabled);
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "415.500");
}

TEST(Controller, EachSettingUpdatesTheReading) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(99))); // 445.45 Hz, 21.3 cents sharp
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::blue28x28);
    rig.preferences.setInTuneThreshold(30);
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::green28x28);

    rig.stretchKey(57, 10);
    EXPECT_EQ(rig.text(TunerText::stretchOffset), "+10.000");
    EXPECT_EQ(rig.text(TunerText::stretchName), "name of first");
    EXPECT_EQ(rig.display.tips[std::size_t(TunerText::stretchName)], "description of first");

    rig.temperaments.entries[0].cents.fill(20);
    rig.preferences.setTuningForFileName("first");
    EXPECT_EQ(rig.text(TunerText::tuningName), "name of first");
    EXPECT_EQ(rig.text(TunerText::idealFrequency), "447.691"); // 440 x 2^(30 / 1200)
    controller.iaSpeakDetails();
    QCoreApplication::processEvents();
    ASSERT_EQ(rig.speech.said.size(), 1u);
    EXPECT_NE(rig.speech.said[0].find("Temperament: name of first. Key: C. Stretch: "),
              std::string::npos);
}

TEST(Controller, AHotPlugWhileHiddenDoesNotStartTheInput) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.applicationDidHide();
    VirtualDevice second;
    second.manufacturer = "Other";
    second.name = "Line";
    second.input = VirtualDevice::side(44100, 1);
    rig.hardware.addDevice(second);
    rig.mainThread.runPending();
    EXPECT_FALSE(rig.hardware.isStarted(rig.device));
    controller.applicationDidUnhide();
    EXPECT_TRUE(rig.hardware.isStarted(rig.device));
}

TEST(Controller, ShownAgainWithoutADeviceTheDisplaysAreAtRest) {
    ControllerRig rig;
    Controller& controller = rig.start();
    controller.updateUI(frameOf(toneSamples(100)));
    controller.applicationDidHide();
    rig.hardware.removeDevice(rig.device);
    rig.mainThread.runPending();
    controller.applicationDidUnhide();
    EXPECT_EQ(rig.display.light(TunerLight::inTune), LightImage::gray28x28);
    EXPECT_EQ(rig.display.light(TunerLight::level0), LightImage::gray16x16);
    EXPECT_EQ(rig.text(TunerText::level), "-96dB");
    EXPECT_EQ(rig.display.strobeData, nullptr);
}

} // namespace
} // namespace veltrano
