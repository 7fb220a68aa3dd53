// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/AUOutputUnit.h"

#include <algorithm>

namespace veltrano {

namespace {

/// What calls of a unit answer that could not be opened.
constexpr Status kNoUnit = audio_status::kBadDevice;

} // namespace

AUOutputUnit::AUOutputUnit(AUUnitRegistry& registry, OutputUnitSource& units) : AUUnit(registry) {
    setupAudioSource(mAudioOutputSourceArray, false);
    openAudioOutput(units);
    registry.addListenerTarget(*this);
}

AUOutputUnit::~AUOutputUnit() {
    if (mIsRunning && mOutputUnit) mOutputUnit->stop();
}

void AUOutputUnit::openAudioOutput(OutputUnitSource& units) {
    if (!units.isAvailable()) {
        log().line("FindNextComponent failed.");
        return;
    }
    const Status opened = units.open(mOutputUnit);
    if (mOutputUnit) {
        const Status initialized = mOutputUnit->initialize();
        if (initialized != audio_status::kOk) logFailure("AudioUnitInitialize", initialized);
    } else {
        logFailure("OpenAComponent", opened);
    }
    addUnitListener(UnitProperty::currentDevice, "CurrentDevice");
    addUnitListener(UnitProperty::sampleRate, "SampleRate");
}

void AUOutputUnit::addUnitListener(UnitProperty property, std::string_view name) {
    const Status status =
        mOutputUnit ? mOutputUnit->addPropertyListener(property, &AUOutputUnit::unitListener, this)
                    : kNoUnit;
    if (status != audio_status::kOk) {
        logFailure("AudioUnitAddPropertyListener( " + std::string(name) + " )", status);
    }
}

void AUOutputUnit::logFailure(std::string_view what, Status status) const {
    log().line(std::string(what) + " failed: " + std::to_string(status));
}

void AUOutputUnit::setAURenderProc(RenderProc proc, void* refCon) {
    mRenderProc = proc;
    mRenderRefCon = refCon;
    const Status status = mOutputUnit ? mOutputUnit->setRenderCallback(proc, refCon) : kNoUnit;
    if (status != audio_status::kOk) {
        logFailure("AudioUnitSetProperty( SetRenderCallback )", status);
    }
}

void AUOutputUnit::setAUListenerProc(UnitListenerProc proc, void* refCon) {
    mListenerProc = proc;
    mListenerRefCon = refCon;
}

// --- selecting ---

void AUOutputUnit::setOutputDeviceWithName(const std::optional<std::string>& name) {
    int index = indexOfOutputDeviceWithName(name);
    if (index < 0) index = indexOfDefaultOutputDevice();
    if (mAudioOutputSourceArray.empty()) {
        if (name) mDeviceName = name;
        return;
    }
    setOutputDeviceAtIndex(index);
}

void AUOutputUnit::setOutputDeviceAtIndex(int index) {
    if (index == mIndexOfOutputDevice) return;
    if (index < 0 || std::size_t(index) >= mAudioOutputSourceArray.size()) return;
    const DeviceEntry entry = mAudioOutputSourceArray[std::size_t(index)];
    if (entry.dataSource) setDataSource(*entry.dataSource, entry.deviceID);
    if (entry.deviceID != mOutputDevice) {
        if (mOutputDevice != 0) stop();
        mOutputDevice = entry.deviceID;
        setStreamFormat();
        setAUDevice();
        start();
    }
    mDeviceName = entry.name;
    // kept: mIndexOfOutputDevice stays as updateCurrentDevice() left it
}

int AUOutputUnit::indexOfOutputDeviceWithName(const std::optional<std::string>& name) const {
    if (!name) return -1;
    const auto& list = mAudioOutputSourceArray;
    const auto found = std::ranges::find(list, *name, &DeviceEntry::name);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

int AUOutputUnit::indexOfDefaultOutputDevice() const {
    const int index = indexOfOutputDeviceWithName(nameOfDevice(defaultDevice()));
    if (index >= 0) return index;
    log().line("Default output device not found in the device list.");
    return 0;
}

// --- the device ---

void AUOutputUnit::setDataSource(DataSourceId source, DeviceId device) {
    hardware().setDataSource(device, Direction::output, source);
}

void AUOutputUnit::setStreamFormat() {
    const auto format = hardware().streamFormat(mOutputDevice, Direction::output);
    if (!format) return;
    mOutputStreamDescription = *format;
    mSampleRate.store(format->sampleRate, std::memory_order_relaxed);
}

void AUOutputUnit::setAUDevice() {
    if (!mOutputUnit) return;
    mOutputUnit->setCurrentDevice(mOutputDevice);
    auto format = mOutputUnit->streamFormat().value_or(StreamDescription{});
    format.sampleRate = mOutputStreamDescription.sampleRate;
    mOutputUnit->setStreamFormat(format);
}

void AUOutputUnit::start() {
    const Status status = mOutputUnit ? mOutputUnit->start() : kNoUnit;
    mHasStarted = status == audio_status::kOk;
    if (!mHasStarted) logFailure("AudioOutputUnitStart", status);
    mIsRunning = true; // kept: whatever the status
}

void AUOutputUnit::stop() {
    const Status status = mOutputUnit ? mOutputUnit->stop() : kNoUnit;
    if (status != audio_status::kOk) logFailure("AudioOutputUnitStop", status);
    mIsRunning = false;
}

// --- following the unit and the hardware ---

void AUOutputUnit::updateDeviceList() {
    DeviceList fresh;
    setupAudioSource(fresh, false);
    if (fresh == mAudioOutputSourceArray) return;
    mAudioOutputSourceArray = std::move(fresh);
    if (mDevicePopUpButton != nullptr) {
        AUUnit::setupPopUpButton(*mDevicePopUpButton, mAudioOutputSourceArray);
    }
    updateCurrentDevice();
}

void AUOutputUnit::updateCurrentDevice() {
    if (mAudioOutputSourceArray.empty()) {
        mIndexOfOutputDevice = -1; // the name stays the wanted one
        return;
    }
    const auto device = mOutputUnit ? mOutputUnit->currentDevice() : std::nullopt;
    if (!device) {
        setOutputDeviceWithName(mDeviceName); // nothing was there to be selected until now
        return;
    }
    const int index = indexOfDevice(*device);
    mOutputDevice = *device;
    mIndexOfOutputDevice = index;
    mDeviceName = mAudioOutputSourceArray[std::size_t(index)].name;
    if (mDevicePopUpButton != nullptr) mDevicePopUpButton->selectIndex(index);
}

/// The entry of the device with its current data source, if it has a choice of them; 0 for none.
int AUOutputUnit::indexOfDevice(DeviceId device) const {
    const bool hasChoice = hardware().isDataSourceWritable(device, Direction::output);
    const auto source = hasChoice ? hardware().dataSource(device, Direction::output) : std::nullopt;
    const auto isIt = [&](const DeviceEntry& entry) {
        return entry.deviceID == device && (!hasChoice || entry.dataSource == source);
    };
    const auto& list = mAudioOutputSourceArray;
    const auto found = std::ranges::find_if(list, isIt);
    return found == list.end() ? 0 : static_cast<int>(found - list.begin());
}

void AUOutputUnit::unitListener(void* client, OutputUnit*, UnitProperty property, UnitScope scope,
                                std::uint32_t element) noexcept {
    static_cast<AUOutputUnit*>(client)->audioUnitPropertyListenerProc(property, scope, element);
}

void AUOutputUnit::audioUnitPropertyListenerProc(UnitProperty property, UnitScope scope,
                                                 std::uint32_t element) {
    if (scope != UnitScope::input) return;
    if (property == UnitProperty::sampleRate) {
        setStreamFormat();
        setAUDevice();
    } else if (property == UnitProperty::currentDevice) {
        performOnMainThread([this] { updateCurrentDevice(); });
    }
    if (mListenerProc != nullptr) {
        mListenerProc(mListenerRefCon, mOutputUnit.get(), property, scope, element);
    }
}

Status AUOutputUnit::audioHardwareListener(PropertyCode property) {
    if (property == PropertyCode::devices) updateDeviceList();
    return audio_status::kOk;
}

Status AUOutputUnit::audioDevicePropertyListener(DeviceId device, std::uint32_t, bool isInput,
                                                 PropertyCode property) {
    if (isInput) return audio_status::kOk;
    if (property == PropertyCode::streamFormat && device == mOutputDevice) {
        setStreamFormat();
        notifyListener();
    } else if (property == PropertyCode::deviceHasChanged) {
        updateDeviceList();
    }
    return audio_status::kOk;
}

void AUOutputUnit::notifyListener() {
    if (mListenerProc == nullptr) return;
    mListenerProc(mListenerRefCon, mOutputUnit.get(), UnitProperty::sampleRate, UnitScope::global,
                  0);
}

// --- the controls ---

void AUOutputUnit::setupPopUpButton(PopUpMenu* popUp) {
    mDevicePopUpButton = popUp;
    if (popUp == nullptr) return;
    AUUnit::setupPopUpButton(*popUp, mAudioOutputSourceArray);
    if (mDeviceName) popUp->selectTitle(*mDeviceName);
}

std::string AUOutputUnit::description() const { return describedAs("AUOutputUnit"); }

} // namespace veltrano
