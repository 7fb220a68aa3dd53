// SPDX-License-Identifier: GPL-3.0-or-later
// What every audio hardware must do, whatever stands behind it.
#pragma once

#include "platform/audio/AudioHardware.h"
#include "tests/support/HeardBlocks.h"

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <thread>

namespace veltrano {

/// One list of checks for all implementations of AudioHardware.
///
/// Thread: main.
class AudioHardwareContract {
public:
    struct Subject {
        AudioHardware& hardware;
        DeviceId input;  ///< a listed input device that gives sound in real time when started
        DeviceId absent; ///< a number of no device
        /// Lets time pass for about a millisecond: a turn of the event loop, perhaps a short sleep.
        std::function<void()> turn;
    };

    /// Performs all checks; failures are reported to the running test.
    static void check(const Subject& subject) {
        AudioHardwareContract contract(subject);
        contract.listsDevicesOnce();
        contract.knowsNothingOfAnAbsentDevice();
        contract.refusesAnAbsentDevice();
        contract.hasNothingOnASideThatIsNotThere();
        contract.describesItsFormat();
        contract.namesItself();
        contract.namesItsDataSources();
        contract.tellsItsVolumes();
        contract.writesItsVolumes();
        contract.refusesAProcedureThatWasNotAdded();
        contract.deliversBlocksWhileStarted();
        contract.startsAgainFromTheBeginning();
        contract.callsNoListenerThatWasRemoved();
    }

private:
    explicit AudioHardwareContract(const Subject& subject)
        : mHardware(subject.hardware), mInput(subject.input), mAbsent(subject.absent),
          mTurn(subject.turn) {}

    static constexpr Direction kBoth[] = {Direction::input, Direction::output};

    bool waitFor(const std::function<bool()>& condition, double seconds = 5) const {
        const double end = HeardBlocks::now() + seconds;
        while (!condition() && HeardBlocks::now() < end)
            mTurn();
        return condition();
    }
    void pass(double seconds) const {
        waitFor([] { return false; }, seconds);
    }

    void listsDevicesOnce() const {
        const auto ids = mHardware.devices();
        const std::set<DeviceId> unique(ids.begin(), ids.end());
        EXPECT_EQ(unique.size(), ids.size());
        EXPECT_EQ(unique.count(0), 0u) << "0 is no device";
        EXPECT_EQ(unique.count(mInput), 1u);
        EXPECT_EQ(unique.count(mAbsent), 0u);
        for (const Direction direction : kBoth) {
            const auto standard = mHardware.defaultDevice(direction);
            if (standard) {
                EXPECT_EQ(unique.count(*standard), 1u);
            }
        }
    }

    void expectNothing(DeviceId device, Direction direction) const {
        EXPECT_FALSE(mHardware.streamFormat(device, direction));
        EXPECT_FALSE(mHardware.streamConfiguration(device, direction));
        EXPECT_FALSE(mHardware.deviceName(device, direction));
        EXPECT_FALSE(mHardware.deviceManufacturer(device, direction));
        EXPECT_FALSE(mHardware.isDataSourceWritable(device, direction));
        EXPECT_TRUE(mHardware.dataSources(device, direction).empty());
        EXPECT_FALSE(mHardware.dataSource(device, direction));
        EXPECT_FALSE(mHardware.dataSourceName(device, direction, 1));
        EXPECT_FALSE(mHardware.isVolumeWritable(device, direction, 1));
        EXPECT_FALSE(mHardware.volume(device, direction, 1));
        EXPECT_NE(mHardware.setVolume(device, direction, 1, 0.5f), audio_status::kOk);
        EXPECT_NE(mHardware.setDataSource(device, direction, 1), audio_status::kOk);
    }

    void knowsNothingOfAnAbsentDevice() const {
        for (const Direction direction : kBoth)
            expectNothing(mAbsent, direction);
        for (const Direction direction : kBoth)
            expectNothing(0, direction);
    }

    void refusesAnAbsentDevice() const {
        using audio_status::kBadDevice;
        EXPECT_EQ(mHardware.addIOProc(mAbsent, &HeardBlocks::ioProc, nullptr), kBadDevice);
        EXPECT_EQ(mHardware.start(mAbsent, &HeardBlocks::ioProc), kBadDevice);
        EXPECT_EQ(mHardware.setVolume(mAbsent, Direction::input, 1, 0.5f), kBadDevice);
        EXPECT_EQ(mHardware.setDataSource(mAbsent, Direction::input, 1), kBadDevice);
        EXPECT_EQ(mHardware.addDeviceListener(mAbsent, 0, Direction::input,
                                              PropertyCode::streamFormat, &onDevice, nullptr),
                  kBadDevice);
    }

