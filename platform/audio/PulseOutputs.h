// SPDX-License-Identifier: GPL-3.0-or-later
// The streams of the started output devices.
#pragma once

#include "platform/audio/PulseOutputStream.h"
#include "platform/foundation/Log.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace veltrano {

/// Opens a stream for each started device, again when it was lost and the device is back, and lets
/// go of it a while after the device was stopped. Thread: as PulseOutputStream.
class PulseOutputs {
public:
    /// @param wake asks for tend() to be called soon
    PulseOutputs(Log& log, std::function<void()> wake) : mLog(log), mWake(std::move(wake)) {}

    void start(const PulseOutputStream::Client& client, const DeviceRecord& device, double now);
    /// When it has returned, the procedure is not running and is not called again.
    void stop(DeviceId device, double now);

    /// @param context null: not connected
    void tend(pa_context* context, const DeviceSnapshot& live, double now);
    /// When tend() is due next; nullopt: only after wake().
    std::optional<double> deadline(double now) const;

private:
    struct Output {
        std::unique_ptr<PulseOutputStream> stream;
        double retryAt = 0;    ///< [s] when a failed stream may be opened again
        double detachedAt = 0; ///< [s] when the device was stopped
        bool isFailureLogged = false;
    };

    void tendOutput(pa_context* context, const DeviceRecord* listed, Output& output, double now);
    void fail(const DeviceRecord& device, Output& output, Status status, double now);

    Log& mLog;
    const std::function<void()> mWake;
    std::map<DeviceId, Output> mOutputs; ///< the started devices, and those just stopped
};

} // namespace veltrano
