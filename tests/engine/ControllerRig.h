// SPDX-License-Identifier: GPL-3.0-or-later
// A whole tuner over virtual devices, with displays that record.
#pragma once

#include "audio/AUUnitRegistry.h"
#include "audio/ToneGenerator.h"
#include "engine/Controller.h"
#include "platform/audio/VirtualHardware.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tests/settings/ScriptedLibraries.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/RecordingSpeech.h"
#include "tests/support/RecordingTunerDisplay.h"

#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace veltrano {

/// Samples of a frame that the detector reads as @p periodSamples: a sine with its peaks on
/// samples.
inline std::vector<float> toneSamples(double periodSamples, float amplitude = 0.5f,
                                      std::size_t samples = 5393) {
    std::vector<float> tone(samples);
    for (std::size_t i = 0; i < samples; ++i) {
        tone[i] = amplitude * float(std::sin(2 * std::numbers::pi * double(i) / periodSamples));
    }
    return tone;
}

/// A frame that owns its samples.
inline FrameRef frameOf(std::vector<float> samples) {
    struct Owned {
        std::vector<float> samples;
        Frame frame;
    };
    const auto owned = std::make_shared<Owned>();
    owned->samples = std::move(samples);
    owned->frame = Frame{owned->samples, owned->samples.size()};
    return {owned, &owned->frame};
}

/// The windows' calls by name.
class RecordingWindows final : public ApplicationWindows {
public:
    bool isVisible(AnalysisWindowKind window) const override {
        return visible[static_cast<std::size_t>(window)];
    }
    void orderFront(AnalysisWindowKind window) override { tell("front", window, true); }
    void makeKeyAndOrderFront(AnalysisWindowKind window) override { tell("key", window, true); }
    void orderOut(AnalysisWindowKind window) override { tell("out", window, false); }
    void centerWindows() override { calls.emplace_back("center"); }
    void showTunerWindow() override { calls.emplace_back("tuner"); }
    void showHelp() override { calls.emplace_back("help"); }

    std::vector<std::string> calls;
    std::array<bool, kAnalysisWindows> visible{}; ///< by kind

private:
    void tell(const char* what, AnalysisWindowKind window, bool isVisible) {
        static constexpr const char* kNames[] = {"partials", "hilbert", "piano"};
        calls.push_back(std::string(what) + " " + kNames[static_cast<std::size_t>(window)]);
        visible[static_cast<std::size_t>(window)] = isVisible;
    }
};

/// The tone generator's calls.
class RecordingTone final : public ToneGenerator {
public:
    void playFreq(float hz, float seconds) override { played.emplace_back(hz, seconds); }
    void setLength(float) override {}
    void setVolume(float) override {}
    void setWaveform(int) override {}

    std::vector<std::pair<float, float>> played;
};

/// Thread: main, with a QCoreApplication.
struct ControllerRig {
    explicit ControllerRig(UserDefaults stored = UserDefaults::inMemory())
        : defaults(std::move(stored)),
          preferences({defaults, notifications, &temperaments, &stretches}),
          registry(
              hardware, [this](auto function) { mainThread.post(std::move(function)); }, log) {
        temperaments.entries.push_back({"first", {}});
        stretches.entries.push_back({"first", {}});
        VirtualDevice microphone;
        microphone.manufacturer = "ACME";
        microphone.name = "Mic";
        microphone.input = VirtualDevice::side(44100, 1);
        device = hardware.addDevice(microphone);
        hardware.setDefaultDevice(Direction::input, device);
    }

    /// Makes the controller; the ports may be changed before.
    Controller& make() {
        ports.windows = &windows;
        ports.speech = &speech;
        ports.soundGen = &tone;
        controller = std::make_unique<Controller>(ports);
        return *controller;
    }

    Controller& start() {
        make().awakeFromNib();
        display.takeCalls();
        return *controller;
    }

    /// Selects a stretch table with @p cents on one key.
    void stretchKey(int key, double cents) {
        stretches.entries[0].cents = {};
        stretches.entries[0].cents[std::size_t(key)] = cents;
        preferences.setStretchForFileName("");
        preferences.setStretchForFileName("first");
    }

    /// One block of a mono device, on this very thread.
    void deliver(std::vector<float> samples, double sampleTime = 1.0) {
        AudioBuffer buffer{1, std::uint32_t(samples.size() * sizeof(float)), samples.data()};
        hardware.deliver(device, AudioBufferList(&buffer, 1), sampleTime);
    }

    std::string text(TunerText field) const { return display.text(field); }

    RecordingLog log;
    ManualClock clock;
    VirtualHardware hardware;
    UserDefaults defaults;
    NotificationCenter notifications;
    ScriptedTemperaments temperaments;
    ScriptedStretches stretches;
    MainThread mainThread;
    Preferences preferences;
    AUUnitRegistry registry;
    RecordingTunerDisplay display;
    RecordingWindows windows;
    RecordingSpeech speech;
    RecordingTone tone;
    DeviceId device = 0;
    ControllerPorts ports{registry, preferences, notifications, clock, log, display};
    std::unique_ptr<Controller> controller;
};

} // namespace veltrano
