// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing the output device and its data source.
#include "tests/audio/AUOutputTestBase.h"

#include <map>

namespace veltrano {
namespace {

class AUOutputDevices : public AUOutputUnitTestBase {
protected:
    /// Two plain devices and a card with two sources; B is the default.
    void plugAll() {
        a = hardware.addDevice(loudspeaker("A", 44100));
        b = hardware.addDevice(loudspeaker("B", 48000));
        card = hardware.addDevice(loudspeaker("Card", 96000, {"Line", "Phones"}));
        hardware.setDefaultDevice(kOut, b);
    }
    /// The calls of hardware and unit, without those that only read.
    Lines takeBoth() {
        Lines actions = takeActions();
        for (const std::string& call : script.takeCalls())
            actions.push_back(call);
        return actions;
    }
    static Lines pointedAt(DeviceId device, const std::string& rate) {
        return {"setCurrentDevice " + text(device), "setStreamFormat " + rate + " 2"};
    }

    DeviceId a = 0;
    DeviceId b = 0;
    DeviceId card = 0;
};

TEST_F(AUOutputDevices, AtFirstTheListIsBuiltTheUnitIsOpenedAndNothingPlays) {
    plugAll();
    hardware.addDevice(microphone("Microphone"));
    EXPECT_EQ(unit().deviceList(), (DeviceList{{"M : A", a, std::nullopt},
                                               {"M : B", b, std::nullopt},
                                               {"M : Line", card, 1u},
                                               {"M : Phones", card, 2u}}));
    EXPECT_FALSE(unit().isInput());
    EXPECT_FALSE(unit().isRunning());
    EXPECT_EQ(unit().outputDevice(), 0u);
    EXPECT_EQ(unit().outputDeviceName(), std::nullopt);
    EXPECT_EQ(unit().deviceName(), std::nullopt);
    EXPECT_EQ(unit().sampleRate(), 0.0);
    EXPECT_EQ(script.calls,
              (Lines{"open", "initialize", "addPropertyListener 2000", "addPropertyListener 2"}));
    EXPECT_EQ(takeActions(), Lines{});
}

TEST_F(AUOutputDevices, DescribesItself) {
    char expected[40];
    std::snprintf(expected, sizeof expected, "AUOutputUnit: %p", static_cast<void*>(&unit()));
    EXPECT_EQ(unit().description(), expected);
}

TEST_F(AUOutputDevices, TheSavedDeviceIsTakenAtItsRateAndStarted) {
    plugAll();
    unit();
    takeBoth();
    unit().setOutputDeviceWithName("M : A");
    EXPECT_EQ(takeBoth(), joined({pointedAt(a, "44100"), {"start"}}));
    EXPECT_TRUE(unit().isRunning());
    EXPECT_EQ(unit().outputDevice(), a);
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
    EXPECT_EQ(unit().deviceName(), "M : A");
    EXPECT_EQ(unit().sampleRate(), 44100.0);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputDevices, OnlyTheRateOfTheUnitsFormatIsReplaced) {
    plugAll();
    unit();
    StreamDescription own = script.format;
    own.formatFlags = 41;
    own.reserved = 5;
    script.format = own;
    unit().setOutputDeviceWithName("M : B");
    own.sampleRate = 48000;
    EXPECT_EQ(script.format, own);
}

TEST_F(AUOutputDevices, ASavedNameThatIsGoneSelectsTheDefaultOrEntryZero) {
    struct {
        const char* name;
        std::optional<std::string> saved;
        std::string defaultDevice; ///< "" none
        std::string selected;
        bool isLogged;
    } const rows[] = {
        {"unknown name", "M : Gone", "B", "M : B", false},
        {"no name", std::nullopt, "B", "M : B", false},
        {"empty name", "", "B", "M : B", false},
        {"the device's own name where its source is listed", "M : Card", "B", "M : B", false},
        {"default with sources: the current one", "M : Gone", "Card", "M : Phones", false},
        {"default device without an output stream", "M : Gone", "Microphone", "M : A", true},
        {"no default device", "M : Gone", "", "M : A", true},
        {"a saved name that is there", "M : Line", "", "M : Line", false},
    };
    plugAll();
    const DeviceId input = hardware.addDevice(microphone("Microphone"));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::map<std::string, std::optional<DeviceId>> ids = {
            {"B", b}, {"Card", card}, {"Microphone", input}, {"", std::nullopt}};
        hardware.setDefaultDevice(kOut, ids.at(row.defaultDevice));
        hardware.setDefaultDevice(kIn, a); // of no account
        hardware.changeDataSource(card, kOut, 2);
        unit().setOutputDeviceWithName(row.saved);
        EXPECT_EQ(unit().outputDeviceName(), row.selected);
        EXPECT_TRUE(unit().isRunning());
        EXPECT_EQ(takeLog(), row.isLogged ? Lines{kNoDefaultOutputLine} : Lines{});
        endUnit();
    }
}

TEST_F(AUOutputDevices, ANameIsLookedUpAmongTheEntries) {
    plugAll();
    hardware.addDevice(loudspeaker("B")); // a second one of that name
    EXPECT_EQ(unit().indexOfOutputDeviceWithName("M : A"), 0);
    EXPECT_EQ(unit().indexOfOutputDeviceWithName("M : B"), 1);
    EXPECT_EQ(unit().indexOfOutputDeviceWithName("M : Phones"), 3);
    EXPECT_EQ(unit().indexOfOutputDeviceWithName("M : Card"), -1);
    EXPECT_EQ(unit().indexOfOutputDeviceWithName("m : a"), -1);
    EXPECT_EQ(unit().indexOfOutputDeviceWithName(std::nullopt), -1);
    EXPECT_EQ(unit().indexOfDefaultOutputDevice(), 1);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputDevices, SwitchingStopsTheUnitAndStartsItOnTheNewDevice) {
    plugAll();
    unit().setOutputDeviceWithName("M : A");
    takeBoth();
    unit().setOutputDeviceAtIndex(1);
    EXPECT_EQ(takeBoth(), joined({{"stop"}, pointedAt(b, "48000"), {"start"}}));
    EXPECT_EQ(unit().outputDeviceName(), "M : B");
    EXPECT_EQ(unit().sampleRate(), 48000.0);
    EXPECT_TRUE(unit().isRunning());
}

TEST_F(AUOutputDevices, AStoppedUnitIsStartedOnTheNewDevice) {
    plugAll();
    unit().setOutputDeviceWithName("M : A");
    unit().stop();
    takeBoth();
    unit().setOutputDeviceAtIndex(1);
    EXPECT_EQ(takeBoth(), joined({{"stop"}, pointedAt(b, "48000"), {"start"}}));
}

TEST_F(AUOutputDevices, TheDataSourceIsWrittenBeforeTheSwitch) {
    plugAll();
    unit().setOutputDeviceWithName("M : A");
    script.takeCalls();
    takeCalls();
    unit().setOutputDeviceAtIndex(3);
    const Lines calls = takeCalls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), "setDataSource " + text(card) + " output 2");
    EXPECT_EQ(script.takeCalls(), joined({{"stop"}, pointedAt(card, "96000"), {"start"}}));
    EXPECT_EQ(hardware.dataSource(card, kOut), 2u);
    EXPECT_EQ(unit().outputDeviceName(), "M : Phones");
}

