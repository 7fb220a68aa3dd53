// SPDX-License-Identifier: GPL-3.0-or-later
// An output unit that does what a test says, and can fail at any call.
#pragma once

#include "platform/audio/OutputUnit.h"

#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace veltrano {

/// What a scripted unit does and has been told. Outlives the unit.
struct OutputUnitScript {
    bool isAvailable = true;
    bool opens = true;
    std::map<std::string, Status> statuses; ///< of "initialize", "start", ...; 0 otherwise
    /// When set, the unit reports this device whatever it is pointed at.
    std::optional<std::optional<DeviceId>> reportedDevice;
    bool hasFormat = true;

    std::vector<std::string> calls; ///< "setCurrentDevice 3", "setStreamFormat 44100 2"
    DeviceId device = 0;
    StreamDescription format;
    RenderProc renderProc = nullptr;
    void* renderRefCon = nullptr;
    struct Listener {
        UnitProperty property;
        UnitListenerProc proc;
        void* client;
    };
    std::vector<Listener> listeners;

    /// Fails likewise from now on: 0 heals it.
    void fail(const std::string& call, Status status) { statuses[call] = status; }
    Status enter(const std::string& call, const std::string& words = {}) {
        calls.push_back(call + words);
        const auto found = statuses.find(call);
        return found == statuses.end() ? 0 : found->second;
    }
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }
    /// Every listener hears of its property.
    void tell(UnitProperty property, UnitScope scope = UnitScope::input,
              std::uint32_t element = 0) {
        for (const Listener& listener : listeners) {
            if (listener.property == property)
                listener.proc(listener.client, nullptr, property, scope, element);
        }
    }
    /// Renders into buffers of one channel each.
    Status render(AudioBufferList buffers, std::uint32_t frames) {
        const AudioTimeStamp time{1};
        return renderProc(renderRefCon, &time, 0, frames, &buffers);
    }
};

class ScriptedOutputUnit final : public OutputUnit {
public:
    explicit ScriptedOutputUnit(OutputUnitScript& script) : mScript(script) {
        mScript.format.sampleRate = 11025; // what a unit has before it is told
        mScript.format.channelsPerFrame = 2;
        mScript.format.bytesPerFrame = mScript.format.bytesPerPacket = 4;
    }

    Status initialize() override { return mScript.enter("initialize"); }
    Status addPropertyListener(UnitProperty property, UnitListenerProc listener,
                               void* client) override {
        mScript.listeners.push_back({property, listener, client});
        return mScript.enter("addPropertyListener " + std::to_string(std::uint32_t(property)));
    }
    Status setRenderCallback(RenderProc proc, void* refCon) override {
        mScript.renderProc = proc;
        mScript.renderRefCon = refCon;
        return mScript.enter("setRenderCallback");
    }
    std::optional<DeviceId> currentDevice() const override {
        if (mScript.reportedDevice) return *mScript.reportedDevice;
        if (mScript.device == 0) return std::nullopt;
        return mScript.device;
    }
    Status setCurrentDevice(DeviceId device) override {
        mScript.device = device;
        return mScript.enter("setCurrentDevice", " " + std::to_string(device));
    }
    std::optional<StreamDescription> streamFormat() const override {
        if (!mScript.hasFormat) return std::nullopt;
        return mScript.format;
    }
    Status setStreamFormat(const StreamDescription& format) override {
        mScript.format = format;
        return mScript.enter("setStreamFormat", " " +
                                                    std::to_string(std::lround(format.sampleRate)) +
                                                    " " + std::to_string(format.channelsPerFrame));
    }
    Status start() override { return mScript.enter("start"); }
    Status stop() override { return mScript.enter("stop"); }

private:
    OutputUnitScript& mScript;
};

class ScriptedOutputUnits final : public OutputUnitSource {
public:
    explicit ScriptedOutputUnits(OutputUnitScript& script) : mScript(script) {}
    bool isAvailable() const override { return mScript.isAvailable; }
    Status open(std::unique_ptr<OutputUnit>& unit) override {
        if (mScript.opens) unit = std::make_unique<ScriptedOutputUnit>(mScript);
        return mScript.enter("open");
    }

private:
    OutputUnitScript& mScript;
};

} // namespace veltrano
