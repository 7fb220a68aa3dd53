// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner with its output on a server of the test's own, and a recorder beside it.
#pragma once

#include "audio/AUUnitRegistry.h"
#include "engine/Controller.h"
#include "engine/HeadlessDisplay.h"
#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/PulseHardware.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/SteadyClock.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tests/support/RecordingLog.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <functional>
#include <string>
#include <vector>

namespace veltrano {

/// Sound of one device, up to a length given beforehand.
///
/// Thread: take() on the device's own thread, where it allocates nothing; the rest on main.
class KeptSound {
public:
    KeptSound(const AudioHardware& hardware, DeviceId device, double mostSeconds) {
        const auto format = hardware.streamFormat(device, Direction::input);
        if (!format) return;
        mChannels = format->channelsPerFrame;
        mSamples.resize(std::size_t(mostSeconds * format->sampleRate) * mChannels);
    }

    void take(const AudioBuffer& buffer) noexcept {
        const std::size_t taken = mTaken.load(std::memory_order_relaxed);
        const std::size_t part = std::min(buffer.byteSize / sizeof(float), mSamples.size() - taken);
        std::copy_n(buffer.data, part, mSamples.begin() + std::ptrdiff_t(taken));
        mTaken.store(taken + part, std::memory_order_release);
    }

    void setChannels(std::uint32_t channels) { mChannels = channels; } ///< before any sound
    std::size_t frames() const { return mTaken.load(std::memory_order_acquire) / mChannels; }
    std::uint32_t channels() const { return mChannels; }
    /// Interleaved, so far.
    std::span<const float> samples() const { return {mSamples.data(), frames() * mChannels}; }
    /// The first channel, so far.
    std::vector<float> firstChannel() const {
        std::vector<float> mono(frames());
        for (std::size_t i = 0; i < mono.size(); ++i)
            mono[i] = mSamples[i * mChannels];
        return mono;
    }

private:
    std::uint32_t mChannels = 1;
    std::vector<float> mSamples;        ///< the device's thread; below mTaken any
    std::atomic<std::size_t> mTaken{0}; ///< written by the device's thread
};

/// Records one input device. Thread: main.
class DeviceRecorder : public KeptSound {
public:
    DeviceRecorder(AudioHardware& hardware, DeviceId device, double mostSeconds)
        : KeptSound(hardware, device, mostSeconds), mHardware(hardware), mDevice(device) {
        hardware.addIOProc(device, &DeviceRecorder::ioProc, this);
        hardware.start(device, &DeviceRecorder::ioProc);
    }
    ~DeviceRecorder() { stop(); }

    void stop() {
        mHardware.stop(mDevice, &DeviceRecorder::ioProc);
        mHardware.removeIOProc(mDevice, &DeviceRecorder::ioProc);
    }

private:
    static Status ioProc(DeviceId, const AudioTimeStamp*, const AudioBufferList* input,
                         const AudioTimeStamp*, AudioBufferList*, const AudioTimeStamp*,
                         void* recorder) noexcept {
        static_cast<DeviceRecorder*>(recorder)->take((*input)[0]);
        return audio_status::kOk;
    }

    AudioHardware& mHardware;
    const DeviceId mDevice;
};

/// Keeps what the tuner's own input gives, on its way to the tuner, as one channel: two equal ones
/// are one, others are added up, as the tuner does. A server now and then gives a block whose
/// channels differ, and which samples that concerns hangs on where its blocks begin. Thread: main.
class InputTap : public KeptSound {
public:
    /// From the controller's next start of its input on.
    InputTap(Controller& controller, const AudioHardware& hardware, DeviceId device,
             double mostSeconds)
        : KeptSound(hardware, device, mostSeconds), mController(controller) {
        setChannels(1);
        controller.inputUnit().setIOProc(&InputTap::ioProc, this);
    }
    int unequalBlocks() const { return mUnequalBlocks; }

private:
    static Status ioProc(DeviceId device, const AudioTimeStamp* now, const AudioBufferList* input,
                         const AudioTimeStamp* inputTime, AudioBufferList* output,
                         const AudioTimeStamp* outputTime, void* tap) noexcept {
        auto& self = *static_cast<InputTap*>(tap);
        self.takeMixed((*input)[0]);
        return Controller::inputIOProc(device, now, input, inputTime, output, outputTime,
                                       &self.mController);
    }

