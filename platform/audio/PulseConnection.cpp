// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/PulseConnection.h"

#include <algorithm>
#include <utility>

namespace veltrano {

PulseConnection::PulseConnection(pa_mainloop_api* api, std::string server, std::string application,
                                 Events& events)
    : mApi(api), mServer(std::move(server)), mApplication(std::move(application)), mEvents(events) {
}

PulseConnection::~PulseConnection() { drop(); }

void PulseConnection::tend(double now) {
    if (mHasFailed) {
        // A dead context is dropped here, where none of its callbacks is running.
        drop();
        mRetryAt = now + (mAttempts < kEagerAttempts ? kRetrySeconds : kPatientRetrySeconds);
    } else if (mRetryAt && now >= *mRetryAt) {
        mRetryAt.reset();
        mAttempts = std::min(mAttempts + 1, kEagerAttempts);
        connect();
    }
}

std::optional<double> PulseConnection::deadline() const {
    return mHasFailed ? std::optional(0.0) : mRetryAt;
}

void PulseConnection::connect() {
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, mApplication.c_str());
    pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "production");
    mContext = pa_context_new_with_proplist(mApi, mApplication.c_str(), properties);
    pa_proplist_free(properties);
    if (!mContext) return fail(PA_ERR_INTERNAL);
    pa_context_set_state_callback(mContext, &PulseConnection::onState, this);
    pa_context_set_subscribe_callback(mContext, &PulseConnection::onEvent, this);
    const char* server = mServer.empty() ? nullptr : mServer.c_str();
    const int result = pa_context_connect(mContext, server, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    if (result < 0 && !mHasFailed) fail(pa_context_errno(mContext));
}

void PulseConnection::onState(pa_context* context, void* connection) {
    auto* self = static_cast<PulseConnection*>(connection);
    switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY:
        return self->becomeReady();
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        return self->fail(pa_context_errno(context));
    default:
        return; // on the way
    }
}

void PulseConnection::becomeReady() {
    mIsReady = true;
    mAttempts = 0;
    constexpr auto kWatched = pa_subscription_mask_t(
        PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SERVER);
    if (pa_operation* subscribing = pa_context_subscribe(mContext, kWatched, nullptr, nullptr)) {
        pa_operation_unref(subscribing);
    }
    mEvents.onConnected();
}

void PulseConnection::fail(Status status) {
    if (mHasFailed) return;
    mHasFailed = true;
    const bool wasReady = std::exchange(mIsReady, false);
    mEvents.onConnectionLost(wasReady, status);
}

void PulseConnection::onEvent(pa_context*, pa_subscription_event_type_t, std::uint32_t,
                              void* connection) {
    static_cast<PulseConnection*>(connection)->mEvents.onServerChanged();
}

void PulseConnection::drop() {
    mHasFailed = false;
    mIsReady = false;
    if (!mContext) return;
    pa_context_set_state_callback(mContext, nullptr, nullptr);
    pa_context_set_subscribe_callback(mContext, nullptr, nullptr);
    pa_context_disconnect(mContext);
    pa_context_unref(std::exchange(mContext, nullptr));
}

} // namespace veltrano
