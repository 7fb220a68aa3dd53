// SPDX-License-Identifier: GPL-3.0-or-later
// Device lists and device names.
#include "tests/audio/AudioUnitTestBase.h"

#include <sstream>

namespace veltrano {
namespace {

/// A unit of either direction that does nothing of its own.
class PlainUnit final : public AUUnit {
public:
    PlainUnit(AUUnitRegistry& registry, Direction direction)
        : AUUnit(registry), mDirection(direction) {}
    bool isInput() const override { return mDirection == kIn; }

private:
    const Direction mDirection;
};

class AUUnitTest : public AudioUnitTestBase {
protected:
    DeviceList listOf(Direction direction) {
        DeviceList list;
        AUUnit(registry()).setupAudioSource(list, direction == kIn);
        return list;
    }
    std::optional<std::string> nameOf(DeviceId device, Direction direction) {
        return PlainUnit(registry(), direction).nameOfDevice(device);
    }
};

TEST_F(AUUnitTest, AMachineWithNoDeviceYieldsEmptyListsAndInstallsNoDeviceListeners) {
    EXPECT_TRUE(listOf(kIn).empty());
    EXPECT_TRUE(listOf(kOut).empty());
    EXPECT_EQ(hardware.notifier().listenerCount(), 1u); // that of the device list
}

TEST_F(AUUnitTest, ADeviceWithInputAndOutputIsInBothListsAndCarriesListenersForBoth) {
    VirtualDevice device = microphone("Headset");
    device.output = VirtualDevice::side(48000, 2);
    const DeviceId id = hardware.addDevice(device);
    EXPECT_EQ(listOf(kIn), (DeviceList{{"M : Headset", id, std::nullopt}}));
    EXPECT_EQ(listOf(kOut), (DeviceList{{"M : Headset", id, std::nullopt}}));
    EXPECT_EQ(hardware.notifier().listenerCount(), 1u + 2 * 5);
}

TEST_F(AUUnitTest, ADeviceWithThreeSelectableSourcesYieldsThreeEntriesTitledByTheSource) {
    const DeviceId id = hardware.addDevice(withSources("Card", {"Front", "Rear", "Line"}));
    EXPECT_EQ(listOf(kIn),
              (DeviceList{{"M : Front", id, 1u}, {"M : Rear", id, 2u}, {"M : Line", id, 3u}}));
}

TEST_F(AUUnitTest, SourcesThatCannotBeSelectedYieldOneEntryTitledByTheDevice) {
    VirtualDevice device = withSources("Card", {"Front", "Rear"});
    device.input->isSourceWritable = false;
    const DeviceId id = hardware.addDevice(device);
    EXPECT_EQ(listOf(kIn), (DeviceList{{"M : Card", id, std::nullopt}}));
    EXPECT_EQ(nameOf(id, kIn), "M : Card");
}

TEST_F(AUUnitTest, EntriesComeInHardwareOrderAndAreAppended) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(withSources("B", {"B1", "B2"}));
    hardware.addDevice(speaker("C"));
    const DeviceId d = hardware.addDevice(microphone("D"));
    DeviceList list = {{"before", 7, std::nullopt}};
    AUUnit(registry()).setupAudioSource(list, true);
    EXPECT_EQ(list, (DeviceList{{"before", 7, std::nullopt},
                                {"M : A", a, std::nullopt},
                                {"M : B1", b, 1u},
                                {"M : B2", b, 2u},
                                {"M : D", d, std::nullopt}}));
}

TEST_F(AUUnitTest, ADeviceWhoseFormatCannotBeReadIsLeftOut) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(microphone("B"));
    hardware.faults().failEvery(HardwareCall::streamFormat, 1, a);
    EXPECT_EQ(listOf(kIn), (DeviceList{{"M : B", b, std::nullopt}}));
    EXPECT_EQ(nameOf(a, kIn), std::nullopt);
    EXPECT_TRUE(log.lines.empty());
}

struct UnreadableRow {
    HardwareCall call;
    DeviceList plain;   ///< of a device without sources
    DeviceList sourced; ///< of one with two sources
    std::string plainName;
    std::string sourcedName;
};

