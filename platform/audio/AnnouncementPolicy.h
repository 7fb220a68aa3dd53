// SPDX-License-Identifier: GPL-3.0-or-later
// Decides when a change of the device list is shown to the program, and what is announced.
#pragma once

#include "platform/audio/DeviceSnapshot.h"
#include "platform/audio/PropertyChanges.h"

#include <optional>
#include <vector>

namespace veltrano {

/// Stands between the list that the server gives (the live one) and the list that the program sees
/// (the published one).
///
/// A lost server is as if every device had been unplugged. As long as silence is delivered to a
/// running device, a list that lost its last input is held back, so that the displays come to rest
/// first. After a connection the devices appear one by one: 'dev#' waits until the device that ran
/// last is back, or kSettleSeconds after the first one. Any other change is published at once.
/// Thread: one at a time. Time: seconds of a steady clock.
class AnnouncementPolicy {
public:
    static constexpr double kSettleSeconds = 0.3;

    /// The program started @p device: the one to wait for after a lost connection.
    void started(DeviceId device) { mLastStarted = device; }

    /// A complete list came from the server.
    void listed(DeviceSnapshot live, double now);
    /// The server is gone, or does not answer. The next list is that of a new connection.
    void lost();

    /// Publishes the first list without any announcement, for a program that has not asked yet.
    void adopt();

    /// What became due. Call after every change and at deadline().
    /// @param isSilenceDelivered to a started device that gives no sound
    /// @returns nullopt when the published list stays; else what to announce, perhaps nothing
    std::optional<std::vector<PropertyChange>> decide(double now, bool isSilenceDelivered);

    const DeviceSnapshot& live() const noexcept { return mLive; }
    const DeviceSnapshot& published() const noexcept { return mPublished; }

    /// When decide() has to be called although nothing happened.
    std::optional<double> deadline(double now) const;

private:
    bool isSettled(double now) const;
    bool isHeldBack(bool isSilenceDelivered) const;
    std::vector<PropertyChange> publish();

    DeviceSnapshot mLive;
    DeviceSnapshot mPublished;
    DeviceId mLastStarted = 0;
    bool mIsUndecided = false;            ///< something came in that is not published
    bool mIsSettling = true;              ///< since the connection was lost nothing was announced
    std::optional<double> mFirstDeviceAt; ///< [s] set while settling
};

} // namespace veltrano