    void hasNothingOnASideThatIsNotThere() const {
        for (const DeviceId device : mHardware.devices()) {
            for (const Direction direction : kBoth) {
                if (!mHardware.streamFormat(device, direction)) expectNothing(device, direction);
            }
        }
    }

    void describesItsFormat() const {
        const auto format = mHardware.streamFormat(mInput, Direction::input);
        const auto configuration = mHardware.streamConfiguration(mInput, Direction::input);
        ASSERT_TRUE(format && configuration);
        EXPECT_GE(format->sampleRate, 8000.0);
        EXPECT_LE(format->sampleRate, 384000.0);
        EXPECT_EQ(format->formatId, fourCharCode("lpcm"));
        EXPECT_EQ(format->bitsPerChannel, 32u);
        EXPECT_EQ(format->bytesPerFrame, format->channelsPerFrame * sizeof(float));
        std::uint32_t channels = 0;
        for (const std::uint32_t count : configuration->channelsOfBuffer)
            channels += count;
        EXPECT_GE(channels, 1u);
        EXPECT_EQ(channels, format->channelsPerFrame);
    }

    void namesItself() const {
        EXPECT_NE(mHardware.deviceName(mInput, Direction::input).value_or(""), "");
        EXPECT_NE(mHardware.deviceManufacturer(mInput, Direction::input).value_or(""), "");
    }

    void namesItsDataSources() const {
        const auto sources = mHardware.dataSources(mInput, Direction::input);
        const std::set<DataSourceId> unique(sources.begin(), sources.end());
        EXPECT_EQ(unique.size(), sources.size());
        for (const DataSourceId source : sources)
            EXPECT_TRUE(mHardware.dataSourceName(mInput, Direction::input, source)) << source;
        const DataSourceId unknown = unique.empty() ? 77 : *unique.rbegin() + 1;
        EXPECT_FALSE(mHardware.dataSourceName(mInput, Direction::input, unknown));
        EXPECT_NE(mHardware.setDataSource(mInput, Direction::input, unknown), audio_status::kOk);
        if (mHardware.isDataSourceWritable(mInput, Direction::input)) {
            const auto current = mHardware.dataSource(mInput, Direction::input);
            ASSERT_TRUE(current);
            EXPECT_EQ(unique.count(*current), 1u);
        }
    }

    std::uint32_t channels() const {
        return mHardware.streamFormat(mInput, Direction::input)->channelsPerFrame;
    }

    void tellsItsVolumes() const {
        for (std::uint32_t channel = 0; channel <= channels() + 1; ++channel) {
            const auto volume = mHardware.volume(mInput, Direction::input, channel);
            if (volume) {
                EXPECT_GE(*volume, 0.0f) << channel;
                EXPECT_LE(*volume, 1.0f) << channel;
            } else {
                EXPECT_FALSE(mHardware.isVolumeWritable(mInput, Direction::input, channel));
            }
        }
        EXPECT_FALSE(mHardware.volume(mInput, Direction::input, channels() + 1));
    }

    void setAll(float scalar) const {
        for (std::uint32_t channel = 1; channel <= channels(); ++channel) {
            EXPECT_EQ(mHardware.setVolume(mInput, Direction::input, channel, scalar),
                      audio_status::kOk);
        }
    }

    bool areAll(float scalar) const {
        for (std::uint32_t channel = 1; channel <= channels(); ++channel) {
            const auto volume = mHardware.volume(mInput, Direction::input, channel);
            if (!volume || *volume < scalar - 1e-4f || *volume > scalar + 1e-4f) return false;
        }
        return true;
    }

    void writesItsVolumes() {
        if (!mHardware.isVolumeWritable(mInput, Direction::input, 1)) return;
        mHardware.addDeviceListener(mInput, kWildcardChannel, Direction::input,
                                    PropertyCode::volumeScalar, &onDevice, this);
        setAll(0.25f);
        EXPECT_TRUE(waitFor([this] { return areAll(0.25f); }));
        EXPECT_TRUE(waitFor([this] { return mDeviceCalls >= 1; }));
        mHardware.removeDeviceListener(mInput, kWildcardChannel, Direction::input,
                                       PropertyCode::volumeScalar, &onDevice);
        setAll(1.0f);
        EXPECT_TRUE(waitFor([this] { return areAll(1.0f); }));
    }

