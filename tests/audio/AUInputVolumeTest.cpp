// SPDX-License-Identifier: GPL-3.0-or-later
// The input volume: when it can be written, how it is shown, what is written.
#include "tests/audio/AudioUnitTestBase.h"

#include <limits>

namespace veltrano {
namespace {

/// A device with one volume per entry of @p channels.
VirtualDevice withVolumes(std::vector<VirtualDevice::Volume> channels) {
    VirtualDevice device = microphone("A", 44100, std::uint32_t(channels.size()));
    device.input->volumes = std::move(channels);
    return device;
}

class AUInputVolume : public AUInputUnitTestBase {
protected:
    /// Plugs the device in, selects it and shows its volume.
    DeviceId select(VirtualDevice device) {
        const DeviceId id = hardware.addDevice(std::move(device));
        unit().setupVolumeSlider(&slider, &field);
        unit().setInputDeviceWithName("M : A");
        mainThread.runAll();
        takeCalls();
        return id;
    }
    void expectShown(bool isEnabled, double value, const std::string& text) const {
        EXPECT_EQ(slider.isEnabled, isEnabled);
        EXPECT_EQ(slider.value, value);
        EXPECT_EQ(field.shown, text);
    }

    RecordingValue slider;
    RecordingText field;
};

struct WritableRow {
    const char* name;
    std::vector<std::uint32_t> buffers; ///< channels of each
    std::vector<bool> writable;         ///< of channel 1, 2, ...
    int asked;                          ///< channels asked for their writability
    bool isWritable;
};

TEST_F(AUInputVolume, IsWritableWhenEveryChannelIsAndStopsAtTheFirstThatIsNot) {
    const WritableRow rows[] = {
        {"mono", {1}, {true}, 1, true},
        {"both of two", {2}, {true, true}, 2, true},
        {"two buffers count together", {2, 1}, {true, true, true}, 3, true},
        {"a third channel without volume", {2, 1}, {true, true}, 3, false},
        {"first fixed", {3}, {false, true, true}, 1, false},
        {"second fixed", {3}, {true, false, true}, 2, false},
        {"last fixed", {3}, {true, true, false}, 3, false},
        {"no buffer", {}, {true}, 0, false},
        {"buffers without channels", {0, 0}, {true}, 0, false},
        {"more volumes than channels", {1}, {true, false}, 1, true},
    };
    for (const WritableRow& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<VirtualDevice::Volume> volumes;
        for (const bool isWritable : row.writable)
            volumes.push_back({0.5f, isWritable});
        VirtualDevice device = withVolumes(volumes);
        device.input->configuration.channelsOfBuffer = row.buffers;
        device.input->master = VirtualDevice::Volume{0.1f, false}; // never looked at
        const DeviceId id = select(device);
        unit().setVolumeState();
        mainThread.runAll();

        Lines expected;
        for (int channel = 1; channel <= row.asked; ++channel) {
            expected.push_back("isVolumeWritable " + text(id) + " input " +
                               std::to_string(channel));
        }
        expected.push_back("volume " + text(id) + " input 1");
        EXPECT_EQ(takeCalls(), expected);
        expectShown(row.isWritable, row.isWritable ? 50 : 100, row.isWritable ? "50" : "n/a");
        endUnit();
        hardware.removeDevice(id);
    }
}

TEST_F(AUInputVolume, ThatCannotBeWrittenShowsADisabledSliderAtAHundredAndNoAnswer) {
    const DeviceId id = select(withVolumes({{0.25f, true}, {0.25f, false}}));
    expectShown(false, 100, "n/a");
    unit().setVolume(70); // the slider is moved
    EXPECT_EQ(takeCalls(), Lines{});
    expectShown(false, 100, "n/a");
    EXPECT_EQ(hardware.volume(id, kIn, 1), 0.25f);
}

TEST_F(AUInputVolume, IsShownAsWholePercentsTruncated) {
    const struct {
        float volume;
        int percent;
    } rows[] = {
        {0.0f, 0},
        {1.0f, 100},
        {0.5f, 50},
        {0.999f, 99},
        {0.009f, 0},
        {0.019f, 1},
        {0.29f, 29},
        {0.57f, 57}, // in double precision 28.99 and 56.99
        {1.25f, 125},
        {-0.019f, -1},
        {std::numeric_limits<float>::quiet_NaN(), 0},
        {std::numeric_limits<float>::infinity(), 0},
    };
    const DeviceId id = select(withVolumes({{0.5f, true}}));
    for (const auto& [volume, percent] : rows) {
        SCOPED_TRACE(volume);
        hardware.changeVolume(id, kIn, 1, {volume, true});
        mainThread.runAll();
        expectShown(true, percent, std::to_string(percent));
    }
}

TEST_F(AUInputVolume, APercentThatIsSetIsShownAsSetButForTwoThatTruncationLowers) {
    select(withVolumes({{0.123f, true}}));
    for (int percent = 0; percent <= 100; ++percent) {
        unit().setVolume(percent);
        mainThread.runAll();
        // the floats nearest to 0.53 and 0.59 are below them, and so are their products
        const int shown = percent == 53 || percent == 59 ? percent - 1 : percent;
        expectShown(true, shown, std::to_string(shown));
    }
}

TEST_F(AUInputVolume, IsWrittenToEveryChannelInTurnButNeverToTheMaster) {
    VirtualDevice device = withVolumes({{0.5f, true}, {0.5f, true}, {0.5f, true}});
    device.input->master = VirtualDevice::Volume{0.9f, true};
    const DeviceId id = select(device);
    unit().setVolume(30);
    EXPECT_EQ(takeCalls(), (Lines{"setVolume " + text(id) + " input 1 0.3",
                                  "setVolume " + text(id) + " input 2 0.3",
                                  "setVolume " + text(id) + " input 3 0.3"}));
    EXPECT_EQ(hardware.volume(id, kIn, 0), 0.9f);
}

TEST_F(AUInputVolume, TheValueItHasIsNotWrittenAgain) {
    const DeviceId id = select(withVolumes({{0.3f, true}, {0.8f, true}}));
    unit().setVolume(30); // that of channel 1, whatever channel 2 has
    EXPECT_EQ(takeCalls(), Lines{});
    unit().setVolume(31);
    EXPECT_EQ(takeCalls().size(), 2u);
    hardware.faults().failEvery(HardwareCall::setVolume, -50);
    unit().setVolume(40); // refused, but remembered
    EXPECT_EQ(takeCalls().size(), 2u);
    unit().setVolume(40);
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(hardware.volume(id, kIn, 1), 0.31f);
}

TEST_F(AUInputVolume, AChangeByOthersIsShownOnTheMainThreadLater) {
    const DeviceId id = select(withVolumes({{0.5f, true}}));
    unit().setVolumeState();
    hardware.changeVolume(id, kIn, 1, {0.75f, true});
    expectShown(true, 50, "50");
    mainThread.runAll();
    expectShown(true, 75, "75");
}

TEST_F(AUInputVolume, AnotherDataSourceMayHaveAnotherVolume) {
    VirtualDevice device = withSources("Card", {"Front", "Rear"});
    device.input->volumes = {{0.5f, true}};
    const DeviceId id = hardware.addDevice(device);
    unit().setupVolumeSlider(&slider, &field);
    unit().setInputDeviceWithName("M : Front");
    mainThread.runAll();
    VirtualDevice::Side fixed = *device.input;
    fixed.source = 2;
    fixed.volumes[0].isWritable = false;
    hardware.changeSide(id, kIn, fixed); // 'diff'
    mainThread.runAll();
    expectShown(false, 100, "n/a");
}

TEST_F(AUInputVolume, WithoutADeviceThereIsNone) {
    const DeviceId id = select(withVolumes({{0.5f, true}}));
    expectShown(true, 50, "50");
    hardware.removeDevice(id);
    mainThread.runAll();
    expectShown(false, 100, "n/a");
    takeCalls();
    unit().setVolume(20);
    EXPECT_EQ(takeCalls(), Lines{});
}

TEST_F(AUInputVolume, TheControlsMayBeAbsent) {
    hardware.addDevice(withVolumes({{0.5f, true}}));
    unit().setInputDeviceWithName("M : A");
    mainThread.runAll(); // shows on nothing
    unit().setupVolumeSlider(&slider, nullptr);
    EXPECT_EQ(slider.value, 50);
    unit().setupVolumeSlider(nullptr, &field);
    EXPECT_EQ(field.shown, "50");
    unit().setupVolumeSlider(nullptr, nullptr);
    unit().setVolume(60);
    unit().updateVolumeState();
    EXPECT_EQ(slider.value, 50);
    EXPECT_EQ(field.shown, "50");
}

TEST_F(AUInputVolume, WhatIsToBeShownAfterTheUnitsEndIsDropped) {
    select(withVolumes({{0.5f, true}}));
    unit().setVolumeState();
    slider.value = -7;
    endUnit();
    EXPECT_EQ(mainThread.runAll(), 1);
    EXPECT_EQ(slider.value, -7);
}

} // namespace
} // namespace veltrano
