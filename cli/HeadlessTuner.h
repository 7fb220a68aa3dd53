// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner put together without a window.
#pragma once

#include "audio/AUUnitRegistry.h"
#include "cli/ReadingWriter.h"
#include "cli/SingleFileLibraries.h"
#include "cli/TunerOptions.h"
#include "engine/Controller.h"
#include "engine/HeadlessDisplay.h"
#include "platform/audio/AudioHardware.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/StandardErrorLog.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"

#include <memory>
#include <string>

namespace veltrano {

/// Owns the tuner's objects in their order of use; the settings are those of a first run and are
/// never stored. Thread: main.
class HeadlessTuner {
public:
    /// How readings go out.
    struct Setup {
        TunerOptions options;
        TuningEntries entries; ///< of the files of the options
        bool writesReadings = true;
        bool isTable = false;
        bool hasRecordingClock = false;      ///< the time is the recording's, not the machine's
        FrameRoad::Capacity frameCapacity{}; ///< room for what one block can complete
    };

    /// @param hardware outlives this object
    HeadlessTuner(AudioHardware& hardware, Output& output, const Setup& setup);
    ~HeadlessTuner();

    /// Opens the input device of that name; the default device without one.
    void start(const std::optional<std::string>& deviceName);
    Controller& controller() { return *mController; } ///< once it is started
    void serveFrames() { mController->serveFrames(); }
    void finish() { mWriter.finish(); }
    std::string inputDeviceName() const;

private:
    AudioHardware& mHardware;
    const Setup mSetup;
    StandardErrorLog mLog;
    ManualClock mRecordingClock;
    std::unique_ptr<Clock> mClock; ///< the machine's
    UserDefaults mDefaults = UserDefaults::inMemory();
    NotificationCenter mNotifications;
    MainThread mMainThread;
    HeadlessDisplay mDisplay;
    ReadingWriter mWriter;
    SingleFileLibraries mLibraries;
    Preferences mPreferences;
    AUUnitRegistry mRegistry;
    std::unique_ptr<Controller> mController;
};

} // namespace veltrano
