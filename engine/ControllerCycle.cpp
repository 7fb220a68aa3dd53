// SPDX-License-Identifier: GPL-3.0-or-later
// One update cycle of the controller, from a frame to the displays and the voice.
#include "engine/Controller.h"

#include "engine/FrequencyGate.h"
#include "engine/LevelMeter.h"
#include "engine/NumberTexts.h"
#include "engine/PeriodDetector.h"
#include "platform/desktop/SpeechPort.h"
#include "platform/foundation/Clock.h"
#include "settings/Preferences.h"
#include "tuning/PitchClass.h"

#include <QTimer>

namespace veltrano {

namespace {

constexpr double kSilence = 0.01;           ///< amplitude that a frame must exceed to be drawn
constexpr double kTunerUpdateSeconds = 0.2; ///< without an estimate, until the in-tune light greys
constexpr double kPeakHoldSeconds = 1.0;

/// What the scope gets when there is nothing to draw: one silent sample, each time a new object, so
/// that it draws again and its trace fades.
FrameRef silentFrame() {
    static constexpr float kSilentSample[1] = {0.0f};
    return std::make_shared<const Frame>(Frame{kSilentSample, 0});
}

} // namespace

void Controller::updateUI(FrameRef frame) {
    ++mCycles;
    mFrameSeconds = static_cast<double>(frame->samplesSoFar) / double(mSampleRate);
    if (mPorts.frames) mPorts.frames->willUpdate(mFrameSeconds);
    const double now = mPorts.clock.now();
    detectPitch(*frame);
    acceptRawFrequency(now);
    showWaveform(frame);
    // NaN differs from everything: it is tried again on every frame.
    if (mDisplayFrequency != mFrequency) updateTunerUI(true);
    if (now > mNextTunerUpdateTime) {
        mPorts.display.setLight(TunerLight::inTune, LightImage::gray28x28);
        mNextTunerUpdateTime = now + kTunerUpdateSeconds;
    }
    holdPeak(now);
    if (mPorts.frames) mPorts.frames->didUpdate(record());
}

void Controller::detectPitch(const Frame& frame) {
    const period_detector::Result result =
        period_detector::detect(frame.samples, mSampleRate, mRoad.bufferFrames());
    if (result.hz) mRawFrequency = *result.hz;
    mFrameRawFrequency = result.hz.value_or(0.0f);
    mRawPeak = result.peak;
    mPeak = result.level;
}

void Controller::acceptRawFrequency(double now) {
    // kept: a value outside the range stays in mRawFrequency, to be overwritten or ignored again
    if (!frequency_gate::isAccepted(mRawFrequency)) return;
    mFrequency = frequency_gate::smoothed(mFrequency, mRawFrequency);
    mRawFrequency = 0;
    mNextTunerUpdateTime = now + kTunerUpdateSeconds;
}

void Controller::showWaveform(const FrameRef& frame) {
    TunerDisplay& display = mPorts.display;
    const bool isSounding = !pause && double(mRawPeak) > kSilence;
    if (isSounding) {
        display.setStrobePeak(mRawPeak);
        display.setStrobeData(frame);
        display.setScopePeak(mRawPeak);
        display.setScopeData(frame);
    } else {
        display.setStrobeData(nullptr);
        display.setScopeData(silentFrame());
    }
    mPartialDetector.setData(isSounding ? frame->samples : std::span<const float>());
}

void Controller::holdPeak(double now) {
    if (mPeak >= mPeakHold) {
        mPeakHold = mPeak;
        mNextPeakHoldTime = now + kPeakHoldSeconds;
    }
    if (mDisplayPeakHold != mPeakHold || mDisplayPeak != mPeak) setLevelMeter();
    if (now > mNextPeakHoldTime) {
        mPeakHold = 0; // the lights show the release on the next change
        mNextPeakHoldTime = now + kPeakHoldSeconds;
    }
}

void Controller::rest() {
    mPeak = 0;
    mPeakHold = 0;
    setLevelMeter();
    mPorts.display.setLight(TunerLight::inTune, LightImage::gray28x28);
    mPorts.display.setStrobeData(nullptr);
    mPorts.display.setScopeData(silentFrame());
    mPartialDetector.setData({});
}

TuningChoice Controller::tuningChoice() const {
    const Preferences& prefs = mPorts.preferences;
    return {mReferencePitch, prefs.tuning() != 0, prefs.tonic(), prefs.temperamentTable(),
            prefs.stretchTable()};
}

void Controller::updateTunerUI(bool update) {
    if (!update || pause) return;
    if (mPorts.preferences.manualMode()) {
        manualModeUI();
        return;
    }
    const std::optional<NoteReading> reading = evaluateNote(mFrequency, tuningChoice());
    if (!reading) return;
    showReading(*reading);
    speakReading();
    if (mAUInputUnit->isRunning()) updateSoundBack(false);
}

void Controller::showReading(const NoteReading& reading) {
    TunerDisplay& display = mPorts.display;
    display.setText(TunerText::stretchOffset,
                    plusMinusFloatString(static_cast<float>(reading.stretchCents)));
    setTuningMeter(static_cast<float>(reading.deviation));
    display.setPianoNote(reading.key);
    showSpelling(reading.key);
    setNumber(TunerText::octave, reading.octave); // kept: the octave of before the shift
    display.setText(TunerText::frequency, frequencyString(double(mFrequency)));
    const double difference = double(mFrequency) - reading.idealHz;
    display.setText(TunerText::frequencyDiff, plusMinusFloatString(static_cast<float>(difference)));
    display.setText(TunerText::idealFrequency, frequencyString(reading.idealHz));
    mIdealFrequency = static_cast<float>(reading.idealHz);
    display.setStrobeFrequency(mIdealFrequency);
    mDisplayFrequency = mFrequency;
    mShown = reading;
}

void Controller::showSpelling(int key) {
    const NoteSpelling& spelling = spellingOfKey(key);
    mPorts.display.setText(TunerText::note, std::string_view(&spelling.letter, 1));
    mPorts.display.setText(TunerText::accidental, spelling.accidental);
    mPorts.display.setHidden(TunerText::accidental, spelling.accidental == kNoAccidental);
}

void Controller::setNumber(TunerText field, int value) {
    mPorts.display.setText(field, std::to_string(value));
}

void Controller::setTuningMeter(float deviation) {
    mCent = deviation;
    const std::int32_t cents = truncated(double(100.0f * deviation));
    const std::int64_t threshold = mPorts.preferences.inTuneThreshold(); // its negative exists
    const bool isOut = cents > threshold || cents < -threshold;
    TunerDisplay& display = mPorts.display;
    display.setLight(TunerLight::inTune, isOut ? LightImage::blue28x28 : LightImage::green28x28);
    display.setLight(TunerLight::flat, cents < 0 ? LightImage::red24x24 : LightImage::gray24x24);
    display.setLight(TunerLight::sharp, cents > 0 ? LightImage::red24x24 : LightImage::gray24x24);
    updateCentText(truncated(double(deviation * 1000.0f)));
}

void Controller::updateCentText(std::int32_t tenths) {
    if (tenths == mDisplayCent) return;
    mPorts.display.setText(TunerText::cent, plusMinusValueString(tenths));
    mDisplayCent = tenths;
    mPorts.display.setMeterCent(static_cast<float>(tenths / 10.0));
}

void Controller::setLevelMeter() {
    mDisplayPeak = mPeak;
    mDisplayPeakHold = mPeakHold;
    const auto images = level_meter::lights(mPeak, mPeakHold);
    for (int light = kLevelLights - 1; light >= 0; --light) {
        mPorts.display.setLight(levelLight(light), images[static_cast<std::size_t>(light)]);
    }
    mPorts.display.setText(TunerText::level, level_meter::text(mPeakHold));
}

spoken_reports::Shown Controller::shownTexts() const {
    const TunerDisplay& display = mPorts.display;
    return {display.text(TunerText::note),      display.text(TunerText::accidental),
            display.text(TunerText::octave),    display.text(TunerText::cent),
            display.text(TunerText::frequency), mPorts.preferences.inTuneThreshold()};
}

void Controller::speakReading() {
    const bool tune = mPorts.preferences.tuneSpeech();
    const bool hertz = mPorts.preferences.hertzSpeech();
    if (!tune && !hertz) return;
    const spoken_reports::Shown shown = shownTexts();
    if (tune && hertz) {
        speak(spoken_reports::tuneSpeech(shown, false) + " " + spoken_reports::hertzSpeech(shown));
    } else {
        speak(tune ? spoken_reports::tuneSpeech(shown, false) : spoken_reports::hertzSpeech(shown));
    }
}

void Controller::speak(const std::string& text) {
    // A report is dropped, not queued, while another is being spoken.
    if (mPorts.speech && !mPorts.speech->isSpeaking()) mPorts.speech->say(text);
}

void Controller::iaSpeakStatus() { QTimer::singleShot(0, this, &Controller::speakStatusTimer); }

void Controller::iaSpeakDetails() { QTimer::singleShot(0, this, &Controller::speakDetailsTimer); }

void Controller::iaSpeakTune() {
    mPorts.preferences.setTuneSpeech(!mPorts.preferences.tuneSpeech());
}

void Controller::iaSpeakHertz() {
    mPorts.preferences.setHertzSpeech(!mPorts.preferences.hertzSpeech());
}

void Controller::speakStatusTimer() { speak(spoken_reports::status(shownTexts())); }

void Controller::speakDetailsTimer() {
    const TunerDisplay& display = mPorts.display;
    const Preferences& prefs = mPorts.preferences;
    spoken_reports::Details details;
    details.referencePitchHz = mReferencePitch;
    details.tuningName = display.text(TunerText::tuningName);
    details.stretchName = display.text(TunerText::stretchName);
    details.inputDevice = display.text(TunerText::inputDevice);
    details.level = display.text(TunerText::level);
    if (prefs.tuning() != 0) details.tonic = prefs.tonic();
    speak(spoken_reports::details(shownTexts(), details));
}

} // namespace veltrano
