// SPDX-License-Identifier: GPL-3.0-or-later
// The whole output side: what a loudspeaker hears while devices change, go and come back.
#include "audio/SoundGen.h"
#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/SpeakerDevice.h"
#include "tests/audio/AUOutputTestBase.h"
#include "tests/support/DrivenTimer.h"

#include <QCoreApplication>
#include <cmath>

namespace veltrano {
namespace {

constexpr float kHz = 1000;

class ToneOnDevices : public AudioUnitTestBase {
protected:
    SpeakerDevice& speaker(const char* name, double rateHz) {
        SpeakerDevice::Parameters parameters;
        parameters.name = name;
        parameters.sampleRateHz = rateHz;
        parameters.framesPerBlock = 100;
        mSpeakers.push_back(std::make_unique<SpeakerDevice>(hardware, parameters));
        return *mSpeakers.back();
    }
    /// With the devices that are there. The selected one has asked for its first block.
    void begin(const std::optional<std::string>& name) {
        output = std::make_unique<AUOutputUnit>(registry(), mUnits);
        auto made = std::make_unique<DrivenTimer>();
        timer = made.get();
        generator = std::make_unique<SoundGen>(std::move(made));
        generator->setAUOutputUnit(*output);
        generator->setVolume(1);
        output->setOutputDeviceWithName(name);
        settle();
        for (const auto& speaker : mSpeakers)
            speaker->playBlock();
    }
    void settle() {
        mainThread.runAll();
        QCoreApplication::processEvents();
    }
    /// [Hz] of what the next blocks of that rate hold, by its rising zeros; 0 when silent.
    static double heardHz(SpeakerDevice& device, double rateHz, double seconds = 0.5) {
        device.forget();
        while (double(device.played().size()) < 2 * seconds * rateHz) {
            if (!device.playBlock()) return -1; // not started
        }
        double first = -1, last = -1;
        int zeros = 0;
        const auto samples = device.played();
        for (std::size_t i = 2; i < samples.size(); i += 2) {
            const double before = double(samples[i - 2]), here = double(samples[i]);
            if (!(before < 0 && here >= 0)) continue;
            const double at = double(i) / 2 - here / (here - before);
            (first < 0 ? first : last) = at;
            ++zeros;
        }
        return zeros < 2 ? 0 : (zeros - 1) / (last - first) * rateHz;
    }
    /// Blocks of what is to be heard until the tone has faded out.
    static void playToEnd(SpeakerDevice& device) {
        for (int block = 0; block < 12000; ++block)
            device.playBlock();
    }

