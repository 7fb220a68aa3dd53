// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the program together and owns its parts.
#pragma once

#include "app/ApplicationCommands.h"
#include "app/DocumentDesk.h"
#include "app/FrameWatch.h"
#include "app/LaunchOptions.h"
#include "app/LibrariesInUse.h"
#include "app/RecordingClock.h"
#include "app/TunerCommands.h"
#include "app/WindowDesk.h"
#include "app/WindowsInSight.h"
#include "audio/AUUnitRegistry.h"
#include "engine/Controller.h"
#include "platform/audio/CombinedHardware.h"
#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/PulseHardware.h"
#include "platform/audio/Recording.h"
#include "platform/audio/RecordingDevice.h"
#include "platform/audio/VirtualHardware.h"
#include "platform/desktop/DesktopColorScheme.h"
#include "platform/desktop/DocumentPorts.h"
#include "platform/desktop/IdleInhibitor.h"
#include "platform/desktop/ImageLibrary.h"
#include "platform/desktop/ResourceFolder.h"
#include "platform/desktop/SoundSettings.h"
#include "platform/desktop/SpeechEngine.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/StandardErrorLog.h"
#include "platform/foundation/SteadyClock.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "settings/PreferencesPanel.h"

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veltrano {

/// The composition root: the parts stand in the order of their use, destruction runs backwards.
/// Thread: main, with a QApplication.
class Application final {
public:
    explicit Application(const LaunchOptions& options);
    ~Application();

    /// Runs until the window is closed or, for pictures, until they are written.
    /// @param willListen called when from here on the event loop's exit ends the run in good order
    /// @return the exit code; a failure has been told on standard error
    int run(const std::function<void()>& willListen = [] {});

    /// Another process was started with these; without any the tuner window comes to the front.
    void openFiles(const std::vector<std::string>& files);

private:
    std::unique_ptr<RecordingDevice> openRecording(const std::string& path, std::string& error);
    void makeController();
    void makePreferencesPanel();
    const Clock& clock() const;
    std::string nameOfRecording() const; ///< of its device entry
    int runWindow(const std::function<void()>& willListen);
    int writeSnapshot();
    static UserDefaults defaultsFor(const LaunchOptions& options);
    std::unique_ptr<DocumentPanels> panelsFor(const LaunchOptions& options);
    LibrariesInUse librariesFor(const LaunchOptions& options);
    ApplicationCommands::Operations operations();
    SpeechPort* speech();

    void furnishWindows();
    void furnishPanel(QWidget& window);
    void followVisibility(bool isAnyInSight);
    void keepAwakeWhileListening();
    void followListening();
    void followColorScheme();
    void setReducesMotion(bool reduces);
    void showAbout();
    void quitLater();
    void keepState();
    void terminate();

    const LaunchOptions mOptions;
    StandardErrorLog mLog;
    SteadyClock mSteadyClock;
    SpeechEngine mSpeech{mLog, mSteadyClock};
    RecordingClock mRecordingClock;
    std::unique_ptr<PulseHardware> mPulse; ///< null: pictures need no sound server
    VirtualHardware mVirtual;
    std::unique_ptr<CombinedHardware> mHardware;
    std::unique_ptr<HardwareOutputUnits> mOutputUnits; ///< null: no sound is made
    std::unique_ptr<RecordingDevice> mRecording;       ///< null without --input
    UserDefaults mDefaults;
    NotificationCenter mNotifications;
    MainThread mMainThread;
    const ResourceFolder mResources = ResourceFolder::find();
    const std::unique_ptr<DocumentPanels> mPanels;
    const LibrariesInUse mLibraries;
    Preferences mPreferences;
    std::unique_ptr<AUUnitRegistry> mRegistry;
    ImageLibrary mImages;
    ApplicationCommands mCommands{operations()};
    std::vector<std::unique_ptr<PanelCommands>> mPanelCommands;
    std::unique_ptr<WindowsInSight> mInSight; ///< null for pictures
    std::unique_ptr<WindowDesk> mWindows;
    DocumentDesk mDocuments;
    SoundSettings mSoundSettings{*mPanels};
    std::unique_ptr<IdleInhibitor> mIdleInhibitor; ///< null for pictures
    QTimer mListeningCheck;
    std::unique_ptr<DesktopColorScheme> mColorScheme; ///< null unless the system's is followed
    std::unique_ptr<FrameWatch> mFrameWatch;          ///< null without --input
    std::unique_ptr<Controller> mController;
    std::unique_ptr<TunerCommands> mTunerCommands;
    std::unique_ptr<PreferencesPanel> mPreferencesPanel;
    bool mIsTerminated = false;
};

} // namespace veltrano
