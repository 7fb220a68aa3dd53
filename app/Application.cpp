// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Application.h"

#include "platform/desktop/DrawingPass.h"
#include "platform/desktop/QtDocumentPanels.h"
#include "platform/desktop/UnattendedPanels.h"
#include "platform/desktop/WindowPlacement.h"

#include <QApplication>
#include <QDir>
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
    mDocuments.furnish(*mWindow, nullptr);
    makeController();
    mController->awakeFromNib();
    return mOptions.snapshotDir ? writeSnapshot() : runWindow(willListen);
}

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
    if (!mOptions.snapshotDir) ports.speech = &mSpeech;
    if (mRecording) {
        mFrameWatch = std::make_unique<FrameWatch>(mRecordingClock, *mWindow);
        ports.frames = mFrameWatch.get();
        ports.inputDeviceForThisRun = nameOfRecording();
    }
    mController = std::make_unique<Controller>(ports);
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
    const QMetaObject::Connection visibility =
        QObject::connect(mWindow->windowHandle(), &QWindow::visibilityChanged,
                         [this](QWindow::Visibility now) { followVisibility(now); });
    if (mRecording) {
        mFrameWatch->writeReadings(writeToStandardOutput);
        mRecording->startRealTime();
    }
    mWindow->setCloseRequest([this] { quitLater(); });
    // Opened from the event loop: what refuses a file asks, and a signal must end the question.
    mMainThread.post([this] { mDocuments.openFiles(mOptions.files); });
    willListen();
    const int exitCode = QApplication::exec();
    QObject::disconnect(visibility);
    if (mRecording) {
        mRecording->stopRealTime();
        mFrameWatch->finish();
    }
    mController->applicationWillTerminate();
    return exitCode;
}

int Application::writeSnapshot() {
    mDocuments.openFiles(mOptions.files);
    // The window stays hidden: each frame gets exactly one drawing pass, the event loop adds none.
    QImage picture;
    mFrameWatch->onFrame([this, &picture](double seconds) {
        if (seconds <= mOptions.snapshotSeconds + kSameMoment) picture = drawingPass(*mWindow);
    });
    const double rate = mRecording->sampleRate();
    while (static_cast<double>(mRecording->position()) / rate < mOptions.snapshotSeconds &&
           mRecording->playBlock()) {
        mController->serveFrames();
    }
    if (picture.isNull()) picture = drawingPass(*mWindow); // not one frame was full yet
    if (!QDir(*mOptions.snapshotDir).mkpath(QStringLiteral("."))) {
        return refused("cannot make the folder " + mOptions.snapshotDir->toStdString());
    }
    int exitCode = writePicture(picture, QStringLiteral("tuner"));
    for (EditorWindow* window : mDocuments.windows()) {
        const QString name = QFileInfo(window->windowFilePath()).completeBaseName();
        if (exitCode == kDone) exitCode = writePicture(drawingPass(*window), name);
    }
    return exitCode;
}

int Application::writePicture(const QImage& picture, const QString& name) {
    const QString path = QDir(*mOptions.snapshotDir).filePath(name + QStringLiteral(".png"));
    if (!picture.save(path)) return refused("cannot write " + path.toStdString());
    return kDone;
}

void Application::followVisibility(QWindow::Visibility visibility) {
    const bool isHidden = visibility == QWindow::Minimized || visibility == QWindow::Hidden;
    if (isHidden == mIsHidden) return;
    mIsHidden = isHidden;
    if (isHidden) {
        mController->applicationDidHide();
    } else {
        mController->applicationDidUnhide();
    }
}

void Application::centerWindows() { centreOnScreen(*mWindow); }

void Application::showTunerWindow() {
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
        return std::nullopt;
    }
}

void Application::perform(MenuCommand command) {
    if (command == MenuCommand::help) {
        showHelp();
    } else {
        quitLater();
    }
}

/// Whoever asks may be a window that is closed on the way, so it is done from the event loop.
void Application::quitLater() {
    mMainThread.post([this] {
        if (mDocuments.mayQuit()) QCoreApplication::exit(kDone);
    });
}

} // namespace veltrano
