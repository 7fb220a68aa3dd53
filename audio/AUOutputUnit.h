// SPDX-License-Identifier: GPL-3.0-or-later
// The output unit: the selected loudspeaker and the road to it.
#pragma once

#include "audio/AUUnit.h"
#include "audio/NamedDeviceUnit.h"
#include "platform/audio/OutputUnit.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace veltrano {

/// Plays what a render callback gives on the selected output device, keeps its rate, and follows
/// the device that the hardware output unit itself reports.
///
/// Without any device the wanted name is kept, so that the device is selected when it comes.
/// Thread: main; sampleRate() any. The render callback runs on the unit's real-time thread.
/// Errors: a failed call of the unit is logged with its status and the program carries on.
/// Owns: the hardware output unit. The registry and the callback's client data outlive it.
class AUOutputUnit final : public AUUnit, public NamedDeviceUnit {
public:
    /// Builds the device list and opens the hardware output unit. No device is selected yet.
    AUOutputUnit(AUUnitRegistry& registry, OutputUnitSource& units);
    ~AUOutputUnit() override;

    bool isInput() const override { return false; }

    void setAURenderProc(RenderProc proc, void* refCon);
    /// Hears of the unit's properties and of the device's rate; may have no caller.
    void setAUListenerProc(UnitListenerProc proc, void* refCon);

    /// Selects the entry of that name, else that of the default device, and starts it. While the
    /// list is empty the name is kept as the wanted one. @param name nullopt: the default device
    void setOutputDeviceWithName(const std::optional<std::string>& name);
    /// Selects an entry of the list; outside the list, or the index that updateCurrentDevice() last
    /// recorded: nothing. Another data source of the same device does not stop it.
    void setOutputDeviceAtIndex(int index);

    /// The first entry of that name; -1 for nullopt and for no match.
    int indexOfOutputDeviceWithName(const std::optional<std::string>& name) const;
    /// 0, and a line in the log, when the default device is not in the list.
    int indexOfDefaultOutputDevice() const;

    void setDataSource(DataSourceId source, DeviceId device);
    void setStreamFormat(); ///< reads that of the device
    void setAUDevice();     ///< points the unit at the device, at its rate

    /// Reads the list again; when it has changed, also the pop-up is filled again.
    void updateDeviceList();
    /// Takes over the device that the unit reports.
    void updateCurrentDevice();
    void notifyListener();

    void start();
    void stop();

    /// Keeps the pop-up, fills it and selects the current device; null lets go of it.
    void setupPopUpButton(PopUpMenu* popUp);

    double sampleRate() const noexcept { return mSampleRate.load(std::memory_order_relaxed); }
    /// nullopt: none was ever wanted. This is what the settings store.
    const std::optional<std::string>& outputDeviceName() const { return mDeviceName; }
    std::optional<std::string> deviceName() const override { return mDeviceName; }
    bool isRunning() const { return mIsRunning; }
    /// Whether the last start() went well; a device may have been away.
    bool hasStarted() const { return mHasStarted; }
    DeviceId outputDevice() const { return mOutputDevice; }
    const DeviceList& deviceList() const { return mAudioOutputSourceArray; }

    Status audioHardwareListener(PropertyCode property) override;
    Status audioDevicePropertyListener(DeviceId device, std::uint32_t channel, bool isInput,
                                       PropertyCode property) override;

    std::string description() const override; ///< "AUOutputUnit: 0x..."

private:
    void openAudioOutput(OutputUnitSource& units);
    void addUnitListener(UnitProperty property, std::string_view name);
    static void unitListener(void* client, OutputUnit* unit, UnitProperty property, UnitScope scope,
                             std::uint32_t element) noexcept;
    void audioUnitPropertyListenerProc(UnitProperty property, UnitScope scope,
                                       std::uint32_t element);
    int indexOfDevice(DeviceId device) const;
    void logFailure(std::string_view what, Status status) const;

    std::unique_ptr<OutputUnit> mOutputUnit; ///< null: none could be opened
    DeviceId mOutputDevice = 0;              ///< 0: none yet
    std::optional<std::string> mDeviceName;
    int mIndexOfOutputDevice = -1; ///< written by updateCurrentDevice() only
    DeviceList mAudioOutputSourceArray;
    PopUpMenu* mDevicePopUpButton = nullptr;
    StreamDescription mOutputStreamDescription;
    std::atomic<double> mSampleRate{0}; ///< [Hz] of it; written by the main thread
    RenderProc mRenderProc = nullptr;
    void* mRenderRefCon = nullptr;
    UnitListenerProc mListenerProc = nullptr;
    void* mListenerRefCon = nullptr;
    bool mIsRunning = false;
    bool mHasStarted = false;
};

} // namespace veltrano
