// SPDX-License-Identifier: GPL-3.0-or-later
// An output unit that plays on the devices of an AudioHardware.
#pragma once

#include "platform/audio/AudioHardware.h"
#include "platform/audio/OutputUnit.h"
#include "platform/realtime/LatestValue.h"
#include "platform/realtime/Realtime.h"

#include <functional>
#include <memory>
#include <vector>

namespace veltrano {

/// Renders into the device's buffers: the first client channel goes to the device's first channel,
/// the second to its second one, further ones stay silent. A device whose rate changes is announced
/// as a new sample rate; when the device is gone for good the unit moves to the default device and
/// announces that, and its rate if it is another one. A device that comes back is started again.
///
/// Thread: main, but for the I/O procedure. Allocates: nothing on the real-time thread.
/// Owns: its listeners. The hardware outlives it.
class HardwareOutputUnit final : public OutputUnit {
public:
    /// Performs a function on the main thread later; called from any thread but an audio callback.
    using PostToMainThread = std::function<void(std::function<void()>)>;

    HardwareOutputUnit(AudioHardware& hardware, PostToMainThread post);
    ~HardwareOutputUnit() override; ///< as stop()

    Status initialize() override;
    Status addPropertyListener(UnitProperty property, UnitListenerProc listener,
                               void* client) override;
    Status setRenderCallback(RenderProc proc, void* refCon) override;
    std::optional<DeviceId> currentDevice() const override;
    Status setCurrentDevice(DeviceId device) override;
    std::optional<StreamDescription> streamFormat() const override { return mFormat; }
    Status setStreamFormat(const StreamDescription& format) override;
    Status start() override;
    Status stop() override; ///< a unit that is not running: nothing, and 0

private:
    struct Callback {
        RenderProc proc = nullptr;
        void* refCon = nullptr;
    };
    struct Listener {
        UnitProperty property;
        UnitListenerProc proc;
        void* client;
    };
    static constexpr std::uint32_t kChannels = 2;
    static constexpr std::size_t kCycleFrames = 1024; ///< a longer block is rendered in parts

    static Status ioProc(DeviceId, const AudioTimeStamp*, const AudioBufferList*,
                         const AudioTimeStamp*, AudioBufferList* output,
                         const AudioTimeStamp* outputTime,
                         void* unit) noexcept VELTRANO_NONBLOCKING;
    static Status onDevices(PropertyCode, void* unit) noexcept;
    static Status onFormat(DeviceId, std::uint32_t, bool, PropertyCode, void* unit) noexcept;

    void play(AudioBuffer& buffer, const AudioTimeStamp& time) noexcept;
    void render(std::size_t frames, double sampleTime, const Callback& callback) noexcept;
    void listenToDevice(DeviceId device, bool listen);
    void post(void (HardwareOutputUnit::*handler)());
    void followDevices();
    void tellOtherRate();
    void tellSampleRate() { tell(UnitProperty::sampleRate); }
    void tell(UnitProperty property);

    AudioHardware& mHardware;
    const PostToMainThread mPost;
    const std::shared_ptr<void> mAlive = std::make_shared<char>(); ///< held weakly by posts
    StreamDescription mFormat;
    std::vector<Listener> mListeners;
    DeviceId mDevice = 0; ///< 0: none yet
    bool mIsRunning = false;
    LatestValue<Callback> mCallback; ///< written by the main thread
    std::vector<float> mRendered;    ///< I/O thread: the client's channels one after the other
};

/// Opens units on one hardware, which outlives the source and its units.
class HardwareOutputUnits final : public OutputUnitSource {
public:
    HardwareOutputUnits(AudioHardware& hardware, HardwareOutputUnit::PostToMainThread post)
        : mHardware(hardware), mPost(std::move(post)) {}
    bool isAvailable() const override { return true; }
    Status open(std::unique_ptr<OutputUnit>& unit) override;

private:
    AudioHardware& mHardware;
    const HardwareOutputUnit::PostToMainThread mPost;
};

} // namespace veltrano
