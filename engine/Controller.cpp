// SPDX-License-Identifier: GPL-3.0-or-later
// Start and stop, the input device, the settings' announcements.
#include "engine/Controller.h"

#include "engine/NumberTexts.h"
#include "platform/foundation/LenientNumber.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/NotificationNames.h"
#include "settings/Preferences.h"

#include <QSocketNotifier>
#include <limits>

namespace veltrano {

namespace {

/// A value that no deviation has: the first deviation is always written.
constexpr std::int32_t kNoDisplayCent = std::numeric_limits<std::int32_t>::min();

} // namespace

Controller::Controller(const ControllerPorts& ports)
    : mPorts(ports), mRoad(ports.frameCapacity), mPartialDetector(ports.notifications),
      mFramesArrived(new QSocketNotifier(mRoad.descriptor(), QSocketNotifier::Read, this)),
      mDisplayCent(kNoDisplayCent) {
    connect(mFramesArrived, &QSocketNotifier::activated, this, &Controller::serveFrames);
}

Controller::~Controller() {
    mPorts.preferences.setController(nullptr);
    mPorts.preferences.setAUInputUnit(nullptr);
    mPorts.preferences.setAUOutputUnit(nullptr);
    mPorts.preferences.setSoundGen(nullptr);
    if (mAUInputUnit && mAUInputUnit->isRunning()) mAUInputUnit->stop();
}

void Controller::awakeFromNib() {
    Preferences& prefs = mPorts.preferences;
    mAUInputUnit = std::make_unique<AUInputUnit>(mPorts.registry);
    prefs.setController(this);
    // An input chosen for this run only is not to be saved: the settings do not see the unit.
    if (!mPorts.inputDeviceForThisRun) prefs.setAUInputUnit(mAUInputUnit.get());
    makeOutput();
    prefs.setSoundGen(toneGenerator());

    mReferencePitch = static_cast<float>(prefs.referencePitch());
    firstLaunch = prefs.firstLaunch();
    if (firstLaunch && mPorts.windows) mPorts.windows->centerWindows();
    updateTunerUI(true);
    setLevelMeter();
    updateReferencePitch();
    mPorts.display.setMeterThreshold(prefs.inTuneThreshold());
    mPorts.display.setMeterEnabled(!prefs.manualMode());
    updateTuningName();
    updateStretchName();
    observeSettings();
    mDisplayCent = kNoDisplayCent;
    selectDevices();
}

void Controller::makeOutput() {
    if (!mPorts.outputUnits) return;
    mAUOutputUnit = std::make_unique<AUOutputUnit>(mPorts.registry, *mPorts.outputUnits);
    mPorts.preferences.setAUOutputUnit(mAUOutputUnit.get());
    if (mPorts.soundGen) return;
    mSoundGen = std::make_unique<SoundGen>();
    mSoundGen->setAUOutputUnit(*mAUOutputUnit);
}

void Controller::applicationDidFinishLaunching() {
    if (!mPorts.windows) return;
    const Preferences& prefs = mPorts.preferences;
    if (prefs.partials()) mPorts.windows->orderFront(AnalysisWindowKind::partials);
    if (prefs.hilbertScope()) mPorts.windows->orderFront(AnalysisWindowKind::hilbert);
    if (prefs.pianoKeyboard()) mPorts.windows->orderFront(AnalysisWindowKind::piano);
    mPorts.windows->showTunerWindow();
    if (firstLaunch) mPorts.windows->showHelp();
}

void Controller::applicationWillTerminate() {
    mAUInputUnit->stop();
    if (mAUOutputUnit) mAUOutputUnit->stop();
    mObservations.clear();
    saveState();
}

void Controller::saveState() {
    storeVisibility();
    mPorts.preferences.savePreferences();
}

void Controller::storeVisibility() {
    if (!mPorts.windows) return;
    Preferences& prefs = mPorts.preferences;
    prefs.setPianoKeyboard(mPorts.windows->isVisible(AnalysisWindowKind::piano));
    prefs.setHilbertScope(mPorts.windows->isVisible(AnalysisWindowKind::hilbert));
    prefs.setPartials(mPorts.windows->isVisible(AnalysisWindowKind::partials));
}

void Controller::showTunerWindow() {
    if (mPorts.windows) mPorts.windows->showTunerWindow();
}

void Controller::showPianoKeyboard() {
    if (mPorts.windows) mPorts.windows->makeKeyAndOrderFront(AnalysisWindowKind::piano);
}

void Controller::showHilbertScope() { toggle(AnalysisWindowKind::hilbert); }

void Controller::showPartials() { toggle(AnalysisWindowKind::partials); }

void Controller::toggle(AnalysisWindowKind window) {
    if (!mPorts.windows) return;
    if (mPorts.windows->isVisible(window)) {
        mPorts.windows->orderOut(window);
    } else {
        mPorts.windows->makeKeyAndOrderFront(window);
    }
}

void Controller::hilbertLine() { mPorts.preferences.setHilbertLine(true); }

void Controller::hilbertDots() { mPorts.preferences.setHilbertLine(false); }

void Controller::hilbertDecay() {
    mPorts.preferences.setHilbertDecay(!mPorts.preferences.hilbertDecay());
}

void Controller::hilbertGrid() {
    mPorts.preferences.setHilbertGrid(!mPorts.preferences.hilbertGrid());
}

void Controller::partialsHold() {
    mPorts.preferences.setPartialsHold(!mPorts.preferences.partialsHold());
}

void Controller::applicationDidHide() {
    mIsHidden = true;
    mAUInputUnit->stop();
}

void Controller::applicationDidUnhide() {
    mIsHidden = false;
    mAUInputUnit->start();
    if (mAUInputUnit->inputDevice() == 0) rest(); // the device went while nobody listened
}

void Controller::observeSettings() {
    const auto observe = [this](std::string_view name, void (Controller::*handler)()) {
        mObservations.push_back(mPorts.notifications.observe(
            name, [this, handler](const std::any&) { (this->*handler)(); }));
    };
    observe(notification::kReferencePitch, &Controller::referencePitchNotification);
    observe(notification::kTemperamentChanged, &Controller::temperamentChangedNotification);
    observe(notification::kStretchChanged, &Controller::stretchChangedNotification);
    observe(notification::kInTuneThresholdChanged, &Controller::inTuneThresholdChangedNotification);
    observe(notification::kManualModeChanged, &Controller::manualModeChangedNotification);
}

void Controller::referencePitchNotification() {
    mReferencePitch = static_cast<float>(mPorts.preferences.referencePitch());
    updateReferencePitch();
    updateTunerUI(true);
}

void Controller::temperamentChangedNotification() {
    updateTuningName();
    updateTunerUI(true);
}

void Controller::stretchChangedNotification() {
    updateStretchName();
    updateTunerUI(true);
}

void Controller::inTuneThresholdChangedNotification() {
    mPorts.display.setMeterThreshold(mPorts.preferences.inTuneThreshold());
    updateTunerUI(true);
}

void Controller::manualModeChangedNotification() {
    mPorts.display.setMeterEnabled(!mPorts.preferences.manualMode());
    updateTunerUI(true);
}

void Controller::updateReferencePitch() {
    mPorts.display.setText(TunerText::referencePitch,
                           "A4 = " + fixedDecimals(double(mReferencePitch), 3) + "Hz");
}

void Controller::updateTuningName() {
    mPorts.display.setText(TunerText::tuningName, mPorts.preferences.tuningNameString());
    mPorts.display.setTip(TunerText::tuningName, mPorts.preferences.tuningToolTipString());
}

void Controller::updateStretchName() {
    mPorts.display.setText(TunerText::stretchName, mPorts.preferences.stretchNameString());
    mPorts.display.setTip(TunerText::stretchName, mPorts.preferences.stretchToolTipString());
}

void Controller::selectDevices() {
    mAUInputUnit->setIOProc(&Controller::inputIOProc, this);
    mAUInputUnit->setListenerProc(&Controller::listenerProc, this);
    const std::optional<std::string>& forThisRun = mPorts.inputDeviceForThisRun;
    mAUInputUnit->setInputDeviceWithName(forThisRun ? forThisRun
                                                    : mPorts.preferences.inputDeviceName());
    inputDevicePopupChanged();
    if (mAUOutputUnit)
        mAUOutputUnit->setOutputDeviceWithName(mPorts.preferences.outputDeviceName());
}

void Controller::inputDevicePopupChanged() {
    takeSampleRate();
    mPorts.display.setText(TunerText::inputDevice, mAUInputUnit->inputDeviceName().value_or(""));
}

void Controller::takeSampleRate() {
    mSampleRate = static_cast<float>(mAUInputUnit->sampleRate());
    const bool isRefused = double(mSampleRate) > FrameAssembler::kMaxSampleRateHz;
    if (isRefused) {
        mPorts.log.detail("Sample rate refused: " + fixedDecimals(double(mSampleRate), 0) +
                          " Hz is above 384000 Hz.");
    }
    mRoad.setSampleRate(isRefused ? 0.0f : mSampleRate);
    mPorts.display.setStrobeSampleRate(mSampleRate);
    mPartialDetector.setSampleRate(double(mSampleRate));
}

Status Controller::inputIOProc(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                               const AudioTimeStamp* inputTime, AudioBufferList*,
                               const AudioTimeStamp*,
                               void* controller) noexcept VELTRANO_NONBLOCKING {
    static_cast<Controller*>(controller)->mRoad.receive(*input, inputTime->sampleTime);
    return audio_status::kOk;
}

Status Controller::listenerProc(DeviceId, std::uint32_t, bool isInput, PropertyCode,
                                void* refCon) noexcept {
    if (!isInput) return audio_status::kOk;
    auto& controller = *static_cast<Controller*>(refCon);
    // A change of the devices has started the input again.
    if (controller.mIsHidden && controller.mAUInputUnit->isRunning())
        controller.mAUInputUnit->stop();
    // The device may have been replaced by another one.
    TunerDisplay& display = controller.mPorts.display;
    const std::string name = controller.mAUInputUnit->inputDeviceName().value_or("");
    if (display.text(TunerText::inputDevice) != name) display.setText(TunerText::inputDevice, name);
    if (controller.mAUInputUnit->sampleRate() != double(controller.mSampleRate)) {
        controller.takeSampleRate();
    }
    return audio_status::kOk;
}

void Controller::serveFrames() {
    mRoad.clearWakeUp();
    while (const FrameRef frame = mRoad.take())
        updateUI(frame);
    logDroppedFrames();
}

void Controller::logDroppedFrames() {
    const std::uint64_t dropped = mRoad.dropped();
    if (dropped == mLoggedDropped) return;
    mPorts.log.detail("The display was late: " + std::to_string(dropped - mLoggedDropped) +
                      " frames of input were dropped.");
    mLoggedDropped = dropped;
}

ReadingRecord Controller::record() const {
    const std::uint64_t frame = mCycles == 0 ? 0 : mCycles - 1;
    return {frame, mFrameSeconds, mFrameRawFrequency, mRawPeak, mPeak, mFrequency,
            mCent, mShown,        mRoad.dropped()};
}

} // namespace veltrano
