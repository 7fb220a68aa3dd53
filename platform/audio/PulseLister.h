// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the sound server for all of its devices.
#pragma once

#include "platform/audio/PulseOperation.h"
#include "platform/audio/ServerListing.h"

#include <functional>
#include <pulse/pulseaudio.h>

namespace veltrano {

/// Reads the server's information, its sources and its sinks, one after the other.
/// Thread: that of the loop, or with its lock held.
class PulseLister {
public:
    /// @param done called on the loop's thread with every complete listing
    explicit PulseLister(std::function<void(const ServerListing&)> done);

    /// While a listing is under way, another follows it: what changed may have been read already.
    void ask(pa_context* context);
    /// The connection is gone: nothing more comes of what was asked.
    void cancel();

private:
    static void onServer(pa_context*, const pa_server_info* info, void* lister);
    static void onSource(pa_context*, const pa_source_info* info, int end, void* lister);
    static void onSink(pa_context*, const pa_sink_info* info, int end, void* lister);

    void begin();
    void giveUp();
    void finish();
    /// Keeps @p next as the request under way; without one the listing is given up.
    void follow(pa_operation* next);

    const std::function<void(const ServerListing&)> mDone;
    pa_context* mContext = nullptr; ///< not owned
    PulseOperation mUnderWay;       ///< null: nothing was asked
    bool mIsOutdated = false;       ///< asked again while under way
    ServerListing mListing;
};

} // namespace veltrano
