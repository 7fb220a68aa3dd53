// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the property listeners of a made-up audio hardware and calls them.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace veltrano {

/// Where listeners are called.
enum class NotifyOn {
    callingThread,     ///< at once, by whoever caused the change
    notificationThread ///< later, on a thread of the notifier's own, in the order of the changes
};

/// Listeners by property, and the thread on which they hear of changes.
///
/// Thread: any. When a remove operation has returned, the listener is not running (unless it is
/// itself the caller) and no further call of it begins; so a listener must not wait for a thread
/// that removes listeners.
class PropertyNotifier {
public:
    struct HardwareListener {
        PropertyCode property;
        AudioHardwareListenerProc proc;
        void* client;
    };
    struct DeviceListener {
        DeviceId device;
        std::uint32_t channel; ///< kWildcardChannel hears every channel
        Direction direction;
        PropertyCode property;
        AudioDeviceListenerProc proc;
        void* client;
    };

    explicit PropertyNotifier(NotifyOn where);
    ~PropertyNotifier();
    PropertyNotifier(const PropertyNotifier&) = delete;
    PropertyNotifier& operator=(const PropertyNotifier&) = delete;

    void add(const HardwareListener& listener);
    void add(const DeviceListener& listener);
    /// False when there is no such listener. The client of a device listener is not compared.
    bool remove(const HardwareListener& listener);
    bool remove(const DeviceListener& listener);

    void notifyHardware(PropertyCode property);
    void notifyDevice(DeviceId device, std::uint32_t channel, Direction direction,
                      PropertyCode property);
    /// Waits until everything that was announced has been delivered. Not from a listener.
    void drain();
    /// Listeners of both kinds that are installed now.
    std::size_t listenerCount() const;

private:
    template <class L>
    struct Registered {
        std::uint64_t number; ///< tells a listener from its successor with the same fields
        L listener;
    };
    template <class L>
    using List = std::vector<Registered<L>>;

    template <class L, class Matches>
    bool removeFirst(List<L>& list, Matches matches);
    template <class L, class Matches, class Call>
    void callMatching(const List<L>& list, Matches matches, Call call);
    void perform(std::function<void()> delivery);
    void run();

    /// Held during every call of a listener, by the same thread again when it adds or removes.
    mutable std::recursive_mutex mListenerMutex;
    List<HardwareListener> mHardwareListeners; ///< guarded by mListenerMutex
    List<DeviceListener> mDeviceListeners;     ///< guarded by mListenerMutex
    std::uint64_t mLastNumber = 0;             ///< guarded by mListenerMutex

    std::mutex mQueueMutex;
    std::condition_variable mQueueChanged;
    std::deque<std::function<void()>> mQueue; ///< guarded by mQueueMutex
    bool mIsDelivering = false;               ///< guarded by mQueueMutex
    bool mIsEnding = false;                   ///< guarded by mQueueMutex
    std::thread mThread;                      ///< only with NotifyOn::notificationThread
};

} // namespace veltrano