TEST_F(AUOutputDevices, AnotherSourceOfTheSameDeviceDoesNotRestartTheUnit) {
    plugAll();
    unit().setOutputDeviceWithName("M : Line");
    takeBoth();
    unit().setOutputDeviceWithName("M : Phones");
    EXPECT_EQ(takeBoth(), Lines{"setDataSource " + text(card) + " output 2"});
    EXPECT_EQ(unit().outputDeviceName(), "M : Phones");
    EXPECT_EQ(unit().outputDevice(), card);
}

TEST_F(AUOutputDevices, TheSameDeviceAgainDoesNothing) {
    plugAll();
    unit().setOutputDeviceWithName("M : B");
    takeBoth();
    unit().setOutputDeviceWithName("M : B");
    EXPECT_EQ(takeBoth(), Lines{});
}

TEST_F(AUOutputDevices, OnlyTheIndexThatTheUnitConfirmedIsLeftAlone) {
    plugAll();
    unit().setOutputDeviceAtIndex(2);
    takeBoth();
    unit().setOutputDeviceAtIndex(2); // not confirmed: the source is written again
    EXPECT_EQ(takeBoth(), Lines{"setDataSource " + text(card) + " output 1"});
    unitMoves(card);
    unit().setOutputDeviceAtIndex(2);
    EXPECT_EQ(takeBoth(), Lines{});
    unit().setOutputDeviceAtIndex(0);
    takeBoth();
    unit().setOutputDeviceAtIndex(2); // still the confirmed one
    EXPECT_EQ(takeBoth(), Lines{});
    EXPECT_EQ(unit().outputDeviceName(), "M : A");
}

