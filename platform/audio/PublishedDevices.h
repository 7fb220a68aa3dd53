// SPDX-License-Identifier: GPL-3.0-or-later
// The device list that the program sees.
#pragma once

#include "platform/audio/DeviceSnapshot.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <utility>

namespace veltrano {

/// Hands the list from the thread that talks to the server to the program.
/// Thread: any. The lock is held for the exchange of a pointer only.
class PublishedDevices {
public:
    /// Never null, and not changed once it is given out.
    std::shared_ptr<const DeviceSnapshot> get() const {
        const std::scoped_lock lock(mMutex);
        return mDevices;
    }
    void set(DeviceSnapshot devices) {
        auto next = std::make_shared<const DeviceSnapshot>(std::move(devices));
        const std::scoped_lock lock(mMutex);
        mDevices = std::move(next);
    }

    /// The first list is set, or there is none to wait for.
    void setBegun() {
        {
            const std::scoped_lock lock(mMutex);
            mHasBegun = true;
        }
        mBegun.notify_all();
    }
    /// @returns whether setBegun() was called within the time
    bool awaitBegun(double seconds) {
        std::unique_lock lock(mMutex);
        return mBegun.wait_for(lock, std::chrono::duration<double>(seconds),
                               [this] { return mHasBegun; });
    }

private:
    mutable std::mutex mMutex;
    std::condition_variable mBegun;
    std::shared_ptr<const DeviceSnapshot> mDevices = std::make_shared<const DeviceSnapshot>();
    bool mHasBegun = false; ///< guarded by mMutex
};

} // namespace veltrano
