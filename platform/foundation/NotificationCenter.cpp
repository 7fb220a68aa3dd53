// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/NotificationCenter.h"

#include <utility>

namespace veltrano {

NotificationCenter::Observation&
NotificationCenter::Observation::operator=(Observation&& other) noexcept {
    if (this != &other) {
        reset();
        mHandler = std::move(other.mHandler);
    }
    return *this;
}

void NotificationCenter::Observation::reset() noexcept {
    // An emptied handler is what marks the observation as ended: the entry is swept later.
    if (const auto handler = mHandler.lock()) *handler = nullptr;
    mHandler.reset();
}

NotificationCenter::Observation NotificationCenter::observe(std::string_view name,
                                                            Handler handler) {
    Observation observation;
    mEntries.push_back({std::string(name), std::make_shared<Handler>(std::move(handler))});
    observation.mHandler = mEntries.back().handler;
    return observation;
}

void NotificationCenter::post(std::string_view name, const std::any& object) {
    ++mPostDepth;
    std::size_t remaining = mEntries.size(); // later additions do not hear this post
    for (auto entry = mEntries.begin(); remaining > 0; ++entry, --remaining) {
        if (entry->name != name || !*entry->handler) continue;
        const Handler handler = *entry->handler; // a copy: it may end its own observation
        handler(object);
    }
    if (--mPostDepth == 0) {
        mEntries.remove_if([](const Entry& entry) { return !*entry.handler; });
    }
}

} // namespace veltrano
