// SPDX-License-Identifier: GPL-3.0-or-later
// A program that listens through PulseHardware, as small as a test needs it.
#pragma once

#include "platform/audio/PulseHardware.h"
#include "tests/support/HeardBlocks.h"
#include "tests/support/SoundServer.h"

#include <QCoreApplication>
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace veltrano {

/// A log that several threads write. Thread: any.
class SharedLog final : public Log {
public:
    void line(std::string_view text) override { detail(text); }
    void detail(std::string_view text) override {
        const std::scoped_lock lock(mMutex);
        mLines.emplace_back(text);
    }
    int count(std::string_view text) const {
        const std::scoped_lock lock(mMutex);
        int found = 0;
        for (const std::string& line : mLines)
            found += line.find(text) != std::string::npos;
        return found;
    }

private:
    mutable std::mutex mMutex;
    std::vector<std::string> mLines; ///< guarded by mMutex
};

/// Follows the device of a wanted name, as the tuner does: at every 'dev#' it stops, looks for the
/// name and starts again; without the name, or without any device, it stays stopped.
/// Thread: main.
class PulseBench {
public:
    explicit PulseBench(const std::string& server, double firstListSeconds = 0.25)
        : mHardware(mLog, {server, "Test", firstListSeconds}) {
        mHardware.addHardwareListener(PropertyCode::devices, &PulseBench::onDevices, this);
    }
    ~PulseBench() {
        stop();
        mHardware.removeHardwareListener(PropertyCode::devices, &PulseBench::onDevices, this);
    }

    PulseHardware& hardware() { return mHardware; }
    HeardBlocks& heard() { return mHeard; }
    const SharedLog& log() const { return mLog; }

    DeviceId find(const std::string& name, Direction direction = Direction::input) const {
        for (const DeviceId device : mHardware.devices()) {
            if (mHardware.deviceName(device, direction) == name) return device;
        }
        return 0;
    }

    /// @returns whether there is such a device
    bool listenTo(const std::string& name) {
        stop();
        mWanted = name;
        mDevice = find(name);
        if (mDevice == 0) return false;
        mHeard.clear();
        mHardware.addIOProc(mDevice, &HeardBlocks::ioProc, &mHeard);
        return mHardware.start(mDevice, &HeardBlocks::ioProc) == audio_status::kOk;
    }
    void stop() {
        if (mDevice == 0) return;
        mHardware.stop(mDevice, &HeardBlocks::ioProc);
        mHardware.removeIOProc(mDevice, &HeardBlocks::ioProc);
        mDevice = 0;
    }
    DeviceId device() const { return mDevice; }

    /// Does not follow the device any more: what comes then comes from the layer alone.
    void setFollows(bool follows) { mFollows = follows; }

    /// Announcements of the device list so far.
    int announcements() const { return mAnnouncements; }
    /// [s] when the last one came
    double announcedAt() const { return mAnnouncedAt; }

    /// A turn of the event loop.
    void turn() {
        QCoreApplication::processEvents();
        const int announced = mAnnouncements;
        if (announced != mFollowed && mFollows) {
            mFollowed = announced;
            follow();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    bool waitFor(const std::function<bool()>& condition, double seconds = 5) {
        const double end = HeardBlocks::now() + seconds;
        while (!condition() && HeardBlocks::now() < end)
            turn();
        return condition();
    }
    void pass(double seconds) {
        waitFor([] { return false; }, seconds);
    }
    /// Waits for sound that began after the moment. @returns when it began, or 0
    double awaitSoundSince(double moment, double seconds = 5) {
        waitFor([&] { return mHeard.resumedAt > moment; }, seconds);
        return mHeard.resumedAt > moment ? mHeard.resumedAt.load() : 0;
    }

private:
    static Status onDevices(PropertyCode, void* bench) noexcept {
        auto* self = static_cast<PulseBench*>(bench);
        self->mAnnouncedAt = HeardBlocks::now();
        ++self->mAnnouncements;
        return 0;
    }

    void follow() {
        if (mWanted.empty()) return;
        stop();
        mDevice = find(mWanted);
        if (mDevice == 0) return;
        mHardware.addIOProc(mDevice, &HeardBlocks::ioProc, &mHeard);
        mHardware.start(mDevice, &HeardBlocks::ioProc);
    }

    SharedLog mLog;
    HeardBlocks mHeard;
    std::string mWanted;
    DeviceId mDevice = 0; ///< started, or 0
    bool mFollows = true;
    int mFollowed = 0;
    std::atomic<int> mAnnouncements{0};  ///< written on the notification thread
    std::atomic<double> mAnnouncedAt{0}; ///< as mAnnouncements
    PulseHardware mHardware;             ///< last: its threads use what stands above
};

} // namespace veltrano
