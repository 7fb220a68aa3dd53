// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseSession.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

constexpr double kStreamRetrySeconds = 0.05; ///< after a failed stream of a listed device
/// A server that answers, but gives no sound, is asked for a new stream this often. Longer than the
/// two seconds that a null sink may take to give its first sound.
constexpr double kReopenSeconds = 3.0;
/// The stream of a stopped device stays open for so long. A program that is told of devices stops
/// and starts the one it uses, and a server may stumble over a stream that ends while it begins.
constexpr double kLingerSeconds = 0.2;
constexpr double kAnswerSeconds = 1.0; ///< a server that takes longer is not there

std::string withStatus(std::string text, Status status) {
    return std::move(text) + ": " + std::to_string(status) + " (" + pa_strerror(status) + ")";
}

} // namespace

PulseSession::PulseSession(pa_mainloop_api* api, Log& log, std::string server,
                           std::string application, Reports reports)
    : mLog(log), mReports(std::move(reports)), mTimer(api, [this] { tend(); }),
      mConnection(api, std::move(server), std::move(application), *this),
      mLister([this](const ServerListing& listing) { onListed(listing); }) {
    mTimer.armNow();
}

// --- what the server says ---

void PulseSession::onConnected() {
    mLog.detail("Connected to the sound server.");
    mLister.ask(mConnection.context());
    mTimer.armNow();
}

void PulseSession::onConnectionLost(bool wasConnected, Status status) {
    if (wasConnected) mLog.detail(withStatus("Connection to the sound server lost", status));
    if (mIsBeginning) mLog.detail(withStatus("No sound server", status));
    mLister.cancel();
    mProbe.reset();
    mIsHung = false;
    mPolicy.lost();
    begin();
    mTimer.armNow();
}

void PulseSession::onServerChanged() { mLister.ask(mConnection.context()); }

void PulseSession::onListed(const ServerListing& listing) {
    mPolicy.listed(mTable.snapshot(listing), mClock.now());
    if (mIsBeginning) {
        mPolicy.adopt();
        mReports.published(mPolicy.published(), {});
        begin();
    }
    mTimer.armNow();
}

void PulseSession::begin() {
    mIsBeginning = false;
    mReports.begun();
}

// --- the regular work ---

void PulseSession::tend() {
    const double now = mClock.now();
    mConnection.tend(now);
    closeStopped(now);
    for (auto& [device, input] : mInputs) {
        if (input.stream->isAttached()) tendInput(device, input, now);
    }
    mOutputs.tend(mConnection.context(), mPolicy.live(), now);
    watchForHang(now);
    announce(now);
    armTimer(now);
}

void PulseSession::closeStopped(double now) {
    std::erase_if(mInputs, [&](const auto& entry) {
        const Input& input = entry.second;
        if (input.stream->isAttached()) return false;
        return input.stream->hasFailed() || now >= input.detachedAt + kLingerSeconds;
    });
}

void PulseSession::tendInput(DeviceId device, Input& input, double now) {
    PulseInputStream& stream = *input.stream;
    const DeviceRecord* const listed =
        mConnection.context() ? mPolicy.live().find(device) : nullptr;
    if (!listed) {
        stream.close(now);
    } else if (stream.hasFailed()) {
        stream.close(now);
        failInput(*listed, input, pa_context_errno(mConnection.context()), now);
    } else if (!stream.fits(*listed) && now >= input.retryAt) {
        openInput(*listed, input, now);
    } else if (stream.watch().isSpent() && stream.secondsSilent(now) >= kReopenSeconds) {
        openInput(*listed, input, now);
        sendProbe(now);
    }
    stream.deliverSilence(now);
}

void PulseSession::openInput(const DeviceRecord& device, Input& input, double now) {
    const Status status = input.stream->open(mConnection.context(), device, now);
    if (status != 0) failInput(device, input, status, now);
}

void PulseSession::failInput(const DeviceRecord& device, Input& input, Status status, double now) {
    input.retryAt = now + kStreamRetrySeconds;
    if (std::exchange(input.isFailureLogged, true)) return;
    mLog.detail(withStatus("No stream from " + device.serverName, status));
}

bool PulseSession::isAnyStarted(const std::function<bool(const StreamWatch&)>& isSo) const {
    return std::any_of(mInputs.begin(), mInputs.end(), [&](const auto& entry) {
        return entry.second.stream->isAttached() && isSo(entry.second.stream->watch());
    });
}

void PulseSession::watchForHang(double now) {
    if (!mConnection.context()) return;
    const bool isStalled = isAnyStarted([](const StreamWatch& watch) { return watch.isSilent(); });
    if ((isStalled && now >= mProbedAt + kAnswerSeconds) || mIsHung) sendProbe(now);

    const bool isOverdue = mProbe && now >= mProbedAt + kAnswerSeconds;
    if (mIsHung || !isOverdue ||
        !isAnyStarted([](const StreamWatch& watch) { return watch.isSpent(); })) {
        return;
    }
    mLog.detail("The sound server does not answer.");
    mIsHung = true;
    mPolicy.lost();
    mTimer.armNow();
}

