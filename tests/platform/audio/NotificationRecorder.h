// SPDX-License-Identifier: GPL-3.0-or-later
// Property listeners that keep what they hear as lines of text.
#pragma once

#include "platform/audio/CallText.h"

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace veltrano {

/// Thread: any. Pass it as the client data of onHardware and onDevice.
class NotificationRecorder {
public:
    explicit NotificationRecorder(std::string name = {}) : mName(std::move(name)) {}

    /// Such as "dev#", or "1073741824 all input volm"; with the recorder's name in front.
    std::vector<std::string> lines() const {
        const std::scoped_lock lock(mMutex);
        return mLines;
    }
    void clear() {
        const std::scoped_lock lock(mMutex);
        mLines.clear();
    }
    /// The thread that called last.
    std::thread::id thread() const {
        const std::scoped_lock lock(mMutex);
        return mThread;
    }
    /// Run inside every call.
    std::function<void()> inside;

    static Status onHardware(PropertyCode property, void* client) noexcept {
        static_cast<NotificationRecorder*>(client)->add(call_text::word(property));
        return 0;
    }
    static Status onDevice(DeviceId device, std::uint32_t channel, bool isInput,
                           PropertyCode property, void* client) noexcept {
        using call_text::word;
        static_cast<NotificationRecorder*>(client)->add(word(device) + " " + word(channel) +
                                                        (isInput ? " input " : " output ") +
                                                        word(property));
        return 0;
    }

private:
    void add(const std::string& line) {
        {
            const std::scoped_lock lock(mMutex);
            mLines.push_back(mName.empty() ? line : mName + ": " + line);
            mThread = std::this_thread::get_id();
        }
        if (inside) inside();
    }

    const std::string mName;
    mutable std::mutex mMutex;
    std::vector<std::string> mLines;
    std::thread::id mThread;
};

} // namespace veltrano
