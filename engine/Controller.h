// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner: takes frames, brings every display up to date, answers changes of the settings.
#pragma once

#include "analysis/PartialDetector.h"
#include "audio/AUInputUnit.h"
#include "audio/AUOutputUnit.h"
#include "audio/SoundGen.h"
#include "engine/ControllerPorts.h"
#include "engine/FrameRoad.h"
#include "engine/NoteEvaluation.h"
#include "engine/ReadingRecord.h"
#include "engine/SpokenReports.h"
#include "engine/TunerDisplay.h"
#include "platform/foundation/NotificationCenter.h"
#include "settings/InputDeviceListener.h"

#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QSocketNotifier;

namespace veltrano {

/// The application's controller. Each operation asks a small class and tells a port.
///
/// Thread: main, but for inputIOProc. There is no timer: the arrival of frames is the clock, and
/// deadlines are compared with the time of each frame.
/// Owns: both audio units, the tone generator, the detector of partials and the road of frames.
/// Lifecycle: awakeFromNib() once, then applicationDidFinishLaunching(), at the end
/// applicationWillTerminate(), while the windows are still as the user left them.
class Controller : public QObject, public InputDeviceListener {
    Q_OBJECT
public:
    explicit Controller(const ControllerPorts& ports);
    ~Controller() override;

    // Start and stop
    void awakeFromNib();
    void applicationDidFinishLaunching();
    void applicationWillTerminate();
    /// Writes the settings as they are, which windows are visible among them; everything goes on.
    void saveState();
    void applicationDidHide();   ///< stops the input
    void applicationDidUnhide(); ///< starts it again

    // Windows and what they show
    void showTunerWindow();
    void showPianoKeyboard();
    void showHilbertScope(); ///< puts it away if it is visible
    void showPartials();     ///< the same
    void hilbertLine();
    void hilbertDots();
    void hilbertDecay(); ///< this and the following switch between on and off
    void hilbertGrid();
    void partialsHold();

    // Input
    /// Audio thread: one block of the input device.
    static Status inputIOProc(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                              const AudioTimeStamp* inputTime, AudioBufferList*,
                              const AudioTimeStamp*,
                              void* controller) noexcept VELTRANO_NONBLOCKING;
    /// Main thread: a property of the input device changed.
    static Status listenerProc(DeviceId, std::uint32_t channel, bool isInput, PropertyCode,
                               void* controller) noexcept;
    /// The settings have switched the input device.
    void inputDevicePopupChanged() override;
    /// Serves every frame that waits; the event loop calls it when one arrives.
    void serveFrames();

    // One update cycle
    void updateUI(FrameRef frame);
    void updateTunerUI(bool update);
    void setTuningMeter(float deviation); ///< [semitones]
    void setLevelMeter();

    // Manual mode and sound-back
    void manualModeUI();
    void updateSoundBack(bool force); ///< @param force whatever the settings say
    void autoManualToggle();
    void noteUp(); ///< this and the following do nothing in automatic mode
    void noteDown();
    void octaveUp();
    void octaveDown();
    void soundBackToggle();
    void playSoundBack(); ///< once, whatever the settings say

    // Spoken reports
    void speak(const std::string& text);
    void iaSpeakStatus();
    void iaSpeakDetails();
    void iaSpeakTune();
    void iaSpeakHertz();

    AUInputUnit& inputUnit() { return *mAUInputUnit; }
    AUOutputUnit* outputUnit() { return mAUOutputUnit.get(); } ///< null: there is no output
    SoundGen* soundGen() { return mSoundGen.get(); } ///< null: likewise, or a port is used instead
    PartialDetector& partialDetector() { return mPartialDetector; }

    float sampleRate() const { return mSampleRate; } ///< [Hz] of the input device

    /// What the last cycle left.
    ReadingRecord record() const;

private:
    void detectPitch(const Frame& frame);
    void acceptRawFrequency(double now);
    void showWaveform(const FrameRef& frame);
    void holdPeak(double now);
    void takeSampleRate();
    void logDroppedFrames();
    void storeVisibility();
    void toggle(AnalysisWindowKind window);
    void rest(); ///< shows that nothing is heard
    void observeSettings();
    void referencePitchNotification();
    void temperamentChangedNotification();
    void stretchChangedNotification();
    void inTuneThresholdChangedNotification();
    void manualModeChangedNotification();
    void selectDevices();
    void makeOutput();
    void moveNote(int keys);
    ToneGenerator* toneGenerator() const;

    TuningChoice tuningChoice() const;
    void showReading(const NoteReading& reading);
    void showSpelling(int key);
    void setNumber(TunerText field, int value);
    void updateCentText(std::int32_t tenths);
    void updateReferencePitch();
    void updateTuningName();
    void updateStretchName();
    void speakReading();
    spoken_reports::Shown shownTexts() const;
    void speakStatusTimer();
    void speakDetailsTimer();

    const ControllerPorts mPorts;
    FrameRoad mRoad;
    std::unique_ptr<AUInputUnit> mAUInputUnit;
    std::unique_ptr<AUOutputUnit> mAUOutputUnit; ///< null: there is no output
    std::unique_ptr<SoundGen> mSoundGen;         ///< null: likewise, or a port is used instead
    PartialDetector mPartialDetector;
    QSocketNotifier* mFramesArrived; ///< child of this
    std::vector<NotificationCenter::Observation> mObservations;

    std::uint64_t mCycles = 0;    ///< update cycles begun
    double mFrameSeconds = 0;     ///< [s] of the recording at the end of the last frame
    float mSampleRate = 0;        ///< [Hz] of the input device
    float mRawFrequency = 0;      ///< [Hz] newest estimate, consumed by the cycle
    float mFrameRawFrequency = 0; ///< [Hz] the same, kept for records
    float mRawPeak = 0;
    std::int32_t mPeak = 0;
    float mFrequency = 0;              ///< [Hz] smoothed
    float mDisplayFrequency = 0;       ///< [Hz] shown last
    float mReferencePitch = 0;         ///< [Hz] of A4
    float mIdealFrequency = 0;         ///< [Hz] of the key shown last
    float mCent = 0;                   ///< [semitones] shown last
    std::int32_t mDisplayCent;         ///< [tenths of a cent] in the text
    std::optional<NoteReading> mShown; ///< the reading shown last
    double mNextTunerUpdateTime = 0;
    double mNextPeakHoldTime = 0;
    std::int32_t mPeakHold = 0;
    std::int32_t mDisplayPeak = 0;
    std::int32_t mDisplayPeakHold = 0;
    std::uint64_t mLoggedDropped = 0;
    bool firstLaunch = false;
    bool mIsHidden = false;
    bool pause = false; ///< kept: nothing sets it; a part that must suspend the analysis may
};

} // namespace veltrano
