// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/AnnouncementPolicy.h"

#include <utility>

namespace veltrano {

void AnnouncementPolicy::listed(DeviceSnapshot live, double now) {
    mLive = std::move(live);
    mIsUndecided = true;
    if (mLive.devices.empty()) {
        mFirstDeviceAt.reset();
    } else if (mIsSettling && !mFirstDeviceAt) {
        mFirstDeviceAt = now;
    }
}

void AnnouncementPolicy::lost() {
    mLive = {};
    mFirstDeviceAt.reset();
    mIsSettling = true;
    mIsUndecided = true;
}

void AnnouncementPolicy::adopt() {
    mPublished = mLive;
    mIsUndecided = false;
    mIsSettling = mLive.devices.empty();
}

std::optional<std::vector<PropertyChange>> AnnouncementPolicy::decide(double now,
                                                                      bool isSilenceDelivered) {
    if (!mIsUndecided || isHeldBack(isSilenceDelivered)) return std::nullopt;
    if (!mIsSettling) return publish();
    if (isSettled(now)) {
        mIsSettling = false;
        std::vector<PropertyChange> changes = publish();
        // Announced even when all devices came back as they were: their streams did not.
        if (changes.empty() || changes.front() != PropertyChange{}) {
            changes.insert(changes.begin(), PropertyChange{});
        }
        return changes;
    }
    if (mLive.devices.empty() && !mPublished.devices.empty()) return publish();
    return std::nullopt;
}

bool AnnouncementPolicy::isSettled(double now) const {
    if (mLive.find(mLastStarted)) return true;
    return mFirstDeviceAt && now >= *mFirstDeviceAt + kSettleSeconds;
}

bool AnnouncementPolicy::isHeldBack(bool isSilenceDelivered) const {
    return isSilenceDelivered && mPublished.hasInput() && !mLive.hasInput();
}

std::vector<PropertyChange> AnnouncementPolicy::publish() {
    std::vector<PropertyChange> changes = propertyChanges(mPublished, mLive);
    mPublished = mLive;
    mIsUndecided = false;
    return changes;
}

std::optional<double> AnnouncementPolicy::deadline(double now) const {
    if (!mIsUndecided || !mIsSettling || !mFirstDeviceAt) return std::nullopt;
    const double due = *mFirstDeviceAt + kSettleSeconds;
    // Once past it, only the end of the silence can be waited for.
    return due > now ? std::optional(due) : std::nullopt;
}

} // namespace veltrano
