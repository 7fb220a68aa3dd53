// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's device menus and its input volume on real units over virtual devices.
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/InputDeviceListener.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/PreferencesActions.h"
#include "settings/PreferencesDisplay.h"
#include "tests/audio/AUOutputTestBase.h"
#include "tests/settings/RecordingPanel.h"

namespace veltrano {
namespace {

VirtualDevice withVolume(const std::string& name, float volume, bool isWritable) {
    VirtualDevice device = microphone(name);
    device.input->volumes = {{volume, isWritable}};
    return device;
}

/// Notes which device the unit has when the controller is told.
struct ListeningController final : InputDeviceListener {
    explicit ListeningController(const AUInputUnit& itsUnit) : unit(itsUnit) {}
    void inputDevicePopupChanged() override {
        heard.push_back(unit.inputDeviceName().value_or("none"));
    }
    const AUInputUnit& unit;
    Lines heard;
};

class PreferencesDevices : public AudioUnitTestBase {
protected:
    PreferencesDevices() {
        hardware.setDefaultDevice(kIn, first);
        input.setInputDeviceWithName(std::nullopt);
        output.setOutputDeviceWithName("M : C");
        settings.setController(&controller);
    }

    /// As the panel does when it is loaded.
    void handOver() {
        input.setupPopUpButton(&panel.mInputDevicePopUpButton);
        input.setupVolumeSlider(&panel.mInputVolumeSlider, &panel.mInputVolumeText);
        output.setupPopUpButton(&panel.mOutputDevicePopUpButton);
        mainThread.runAll();
        panel.calls.clear();
        takeCalls();
    }

    // In the order of their making: the devices are there before the units.
    const DeviceId first = hardware.addDevice(withVolume("A", 0.5f, true));
    const DeviceId second = hardware.addDevice(withVolume("B", 0.25f, false));
    const DeviceId speakers[2] = {hardware.addDevice(loudspeaker("C")),
                                  hardware.addDevice(loudspeaker("D"))};
    RecordingPanel panel;
    UserDefaults defaults = UserDefaults::inMemory();
    NotificationCenter center;
    Preferences settings{{.defaults = defaults, .notifications = center}};
    OutputUnitScript script;
    ScriptedOutputUnits outputUnits{script};
    AUInputUnit input{registry()};
    AUOutputUnit output{registry(), outputUnits};
    ListeningController controller{input};
    PreferencesDisplay display{settings, nullptr, nullptr, panel.controls()};
    PreferencesActions actions{{settings, display, nullptr, nullptr, &input, &output}};
};

TEST_F(PreferencesDevices, TheMenusHoldTheDevicesAndTheOneInUseIsSelected) {
    handOver();
    EXPECT_EQ(panel.mInputDevicePopUpButton.titles, (Lines{"M : A", "M : B"}));
    EXPECT_EQ(panel.mInputDevicePopUpButton.selected, 0);
    EXPECT_EQ(panel.mOutputDevicePopUpButton.titles, (Lines{"M : C", "M : D"}));
    EXPECT_EQ(panel.mOutputDevicePopUpButton.selected, 0);
}

TEST_F(PreferencesDevices, AnOutputDeviceIsGivenToItsUnitAlone) {
    handOver();
    actions.outputDevicePopupChanged(1);
    EXPECT_EQ(output.deviceName(), "M : D");
    EXPECT_EQ(controller.heard, Lines{});
    EXPECT_EQ(input.deviceName(), "M : A");
}

TEST_F(PreferencesDevices, TheControllerHearsOfAnInputDeviceThatIsInUseAlready) {
    handOver();
    actions.inputDevicePopupChanged(1);
    EXPECT_EQ(input.inputDeviceName(), "M : B");
    EXPECT_EQ(controller.heard, Lines{"M : B"});
    EXPECT_EQ(output.deviceName(), "M : C");
    actions.inputDevicePopupChanged(1);
    EXPECT_EQ(controller.heard, (Lines{"M : B", "M : B"})) << "also when it was chosen again";
}

TEST_F(PreferencesDevices, AnInputVolumeIsShownAndWrittenWhenItIsAnotherOne) {
    handOver();
    EXPECT_EQ(panel.mInputVolumeSlider.value, 50);
    EXPECT_EQ(panel.mInputVolumeText.shown, "50");
    EXPECT_TRUE(panel.mInputVolumeSlider.isEnabled);
    actions.inputVolumeSliderChanged(80);
    EXPECT_EQ(hardware.volume(first, kIn, 1), 0.8f);
    EXPECT_EQ(settings.inputVolume(), 80);
    EXPECT_EQ(panel.takeCalls(), Lines{"mInputVolumeText 80"});
    takeCalls();
    actions.inputVolumeSliderChanged(80);
    EXPECT_EQ(panel.takeCalls(), Lines{});
    EXPECT_EQ(takeCalls(), Lines{});
}

TEST_F(PreferencesDevices, WithoutAWritableVolumeTheSliderIsDisabledAtAHundred) {
    handOver();
    actions.inputDevicePopupChanged(1);
    mainThread.runAll();
    EXPECT_FALSE(panel.mInputVolumeSlider.isEnabled);
    EXPECT_EQ(panel.mInputVolumeSlider.value, 100);
    EXPECT_EQ(panel.mInputVolumeText.shown, "n/a");

    actions.inputDevicePopupChanged(0);
    mainThread.runAll();
    EXPECT_TRUE(panel.mInputVolumeSlider.isEnabled);
    EXPECT_EQ(panel.mInputVolumeText.shown, "50");
}

TEST_F(PreferencesDevices, WhatIsSavedIsTheDevicesInUse) {
    settings.setAUInputUnit(&input);
    settings.setAUOutputUnit(&output);
    actions.inputDevicePopupChanged(1);
    actions.outputDevicePopupChanged(1);
    settings.savePreferences();
    EXPECT_EQ(defaults.stringForKey(preference_key::kInputDevice), "M : B");
    EXPECT_EQ(defaults.stringForKey(preference_key::kOutputDevice), "M : D");
}

} // namespace
} // namespace veltrano
