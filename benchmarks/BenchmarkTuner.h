// SPDX-License-Identifier: GPL-3.0-or-later
// A whole tuner without sound hardware, for measuring its update cycle.
#pragma once

#include "audio/AUUnitRegistry.h"
#include "benchmarks/Samples.h"
#include "engine/Controller.h"
#include "platform/audio/VirtualHardware.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/MainThread.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"

#include <array>
#include <cstddef>
#include <memory>

namespace veltrano {

class SilentLog final : public Log {
public:
    void line(std::string_view) override {}
    void detail(std::string_view) override {}
};

/// Thread: main, with a QCoreApplication.
class BenchmarkTuner {
public:
    explicit BenchmarkTuner(TunerDisplay& display)
        : mDefaults(UserDefaults::inMemory()), mPreferences({mDefaults, mNotifications}),
          mRegistry(
              mHardware, [this](auto function) { mMainThread.post(std::move(function)); }, mLog),
          mController({mRegistry, mPreferences, mNotifications, mClock, mLog, display}) {
        VirtualDevice microphone;
        microphone.name = "Microphone";
        microphone.input = VirtualDevice::side(44100, 1);
        mHardware.setDefaultDevice(Direction::input, mHardware.addDevice(microphone));
        mController.awakeFromNib();
    }

    /// One update cycle. Every frame reads differently, so that every text is written anew.
    void update() {
        mClock.set(mClock.now() + samples::kFrame / double(samples::kRateHz));
        mController.updateUI(mFrames[mNext]);
        mNext = (mNext + 1) % mFrames.size();
    }

private:
    struct Owned {
        std::vector<float> samples;
        Frame frame;
    };
    static FrameRef ownedFrame(double cents) {
        const auto owned = std::make_shared<Owned>();
        owned->samples = samples::frameOfKey(57, cents);
        owned->frame = Frame{owned->samples, samples::kFrame};
        return {owned, &owned->frame};
    }

    SilentLog mLog;
    ManualClock mClock;
    VirtualHardware mHardware;
    UserDefaults mDefaults;
    NotificationCenter mNotifications;
    MainThread mMainThread;
    Preferences mPreferences;
    AUUnitRegistry mRegistry;
    Controller mController;
    std::array<FrameRef, 4> mFrames{ownedFrame(-12), ownedFrame(9), ownedFrame(-3), ownedFrame(15)};
    std::size_t mNext = 0;
};

} // namespace veltrano
