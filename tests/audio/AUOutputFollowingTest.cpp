// SPDX-License-Identifier: GPL-3.0-or-later
// How the output unit follows what the hardware output unit and the devices announce.
#include "tests/audio/AUOutputTestBase.h"

namespace veltrano {
namespace {

class AUOutputFollowing : public AUOutputUnitTestBase {
protected:
    Status announce(DeviceId device, bool isInput, PropertyCode property) {
        return unit().audioDevicePropertyListener(device, 0, isInput, property);
    }
};

// --- the unit's device ---

TEST_F(AUOutputFollowing, TheUnitsDeviceIsTakenOverByNameAndPopUp) {
    hardware.addDevice(loudspeaker("A"));
    const DeviceId b = hardware.addDevice(loudspeaker("B"));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setOutputDeviceWithName("M : A");
    script.takeCalls();
    unitMoves(b);
    EXPECT_EQ(unit().outputDevice(), b);
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    EXPECT_EQ(popUp.selected, 1);
    EXPECT_EQ(script.calls, Lines{}) << "it is only noted";
}

TEST_F(AUOutputFollowing, OfADeviceWithSourcesTheCurrentOneCounts) {
    const DeviceId card = hardware.addDevice(loudspeaker("Card", 44100, {"Line", "Phones"}));
    unit();
    hardware.changeDataSource(card, kOut, 2);
    unitMoves(card);
    EXPECT_EQ(unit().outputDeviceName(), "M : Phones");
    hardware.changeDataSource(card, kOut, 1);
    settle();
    EXPECT_EQ(unit().outputDeviceName(), "M : Phones") << "'ssrc' alone is not followed";
    unitMoves(card);
    EXPECT_EQ(unit().outputDeviceName(), "M : Line");
}

TEST_F(AUOutputFollowing, WithASourceThatCannotBeWrittenTheDevicesFirstEntryCounts) {
    hardware.addDevice(loudspeaker("A"));
    const DeviceId card = hardware.addDevice(loudspeaker("Card", 44100, {"Line", "Phones"}));
    unit();
    hardware.changeDataSource(card, kOut, 2);
    hardware.faults().failEvery(HardwareCall::isDataSourceWritable, -1, card);
    unitMoves(card);
    EXPECT_EQ(unit().outputDeviceName(), "M : Line");
}

TEST_F(AUOutputFollowing, AnUnlistedDeviceIsNotedAndShownAsEntryZero) {
    hardware.addDevice(loudspeaker("A"));
    const DeviceId b = hardware.addDevice(loudspeaker("B"));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setOutputDeviceWithName("M : B");
    unitMoves(b);
    unitMoves(4711);
    EXPECT_EQ(unit().outputDevice(), 4711u);
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
    EXPECT_EQ(popUp.selected, 0);
    unit().setOutputDeviceAtIndex(0);
    EXPECT_EQ(unit().outputDevice(), 4711u) << "entry 0 counts as selected";
}

TEST_F(AUOutputFollowing, TheDeviceIsTakenOverOnTheMainThreadLater) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    unit();
    script.device = a;
    script.tell(UnitProperty::currentDevice);
    EXPECT_EQ(unit().outputDevice(), 0u);
    settle();
    EXPECT_EQ(unit().outputDevice(), a);
}

TEST_F(AUOutputFollowing, AUnitThatIsGoneIsNotTold) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    unit();
    script.device = a;
    script.tell(UnitProperty::currentDevice);
    endUnit();
    EXPECT_EQ(mainThread.runAll(), 1) << "it waited, and found nobody";
}

// --- the unit's notifications ---

TEST_F(AUOutputFollowing, OnlyTheInputScopeIsHeard) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    unit().setOutputDeviceWithName("M : A");
    settle();
    script.takeCalls();
    for (const UnitScope scope : {UnitScope::global, UnitScope::output}) {
        script.device = a;
        script.tell(UnitProperty::sampleRate, scope);
        script.tell(UnitProperty::currentDevice, scope);
    }
    EXPECT_EQ(mainThread.runAll(), 0);
    EXPECT_EQ(script.calls, Lines{});
    EXPECT_EQ(takeHeard(), Lines{});
}

