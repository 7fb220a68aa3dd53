// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseOutputs.h"

#include <string>
#include <utility>

namespace veltrano {

namespace {

constexpr double kRetrySeconds = 0.05;
/// The stream of a stopped device stays open for so long: the next tone may follow at once.
constexpr double kLingerSeconds = 0.2;

} // namespace

void PulseOutputs::start(const PulseOutputStream::Client& client, const DeviceRecord& device,
                         double now) {
    Output& output = mOutputs[client.device];
    if (!output.stream) output.stream = std::make_unique<PulseOutputStream>(mWake);
    if (output.stream->isAttached()) {
        output.stream->renew(now);
    } else {
        output.stream->attach(client, device, now);
    }
    mWake();
}

void PulseOutputs::stop(DeviceId device, double now) {
    const auto found = mOutputs.find(device);
    if (found == mOutputs.end()) return;
    found->second.stream->detach();
    found->second.detachedAt = now;
    mWake();
}

void PulseOutputs::tend(pa_context* context, const DeviceSnapshot& live, double now) {
    std::erase_if(mOutputs, [now](const auto& entry) {
        const Output& output = entry.second;
        if (output.stream->isAttached()) return false;
        return output.stream->hasFailed() || now >= output.detachedAt + kLingerSeconds;
    });
    for (auto& [device, output] : mOutputs) {
        if (!output.stream->isAttached()) continue;
        tendOutput(context, context ? live.find(device) : nullptr, output, now);
        output.stream->renderAway(now);
    }
}

void PulseOutputs::tendOutput(pa_context* context, const DeviceRecord* listed, Output& output,
                              double now) {
    PulseOutputStream& stream = *output.stream;
    if (!listed) {
        stream.close();
    } else if (stream.hasFailed()) {
        stream.close();
        fail(*listed, output, pa_context_errno(context), now);
    } else if (!stream.fits(*listed) && now >= output.retryAt) {
        const Status status = stream.open(context, *listed);
        if (status != 0) fail(*listed, output, status, now);
    }
}

void PulseOutputs::fail(const DeviceRecord& device, Output& output, Status status, double now) {
    output.retryAt = now + kRetrySeconds;
    if (std::exchange(output.isFailureLogged, true)) return;
    mLog.detail("No stream to " + device.serverName + ": " + std::to_string(status) + " (" +
                pa_strerror(status) + ")");
}

std::optional<double> PulseOutputs::deadline(double now) const {
    std::optional<double> next;
    const auto consider = [&next](std::optional<double> moment) {
        if (moment && (!next || *moment < *next)) next = moment;
    };
    for (const auto& [device, output] : mOutputs) {
        if (!output.stream->isAttached()) {
            consider(output.detachedAt + kLingerSeconds);
            continue;
        }
        consider(output.stream->deadline());
        if (output.retryAt > now) consider(output.retryAt);
    }
    return next;
}

} // namespace veltrano
