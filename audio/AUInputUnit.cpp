// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/AUInputUnit.h"

#include <algorithm>
#include <numeric>

namespace veltrano {

namespace {

/// The whole percents of a volume, truncated after a product in single precision. What no int can
/// hold (a volume that is no number) shows as 0.
int percentOf(float volume) {
    const float percent = volume * 100;
    constexpr float kLimit = 1e9f;
    return percent > -kLimit && percent < kLimit ? static_cast<int>(percent) : 0;
}

} // namespace

AUInputUnit::AUInputUnit(AUUnitRegistry& registry) : AUUnit(registry) {
    setupAudioSource(mAudioInputSourceArray, true);
    registry.addListenerTarget(*this);
}

AUInputUnit::~AUInputUnit() {
    if (mIsRunning) stop();
}

void AUInputUnit::setIOProc(AudioDeviceIOProc proc, void* refCon) {
    mIOProc = proc;
    mIORefCon = refCon;
}

void AUInputUnit::setListenerProc(AudioDeviceListenerProc proc, void* refCon) {
    mListenerProc = proc;
    mListenerRefCon = refCon;
}

// --- selecting ---

void AUInputUnit::setInputDeviceWithName(const std::optional<std::string>& name) {
    int index = indexOfInputDeviceWithName(name);
    if (index < 0) index = indexOfDefaultInputDevice();
    if (mAudioInputSourceArray.empty()) {
        if (name) mDeviceName = name;
        return;
    }
    setInputDeviceAtIndex(index);
}

void AUInputUnit::setInputDeviceAtIndex(int index) {
    if (index == mIndexOfInputDevice) return;
    if (index < 0 || std::size_t(index) >= mAudioInputSourceArray.size()) return;
    const DeviceEntry entry = mAudioInputSourceArray[std::size_t(index)];
    if (entry.deviceID != mInputDevice) switchToDevice(entry.deviceID);
    if (entry.dataSource) setDataSource(*entry.dataSource);
    mDeviceName = entry.name;
    // kept: mIndexOfInputDevice stays as updateCurrentDevice() left it
}

void AUInputUnit::switchToDevice(DeviceId device) {
    if (mInputDevice != 0) stop();
    mInputDevice = device;
    setStreamFormat();
    setStreamConfiguration();
    setVolumeState();
    start();
}

int AUInputUnit::indexOfInputDeviceWithName(const std::optional<std::string>& name) const {
    if (!name) return -1;
    const auto& list = mAudioInputSourceArray;
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const DeviceEntry& entry) { return entry.name == *name; });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

int AUInputUnit::indexOfDefaultInputDevice() const {
    const int index = indexOfInputDeviceWithName(nameOfDevice(defaultDevice()));
    if (index >= 0) return index;
    log().line("Default input device not found in the device list.");
    return 0;
}

// --- following the hardware ---

void AUInputUnit::updateDeviceList() {
    DeviceList fresh;
    setupAudioSource(fresh, true);
    if (fresh == mAudioInputSourceArray) return;
    mAudioInputSourceArray = std::move(fresh);
    if (mDevicePopUpButton != nullptr) {
        AUUnit::setupPopUpButton(*mDevicePopUpButton, mAudioInputSourceArray);
    }
}

void AUInputUnit::updateCurrentDevice() {
    if (mAudioInputSourceArray.empty()) {
        keepNoDevice();
        return;
    }
    const int index = std::max(indexOfInputDeviceWithName(mDeviceName), 0);
    const DeviceEntry entry = mAudioInputSourceArray[std::size_t(index)];
    // Also when it is the same device: it may have come back, or have changed under its id.
    switchToDevice(entry.deviceID);
    mIndexOfInputDevice = index;
    mDeviceName = entry.name;
    if (mDevicePopUpButton != nullptr) mDevicePopUpButton->selectIndex(index);
    // kept: the entry's data source is not applied again
}

void AUInputUnit::keepNoDevice() {
    if (mInputDevice != 0) stop();
    mInputDevice = 0;
    mIndexOfInputDevice = -1;
    // The name stays the wanted one; the stream description stays, so that the owner's frames keep
    // their length until there is a device again.
    setStreamConfiguration();
    setVolumeState();
}