TEST_F(AUOutputFollowing, ANewRateOfTheUnitIsTakenFromTheDeviceAtOnce) {
    const DeviceId a = hardware.addDevice(loudspeaker("A", 44100));
    unit().setOutputDeviceWithName("M : A");
    hardware.changeFormat(a, kOut, VirtualDevice::format(48000, 2));
    script.takeCalls();
    script.tell(UnitProperty::sampleRate, UnitScope::input, 3);
    EXPECT_EQ(script.takeCalls(),
              (Lines{"setCurrentDevice " + text(a), "setStreamFormat 48000 2"}));
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_EQ(takeHeard(), Lines{"2 scope 1 element 3"});
}

TEST_F(AUOutputFollowing, TheOwnersListenerHearsOfEveryProperty) {
    hardware.addDevice(loudspeaker("A"));
    unit().setOutputDeviceWithName("M : A");
    script.tell(UnitProperty::currentDevice, UnitScope::input, 1);
    EXPECT_EQ(takeHeard(), Lines{"2000 scope 1 element 1"}) << "without waiting";
    // Whatever else a unit tells through one of the listeners.
    const auto& any = script.listeners.front();
    any.proc(any.client, nullptr, UnitProperty::streamFormat, UnitScope::input, 0);
    EXPECT_EQ(takeHeard(), Lines{"8 scope 1 element 0"});
    unit().setAUListenerProc(nullptr, nullptr);
    script.tell(UnitProperty::currentDevice);
    unit().notifyListener();
    EXPECT_EQ(takeHeard(), Lines{});
}

// --- the device's notifications ---

TEST_F(AUOutputFollowing, ARateChangeOfTheSelectedDeviceIsReadAndTold) {
    const DeviceId a = hardware.addDevice(loudspeaker("A", 44100));
    unit().setOutputDeviceWithName("M : A");
    settle();
    script.takeCalls();
    hardware.changeFormat(a, kOut, VirtualDevice::format(96000, 2));
    EXPECT_EQ(unit().sampleRate(), 44100.0) << "not before the main thread hears of it";
    settle();
    EXPECT_EQ(unit().sampleRate(), 96000.0);
    EXPECT_EQ(takeHeard(), Lines{"2 scope 0 element 0"});
    EXPECT_EQ(script.calls, Lines{}) << "the unit tells for itself";
}

TEST_F(AUOutputFollowing, RatesOfOtherDevicesAndOfTheInputSideAreIgnored) {
    VirtualDevice both = loudspeaker("A", 44100);
    both.input = microphone("A", 44100).input;
    const DeviceId a = hardware.addDevice(std::move(both));
    const DeviceId b = hardware.addDevice(loudspeaker("B", 44100));
    unit().setOutputDeviceWithName("M : A");
    settle();
    takeCalls();
    EXPECT_EQ(announce(b, false, PropertyCode::streamFormat), 0);
    EXPECT_EQ(announce(a, true, PropertyCode::streamFormat), 0);
    EXPECT_EQ(announce(a, true, PropertyCode::deviceHasChanged), 0);
    for (const PropertyCode other : {PropertyCode::dataSource, PropertyCode::volumeScalar,
                                     PropertyCode::streamConfiguration, PropertyCode::devices}) {
        EXPECT_EQ(announce(a, false, other), 0);
    }
    EXPECT_EQ(unit().audioHardwareListener(PropertyCode::streamFormat), 0);
    EXPECT_EQ(takeCalls(), Lines{}) << "nothing was even read";
    EXPECT_EQ(takeHeard(), Lines{});
    EXPECT_EQ(announce(a, false, PropertyCode::streamFormat), 0);
    EXPECT_EQ(takeHeard(), Lines{"2 scope 0 element 0"});
}

TEST_F(AUOutputFollowing, AnyOutputDeviceThatHasChangedRebuildsTheList) {
    hardware.addDevice(loudspeaker("A"));
    const DeviceId card = hardware.addDevice(loudspeaker("Card", 44100, {"Line"}));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setOutputDeviceWithName("M : A");
    unitMoves(unit().outputDevice());
    const auto side = *loudspeaker("Card", 44100, {"Line", "Phones"}).output;
    hardware.changeSide(card, kOut, side);
    EXPECT_EQ(unit().deviceList().size(), 2u);
    settle();
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : Line", "M : Phones"}));
    EXPECT_EQ(popUp.selected, 0);
}

