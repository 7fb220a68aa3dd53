// SPDX-License-Identifier: GPL-3.0-or-later
// How the input unit follows its device when the hardware changes.
#include "tests/audio/AudioUnitTestBase.h"

#include <atomic>

namespace veltrano {
namespace {

class AUInputFollowing : public AUInputUnitTestBase {
protected:
    static std::string sfmt(DeviceId device) { return text(device) + " 0 input sfmt"; }
    /// Everything that the hardware has announced reaches the unit.
    void settle() { mainThread.runAll(); }
};

TEST_F(AUInputFollowing, UnpluggingTheSelectedDeviceStartsEntryZeroAndTellsTheOwner) {
    const DeviceId a = hardware.addDevice(microphone("A", 44100));
    const DeviceId b = hardware.addDevice(microphone("B", 96000));
    unit().setInputDeviceWithName("M : B");
    settle();
    takeCalls();
    hardware.removeDevice(b);
    settle();
    EXPECT_EQ(takeActions(), joined({stopCalls(b), startCalls(a)}));
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_EQ(unit().inputDeviceName(), "M : A");
    EXPECT_EQ(unit().sampleRate(), 44100.0);
    EXPECT_TRUE(unit().isRunning());
    EXPECT_TRUE(delivers(a));
    EXPECT_EQ(takeHeard(), Lines{sfmt(a)});
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUInputFollowing, ADeviceThatWasReplacedIsNotTakenBack) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(microphone("B"));
    unit().setInputDeviceWithName("M : B");
    hardware.removeDevice(b);
    settle();
    hardware.returnDevice(b);
    settle();
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_EQ(unit().inputDeviceName(), "M : A");
}

TEST_F(AUInputFollowing, PluggingAnotherDeviceRestartsTheSelectedOne) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(microphone("B"));
    unit().setInputDeviceWithName("M : B");
    settle();
    takeHeard();
    takeCalls();
    hardware.addDevice(microphone("C"));
    settle();
    EXPECT_EQ(takeActions(), joined({stopCalls(b), startCalls(b)}));
    EXPECT_EQ(unit().deviceList().size(), 3u);
    EXPECT_EQ(takeHeard(), Lines{sfmt(b)});
    hardware.removeDevice(a); // the selected one moves up in the list
    settle();
    EXPECT_EQ(unit().inputDeviceName(), "M : B");
}

TEST_F(AUInputFollowing, ADeviceThatCameBackUnderItsIdIsReconfiguredAndStarted) {
    const DeviceId a = hardware.addDevice(microphone("A", 44100));
    unit().setInputDeviceWithName("M : A");
    settle();
    takeHeard();
    hardware.removeDevice(a); // back before anybody looked: the list is the same
    hardware.returnDevice(a);
    hardware.changeFormat(a, kIn, VirtualDevice::format(48000, 1));
    takeCalls();
    mainThread.runAll();
    const Lines restart = joined({stopCalls(a), startCalls(a)});
    EXPECT_EQ(takeActions(), joined({restart, restart})); // once per announcement
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_TRUE(delivers(a));
    EXPECT_EQ(takeHeard(), (Lines{sfmt(a), sfmt(a), sfmt(a)}));
}

TEST_F(AUInputFollowing, AnEmptyListKeepsNoDeviceAndDoesNotCrash) {
    unit().setInputDeviceWithName("M : A");
    EXPECT_EQ(log.lines, Lines{kNoDefaultLine});
    unit().updateCurrentDevice();
    unit().start();
    EXPECT_FALSE(unit().isRunning());
    unit().stop();
    EXPECT_EQ(unit().inputDevice(), 0u);
    EXPECT_EQ(takeActions(), Lines{});
    EXPECT_EQ(unit().inputDeviceName(), "M : A"); // still the wanted one
    EXPECT_EQ(unit().sampleRate(), 0.0);
}

TEST_F(AUInputFollowing, WithNoWantedNameAnEmptyListLeavesNoName) {
    unit().setInputDeviceWithName(std::nullopt);
    EXPECT_EQ(unit().inputDeviceName(), std::nullopt);
    const DeviceId a = hardware.addDevice(microphone("A"));
    settle();
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_EQ(unit().inputDeviceName(), "M : A");
}

