// SPDX-License-Identifier: GPL-3.0-or-later
// What all audio units share: the known devices, their listeners, the way to the main thread.
#pragma once

#include "platform/audio/AudioHardware.h"
#include "platform/foundation/Log.h"

#include <functional>
#include <memory>
#include <vector>

namespace veltrano {

class AUUnit;

/// Installs one listener for the device list and five on each side of each device, and tells every
/// unit, in the order of their making, what they report.
///
/// Thread: main. The listener procedures alone run on the hardware's notification thread; they do
/// nothing but hand over. Hand-overs that still wait when this object goes are dropped.
/// Owns: nothing but its listeners, which it removes at its end. The hardware and the log must
/// outlive it; it must outlive every unit.
class AUUnitRegistry {
public:
    /// Runs a function on the main thread later, without making the caller wait, also while a menu
    /// tracks or a modal dialog runs. Called from any thread but an audio callback.
    using PostToMainThread = std::function<void(std::function<void()>)>;

    struct DeviceNotification {
        DeviceId deviceID = 0;
        std::uint32_t channel = 0;
        bool isInput = false;
        PropertyCode propertyID{};
    };

    /// Listens for 'dev#', then reads the devices and installs their listeners.
    AUUnitRegistry(AudioHardware& hardware, PostToMainThread post, Log& log);
    ~AUUnitRegistry();
    AUUnitRegistry(const AUUnitRegistry&) = delete;
    AUUnitRegistry& operator=(const AUUnitRegistry&) = delete;

    AudioHardware& hardware() { return mHardware; }
    Log& log() { return mLog; }
    /// Any thread. Performs @p function on the main thread unless this object is gone by then.
    void performOnMainThread(std::function<void()> function);

    /// Removes the listeners of the devices known so far, reads the device IDs again and installs
    /// listeners on each. What the single calls answer is not looked at: a device may be gone.
    void rebuildDeviceList();
    const std::vector<DeviceId>& deviceIDs() const { return mDeviceIDs; }

    void addListenerTarget(AUUnit& target);
    /// Only for a unit that ends.
    void removeListenerTarget(AUUnit& target);

    /// The five properties of one side of one device.
    void addListeners(DeviceId device, bool isInput);
    void removeListeners(DeviceId device, bool isInput);

    /// Any thread: hand the event over to the main thread. The answer is 0.
    Status audioHardwareListenerProc(PropertyCode property);
    Status audioDevicePropertyListenerDispatchWithObject(const DeviceNotification& notification);

    /// Main thread. For 'dev#' the device list is rebuilt before any unit hears of it.
    void audioHardwareListenerWithObject(PropertyCode property);
    void audioDevicePropertyListenerWithObject(const DeviceNotification& notification);

private:
    template <class Tell>
    void tellTargets(Tell tell);

    AudioHardware& mHardware;
    const PostToMainThread mPost;
    Log& mLog;
    std::vector<DeviceId> mDeviceIDs; ///< as last read
    std::vector<AUUnit*> mTargets;    ///< null: ended while the targets are being told
    int mTellingDepth = 0;
    /// What hand-overs hold weakly: it goes with this object, on the main thread.
    const std::shared_ptr<void> mAlive;
};

} // namespace veltrano
