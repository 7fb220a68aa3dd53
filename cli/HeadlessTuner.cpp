// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/HeadlessTuner.h"

#include "platform/foundation/SteadyClock.h"

namespace veltrano {

HeadlessTuner::HeadlessTuner(AudioHardware& hardware, Output& output, const Setup& setup)
    : mHardware(hardware), mSetup(setup), mClock(std::make_unique<SteadyClock>()),
      mWriter(setup.hasRecordingClock ? &mRecordingClock : nullptr, mDisplay, output,
              setup.isTable),
      mLibraries(setup.entries, mLog),
      mPreferences({mDefaults, mNotifications, mLibraries.temperaments(), mLibraries.stretches()}),
      mRegistry(
          hardware, [this](auto function) { mMainThread.post(std::move(function)); }, mLog) {
    setup.options.applyTo(mPreferences);
    mLibraries.chooseIn(mPreferences);
}

HeadlessTuner::~HeadlessTuner() = default;

void HeadlessTuner::start(const std::optional<std::string>& deviceName) {
    mPreferences.setInputDeviceName(deviceName);
    const Clock& clock =
        mSetup.hasRecordingClock ? static_cast<const Clock&>(mRecordingClock) : *mClock;
    ControllerPorts ports{mRegistry, mPreferences, mNotifications, clock, mLog, mDisplay};
    if (mSetup.writesReadings) ports.frames = &mWriter;
    ports.frameCapacity = mSetup.frameCapacity;
    mController = std::make_unique<Controller>(ports);
    mController->awakeFromNib();
}

std::string HeadlessTuner::inputDeviceName() const { return mDisplay.text(TunerText::inputDevice); }

} // namespace veltrano