TEST_F(AUInputFollowing, TheWantedDeviceIsFoundWhenDevicesAppear) {
    unit().setInputDeviceWithName("M : B");
    hardware.addDevice(microphone("A", 44100)); // announced, but not yet looked at
    const DeviceId b = hardware.addDevice(microphone("B", 48000));
    settle();
    EXPECT_EQ(unit().inputDevice(), b);
    EXPECT_EQ(unit().inputDeviceName(), "M : B");
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_TRUE(delivers(b));
}

TEST_F(AUInputFollowing, AWantedDeviceThatIsNotAmongTheFirstToAppearIsReplacedForGood) {
    unit().setInputDeviceWithName("M : B");
    const DeviceId a = hardware.addDevice(microphone("A"));
    settle();
    EXPECT_EQ(unit().inputDevice(), a);
    hardware.addDevice(microphone("B"));
    settle();
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_EQ(unit().inputDeviceName(), "M : A");
}

TEST_F(AUInputFollowing, UnpluggingTheLastDeviceKeepsItsNameUntilItComesBack) {
    const DeviceId a = hardware.addDevice(microphone("A", 48000));
    unit().setInputDeviceWithName("M : A");
    settle();
    takeHeard();
    takeCalls();
    hardware.removeDevice(a);
    settle();
    EXPECT_EQ(takeActions(), stopCalls(a));
    EXPECT_FALSE(unit().isRunning());
    EXPECT_EQ(unit().inputDevice(), 0u);
    EXPECT_EQ(unit().inputDeviceName(), "M : A");
    EXPECT_EQ(unit().sampleRate(), 48000.0); // the owner's frames keep their length
    EXPECT_EQ(takeHeard(), Lines{sfmt(0)});
    EXPECT_TRUE(unit().deviceList().empty());

    unit().setInputDeviceAtIndex(0); // a click into an empty menu
    EXPECT_EQ(takeActions(), Lines{});
    hardware.addDevice(microphone("Other"));
    hardware.returnDevice(a);
    settle();
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_TRUE(unit().isRunning());
}

TEST_F(AUInputFollowing, AfterAnEmptyListEntryZeroCanBeChosen) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    unit().setInputDeviceWithName("M : A");
    unit().updateCurrentDevice(); // records index 0
    hardware.removeDevice(a);
    settle();
    hardware.returnDevice(a);
    unit().updateDeviceList(); // the list is there before the device is followed
    unit().setInputDeviceAtIndex(0);
    EXPECT_EQ(unit().inputDevice(), a);
    EXPECT_TRUE(unit().isRunning());
}

TEST_F(AUInputFollowing, FollowingDoesNotApplyTheDataSourceAgain) {
    const DeviceId card = hardware.addDevice(withSources("Card", {"Front", "Rear"}));
    unit().setInputDeviceWithName("M : Rear");
    hardware.changeDataSource(card, kIn, 1); // by somebody else
    takeCalls();
    unit().updateCurrentDevice();
    EXPECT_EQ(takeActions(), joined({stopCalls(card), startCalls(card)}));
    EXPECT_EQ(hardware.dataSource(card, kIn), 1u);
    EXPECT_EQ(unit().inputDeviceName(), "M : Rear");
}

TEST_F(AUInputFollowing, ThePopUpFollows) {
    hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(microphone("B"));
    unit().setInputDeviceWithName("M : B");
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    settle();
    const int clears = popUp.clears;
    unit().updateDeviceList(); // equal: not filled again
    EXPECT_EQ(popUp.clears, clears);
    hardware.addDevice(microphone("C"));
    settle();
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : B", "M : C"}));
    EXPECT_EQ(popUp.selected, 1);
    hardware.removeDevice(b);
    settle();
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : C"}));
    EXPECT_EQ(popUp.selected, 0);
}