// --- the list ---

TEST_F(AUOutputFollowing, AnEqualListIsLeftAlone) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    const int clears = popUp.clears;
    script.device = a;
    EXPECT_EQ(unit().audioHardwareListener(PropertyCode::devices), 0);
    hardware.addDevice(microphone("Microphone"));
    settle();
    EXPECT_EQ(popUp.clears, clears);
    EXPECT_EQ(unit().outputDevice(), 0u) << "the unit was not asked";
}

TEST_F(AUOutputFollowing, AChangedListIsShownAndTheUnitsDeviceFoundInIt) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    const DeviceId b = hardware.addDevice(loudspeaker("B"));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setOutputDeviceWithName("M : B");
    unitMoves(b);
    EXPECT_EQ(popUp.selected, 1);
    hardware.removeDevice(a);
    settle();
    EXPECT_EQ(popUp.titles, Lines{"M : B"});
    EXPECT_EQ(popUp.selected, 0);
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    script.takeCalls();
    unit().setOutputDeviceAtIndex(0);
    EXPECT_EQ(script.calls, Lines{}) << "it is the confirmed one";
}

TEST_F(AUOutputFollowing, AnEmptyListKeepsTheWantedNameAndSelectsItWhenTheListComes) {
    unit().setOutputDeviceWithName("M : B");
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    EXPECT_EQ(unit().outputDevice(), 0u);
    EXPECT_FALSE(unit().isRunning());
    EXPECT_EQ(takeLog(), Lines{kNoDefaultOutputLine});
    unit().updateCurrentDevice();
    EXPECT_EQ(takeLog(), Lines{}) << "nothing was looked for";
    hardware.addDevice(loudspeaker("A", 44100));
    const DeviceId b = hardware.addDevice(loudspeaker("B", 48000));
    settle();
    EXPECT_EQ(unit().outputDevice(), b);
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_TRUE(unit().isRunning());
    EXPECT_EQ(script.device, b);
}

TEST_F(AUOutputFollowing, AnEmptyListKeepsTheNameThatWasWantedBefore) {
    unit().setOutputDeviceWithName("M : B");
    unit().setOutputDeviceWithName(std::nullopt);
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
}

TEST_F(AUOutputFollowing, WithoutAWantedNameTheDefaultDeviceIsSelectedWhenTheListComes) {
    unit().setOutputDeviceWithName(std::nullopt);
    EXPECT_EQ(unit().outputDeviceName(), std::nullopt);
    EXPECT_EQ(takeLog(), Lines{kNoDefaultOutputLine});
    hardware.addDevice(loudspeaker("A"));
    const DeviceId b = hardware.addDevice(loudspeaker("B"));
    hardware.setDefaultDevice(kOut, b);
    settle();
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputFollowing, AListThatBecomesEmptyKeepsTheNameUntilTheDeviceIsBack) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setOutputDeviceWithName("M : A");
    unitMoves(a);
    hardware.removeDevice(a);
    settle();
    EXPECT_TRUE(unit().deviceList().empty());
    EXPECT_EQ(popUp.titles, Lines{});
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
    unit().setOutputDeviceAtIndex(0); // a click into an empty menu
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
    hardware.returnDevice(a);
    settle();
    EXPECT_EQ(unit().outputDevice(), a);
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
    EXPECT_EQ(popUp.selected, 0);
}

TEST_F(AUOutputFollowing, AfterAnEmptyListEntryZeroCanBeChosen) {
    const DeviceId a = hardware.addDevice(loudspeaker("A"));
    unit().setOutputDeviceWithName("M : A");
    unitMoves(a);
    hardware.removeDevice(a);
    settle();
    script.reportedDevice.emplace(std::nullopt); // a unit that gave its device up
    const DeviceId b = hardware.addDevice(loudspeaker("B"));
    settle();
    EXPECT_EQ(unit().outputDevice(), b);
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
}

} // namespace
} // namespace veltrano
