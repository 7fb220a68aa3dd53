// SPDX-License-Identifier: GPL-3.0-or-later
// A machine with scripted audio devices for the tests of the audio units.
#pragma once

#include "audio/AUInputUnit.h"
#include "audio/AUUnitRegistry.h"
#include "platform/audio/CallText.h"
#include "platform/audio/VirtualHardware.h"
#include "tests/support/RecordingControls.h"
#include "tests/support/RecordingLog.h"

#include <deque>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>

namespace veltrano {

using Lines = std::vector<std::string>;
constexpr Direction kIn = Direction::input;
constexpr Direction kOut = Direction::output;
constexpr const char* kNoDefaultLine = "Default input device not found in the device list.";

/// Stands in for the main thread's queue: what is posted runs when the test says so.
class PostQueue {
public:
    void post(std::function<void()> function) { // any thread
        const std::scoped_lock lock(mMutex);
        mWaiting.push_back(std::move(function));
    }
    /// Runs everything, also what is posted meanwhile. @returns how many
    int runAll() {
        int ran = 0;
        for (; const auto function = takeFirst(); ++ran)
            function();
        return ran;
    }

private:
    std::function<void()> takeFirst() {
        const std::scoped_lock lock(mMutex);
        if (mWaiting.empty()) return nullptr;
        auto first = std::move(mWaiting.front());
        mWaiting.pop_front();
        return first;
    }

    std::mutex mMutex;
    std::deque<std::function<void()>> mWaiting; ///< guarded by mMutex
};

/// An input device of manufacturer "M" without data sources and with a fixed volume.
inline VirtualDevice microphone(const std::string& name, double rateHz = 44100,
                                std::uint32_t channels = 1) {
    VirtualDevice device;
    device.manufacturer = "M";
    device.name = name;
    device.input = VirtualDevice::side(rateHz, channels);
    return device;
}

/// An input device of manufacturer "M" with the selectable sources 1, 2, ... of these names.
inline VirtualDevice withSources(const std::string& name, const Lines& sources,
                                 DataSourceId current = 1) {
    VirtualDevice device = microphone(name);
    for (const auto& source : sources) {
        device.input->sources.push_back({DataSourceId(device.input->sources.size() + 1), source});
    }
    device.input->source = current;
    return device;
}

/// An output device of manufacturer "M".
inline VirtualDevice speaker(const std::string& name) {
    VirtualDevice device;
    device.manufacturer = "M";
    device.name = name;
    device.output = VirtualDevice::side(48000, 2);
    return device;
}

/// Hardware, log, main thread; the registry is made when it is first asked for, so that the test
/// can put devices there before the program starts.
class AudioUnitTestBase : public testing::Test {
protected:
    explicit AudioUnitTestBase(NotifyOn where = NotifyOn::callingThread) : hardware(where) {
        hardware.keepCalls(true);
    }

    AUUnitRegistry& registry() {
        if (mRegistry == nullptr) {
            mRegistry = std::make_unique<AUUnitRegistry>(
                hardware, [this](auto function) { mainThread.post(std::move(function)); }, log);
        }
        return *mRegistry;
    }
    void endRegistry() { mRegistry.reset(); }

    /// The hardware calls so far, and forgets them.
    Lines takeCalls() {
        const Lines calls = hardware.calls();
        hardware.clearCalls();
        return calls;
    }
    /// Those calls that change something at a device.
    Lines takeActions() {
        Lines actions;
        for (const auto& call : takeCalls()) {
            for (const char* word : {"start ", "stop ", "addIOProc ", "removeIOProc ",
                                     "setDataSource ", "setVolume "}) {
                if (call.starts_with(word)) actions.push_back(call);
            }
        }
        return actions;
    }
    static std::string text(DeviceId device) { return std::to_string(device); }
    static Lines stopCalls(DeviceId device) {
        return {"stop " + text(device), "removeIOProc " + text(device)};
    }
    static Lines startCalls(DeviceId device) {
        return {"addIOProc " + text(device), "start " + text(device)};
    }
    static Lines joined(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }

    VirtualHardware hardware;
    RecordingLog log;
    PostQueue mainThread;

private:
    std::unique_ptr<AUUnitRegistry> mRegistry;
};

/// The base of the tests of AUInputUnit: a unit with an I/O procedure and a listener procedure.
class AUInputUnitTestBase : public AudioUnitTestBase {
protected:
    AUInputUnit& unit() {
        if (mUnit == nullptr) {
            mUnit = std::make_unique<AUInputUnit>(registry());
            mUnit->setIOProc(countBlock, &blocks);
            mUnit->setListenerProc(noteProperty, &heard);
            hardware.clearCalls();
        }
        return *mUnit;
    }
    void endUnit() { mUnit.reset(); }
    /// The owner's listener was told since the last call: "1073741824 0 input sfmt".
    Lines takeHeard() { return std::exchange(heard, {}); }
    bool delivers(DeviceId device) {
        const int before = blocks;
        hardware.deliver(device, {}, 1);
        return blocks == before + 1;
    }

    int blocks = 0;
    Lines heard;

private:
    static Status countBlock(DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                             const AudioTimeStamp*, AudioBufferList*, const AudioTimeStamp*,
                             void* refCon) noexcept {
        ++*static_cast<int*>(refCon);
        return 0;
    }
    static Status noteProperty(DeviceId device, std::uint32_t channel, bool isInput,
                               PropertyCode property, void* refCon) noexcept {
        using call_text::word;
        static_cast<Lines*>(refCon)->push_back(word(device) + " " + word(channel) +
                                               (isInput ? " input " : " output ") + word(property));
        return 0;
    }

    std::unique_ptr<AUInputUnit> mUnit;
};

} // namespace veltrano
