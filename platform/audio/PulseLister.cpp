// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseLister.h"

#include <utility>

namespace veltrano {

namespace {

std::string textOf(const char* text) { return text ? text : ""; }

/// A source and a sink are told of in records of the same fields.
template <class Info>
ServerRecord recordOf(const Info& info, Direction direction) {
    ServerRecord record;
    record.direction = direction;
    record.name = textOf(info.name);
    record.vendor = textOf(pa_proplist_gets(info.proplist, PA_PROP_DEVICE_VENDOR_NAME));
    record.description = textOf(info.description);
    record.sampleRate = info.sample_spec.rate;
    record.isMuted = info.mute != 0;
    for (unsigned channel = 0; channel < info.channel_map.channels; ++channel) {
        record.channelPositions.push_back(std::uint32_t(info.channel_map.map[channel]));
    }
    for (unsigned channel = 0; channel < info.volume.channels; ++channel) {
        record.volumes.push_back(info.volume.values[channel]);
    }
    for (std::uint32_t port = 0; port < info.n_ports; ++port) {
        record.ports.push_back(
            {textOf(info.ports[port]->name), textOf(info.ports[port]->description)});
    }
    if (info.active_port) record.activePort = textOf(info.active_port->name);
    return record;
}

static_assert(ServerRecord::kFullVolume == PA_VOLUME_NORM);

} // namespace

PulseLister::PulseLister(std::function<void(const ServerListing&)> done) : mDone(std::move(done)) {}

void PulseLister::ask(pa_context* context) {
    mContext = context;
    if (mUnderWay) {
        mIsOutdated = true;
    } else {
        begin();
    }
}

void PulseLister::cancel() {
    mUnderWay.reset();
    mIsOutdated = false;
}

void PulseLister::begin() {
    mIsOutdated = false;
    mListing = {};
    follow(pa_context_get_server_info(mContext, &PulseLister::onServer, this));
}

void PulseLister::follow(pa_operation* next) { mUnderWay.reset(next); }

void PulseLister::onServer(pa_context* context, const pa_server_info* info, void* lister) {
    auto* self = static_cast<PulseLister*>(lister);
    if (!info) return self->giveUp();
    self->mListing.serverName = textOf(info->server_name);
    self->mListing.defaultSource = textOf(info->default_source_name);
    self->mListing.defaultSink = textOf(info->default_sink_name);
    self->follow(pa_context_get_source_info_list(context, &PulseLister::onSource, self));
}

void PulseLister::onSource(pa_context* context, const pa_source_info* info, int end, void* lister) {
    auto* self = static_cast<PulseLister*>(lister);
    if (end < 0) return self->giveUp();
    if (end > 0) return self->follow(pa_context_get_sink_info_list(context, &onSink, self));
    ServerRecord record = recordOf(*info, Direction::input);
    record.isMonitor = info->monitor_of_sink != PA_INVALID_INDEX;
    self->mListing.records.push_back(std::move(record));
}

void PulseLister::onSink(pa_context*, const pa_sink_info* info, int end, void* lister) {
    auto* self = static_cast<PulseLister*>(lister);
    if (end < 0) return self->giveUp();
    if (end > 0) return self->finish();
    self->mListing.records.push_back(recordOf(*info, Direction::output));
}

void PulseLister::giveUp() {
    follow(nullptr);
    if (mIsOutdated) begin(); // what changed meanwhile is not to be missed
}

void PulseLister::finish() {
    follow(nullptr);
    const bool isOutdated = mIsOutdated;
    mDone(mListing);
    if (isOutdated) begin();
}

} // namespace veltrano