Status AUInputUnit::audioHardwareListener(PropertyCode property) {
    if (property != PropertyCode::devices) return audio_status::kOk;
    updateDeviceList();
    updateCurrentDevice();
    tellListener(mInputDevice, 0, true, PropertyCode::streamFormat);
    return audio_status::kOk;
}

Status AUInputUnit::audioDevicePropertyListener(DeviceId device, std::uint32_t channel,
                                                bool isInput, PropertyCode property) {
    if (!isInput || device != mInputDevice) return audio_status::kOk;
    switch (property) {
    case PropertyCode::streamConfiguration:
        setStreamConfiguration();
        break;
    case PropertyCode::dataSource:
    case PropertyCode::volumeScalar:
    case PropertyCode::deviceHasChanged:
        setVolumeState();
        break;
    case PropertyCode::streamFormat:
        setStreamFormat();
        break;
    default:
        break;
    }
    tellListener(device, channel, isInput, property);
    return audio_status::kOk;
}

void AUInputUnit::tellListener(DeviceId device, std::uint32_t channel, bool isInput,
                               PropertyCode property) {
    if (mListenerProc != nullptr) {
        mListenerProc(device, channel, isInput, property, mListenerRefCon);
    }
}

// --- the device ---

void AUInputUnit::start() {
    if (mInputDevice == 0) return;
    mStartedIOProc = mIOProc;
    hardware().addIOProc(mInputDevice, mStartedIOProc, mIORefCon);
    hardware().start(mInputDevice, mStartedIOProc);
    mIsRunning = true;
}

void AUInputUnit::stop() {
    if (mInputDevice != 0) {
        hardware().stop(mInputDevice, mStartedIOProc);
        hardware().removeIOProc(mInputDevice, mStartedIOProc);
    }
    mIsRunning = false;
}

void AUInputUnit::setDataSource(DataSourceId source) {
    hardware().setDataSource(mInputDevice, Direction::input, source);
}

void AUInputUnit::setStreamFormat() {
    const auto format = hardware().streamFormat(mInputDevice, Direction::input);
    if (format) mInputStreamDescription = *format;
}

void AUInputUnit::setStreamConfiguration() {
    mAudioBufferList = hardware()
                           .streamConfiguration(mInputDevice, Direction::input)
                           .value_or(StreamConfiguration{});
    const auto& counts = mAudioBufferList.channelsOfBuffer;
    mChannels = std::accumulate(counts.begin(), counts.end(), std::uint32_t{0});
}

// --- the volume ---

void AUInputUnit::setVolumeState() {
    mIsVolumeWritable = mChannels > 0;
    for (std::uint32_t channel = 1; mIsVolumeWritable && channel <= mChannels; ++channel) {
        mIsVolumeWritable = hardware().isVolumeWritable(mInputDevice, Direction::input, channel);
    }
    const auto volume = hardware().volume(mInputDevice, Direction::input, 1);
    if (volume) mInputVolume = *volume;
    performOnMainThread([this] { updateVolumeState(); });
}

void AUInputUnit::updateVolumeState() {
    const int percent = mIsVolumeWritable ? percentOf(mInputVolume) : 100;
    if (mVolumeSlider != nullptr) {
        mVolumeSlider->setEnabled(mIsVolumeWritable);
        mVolumeSlider->setValue(percent);
    }
    if (mVolumeText != nullptr) {
        mVolumeText->setText(mIsVolumeWritable ? std::to_string(percent) : "n/a");
    }
}

void AUInputUnit::setVolume(int percent) {
    const auto scalar = static_cast<float>(percent / 100.0);
    if (!mIsVolumeWritable || scalar == mInputVolume) return;
    mInputVolume = scalar;
    for (std::uint32_t channel = 1; channel <= mChannels; ++channel) {
        hardware().setVolume(mInputDevice, Direction::input, channel, scalar);
    }
}

// --- the controls ---

void AUInputUnit::setupPopUpButton(PopUpMenu* popUp) {
    mDevicePopUpButton = popUp;
    if (popUp == nullptr) return;
    AUUnit::setupPopUpButton(*popUp, mAudioInputSourceArray);
    if (mDeviceName) popUp->selectTitle(*mDeviceName);
}

void AUInputUnit::setupVolumeSlider(ValueControl* slider, TextOutlet* text) {
    mVolumeSlider = slider;
    mVolumeText = text;
    updateVolumeState();
}

std::string AUInputUnit::description() const { return describedAs("AUInputUnit"); }

} // namespace veltrano