    void refusesAProcedureThatWasNotAdded() const {
        using audio_status::kNotAdded;
        EXPECT_EQ(mHardware.start(mInput, &HeardBlocks::ioProc), kNotAdded);
        EXPECT_EQ(mHardware.stop(mInput, &HeardBlocks::ioProc), kNotAdded);
        EXPECT_EQ(mHardware.removeIOProc(mInput, &HeardBlocks::ioProc), kNotAdded);
        EXPECT_EQ(mHardware.removeHardwareListener(PropertyCode::devices, &onHardware, nullptr),
                  kNotAdded);
        EXPECT_EQ(mHardware.removeDeviceListener(mInput, 0, Direction::input,
                                                 PropertyCode::streamFormat, &onDevice),
                  kNotAdded);
    }

    void deliversBlocksWhileStarted() {
        mHeard.clear();
        EXPECT_EQ(mHardware.addIOProc(mInput, &HeardBlocks::ioProc, &mHeard), audio_status::kOk);
        pass(0.05);
        EXPECT_EQ(mHeard.blocks, 0u) << "added, but not started";
        EXPECT_EQ(mHardware.start(mInput, &HeardBlocks::ioProc), audio_status::kOk);
        EXPECT_TRUE(waitFor([this] { return mHeard.blocks >= 5; }));
        EXPECT_EQ(mHardware.stop(mInput, &HeardBlocks::ioProc), audio_status::kOk);
        expectNoMoreBlocks();
        EXPECT_EQ(mHeard.faults, 0u);
        EXPECT_EQ(mHeard.device, mInput);
        EXPECT_EQ(mHeard.channels, channels()) << "one buffer of interleaved channels";
        EXPECT_GT(mHeard.firstTime, 0.0);
    }

    void expectNoMoreBlocks() const {
        const auto blocks = mHeard.blocks.load();
        pass(0.1);
        EXPECT_EQ(mHeard.blocks, blocks) << "called after the stop";
    }

    void startsAgainFromTheBeginning() {
        mHeard.clear();
        EXPECT_EQ(mHardware.start(mInput, &HeardBlocks::ioProc), audio_status::kOk);
        EXPECT_TRUE(waitFor([this] { return mHeard.blocks >= 2; }));
        EXPECT_EQ(mHardware.removeIOProc(mInput, &HeardBlocks::ioProc), audio_status::kOk)
            << "of a started device";
        expectNoMoreBlocks();
        EXPECT_EQ(mHeard.faults, 0u);
        EXPECT_EQ(mHardware.start(mInput, &HeardBlocks::ioProc), audio_status::kNotAdded);
    }

    void callsNoListenerThatWasRemoved() {
        if (!mHardware.isVolumeWritable(mInput, Direction::input, 1)) return;
        mHardware.addDeviceListener(mInput, kWildcardChannel, Direction::input,
                                    PropertyCode::volumeScalar, &onDevice, this);
        EXPECT_EQ(mHardware.removeDeviceListener(mInput, kWildcardChannel, Direction::input,
                                                 PropertyCode::volumeScalar, &onDevice),
                  audio_status::kOk);
        const int calls = mDeviceCalls;
        setAll(0.5f);
        EXPECT_TRUE(waitFor([this] { return areAll(0.5f); }));
        setAll(1.0f);
        EXPECT_TRUE(waitFor([this] { return areAll(1.0f); }));
        pass(0.05);
        EXPECT_EQ(mDeviceCalls, calls);
    }

    static Status onHardware(PropertyCode, void*) noexcept { return 0; }
    static Status onDevice(DeviceId, std::uint32_t, bool, PropertyCode, void* contract) noexcept {
        ++static_cast<AudioHardwareContract*>(contract)->mDeviceCalls;
        return 0;
    }

    AudioHardware& mHardware;
    const DeviceId mInput;
    const DeviceId mAbsent;
    const std::function<void()> mTurn;
    HeardBlocks mHeard;
    std::atomic<int> mDeviceCalls{0}; ///< written on the notification thread
};

} // namespace veltrano