TEST_F(AUInputFollowing, OtherHardwarePropertiesAreIgnored) {
    hardware.addDevice(microphone("A"));
    unit().setInputDeviceWithName("M : A");
    takeCalls();
    EXPECT_EQ(unit().audioHardwareListener(PropertyCode::streamFormat), 0);
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(AUInputFollowing, WithoutAListenerTheUnitFollowsAllTheSame) {
    const DeviceId a = hardware.addDevice(microphone("A", 44100));
    unit().setListenerProc(nullptr, nullptr);
    unit().setInputDeviceWithName("M : A");
    hardware.changeFormat(a, kIn, VirtualDevice::format(48000, 1));
    settle();
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    hardware.addDevice(microphone("B"));
    settle();
    EXPECT_EQ(unit().deviceList().size(), 2u);
}

struct PropertyRow {
    PropertyCode property;
    const char* words;
    Lines reads; ///< "ID" stands for the device
};

TEST_F(AUInputFollowing, ANotificationOfTheDeviceIsReadUpOnAndPassedToTheOwner) {
    const Lines volumeReads = {"isVolumeWritable ID input 1", "volume ID input 1"};
    const PropertyRow rows[] = {
        {PropertyCode::streamFormat, "sfmt", {"streamFormat ID input"}},
        {PropertyCode::streamConfiguration, "slay", {"streamConfiguration ID input"}},
        {PropertyCode::dataSource, "ssrc", volumeReads},
        {PropertyCode::volumeScalar, "volm", volumeReads},
        {PropertyCode::deviceHasChanged, "diff", volumeReads},
        {PropertyCode::devices, "dev#", {}}, // any other property
    };
    const DeviceId a = hardware.addDevice(microphone("A"));
    unit().setInputDeviceWithName("M : A");
    for (const PropertyRow& row : rows) {
        SCOPED_TRACE(row.words);
        takeCalls();
        takeHeard();
        EXPECT_EQ(unit().audioDevicePropertyListener(a, 3, true, row.property), 0);
        Lines expected;
        for (std::string read : row.reads) {
            expected.push_back(read.replace(read.find("ID"), 2, text(a)));
        }
        EXPECT_EQ(takeCalls(), expected);
        EXPECT_EQ(takeHeard(), Lines{text(a) + " 3 input " + row.words});
    }
}

TEST_F(AUInputFollowing, NotificationsOfOtherDevicesAndOfTheOutputSideAreIgnored) {
    VirtualDevice headset = microphone("Headset");
    headset.output = VirtualDevice::side(48000, 2);
    const DeviceId a = hardware.addDevice(headset);
    const DeviceId b = hardware.addDevice(microphone("B"));
    unit().setInputDeviceWithName("M : Headset");
    settle();
    takeCalls();
    takeHeard();
    for (const PropertyCode property :
         {PropertyCode::streamFormat, PropertyCode::streamConfiguration, PropertyCode::dataSource,
          PropertyCode::volumeScalar, PropertyCode::deviceHasChanged}) {
        hardware.announce(a, 0, kOut, property);
        hardware.announce(b, 0, kIn, property);
    }
    EXPECT_EQ(mainThread.runAll(), 10); // both reached the unit
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(takeHeard(), Lines{});
}

/// The same with notifications that arrive on a thread of their own.
class AUInputHandOff : public AudioUnitTestBase {
protected:
    AUInputHandOff() : AudioUnitTestBase(NotifyOn::notificationThread) {}
};

TEST_F(AUInputHandOff, AHundredReplugsEndWithTheDeviceRunning) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    AUInputUnit unit(registry());
    static std::atomic<int> blocks; // of the I/O procedure below
    blocks = 0;
    unit.setIOProc(
        [](DeviceId, const AudioTimeStamp*, const AudioBufferList*, const AudioTimeStamp*,
           AudioBufferList*, const AudioTimeStamp*, void*) noexcept -> Status {
            ++blocks;
            return 0;
        },
        nullptr);
    unit.setInputDeviceWithName("M : A");
    for (int round = 0; round < 100; ++round) {
        hardware.removeDevice(a);
        if (round % 3 == 0) mainThread.runAll();
        hardware.returnDevice(a);
        mainThread.runAll();
    }
    hardware.notifier().drain();
    mainThread.runAll();
    EXPECT_EQ(unit.inputDevice(), a);
    EXPECT_TRUE(unit.isRunning());
    EXPECT_EQ(unit.inputDeviceName(), "M : A");
    hardware.deliver(a, {}, 1);
    EXPECT_EQ(blocks, 1);
}

} // namespace
} // namespace veltrano