    void takeMixed(const AudioBuffer& buffer) noexcept {
        const std::size_t frames = buffer.byteSize / sizeof(float) / buffer.channels;
        const auto at = [&](std::size_t frame, std::uint32_t channel) {
            return buffer.data[frame * buffer.channels + channel];
        };
        bool isMono = true;
        for (std::size_t frame = 0; frame < frames; ++frame)
            isMono = isMono && at(frame, 0) == at(frame, buffer.channels - 1);
        if (!isMono) ++mUnequalBlocks;
        for (std::size_t frame = 0; frame < frames; ++frame) {
            float sample = at(frame, 0);
            if (!isMono) sample = std::clamp(sample + at(frame, 1), -1.0f, 1.0f);
            AudioBuffer one{1, sizeof(float), &sample};
            take(one);
        }
    }

    Controller& mController;
    std::atomic<int> mUnequalBlocks{0}; ///< written by the device's thread
};

/// Hears "Monitor of TestSink" and plays on "TestSink". Thread: main, with a QCoreApplication.
class PlayingTuner : private FrameObserver {
public:
    explicit PlayingTuner(const std::string& server)
        : mHardware(mLog, {server, "Test", 1.0}),
          mPost([this](auto function) { mMainThread.post(std::move(function)); }),
          mRegistry(mHardware, mPost, mLog), mUnits(mHardware, mPost) {
        mPreferences.setInputDeviceName(nameOf("Monitor of TestSink", Direction::input));
        mPreferences.setOutputDeviceName(nameOf("TestSink", Direction::output));
        ControllerPorts ports{mRegistry, mPreferences, mNotifications, mClock, mLog, mDisplay};
        ports.outputUnits = &mUnits;
        ports.frames = this;
        mController = std::make_unique<Controller>(ports);
        mController->awakeFromNib();
    }

    Controller& controller() { return *mController; }
    Preferences& preferences() { return mPreferences; }
    AudioHardware& hardware() { return mHardware; }
    const RecordingLog& log() const { return mLog; }

    /// Called after each update cycle; may be empty.
    std::function<void(const ReadingRecord&, const FrameRef& strobeFrame)> onReading;

    DeviceId find(const std::string& name, Direction direction) const {
        for (const DeviceId device : mHardware.devices()) {
            if (mHardware.deviceName(device, direction) == name) return device;
        }
        return 0;
    }

    bool waitFor(const std::function<bool()>& condition, double seconds) {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && double(timer.elapsed()) < seconds * 1000) {
            QCoreApplication::processEvents();
            QThread::msleep(1);
        }
        return condition();
    }
    void pass(double seconds) {
        waitFor([] { return false; }, seconds);
    }

private:
    /// Keeps the frame that goes to the strobe.
    class Display final : public TunerDisplay {
    public:
        void setText(TunerText field, std::string_view text) override {
            texts.setText(field, text);
        }
        std::string text(TunerText field) const override { return texts.text(field); }
        void setTip(TunerText, std::string_view) override {}
        void setHidden(TunerText, bool) override {}
        void setLight(TunerLight light, LightImage image) override { texts.setLight(light, image); }
        void setMeterCent(float) override {}
        void setMeterThreshold(long) override {}
        void setMeterEnabled(bool) override {}
        void setStrobeSampleRate(float) override {}
        void setStrobeFrequency(float) override {}
        void setStrobePeak(float) override {}
        void setStrobeData(FrameRef shown) override { frame = std::move(shown); }
        void setScopePeak(float) override {}
        void setScopeData(FrameRef) override {}
        void setPianoNote(int) override {}

        HeadlessDisplay texts;
        FrameRef frame; ///< null: silence
    };

    std::string nameOf(const std::string& name, Direction direction) const {
        const DeviceId device = find(name, direction);
        return mHardware.deviceManufacturer(device, direction).value_or("") + " : " + name;
    }

    void willUpdate(double) override {}
    void didUpdate(const ReadingRecord& record) override {
        if (onReading) onReading(record, mDisplay.frame);
    }

    RecordingLog mLog;
    PulseHardware mHardware;
    MainThread mMainThread;
    const HardwareOutputUnit::PostToMainThread mPost;
    UserDefaults mDefaults = UserDefaults::inMemory();
    NotificationCenter mNotifications;
    Preferences mPreferences{{mDefaults, mNotifications}};
    AUUnitRegistry mRegistry;
    HardwareOutputUnits mUnits;
    SteadyClock mClock;
    Display mDisplay;
    std::unique_ptr<Controller> mController;
};

} // namespace veltrano