void PulseSession::sendProbe(double now) {
    if (mProbe) return; // one is enough: its answer comes when the server goes on
    mProbedAt = now;
    mProbe.reset(pa_context_get_server_info(mConnection.context(), &onProbeAnswered, this));
}

void PulseSession::onProbeAnswered(pa_context*, const pa_server_info* info, void* session) {
    auto* self = static_cast<PulseSession*>(session);
    self->mProbe.reset();
    self->mTimer.armNow();
    if (!info || !std::exchange(self->mIsHung, false)) return;
    self->mLog.detail("The sound server answers again.");
    self->mLister.ask(self->mConnection.context());
}

void PulseSession::announce(double now) {
    const bool isSilent = isAnyStarted([](const StreamWatch& watch) { return watch.isSilent(); });
    const auto changes = mPolicy.decide(now, isSilent);
    if (changes) mReports.published(mPolicy.published(), *changes);
}

void PulseSession::armTimer(double now) {
    std::optional<double> next = mConnection.deadline();
    const auto consider = [&next](std::optional<double> moment) {
        if (moment && (!next || *moment < *next)) next = moment;
    };
    consider(mPolicy.deadline(now));
    for (const auto& [device, input] : mInputs) {
        const PulseInputStream& stream = *input.stream;
        if (!stream.isAttached()) {
            consider(input.detachedAt + kLingerSeconds);
            continue;
        }
        consider(stream.watch().deadline());
        if (input.retryAt > now) consider(input.retryAt);
        if (stream.isOpen() && stream.watch().isSpent()) consider(now + kReopenSeconds);
    }
    consider(mOutputs.deadline(now));
    const double answerDue = mProbedAt + kAnswerSeconds;
    if (mProbe && answerDue > now) consider(answerDue);
    if (next) {
        mTimer.armAt(*next);
    } else {
        mTimer.disarm();
    }
}

// --- what the program wants ---

void PulseSession::startInput(const PulseInputStream::Client& client, const DeviceRecord& device) {
    mPolicy.started(client.device);
    Input& input = mInputs[client.device];
    if (!input.stream) {
        input.stream = std::make_unique<PulseInputStream>([this] { mTimer.armNow(); });
    }
    if (!input.stream->isAttached()) input.stream->attach(client, device, mClock.now());
    mTimer.armNow();
}

void PulseSession::stopInput(DeviceId device) {
    const auto found = mInputs.find(device);
    if (found == mInputs.end() || !found->second.stream->isAttached()) return;
    Input& input = found->second;
    const double now = mClock.now();
    // What a stalled stream has gathered must not come out after the next start.
    const bool isFit = input.stream->isOpen() && !input.stream->hasFailed() &&
                       input.stream->secondsSilent(now) < StreamWatch::kStallSeconds;
    if (!isFit) {
        mInputs.erase(found);
    } else {
        input.stream->detach();
        input.detachedAt = now;
    }
    mTimer.armNow();
}

void PulseSession::startOutput(const PulseOutputStream::Client& client,
                               const DeviceRecord& device) {
    mOutputs.start(client, device, mClock.now());
}

void PulseSession::stopOutput(DeviceId device) { mOutputs.stop(device, mClock.now()); }

Status PulseSession::setVolumes(const DeviceRecord& device, const std::vector<float>& scalars) {
    pa_context* const context = mConnection.context();
    if (!context) return PA_ERR_CONNECTIONREFUSED;
    pa_cvolume volume;
    pa_cvolume_init(&volume);
    volume.channels = std::uint8_t(std::min<std::size_t>(scalars.size(), PA_CHANNELS_MAX));
    for (unsigned channel = 0; channel < volume.channels; ++channel) {
        // Rounded up: a whole percentage that is read back and truncated is the one that was set.
        volume.values[channel] = pa_volume_t(std::ceil(scalars[channel] * float(PA_VOLUME_NORM)));
    }
    const auto set = device.direction == Direction::input ? pa_context_set_source_volume_by_name
                                                          : pa_context_set_sink_volume_by_name;
    return follow(set(context, device.serverName.c_str(), &volume, &PulseSession::onDone, this));
}

Status PulseSession::setPort(const DeviceRecord& device, DataSourceId port) {
    pa_context* const context = mConnection.context();
    if (!context) return PA_ERR_CONNECTIONREFUSED;
    const std::string* const name = mTable.portName(device.id, port);
    if (!name) return PA_ERR_NOENTITY;
    const auto set = device.direction == Direction::input ? pa_context_set_source_port_by_name
                                                          : pa_context_set_sink_port_by_name;
    return follow(
        set(context, device.serverName.c_str(), name->c_str(), &PulseSession::onDone, this));
}

Status PulseSession::follow(pa_operation* sent) {
    if (!sent) return pa_context_errno(mConnection.context());
    pa_operation_unref(sent); // it goes on; a refusal is logged when it comes
    return 0;
}

void PulseSession::onDone(pa_context* context, int isDone, void* session) {
    if (isDone) return;
    auto* self = static_cast<PulseSession*>(session);
    self->mLog.detail(withStatus("The sound server refused a setting", pa_context_errno(context)));
    self->mReports.published(self->mPolicy.published(), {}); // without what was refused
}

} // namespace veltrano