TEST_F(AUUnitTest, WhatCannotBeReadAfterTheFormatReadsAsNothing) {
    const DeviceId p = hardware.addDevice(microphone("P"));
    const DeviceId s = hardware.addDevice(withSources("S", {"S1", "S2"}, 2));
    const DeviceList plain = {{"M : P", p, std::nullopt}};
    const DeviceList sourced = {{"M : S1", s, 1u}, {"M : S2", s, 2u}};
    const UnreadableRow rows[] = {
        {HardwareCall::deviceName, {{"M : ", p, std::nullopt}}, sourced, "M : ", "M : S2"},
        {HardwareCall::deviceManufacturer,
         {{" : P", p, std::nullopt}},
         {{" : S1", s, 1u}, {" : S2", s, 2u}},
         " : P",
         " : S2"},
        {HardwareCall::isDataSourceWritable, plain, {{"M : S", s, std::nullopt}}, "M : P", "M : S"},
        {HardwareCall::dataSources, plain, {}, "M : P", "M : S2"},
        {HardwareCall::dataSource, plain, sourced, "M : P", "M : "},
        {HardwareCall::dataSourceName, plain, {{"M : ", s, 1u}, {"M : ", s, 2u}}, "M : P", "M : "},
        {HardwareCall::devices, {}, {}, "M : P", "M : S2"},
    };
    for (const UnreadableRow& row : rows) {
        SCOPED_TRACE(call_text::nameOf(row.call));
        hardware.faults().failEvery(row.call, 1);
        DeviceList expected = row.plain;
        expected.insert(expected.end(), row.sourced.begin(), row.sourced.end());
        EXPECT_EQ(listOf(kIn), expected);
        EXPECT_EQ(nameOf(p, kIn), row.plainName);
        EXPECT_EQ(nameOf(s, kIn), row.sourcedName);
        hardware.faults().clear();
    }
}

TEST_F(AUUnitTest, TheNameOfADeviceIsThatOfItsCurrentEntry) {
    VirtualDevice both = withSources("Card", {"Front", "Rear"}, 2);
    both.output = VirtualDevice::side(48000, 2);
    const DeviceId id = hardware.addDevice(both);
    EXPECT_EQ(nameOf(id, kIn), "M : Rear");
    hardware.changeDataSource(id, kIn, 1);
    EXPECT_EQ(nameOf(id, kIn), "M : Front");
    EXPECT_EQ(nameOf(id, kOut), "M : Card");
    EXPECT_EQ(nameOf(hardware.addDevice(speaker("S")), kIn), std::nullopt);
    EXPECT_EQ(nameOf(0, kIn), std::nullopt);
}

TEST_F(AUUnitTest, TheDefaultDeviceIsThatOfTheDirectionOrZero) {
    const PlainUnit input(registry(), kIn);
    const PlainUnit output(registry(), kOut);
    EXPECT_EQ(input.defaultDevice(), 0u);
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(speaker("B"));
    hardware.setDefaultDevice(kIn, a);
    hardware.setDefaultDevice(kOut, b);
    EXPECT_EQ(input.defaultDevice(), a);
    EXPECT_EQ(output.defaultDevice(), b);
    hardware.faults().failNext(HardwareCall::defaultDevice, 1);
    EXPECT_EQ(input.defaultDevice(), 0u);
}

TEST_F(AUUnitTest, APopUpGetsOneItemPerEntryAtTheEntrysIndex) {
    RecordingPopUp popUp;
    popUp.addItem("old", {});
    const DeviceList list = {
        {"M : A", 1, std::nullopt}, {"M : A", 2, std::nullopt}, {"M : B", 3, 1u}};
    AUUnit(registry()).setupPopUpButton(popUp, list);
    EXPECT_EQ(popUp.titles, (Lines{"M : A", "M : A", "M : B"}));
}

TEST_F(AUUnitTest, EntriesAreEqualKeyByKey) {
    const DeviceEntry entry = {"A", 1, 2u};
    EXPECT_EQ(entry, (DeviceEntry{"A", 1, 2u}));
    EXPECT_NE(entry, (DeviceEntry{"B", 1, 2u}));
    EXPECT_NE(entry, (DeviceEntry{"A", 2, 2u}));
    EXPECT_NE(entry, (DeviceEntry{"A", 1, 3u}));
    EXPECT_NE(entry, (DeviceEntry{"A", 1, std::nullopt}));
}

TEST_F(AUUnitTest, TheBaseServesNoInputAndIgnoresWhatItIsTold) {
    AUUnit base(registry());
    EXPECT_FALSE(base.isInput());
    EXPECT_EQ(base.audioHardwareListener(PropertyCode::devices), 0);
    EXPECT_EQ(base.audioDevicePropertyListener(1, 0, true, PropertyCode::streamFormat), 0);
}

TEST_F(AUUnitTest, ItsDescriptionHoldsItsAddress) {
    const AUUnit base(registry());
    std::ostringstream expected;
    expected << "AUUnit: " << static_cast<const void*>(&base);
    EXPECT_EQ(base.description(), expected.str());
    const AUInputUnit input(registry());
    expected.str("");
    expected << "AUInputUnit: " << static_cast<const void*>(static_cast<const AUUnit*>(&input));
    EXPECT_EQ(input.description(), expected.str());
}

} // namespace
} // namespace veltrano
