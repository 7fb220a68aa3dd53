// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PropertyNotifier.h"

#include <algorithm>
#include <utility>

namespace veltrano {

PropertyNotifier::PropertyNotifier(NotifyOn where) {
    if (where == NotifyOn::notificationThread) mThread = std::thread([this] { run(); });
}

PropertyNotifier::~PropertyNotifier() {
    if (!mThread.joinable()) return;
    {
        const std::scoped_lock lock(mQueueMutex);
        mIsEnding = true;
    }
    mQueueChanged.notify_all();
    mThread.join();
}

void PropertyNotifier::add(const HardwareListener& listener) {
    const std::scoped_lock lock(mListenerMutex);
    mHardwareListeners.push_back({++mLastNumber, listener});
}

void PropertyNotifier::add(const DeviceListener& listener) {
    const std::scoped_lock lock(mListenerMutex);
    mDeviceListeners.push_back({++mLastNumber, listener});
}

template <class L, class Matches>
bool PropertyNotifier::removeFirst(List<L>& list, Matches matches) {
    const std::scoped_lock lock(mListenerMutex);
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const auto& entry) { return matches(entry.listener); });
    if (found == list.end()) return false;
    list.erase(found);
    return true;
}

bool PropertyNotifier::remove(const HardwareListener& gone) {
    return removeFirst(mHardwareListeners, [&](const HardwareListener& listener) {
        return listener.property == gone.property && listener.proc == gone.proc &&
               listener.client == gone.client;
    });
}

bool PropertyNotifier::remove(const DeviceListener& gone) {
    return removeFirst(mDeviceListeners, [&](const DeviceListener& listener) {
        return listener.device == gone.device && listener.channel == gone.channel &&
               listener.direction == gone.direction && listener.property == gone.property &&
               listener.proc == gone.proc;
    });
}

template <class L, class Matches, class Call>
void PropertyNotifier::callMatching(const List<L>& list, Matches matches, Call call) {
    const std::scoped_lock lock(mListenerMutex);
    // A listener may add and remove listeners: walk over a copy, skip those that are gone by then.
    const List<L> now(list.begin(), list.end());
    for (const auto& entry : now) {
        if (!matches(entry.listener)) continue;
        const bool isStillThere = std::any_of(list.begin(), list.end(), [&](const auto& other) {
            return other.number == entry.number;
        });
        if (isStillThere) call(entry.listener);
    }
}

void PropertyNotifier::notifyHardware(PropertyCode property) {
    perform([this, property] {
        callMatching(
            mHardwareListeners,
            [&](const HardwareListener& listener) { return listener.property == property; },
            [&](const HardwareListener& listener) { listener.proc(property, listener.client); });
    });
}

void PropertyNotifier::notifyDevice(DeviceId device, std::uint32_t channel, Direction direction,
                                    PropertyCode property) {
    perform([=, this] {
        callMatching(
            mDeviceListeners,
            [&](const DeviceListener& listener) {
                return listener.device == device && listener.direction == direction &&
                       listener.property == property &&
                       (listener.channel == kWildcardChannel || listener.channel == channel);
            },
            [&](const DeviceListener& listener) {
                listener.proc(device, channel, direction == Direction::input, property,
                              listener.client);
            });
    });
}

void PropertyNotifier::perform(std::function<void()> delivery) {
    if (!mThread.joinable()) {
        delivery();
        return;
    }
    {
        const std::scoped_lock lock(mQueueMutex);
        mQueue.push_back(std::move(delivery));
    }
    mQueueChanged.notify_all();
}

void PropertyNotifier::run() {
    std::unique_lock lock(mQueueMutex);
    for (;;) {
        mQueueChanged.wait(lock, [this] { return mIsEnding || !mQueue.empty(); });
        if (mIsEnding) return;
        const std::function<void()> delivery = std::move(mQueue.front());
        mQueue.pop_front();
        mIsDelivering = true;
        lock.unlock();
        delivery();
        lock.lock();
        mIsDelivering = false;
        mQueueChanged.notify_all();
    }
}

void PropertyNotifier::drain() {
    std::unique_lock lock(mQueueMutex);
    mQueueChanged.wait(lock, [this] { return mQueue.empty() && !mIsDelivering; });
}

std::size_t PropertyNotifier::listenerCount() const {
    const std::scoped_lock lock(mListenerMutex);
    return mHardwareListeners.size() + mDeviceListeners.size();
}

} // namespace veltrano
