// SPDX-License-Identifier: GPL-3.0-or-later
// The connection to the sound server, made again whenever it is lost.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <optional>
#include <pulse/pulseaudio.h>
#include <string>

namespace veltrano {

/// One client connection. It never starts a server and never waits for one.
/// Thread: that of the loop, or with its lock held.
class PulseConnection {
public:
    static constexpr double kRetrySeconds =
        0.05;                                  ///< an attempt without a server costs 0.1 to 0.4 ms
    static constexpr int kEagerAttempts = 200; ///< for ten seconds after a loss
    static constexpr double kPatientRetrySeconds = 0.1; ///< from then on

    /// Called on the loop's thread. The connection may be used in them, but not destroyed.
    class Events {
    public:
        virtual void onConnected() = 0;
        /// @param wasConnected false: an attempt failed @param status libpulse's error code
        virtual void onConnectionLost(bool wasConnected, Status status) = 0;
        /// A device, its properties or a default changed.
        virtual void onServerChanged() = 0;

    protected:
        ~Events() = default;
    };

    /// @param server as in PULSE_SERVER; empty: the user's own
    PulseConnection(pa_mainloop_api* api, std::string server, std::string application,
                    Events& events);
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    /// Connects when it is time to. Call at deadline().
    void tend(double now);
    std::optional<double> deadline() const;

    /// nullptr while there is no connection.
    pa_context* context() const noexcept { return mIsReady ? mContext : nullptr; }

private:
    static void onState(pa_context* context, void* connection);
    static void onEvent(pa_context*, pa_subscription_event_type_t, std::uint32_t, void* connection);

    void connect();
    void becomeReady();
    void fail(Status status);
    void drop();

    pa_mainloop_api* const mApi;
    const std::string mServer;
    const std::string mApplication;
    Events& mEvents;
    pa_context* mContext = nullptr; ///< null before the first attempt and between two
    bool mIsReady = false;
    bool mHasFailed = false;            ///< mContext is dead and waits to be dropped
    int mAttempts = 0;                  ///< since the last connection
    std::optional<double> mRetryAt = 0; ///< [s] nullopt: connected, or being connected
};

} // namespace veltrano
