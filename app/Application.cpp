// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the program together and owns its parts.
#include "app/Application.h"

#include "app/WindowsInSight.h"
#include "platform/desktop/QtDocumentPanels.h"
#include "platform/desktop/UnattendedPanels.h"
#include "platform/desktop/WindowPlacement.h"

#include <QApplication>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace veltrano {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = 1; ///< the input or the installation was refused
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
    mDocuments.setApplication(this);
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
    mWindow = TunerWindow::create(mResources, mImages, mLog);
    if (!mWindow) return kRefused; // the log has said why
    furnishWindows();
    makeController();
    mController->awakeFromNib();
    return mOptions.snapshotDir ? writeSnapshot() : runWindow(willListen);
}

void Application::furnishWindows() {
    mDocuments.furnish(*mWindow, mWindow.get());
    mAnalysis = std::make_unique<AnalysisWindows>(
        mResources, PartialView::Ports{mPreferences, mNotifications, speech()}, mLog);
    mAnalysis->forEach([this](AnalysisWindow& window) {
        mDocuments.furnish(window, &window).keepShortcutsOnly();
    });
    mWindow->setNeighbours(mAnalysis->neighbours());
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
    ControllerPorts ports{*mRegistry, mPreferences, mNotifications, clock(), mLog, *mWindow};
    ports.windows = this;
    ports.speech = speech();
    ports.outputUnits = mOutputUnits.get();
    if (mRecording) {
        mFrameWatch = std::make_unique<FrameWatch>(mRecordingClock, *mWindow);
        ports.frames = mFrameWatch.get();
        ports.inputDeviceForThisRun = nameOfRecording();
    }
    mController = std::make_unique<Controller>(ports);
    const ApplicationWindows& windows = *this;
    mWindow->setCommandSender([this](MenuCommand command) {
        if (!mTunerCommands->commandState(command)) return false;
        mTunerCommands->perform(command);
        return true;
    });
    mTunerCommands = std::make_unique<TunerCommands>(*mController, mPreferences, windows);
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
    mController->applicationDidFinishLaunching();
    WindowsInSight inSight([this](bool isAny) { followVisibility(isAny); });
    inSight.add(*mWindow);
    mAnalysis->forEach([&inSight](AnalysisWindow& window) { inSight.add(window); });
    if (mRecording) {
        mFrameWatch->writeReadings(writeToStandardOutput);
        mRecording->startRealTime();
    }
    mWindow->setCloseRequest([this] { quitLater(); });
    // Opened from the event loop: what refuses a file asks, and a signal must end the question.
    mMainThread.post([this] { mDocuments.openFiles(mOptions.files); });
    willListen();
    const int exitCode = QApplication::exec();
    if (mRecording) {
        mRecording->stopRealTime();
        mFrameWatch->finish();
    }
    mController->applicationWillTerminate();
    return exitCode;
}

int Application::writeSnapshot() {
    mDocuments.openFiles(mOptions.files);
    WindowPictures pictures = picturesOfOpenWindows();
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

WindowPictures Application::picturesOfOpenWindows() {
    WindowPictures pictures;
    pictures.add(QStringLiteral("tuner"), *mWindow);
    const auto addIfOpen = [&](bool isOpen, const char* name, AnalysisWindowKind kind) {
        AnalysisWindow* const window = mAnalysis->window(kind);
        if (isOpen && window) pictures.add(QLatin1String(name), *window);
    };
    addIfOpen(mPreferences.partials(), "partials", AnalysisWindowKind::partials);
    addIfOpen(mPreferences.hilbertScope(), "hilbert", AnalysisWindowKind::hilbert);
    addIfOpen(mPreferences.pianoKeyboard(), "piano", AnalysisWindowKind::piano);
    return pictures;
}

void Application::followVisibility(bool isAnyInSight) {
    if (isAnyInSight) {
        mController->applicationDidUnhide();
    } else {
        mController->applicationDidHide();
    }
}

bool Application::isVisible(AnalysisWindowKind window) const {
    return mAnalysis->isVisible(window);
}

void Application::orderFront(AnalysisWindowKind window) { mAnalysis->orderFront(window); }

void Application::makeKeyAndOrderFront(AnalysisWindowKind window) {
    mAnalysis->makeKeyAndOrderFront(window);
}

void Application::orderOut(AnalysisWindowKind window) { mAnalysis->orderOut(window); }

void Application::centerWindows() {
    centreOnScreen(*mWindow);
    mAnalysis->forEach([](AnalysisWindow& window) { centreOnScreen(window); });
}

void Application::showTunerWindow() {
    mWindow->setWindowState(mWindow->windowState() & ~Qt::WindowMinimized);
    mWindow->show();
    mWindow->raise();
    mWindow->activateWindow();
}

void Application::showHelp() {
    if (!mHelp) mHelp = std::make_unique<HelpPanel>(mResources, mLog);
    mHelp->showHelpPanel();
}

std::optional<CommandState> Application::commandState(MenuCommand command) const {
    switch (command) {
    case MenuCommand::help:
    case MenuCommand::quit:
    case MenuCommand::closeWindow:
        return CommandState{}; // the tuner window's: it quits
    default:
        return mTunerCommands->commandState(command);
    }
}

void Application::perform(MenuCommand command) {
    switch (command) {
    case MenuCommand::help:
        showHelp();
        break;
    case MenuCommand::quit:
    case MenuCommand::closeWindow:
        quitLater();
        break;
    default:
        mTunerCommands->perform(command);
    }
}

/// Whoever asks may be a window that is closed on the way, so it is done from the event loop.
void Application::quitLater() {
    mMainThread.post([this] {
        if (mDocuments.mayQuit()) QCoreApplication::exit(kDone);
    });
}

} // namespace veltrano
