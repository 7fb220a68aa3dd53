// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing the input device and its data source.
#include "tests/audio/AudioUnitTestBase.h"

#include <map>

namespace veltrano {
namespace {

class AUInputDevices : public AUInputUnitTestBase {
protected:
    /// Two plain devices and a card with two sources; B is the default.
    void plugAll() {
        a = hardware.addDevice(microphone("A", 44100));
        b = hardware.addDevice(microphone("B", 48000, 2));
        card = hardware.addDevice(withSources("Card", {"Front", "Rear"}));
        hardware.setDefaultDevice(kIn, b);
    }

    DeviceId a = 0;
    DeviceId b = 0;
    DeviceId card = 0;
};

TEST_F(AUInputDevices, AtFirstTheListIsBuiltAndNothingIsOpened) {
    plugAll();
    EXPECT_EQ(unit().deviceList(), (DeviceList{{"M : A", a, std::nullopt},
                                               {"M : B", b, std::nullopt},
                                               {"M : Front", card, 1u},
                                               {"M : Rear", card, 2u}}));
    EXPECT_EQ(takeActions(), Lines{});
    EXPECT_TRUE(unit().isInput());
    EXPECT_FALSE(unit().isRunning());
    EXPECT_EQ(unit().inputDevice(), 0u);
    EXPECT_EQ(unit().inputDeviceName(), std::nullopt);
    EXPECT_EQ(unit().sampleRate(), 0.0);
}

TEST_F(AUInputDevices, TheSavedDeviceIsStartedAndItsFormatRead) {
    plugAll();
    unit().setInputDeviceWithName("M : B");
    const std::string id = text(b);
    EXPECT_EQ(takeCalls(),
              (Lines{"streamFormat " + id + " input", "streamConfiguration " + id + " input",
                     "isVolumeWritable " + id + " input 1", "volume " + id + " input 1",
                     "addIOProc " + id, "start " + id}));
    EXPECT_TRUE(unit().isRunning());
    EXPECT_EQ(unit().inputDevice(), b);
    EXPECT_EQ(unit().inputDeviceName(), "M : B");
    EXPECT_EQ(unit().deviceName(), "M : B");
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_TRUE(delivers(b));
    EXPECT_TRUE(log.lines.empty());
}

struct DefaultRow {
    const char* name;
    std::optional<std::string> saved;
    std::string defaultDevice; ///< "" none
    std::string selected;
    bool isLogged;
};

TEST_F(AUInputDevices, ASavedNameThatMatchesNoEntrySelectsTheDefaultOrEntryZero) {
    const DefaultRow rows[] = {
        {"unknown name", "M : Gone", "B", "M : B", false},
        {"no name", std::nullopt, "B", "M : B", false},
        {"empty name", "", "B", "M : B", false},
        {"the device's own name where its source is listed", "M : Card", "B", "M : B", false},
        {"default with sources: the current one", "M : Gone", "Card", "M : Rear", false},
        {"default device without an input stream", "M : Gone", "Speaker", "M : A", true},
        {"no default device", "M : Gone", "", "M : A", true},
        {"a saved name that is there", "M : Front", "", "M : Front", false},
    };
    plugAll();
    hardware.changeDataSource(card, kIn, 2);
    const DeviceId speakerId = hardware.addDevice(speaker("Speaker"));
    for (const DefaultRow& row : rows) {
        SCOPED_TRACE(row.name);
        const std::map<std::string, std::optional<DeviceId>> ids = {
            {"B", b}, {"Card", card}, {"Speaker", speakerId}, {"", std::nullopt}};
        hardware.setDefaultDevice(kIn, ids.at(row.defaultDevice));
        hardware.changeDataSource(card, kIn, 2);
        log.lines.clear();
        unit().setInputDeviceWithName(row.saved);
        EXPECT_EQ(unit().inputDeviceName(), row.selected);
        EXPECT_TRUE(unit().isRunning());
        EXPECT_EQ(log.lines, row.isLogged ? Lines{kNoDefaultLine} : Lines{});
        endUnit();
    }
}

TEST_F(AUInputDevices, ANameIsLookedUpAmongTheEntries) {
    plugAll();
    hardware.addDevice(microphone("B")); // a second one of that name
    EXPECT_EQ(unit().indexOfInputDeviceWithName("M : A"), 0);
    EXPECT_EQ(unit().indexOfInputDeviceWithName("M : B"), 1);
    EXPECT_EQ(unit().indexOfInputDeviceWithName("M : Rear"), 3);
    EXPECT_EQ(unit().indexOfInputDeviceWithName("M : Card"), -1);
    EXPECT_EQ(unit().indexOfInputDeviceWithName("m : a"), -1);
    EXPECT_EQ(unit().indexOfInputDeviceWithName(std::nullopt), -1);
}

TEST_F(AUInputDevices, InAnEmptyListThereIsNoName) {
    EXPECT_EQ(unit().indexOfInputDeviceWithName("M : A"), -1);
    EXPECT_EQ(unit().indexOfDefaultInputDevice(), 0);
    EXPECT_EQ(log.lines, Lines{kNoDefaultLine});
}

TEST_F(AUInputDevices, SwitchingStopsTheOldDeviceBeforeAnythingOfTheNewOneIsRead) {
    plugAll();
    unit().setInputDeviceWithName("M : A");
    takeCalls();
    unit().setInputDeviceAtIndex(3);
    const std::string id = text(card);
    EXPECT_EQ(takeCalls(),
              joined({stopCalls(a),
                      {"streamFormat " + id + " input", "streamConfiguration " + id + " input",
                       "isVolumeWritable " + id + " input 1", "volume " + id + " input 1"},
                      startCalls(card),
                      {"setDataSource " + id + " input 2"}}));
    EXPECT_EQ(hardware.dataSource(card, kIn), 2u);
    EXPECT_EQ(unit().inputDeviceName(), "M : Rear");
    EXPECT_FALSE(delivers(a));
    EXPECT_TRUE(delivers(card));
}

TEST_F(AUInputDevices, ChoosingTheSecondSourceOfTheSelectedDeviceOnlyWritesTheDataSource) {
    plugAll();
    unit().setInputDeviceWithName("M : Front");
    takeCalls();
    unit().setInputDeviceWithName("M : Rear");
    EXPECT_EQ(takeCalls(), Lines{"setDataSource " + text(card) + " input 2"});
    EXPECT_TRUE(unit().isRunning());
    EXPECT_EQ(unit().inputDeviceName(), "M : Rear");
    EXPECT_TRUE(delivers(card));
}

TEST_F(AUInputDevices, AnIndexOutsideTheListChangesNothing) {
    plugAll();
    unit().setInputDeviceWithName("M : B");
    takeCalls();
    for (const int index : {-2, -1, 4, 1000})
        unit().setInputDeviceAtIndex(index);
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(unit().inputDeviceName(), "M : B");
}

TEST_F(AUInputDevices, ChoosingDoesNotRecordTheIndex) {
    plugAll();
    unit().setInputDeviceAtIndex(2);
    takeCalls();
    unit().setInputDeviceAtIndex(2); // not "the same index": the source is written again
    EXPECT_EQ(takeCalls(), Lines{"setDataSource " + text(card) + " input 1"});
}

TEST_F(AUInputDevices, TheIndexThatFollowingRecordedIsNotChosenAgain) {
    plugAll();
    unit().setInputDeviceAtIndex(1);
    unit().updateCurrentDevice(); // records 1
    unit().setInputDeviceAtIndex(0);
    EXPECT_EQ(unit().inputDevice(), a);
    takeCalls();
    unit().setInputDeviceAtIndex(1); // kept: nothing, although another device is selected
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(unit().inputDevice(), a);
}

TEST_F(AUInputDevices, AProcedureIsUsedAtTheNextStart) {
    plugAll();
    unit().setInputDeviceWithName("M : A");
    int other = 0;
    const auto addTen = [](DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                           const AudioTimeStamp*, AudioBufferList*, const AudioTimeStamp*,
                           void* refCon) noexcept -> Status {
        *static_cast<int*>(refCon) += 10;
        return 0;
    };
    unit().setIOProc(addTen, &other);
    EXPECT_TRUE(delivers(a));
    unit().stop();
    EXPECT_FALSE(delivers(a));
    unit().start();
    EXPECT_FALSE(delivers(a));
    EXPECT_EQ(other, 10);
}

TEST_F(AUInputDevices, StartAndStopAddAndRemoveTheProcedure) {
    plugAll();
    unit().setInputDeviceWithName("M : A");
    takeCalls();
    unit().stop();
    EXPECT_EQ(takeCalls(), stopCalls(a));
    EXPECT_FALSE(unit().isRunning());
    unit().start();
    EXPECT_EQ(takeCalls(), startCalls(a));
    EXPECT_TRUE(unit().isRunning());
    EXPECT_TRUE(delivers(a));
}

TEST_F(AUInputDevices, FailuresOfTheHardwareAreNeitherCheckedNorLogged) {
    for (const HardwareCall call : {HardwareCall::addIOProc, HardwareCall::start,
                                    HardwareCall::setDataSource, HardwareCall::streamConfiguration,
                                    HardwareCall::volume, HardwareCall::isVolumeWritable}) {
        SCOPED_TRACE(call_text::nameOf(call));
        plugAll();
        unit();
        hardware.faults().failEvery(call, -50);
        unit().setInputDeviceWithName("M : Rear");
        EXPECT_TRUE(unit().isRunning()); // as far as the unit knows
        EXPECT_EQ(unit().inputDeviceName(), "M : Rear");
        hardware.faults().clear();
        endUnit();
    }
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUInputDevices, AFormatThatCannotBeReadLeavesTheOldOne) {
    plugAll();
    unit().setInputDeviceWithName("M : A");
    hardware.faults().failEvery(HardwareCall::streamFormat, -50, b);
    unit().setInputDeviceAtIndex(1);
    EXPECT_EQ(unit().inputDevice(), b);
    EXPECT_EQ(unit().sampleRate(), 44100.0);
}

TEST_F(AUInputDevices, ThePopUpShowsTheListAndTheSelectedDevice) {
    plugAll();
    unit().setInputDeviceWithName("M : Front");
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : B", "M : Front", "M : Rear"}));
    EXPECT_EQ(popUp.selected, 2);
    unit().setupPopUpButton(&popUp); // filled again, not kept twice
    EXPECT_EQ(popUp.titles.size(), 4u);
    unit().setupPopUpButton(nullptr);
    unit().updateCurrentDevice();
    EXPECT_EQ(popUp.selected, 2);
}

TEST_F(AUInputDevices, AtItsEndTheDeviceIsStopped) {
    plugAll();
    unit().setInputDeviceWithName("M : A");
    takeCalls();
    endUnit();
    EXPECT_EQ(takeCalls(), stopCalls(a));
    EXPECT_FALSE(delivers(a));
}

} // namespace
} // namespace veltrano
