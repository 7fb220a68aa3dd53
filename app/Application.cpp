// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the program together and owns its parts.
#include "app/Application.h"

#include "app/Diagnostics.h"
#include "app/SessionEnd.h"
#include "platform/desktop/QtDocumentPanels.h"
#include "platform/desktop/UnattendedPanels.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QMessageBox>
#include <algorithm>
#include <cstdio>

namespace veltrano {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = 1; ///< the input or the installation was refused
constexpr std::string_view kReduceMotion = "veltrano.ReduceMotion";
constexpr int kListeningCheckMilliseconds = 10000;
/// A moment that was printed with a frame is that frame's, whatever the rounding on its way.
constexpr double kSameMoment = 1e-6; ///< [s]

int refused(const std::string& reason) {
    const std::string line = "veltrano: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return kRefused;
}

/// People follow the readings while they come, so each line goes out at once.
void writeToStandardOutput(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace

UserDefaults Application::defaultsFor(const LaunchOptions& options) {
    if (options.settingsFile) return UserDefaults(*options.settingsFile);
    // A picture is the same on every machine: no settings of the user's.
    if (options.snapshotDir) return UserDefaults::inMemory();
    return UserDefaults();
}

/// Nobody sits in front of a picture that is being made.
std::unique_ptr<DocumentPanels> Application::panelsFor(const LaunchOptions& options) {
    if (!options.snapshotDir) return std::make_unique<QtDocumentPanels>(mDefaults);
    return std::make_unique<UnattendedPanels>([this](std::string_view line) { mLog.line(line); });
}

LibrariesInUse Application::librariesFor(const LaunchOptions& options) {
    if (options.snapshotDir && !options.settingsFile) return {};
    return LibrariesInUse::locate(mLog, *mPanels);
}

Application::Application(const LaunchOptions& options)
    : mOptions(options), mDefaults(defaultsFor(options)), mPanels(panelsFor(options)),
      mLibraries(librariesFor(options)),
      mPreferences(
          {mDefaults, mNotifications, mLibraries.temperaments.get(), mLibraries.stretches.get()}),
      mImages(mResources.images(), mLog), mDocuments({mResources, mDefaults, mNotifications,
                                                      mPreferences, mLibraries, *mPanels, mLog}) {
    mDocuments.setApplication(&mCommands);
    std::vector<CombinedHardware::Part> parts;
    if (!mOptions.snapshotDir) {
        mPulse = std::make_unique<PulseHardware>(mLog, PulseHardware::Options{});
        parts.push_back({mPulse.get(), 1});
    }
    parts.push_back({&mVirtual, VirtualHardware::kFirstId});
    mHardware = std::make_unique<CombinedHardware>(std::move(parts));
    if (mOptions.snapshotDir) return; // pictures make no sound
    mOutputUnits = std::make_unique<HardwareOutputUnits>(
        *mHardware, [this](auto function) { mMainThread.post(std::move(function)); });
}

Application::~Application() = default;

int Application::run(const std::function<void()>& willListen) {
    std::string error;
    if (mOptions.input) {
        mRecording = openRecording(*mOptions.input, error);
        if (!mRecording) return refused(error);
    }
    mRegistry = std::make_unique<AUUnitRegistry>(
        *mHardware, [this](auto function) { mMainThread.post(std::move(function)); }, mLog);
    mWindows =
        WindowDesk::create({mResources, mImages, mDefaults,
                            PartialView::Ports{mPreferences, mNotifications, speech()}, mLog});
    if (!mWindows) return kRefused; // the log has said why
    furnishWindows();
    makeController();
    mController->awakeFromNib();
    makePreferencesPanel();
    return mOptions.snapshotDir ? writeSnapshot() : runWindow(willListen);
}

void Application::furnishWindows() {
    if (!mOptions.snapshotDir) {
        mInSight =
            std::make_unique<WindowsInSight>([this](bool isAny) { followVisibility(isAny); });
        mDocuments.setDidFurnish([this](QWidget& window) { mInSight->add(window); });
    }
    TunerWindow& tuner = mWindows->tuner();
    mDocuments.furnish(tuner, &tuner);
    mWindows->analysis().forEach([this](AnalysisWindow& window) {
        mDocuments.furnish(window, &window).keepShortcutsOnly();
    });
    mWindows->setDidMakeWindow([this](QWidget& window) { furnishPanel(window); });
    tuner.setReducesMotion(mDefaults.boolForKey(kReduceMotion));
}

void Application::furnishPanel(QWidget& window) {
    mPanelCommands.push_back(std::make_unique<PanelCommands>(window));
    mDocuments.furnish(window, mPanelCommands.back().get());
}

ApplicationCommands::Operations Application::operations() {
    return {
        .help = [this] { mWindows->showHelp(); },
        .shortcuts = [this] { mWindows->showShortcuts(); },
        .copyDiagnostics =
            [this] { QApplication::clipboard()->setText(diagnostics(*mController, mLibraries)); },
        .about = [this] { showAbout(); },
        .preferences = [this] { mWindows->showPreferences(); },
        .soundSettings = [this] { mSoundSettings.open(); },
        .quit = [this] { quitLater(); },
        .reducesMotion = [this] { return mDefaults.boolForKey(kReduceMotion); },
        .setReducesMotion = [this](bool reduces) { setReducesMotion(reduces); }};
}

void Application::setReducesMotion(bool reduces) {
    mDefaults.setBool(kReduceMotion, reduces);
    mWindows->tuner().setReducesMotion(reduces);
}

void Application::showAbout() {
    QMessageBox::about(
        QApplication::activeWindow(), QApplication::translate("veltrano::Application", "About"),
        QApplication::translate("veltrano::Application",
                                "<h3>Veltrano %1</h3><p>Tunes pianos by what the microphone "
                                "hears.</p><p>Free software under the GNU General Public License, "
                                "version 3 or later. It comes without any warranty.</p>")
            .arg(QCoreApplication::applicationVersion()));
}

/// Nobody listens while pictures are made.
SpeechPort* Application::speech() { return mOptions.snapshotDir ? nullptr : &mSpeech; }

std::unique_ptr<RecordingDevice> Application::openRecording(const std::string& path,
                                                            std::string& error) {
    const auto recording = Recording::open(path, error);
    if (!recording) return nullptr;
    // At very low rates one block would complete more frames than may wait.
    const auto rate = static_cast<float>(recording->sampleRateHz());
    const auto most =
        static_cast<int>(FrameAssembler::bufferFramesAt(rate) * FramePool::kDefaultSlots / 2);
    return RecordingDevice::open(mVirtual, path, error,
                                 std::clamp(most, 1, RecordingDevice::kDefaultFramesPerBlock));
}

void Application::makeController() {
    TunerWindow& tuner = mWindows->tuner();
    ControllerPorts ports{*mRegistry, mPreferences, mNotifications, clock(), mLog, tuner};
    ports.windows = mWindows.get();
    ports.speech = speech();
    ports.outputUnits = mOutputUnits.get();
    if (mRecording) {
        mFrameWatch = std::make_unique<FrameWatch>(mRecordingClock, tuner);
        ports.frames = mFrameWatch.get();
        ports.inputDeviceForThisRun = nameOfRecording();
    }
    mController = std::make_unique<Controller>(ports);
    mTunerCommands = std::make_unique<TunerCommands>(*mController, mPreferences, *mWindows);
    mCommands.setTuner(mTunerCommands.get());
    tuner.setCommandSender([this](MenuCommand command) {
        if (!mTunerCommands->commandState(command)) return false;
        mTunerCommands->perform(command);
        return true;
    });
}

void Application::makePreferencesPanel() {
    PreferencesPanel::Ports ports{.preferences = mPreferences,
                                  .temperaments = mLibraries.temperaments.get(),
                                  .stretches = mLibraries.stretches.get(),
                                  .inputUnit = &mController->inputUnit(),
                                  .outputUnit = mController->outputUnit(),
                                  .resources = mResources,
                                  .log = mLog};
    ports.openSoundSettings = [this] { mSoundSettings.open(); };
    ports.didLoad = [this](QWidget& window) { mWindows->didLoadPreferences(window); };
    mPreferencesPanel = std::make_unique<PreferencesPanel>(std::move(ports));
    mWindows->setPreferencesPanel(mPreferencesPanel.get());
}

const Clock& Application::clock() const {
    if (mRecording) return mRecordingClock;
    return mSteadyClock;
}

std::string Application::nameOfRecording() const {
    const DeviceId id = mRecording->id();
    return mVirtual.deviceManufacturer(id, Direction::input).value_or("") + " : " +
           mVirtual.deviceName(id, Direction::input).value_or("");
}

int Application::runWindow(const std::function<void()>& willListen) {
    mWindows->restoreGeometry();
    mController->applicationDidFinishLaunching();
    keepAwakeWhileListening();
    followColorScheme();
    if (mRecording) {
        mFrameWatch->writeReadings(writeToStandardOutput);
        mRecording->startRealTime();
    }
    mWindows->tuner().setCloseRequest([this] { quitLater(); });
    const SessionEnd sessionEnd([this] { keepState(); }, [] { QCoreApplication::exit(kDone); });
    // Opened from the event loop: what refuses a file asks, and a signal must end the question.
    mMainThread.post([this] { mDocuments.openFiles(mOptions.files); });
    willListen();
    const int exitCode = QApplication::exec();
    if (mRecording) {
        mRecording->stopRealTime();
        mFrameWatch->finish();
    }
    terminate();
    return exitCode;
}

void Application::followColorScheme() {
    if (mOptions.appearance != AppearanceChoice::system) return;
    mColorScheme = std::make_unique<DesktopColorScheme>([](ColorScheme scheme) {
        Appearance::chooseLike(scheme == ColorScheme::dark    ? AppearanceChoice::dark
                               : scheme == ColorScheme::light ? AppearanceChoice::light
                                                              : AppearanceChoice::system);
    });
}

/// The session may end, or go on.
void Application::keepState() {
    mWindows->keepGeometry();
    mController->saveState();
}

/// The windows are still as the user left them.
void Application::terminate() {
    mIsTerminated = true;
    mWindows->keepGeometry();
    mController->applicationWillTerminate();
}

void Application::openFiles(const std::vector<std::string>& files) {
    if (!mWindows || mIsTerminated) return;
    if (files.empty()) mWindows->showTunerWindow();
    mDocuments.openFiles(files);
}

int Application::writeSnapshot() {
    mDocuments.openFiles(mOptions.files);
    WindowPictures pictures = mWindows->picturesOfOpenWindows(mPreferences);
    mFrameWatch->onFrame([this, &pictures](double seconds) {
        if (seconds <= mOptions.snapshotSeconds + kSameMoment) pictures.take();
    });
    const double rate = mRecording->sampleRate();
    while (static_cast<double>(mRecording->position()) / rate < mOptions.snapshotSeconds &&
           mRecording->playBlock()) {
        mController->serveFrames();
    }
    if (pictures.isEmpty()) pictures.take(); // not one frame was full yet
    mFrameWatch->onFrame({});
    WindowPictures documents;
    for (EditorWindow* window : mDocuments.windows())
        documents.add(QFileInfo(window->windowFilePath()).completeBaseName(), *window);
    documents.take();
    QString failure = pictures.write(*mOptions.snapshotDir);
    if (failure.isEmpty()) failure = documents.write(*mOptions.snapshotDir);
    return failure.isEmpty() ? kDone : refused(failure.toStdString());
}

void Application::followVisibility(bool isAnyInSight) {
    if (!mController || !mIdleInhibitor || mIsTerminated) return; // starting or ending
    if (isAnyInSight) {
        mController->applicationDidUnhide();
    } else {
        mController->applicationDidHide();
    }
    followListening();
}

/// Devices come and go by themselves; a desktop waits minutes before it takes a user for gone.
void Application::keepAwakeWhileListening() {
    mIdleInhibitor = std::make_unique<IdleInhibitor>();
    QObject::connect(&mListeningCheck, &QTimer::timeout, mIdleInhibitor.get(),
                     [this] { followListening(); });
    mListeningCheck.start(kListeningCheckMilliseconds);
    followListening();
}

void Application::followListening() {
    mIdleInhibitor->setInhibits(mController->inputUnit().isRunning());
}

/// Whoever asks may be a window that is closed on the way, so it is done from the event loop.
void Application::quitLater() {
    mMainThread.post([this] {
        if (mDocuments.mayQuit()) QCoreApplication::exit(kDone);
    });
}

} // namespace veltrano
