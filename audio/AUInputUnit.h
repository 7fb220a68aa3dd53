// SPDX-License-Identifier: GPL-3.0-or-later
// The input unit: the selected microphone and all that belongs to it.
#pragma once

#include "audio/AUUnit.h"
#include "audio/NamedDeviceUnit.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Gives the owner's I/O procedure the blocks of the selected input device, in the device's own
/// stream format, and follows the device through changes of the hardware.
///
/// Without any device the unit is stopped and its device is 0. A wanted device that is not there
/// yet is remembered by its name, so that updateCurrentDevice() finds it later.
/// Thread: main; the I/O procedure runs on the device's real-time thread, and never while the
/// device or its format is being changed here.
/// Errors: what the hardware's calls answer is not looked at; a missing default device is logged.
/// Owns: nothing; the procedures' client data and the controls must outlive it or be taken back.
class AUInputUnit final : public AUUnit, public NamedDeviceUnit {
public:
    /// Builds the device list. No device is opened yet.
    explicit AUInputUnit(AUUnitRegistry& registry);
    /// Stops the device.
    ~AUInputUnit() override;

    bool isInput() const override { return true; }

    /// Used at the next start().
    void setIOProc(AudioDeviceIOProc proc, void* refCon);
    /// Called on the main thread after each property notification of the current device, and
    /// with 'sfmt' when the device list changed.
    void setListenerProc(AudioDeviceListenerProc proc, void* refCon);

    /// Selects the entry of that name, else that of the default device. While the list is empty
    /// the name is kept as the wanted one.
    /// @param name nullopt: the default device
    void setInputDeviceWithName(const std::optional<std::string>& name);
    /// Selects an entry of the list; outside the list, or the index that updateCurrentDevice()
    /// last recorded: nothing. Another data source of the same device does not stop it.
    void setInputDeviceAtIndex(int index);

    /// The first entry of that name; -1 for nullopt and for no match.
    int indexOfInputDeviceWithName(const std::optional<std::string>& name) const;
    /// 0, and a line in the log, when the default device is not in the list.
    int indexOfDefaultInputDevice() const;

    /// Reads the list again; when it has changed, also the pop-up is filled again.
    void updateDeviceList();
    /// Restarts the device with the current name, or the first one of the list for good when
    /// there is none of that name.
    void updateCurrentDevice();

    /// Without a device: nothing.
    void start();
    void stop();

    void setDataSource(DataSourceId source);
    void setStreamFormat();
    void setStreamConfiguration();
    /// Reads whether the volume can be written and what it is, then shows it, later.
    void setVolumeState();
    void updateVolumeState();
    /// @param percent 0 ... 100; written to every channel but the master. Nothing when the volume
    ///        is not writable or has that value.
    void setVolume(int percent);

    /// Keeps the pop-up, fills it and selects the current device; null lets go of it.
    void setupPopUpButton(PopUpMenu* popUp);
    /// Keeps both and shows the volume; null lets go of them.
    void setupVolumeSlider(ValueControl* slider, TextOutlet* text);

    double sampleRate() const { return mInputStreamDescription.sampleRate; } ///< [Hz] 0: none yet
    /// nullopt: none was ever wanted. This is what the settings store.
    const std::optional<std::string>& inputDeviceName() const { return mDeviceName; }
    std::optional<std::string> deviceName() const override { return mDeviceName; }
    bool isRunning() const { return mIsRunning; }
    DeviceId inputDevice() const { return mInputDevice; }
    const DeviceList& deviceList() const { return mAudioInputSourceArray; }

    Status audioHardwareListener(PropertyCode property) override;
    Status audioDevicePropertyListener(DeviceId device, std::uint32_t channel, bool isInput,
                                       PropertyCode property) override;

    std::string description() const override; ///< "AUInputUnit: 0x..."

private:
    void switchToDevice(DeviceId device);
    void keepNoDevice();
    void tellListener(DeviceId device, std::uint32_t channel, bool isInput, PropertyCode property);

    DeviceId mInputDevice = 0; ///< 0: none
    std::optional<std::string> mDeviceName;
    int mIndexOfInputDevice = -1; ///< written by updateCurrentDevice() only
    DeviceList mAudioInputSourceArray;
    PopUpMenu* mDevicePopUpButton = nullptr;
    ValueControl* mVolumeSlider = nullptr;
    TextOutlet* mVolumeText = nullptr;
    AudioDeviceIOProc mIOProc = nullptr;
    void* mIORefCon = nullptr;
    AudioDeviceIOProc mStartedIOProc = nullptr; ///< the one to stop, whatever is set meanwhile
    AudioDeviceListenerProc mListenerProc = nullptr;
    void* mListenerRefCon = nullptr;
    StreamDescription mInputStreamDescription;
    StreamConfiguration mAudioBufferList;
    std::uint32_t mChannels = 0; ///< of all buffers together
    bool mIsVolumeWritable = false;
    float mInputVolume = 0; ///< [0, 1]
    bool mIsRunning = false;
};

} // namespace veltrano
