// SPDX-License-Identifier: GPL-3.0-or-later
// An output unit on virtual devices, for the tests of what it plays and which device it follows.
#pragma once

#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/VirtualHardware.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace veltrano {

using Lines = std::vector<std::string>;
using Samples = std::vector<float>;
constexpr Direction kOut = Direction::output;

/// The base of the tests of HardwareOutputUnit. Thread: main.
class HardwareOutputUnitTest : public testing::Test {
protected:
    /// Counts upwards on the first channel, downwards on the second, from one cycle to the next.
    struct Counter {
        static Status render(void* refCon, const AudioTimeStamp* time, std::uint32_t bus,
                             std::uint32_t frames, AudioBufferList* buffers) noexcept {
            auto& self = *static_cast<Counter*>(refCon);
            self.cycles.push_back(std::to_string(std::lround(time->sampleTime)) + ": " +
                                  std::to_string(frames));
            EXPECT_EQ(bus, 0u);
            EXPECT_EQ(buffers->size(), 2u);
            for (const AudioBuffer& buffer : *buffers) {
                EXPECT_EQ(buffer.channels, 1u);
                EXPECT_EQ(buffer.byteSize, frames * sizeof(float));
                for (std::uint32_t i = 0; i < frames; ++i)
                    EXPECT_EQ(buffer.data[i], 0) << "not cleared";
            }
            for (std::uint32_t i = 0; i < frames && self.isWriting; ++i) {
                (*buffers)[0].data[i] = float(++self.count);
                (*buffers)[1].data[i] = -float(self.count);
            }
            return 77; // of no account
        }

        bool isWriting = true;
        int count = 0;
        Lines cycles; ///< "sample time: frames"
    };

    DeviceId add(const std::string& name, double rateHz = 44100, std::uint32_t channels = 2) {
        VirtualDevice device;
        device.name = name;
        device.output = VirtualDevice::side(rateHz, channels);
        return hardware.addDevice(std::move(device));
    }
    HardwareOutputUnit& unit() {
        if (!mUnit) {
            mUnit = std::make_unique<HardwareOutputUnit>(
                hardware, [this](auto task) { posted.push_back(std::move(task)); });
            for (const UnitProperty property :
                 {UnitProperty::sampleRate, UnitProperty::currentDevice}) {
                EXPECT_EQ(mUnit->addPropertyListener(property, hear, this), 0);
            }
            EXPECT_EQ(mUnit->setRenderCallback(Counter::render, &counter), 0);
        }
        return *mUnit;
    }
    void endUnit() { mUnit.reset(); }
    void play(DeviceId device) {
        EXPECT_EQ(unit().setCurrentDevice(device), 0);
        EXPECT_EQ(unit().start(), 0);
        takeHeard();
    }
    Lines takeHeard() { return std::exchange(heard, {}); }
    /// Serves what was posted, and what that posted.
    void settle() {
        while (!posted.empty()) {
            const auto tasks = std::exchange(posted, {});
            for (const auto& task : tasks)
                task();
        }
    }
    /// What the device gets in one block; empty when it is not started.
    Samples deliver(DeviceId device, std::uint32_t frames, std::uint32_t channels = 2) {
        Samples samples(frames * channels, -9);
        AudioBuffer buffer{channels, std::uint32_t(samples.size() * sizeof(float)), samples.data()};
        mTime += frames;
        const Status status = hardware.deliver(device, {}, mTime, AudioBufferList(&buffer, 1));
        return status == 0 ? samples : Samples{};
    }
    bool plays(DeviceId device) { return !deliver(device, 1).empty(); }
    StreamDescription clientFormat(double rateHz) {
        StreamDescription format = unit().streamFormat().value();
        format.sampleRate = rateHz;
        return format;
    }

    VirtualHardware hardware;
    std::vector<std::function<void()>> posted;
    Counter counter;
    Lines heard; ///< "2000 scope 1 element 0"

private:
    static void hear(void* client, OutputUnit* unit, UnitProperty property, UnitScope scope,
                     std::uint32_t element) noexcept {
        auto& self = *static_cast<HardwareOutputUnitTest*>(client);
        EXPECT_EQ(unit, self.mUnit.get());
        self.heard.push_back(std::to_string(std::uint32_t(property)) + " scope " +
                             std::to_string(std::uint32_t(scope)) + " element " +
                             std::to_string(element));
    }

    double mTime = 0;
    std::unique_ptr<HardwareOutputUnit> mUnit;
};

inline const Lines kDeviceHeard{"2000 scope 1 element 0"};
inline const Lines kRateHeard{"2 scope 1 element 0"};
inline const Lines kBothHeard{kDeviceHeard[0], kRateHeard[0]};

} // namespace veltrano
