// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that goes on between the program and the sound server.
#pragma once

#include "platform/audio/AnnouncementPolicy.h"
#include "platform/audio/PulseConnection.h"
#include "platform/audio/PulseInputStream.h"
#include "platform/audio/PulseLister.h"
#include "platform/audio/PulseOutputs.h"
#include "platform/audio/PulseTimer.h"
#include "platform/audio/ServerDeviceTable.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/SteadyClock.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace veltrano {

/// Keeps the connection, the device list and the streams of the started devices in order.
///
/// Thread: that of the loop; the operations below are called with its lock held, never wait, and
/// leave the work to the loop's thread.
class PulseSession final : private PulseConnection::Events {
public:
    struct Reports {
        /// The list that the program is to see from now on, and what to announce of it.
        std::function<void(const DeviceSnapshot&, const std::vector<PropertyChange>&)> published;
        /// The first attempt to reach a server has ended, one way or the other.
        std::function<void()> begun;
    };

    PulseSession(pa_mainloop_api* api, Log& log, std::string server, std::string application,
                 Reports reports);

    /// The device need not be connected at the moment; sound comes when it is.
    void startInput(const PulseInputStream::Client& client, const DeviceRecord& device);
    /// When it has returned, the procedure is not running and is not called again.
    void stopInput(DeviceId device);

    /// The same for an output device, whose procedure is asked for sound.
    void startOutput(const PulseOutputStream::Client& client, const DeviceRecord& device);
    void stopOutput(DeviceId device);

    /// @param scalars one per channel, in [0, 1] @returns 0 or libpulse's error code
    Status setVolumes(const DeviceRecord& device, const std::vector<float>& scalars);
    Status setPort(const DeviceRecord& device, DataSourceId port);
    /// Nobody waits for the first list any more.
    void endBeginning() { mIsBeginning = false; }

private:
    struct Input {
        std::unique_ptr<PulseInputStream> stream;
        double retryAt = 0;    ///< [s] when a failed stream may be opened again
        double detachedAt = 0; ///< [s] when the device was stopped
        bool isFailureLogged = false;
    };

    void onConnected() override;
    void onConnectionLost(bool wasConnected, Status status) override;
    void onServerChanged() override;
    void onListed(const ServerListing& listing);

    void tend();
    void closeStopped(double now);
    bool isAnyStarted(const std::function<bool(const StreamWatch&)>& isSo) const;
    void tendInput(DeviceId device, Input& input, double now);
    void openInput(const DeviceRecord& device, Input& input, double now);
    void failInput(const DeviceRecord& device, Input& input, Status status, double now);
    void watchForHang(double now);
    void announce(double now);
    void begin();
    void armTimer(double now);

    void sendProbe(double now);
    static void onProbeAnswered(pa_context*, const pa_server_info*, void* session);
    Status follow(pa_operation* sent);
    static void onDone(pa_context* context, int isDone, void* session);

    Log& mLog;
    const Reports mReports;
    SteadyClock mClock;
    PulseTimer mTimer;
    ServerDeviceTable mTable;
    AnnouncementPolicy mPolicy;
    PulseConnection mConnection;
    PulseLister mLister;
    std::map<DeviceId, Input> mInputs; ///< the started devices, and those just stopped
    PulseOutputs mOutputs{mLog, [this] { mTimer.armNow(); }};
    PulseOperation mProbe;    ///< asks a server that gives no sound whether it is alive
    double mProbedAt = 0;     ///< [s]
    bool mIsHung = false;     ///< it did not answer; its devices count as unplugged
    bool mIsBeginning = true; ///< somebody waits for the first list
};

} // namespace veltrano