TEST_F(AUOutputDevices, AnIndexOutsideTheListDoesNothing) {
    plugAll();
    unit().setOutputDeviceWithName("M : A");
    takeBoth();
    for (const int index : {-2, -1, 4, 1000}) {
        unit().setOutputDeviceAtIndex(index);
        EXPECT_EQ(unit().outputDeviceName(), "M : A") << index;
    }
    EXPECT_EQ(takeBoth(), Lines{});
}

TEST_F(AUOutputDevices, ADataSourceIsWrittenOnTheOutputSide) {
    VirtualDevice both = loudspeaker("Card", 44100, {"Line", "Phones"});
    both.input = withSources("Card", {"Front", "Rear"}).input;
    const DeviceId id = hardware.addDevice(std::move(both));
    unit().setDataSource(2, id);
    EXPECT_EQ(hardware.dataSource(id, kOut), 2u);
    EXPECT_EQ(hardware.dataSource(id, kIn), 1u);
}

TEST_F(AUOutputDevices, TheUnitIsStoppedAtTheEnd) {
    plugAll();
    unit().setOutputDeviceWithName("M : A");
    takeBoth();
    endUnit();
    EXPECT_EQ(takeBoth(), Lines{"stop"});
    unit();
    takeBoth();
    endUnit();
    EXPECT_EQ(takeBoth(), Lines{}) << "it never ran";
}

// --- the pop-up ---

TEST_F(AUOutputDevices, ThePopUpShowsTheListAndTheCurrentDevice) {
    plugAll();
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : B", "M : Line", "M : Phones"}));
    EXPECT_EQ(popUp.selected, -1);
    unit().setOutputDeviceWithName("M : Phones");
    unitMoves(card);
    EXPECT_EQ(popUp.selected, 3);
    RecordingPopUp later;
    unit().setupPopUpButton(&later);
    EXPECT_EQ(later.selected, 3);
    unitMoves(a);
    EXPECT_EQ(later.selected, 0);
    EXPECT_EQ(popUp.selected, 3) << "no longer held";
}

TEST_F(AUOutputDevices, APopUpThatWasLetGoIsNotTouched) {
    plugAll();
    RecordingPopUp popUp;
    unit().setupPopUpButton(&popUp);
    unit().setupPopUpButton(nullptr);
    const int clears = popUp.clears;
    hardware.addDevice(loudspeaker("C"));
    settle();
    unitMoves(b);
    EXPECT_EQ(popUp.clears, clears);
    EXPECT_EQ(popUp.titles.size(), 4u);
    EXPECT_EQ(popUp.selected, -1);
}

} // namespace
} // namespace veltrano