    DrivenTimer* timer = nullptr;
    std::unique_ptr<AUOutputUnit> output;
    std::unique_ptr<SoundGen> generator; ///< goes before its unit

private:
    HardwareOutputUnits mUnits{hardware, [this](auto task) { mainThread.post(std::move(task)); }};
    std::vector<std::unique_ptr<SpeakerDevice>> mSpeakers;
};

TEST_F(ToneOnDevices, IsHeardAtItsFrequencyOnBothChannels) {
    auto& device = speaker("A", 44100);
    begin("Speaker : A");
    EXPECT_EQ(heardHz(device, 44100), 0) << "the device is started, and silent";
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
    const auto samples = device.played();
    for (std::size_t i = 0; i < samples.size(); i += 2)
        ASSERT_EQ(samples[i], samples[i + 1]);
}

TEST_F(ToneOnDevices, ChoosingAnotherDeviceMovesTheToneAtItsRate) {
    auto& a = speaker("A", 44100);
    auto& b = speaker("B", 96000);
    begin("Speaker : A");
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(a, 44100), 1000, 0.1);
    output->setOutputDeviceWithName("Speaker : B");
    settle();
    EXPECT_NEAR(heardHz(b, 96000), 1000, 0.1);
    EXPECT_EQ(heardHz(a, 44100), -1);
    output->setOutputDeviceAtIndex(0);
    settle();
    EXPECT_NEAR(heardHz(a, 44100), 1000, 0.1);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(ToneOnDevices, ARateChangeOfTheDeviceTakesEffectAtTheNextCycle) {
    auto& device = speaker("A", 44100);
    begin("Speaker : A");
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
    hardware.changeFormat(device.id(), kOut, VirtualDevice::format(96000, 2));
    settle();
    EXPECT_EQ(output->sampleRate(), 96000.0);
    EXPECT_NEAR(heardHz(device, 96000), 1000, 0.1);
}

TEST_F(ToneOnDevices, UnpluggingTheDeviceMovesTheToneToTheDefaultOneAtItsRate) {
    auto& a = speaker("A", 44100);
    auto& b = speaker("B", 96000);
    hardware.setDefaultDevice(kOut, b.id());
    begin("Speaker : A");
    RecordingPopUp popUp;
    output->setupPopUpButton(&popUp);
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(a, 44100), 1000, 0.1);
    hardware.removeDevice(a.id());
    settle();
    EXPECT_EQ(output->outputDevice(), b.id());
    EXPECT_EQ(output->outputDeviceName(), "Speaker : B");
    EXPECT_EQ(output->sampleRate(), 96000.0);
    EXPECT_EQ(popUp.titles, Lines{"Speaker : B"});
    EXPECT_EQ(popUp.selected, 0);
    EXPECT_NEAR(heardHz(b, 96000), 1000, 0.1);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(ToneOnDevices, ADeviceThatComesBackAtAnotherRateKeepsThePitch) {
    auto& device = speaker("A", 44100);
    begin("Speaker : A");
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
    hardware.removeDevice(device.id());
    settle();
    EXPECT_EQ(output->outputDeviceName(), "Speaker : A");
    hardware.returnDevice(device.id());
    auto side = VirtualDevice::side(96000, 2);
    hardware.changeSide(device.id(), kOut, side); // 'diff' only
    settle();
    EXPECT_EQ(output->sampleRate(), 96000.0);
    EXPECT_NEAR(heardHz(device, 96000), 1000, 0.1) << "the tone went on";
    playToEnd(device);
    settle();
    EXPECT_FALSE(generator->isPlaying());
    timer->fire();
    generator->playFreq(kHz, 1);
    EXPECT_NEAR(heardHz(device, 96000), 1000, 0.1) << "so does the next one";
}

TEST_F(ToneOnDevices, WithoutADeviceAtTheStartTheNextToneIsHeardOnTheOneThatComes) {
    begin("Speaker : B");
    generator->playFreq(kHz, 1);
    EXPECT_EQ(log.lines, (Lines{kNoDefaultOutputLine, "AudioOutputUnitStart failed: -1"}));
    speaker("A", 44100);
    auto& b = speaker("B", 48000);
    settle();
    EXPECT_EQ(output->outputDeviceName(), "Speaker : B");
    EXPECT_EQ(heardHz(b, 48000), 0) << "no samples were a second at no rate";
    generator->playFreq(kHz, 1);
    EXPECT_NEAR(heardHz(b, 48000), 1000, 0.1);
}

TEST_F(ToneOnDevices, AToneThatCouldNotBeginDoesNotSilenceTheNextOne) {
    auto& device = speaker("A", 44100);
    begin("Speaker : A");
    generator->playFreq(kHz, 0.1f);
    playToEnd(device);
    settle();
    timer->fire();
    ASSERT_FALSE(output->isRunning());
    hardware.removeDevice(device.id());
    settle();
    generator->playFreq(kHz, 10);
    EXPECT_EQ(log.lines, Lines{"AudioOutputUnitStart failed: -1"});
    hardware.returnDevice(device.id());
    settle();
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
}

TEST_F(ToneOnDevices, SwitchingAndEndingWhileStoppedLogsNothing) {
    auto& a = speaker("A", 44100);
    auto& b = speaker("B", 44100);
    begin("Speaker : A");
    generator->playFreq(kHz, 0.5f);
    playToEnd(a);
    settle();
    timer->fire();
    EXPECT_EQ(heardHz(a, 44100), -1) << "stopped";
    output->setOutputDeviceWithName("Speaker : B");
    settle();
    EXPECT_EQ(heardHz(b, 44100), 0);
    output->stop();
    output->stop();
    EXPECT_EQ(log.lines, Lines{});
}

TEST_F(ToneOnDevices, AnotherSourceOfTheDeviceDoesNotInterruptTheTone) {
    auto& device = speaker("Card", 44100);
    auto side = VirtualDevice::side(44100, 2);
    side.sources = {{1, "Line"}, {2, "Phones"}};
    side.source = 1;
    hardware.changeSide(device.id(), kOut, side);
    begin("Speaker : Line");
    generator->playFreq(kHz, 10);
    heardHz(device, 44100);
    takeCalls();
    output->setOutputDeviceWithName("Speaker : Phones");
    settle();
    EXPECT_EQ(takeActions(), Lines{"setDataSource " + text(device.id()) + " output 2"});
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
}

TEST_F(ToneOnDevices, TheEndOfEverythingLeavesTheDeviceStopped) {
    auto& device = speaker("A", 44100);
    begin("Speaker : A");
    generator->playFreq(kHz, 10);
    EXPECT_NEAR(heardHz(device, 44100), 1000, 0.1);
    generator.reset();
    EXPECT_FALSE(hardware.isStarted(device.id()));
    output.reset();
    endRegistry();
    EXPECT_EQ(log.lines, Lines{});
}

} // namespace
} // namespace veltrano
