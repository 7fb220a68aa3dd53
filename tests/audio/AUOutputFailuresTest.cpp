// SPDX-License-Identifier: GPL-3.0-or-later
// What the output unit logs when a call of the hardware output unit fails.
#include "tests/audio/AUOutputTestBase.h"

namespace veltrano {
namespace {

Status renderNothing(void*, const AudioTimeStamp*, std::uint32_t, std::uint32_t,
                     AudioBufferList*) noexcept {
    return 0;
}

class AUOutputFailures : public AUOutputUnitTestBase {
protected:
    /// Opens, installs a callback, selects a device, stops and starts.
    void runThrough() {
        a = hardware.addDevice(loudspeaker("A"));
        hardware.setDefaultDevice(kOut, a);
        unit().setAURenderProc(renderNothing, nullptr);
        unit().setOutputDeviceWithName("M : A");
        unit().stop();
        unit().start();
    }

    DeviceId a = 0;
};

TEST_F(AUOutputFailures, AUnitThatWorksLogsNothing) {
    runThrough();
    const Lines expected{"open",
                         "initialize",
                         "addPropertyListener 2000",
                         "addPropertyListener 2",
                         "setRenderCallback",
                         "setCurrentDevice " + text(a),
                         "setStreamFormat 44100 2",
                         "start",
                         "stop",
                         "start"};
    EXPECT_EQ(script.calls, expected);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputFailures, EachFailingCallHasItsLineWithTheStatus) {
    const struct {
        const char* call;
        Status status;
        Lines lines;
    } cases[] = {
        {"initialize", -10875, {"AudioUnitInitialize failed: -10875"}},
        {"addPropertyListener 2000",
         7,
         {"AudioUnitAddPropertyListener( CurrentDevice ) failed: 7"}},
        {"addPropertyListener 2", -1, {"AudioUnitAddPropertyListener( SampleRate ) failed: -1"}},
        {"setRenderCallback",
         -2147483647 - 1,
         {"AudioUnitSetProperty( SetRenderCallback ) failed: -2147483648"}},
        {"start",
         2147483647,
         {"AudioOutputUnitStart failed: 2147483647", "AudioOutputUnitStart failed: 2147483647"}},
        {"stop", -50, {"AudioOutputUnitStop failed: -50"}},
        {"setCurrentDevice", 1234, {}}, // not checked
        {"setStreamFormat", 1234, {}},
        {"open", 5, {}}, // a unit was obtained all the same
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.call);
        script = {};
        script.fail(test.call, test.status);
        runThrough();
        EXPECT_EQ(takeLog(), test.lines);
        EXPECT_EQ(script.calls.size(), 10u) << "it carries on";
        EXPECT_TRUE(unit().isRunning());
        endUnit();
        hardware.removeDevice(a);
        settle();
    }
}

TEST_F(AUOutputFailures, AFailedStartLeavesItRunning) {
    hardware.addDevice(loudspeaker("A"));
    script.fail("start", -3);
    unit().setOutputDeviceAtIndex(0);
    EXPECT_EQ(takeLog(), Lines{"AudioOutputUnitStart failed: -3"});
    EXPECT_TRUE(unit().isRunning());
}

TEST_F(AUOutputFailures, AFailedStopLeavesItStopped) {
    hardware.addDevice(loudspeaker("A"));
    unit().setOutputDeviceAtIndex(0);
    script.fail("stop", -3);
    unit().stop();
    EXPECT_EQ(takeLog(), Lines{"AudioOutputUnitStop failed: -3"});
    EXPECT_FALSE(unit().isRunning());
}

TEST_F(AUOutputFailures, WithoutAUnitEveryLaterCallFailsAndLogs) {
    const struct {
        const char* name;
        bool isAvailable;
        Status status;
        Lines lines;
        Lines calls;
    } cases[] = {
        {"no component", false, 0, {"FindNextComponent failed."}, {}},
        {"not opened",
         true,
         -3,
         {"OpenAComponent failed: -3", "AudioUnitAddPropertyListener( CurrentDevice ) failed: -1",
          "AudioUnitAddPropertyListener( SampleRate ) failed: -1"},
         {"open"}},
        {"not opened, and no reason",
         true,
         0,
         {"OpenAComponent failed: 0", "AudioUnitAddPropertyListener( CurrentDevice ) failed: -1",
          "AudioUnitAddPropertyListener( SampleRate ) failed: -1"},
         {"open"}},
    };
    const DeviceId id = hardware.addDevice(loudspeaker("A", 48000));
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        script = {};
        script.isAvailable = test.isAvailable;
        script.opens = false;
        script.fail("open", test.status);
        unit();
        EXPECT_EQ(takeLog(), test.lines);
        unit().setAURenderProc(renderNothing, nullptr);
        unit().setOutputDeviceWithName("M : A");
        EXPECT_TRUE(unit().isRunning());
        EXPECT_EQ(unit().outputDevice(), id);
        EXPECT_EQ(unit().outputDeviceName(), "M : A");
        EXPECT_EQ(unit().sampleRate(), 48000.0);
        unit().stop();
        EXPECT_FALSE(unit().isRunning());
        unit().start();
        EXPECT_EQ(takeLog(),
                  (Lines{"AudioUnitSetProperty( SetRenderCallback ) failed: -1",
                         "AudioOutputUnitStart failed: -1", "AudioOutputUnitStop failed: -1",
                         "AudioOutputUnitStart failed: -1"}));
        unit().setAUDevice();
        unit().updateCurrentDevice();
        unit().notifyListener();
        EXPECT_EQ(takeHeard(), Lines{"2 scope 0 element 0"});
        endUnit();
        EXPECT_EQ(script.calls, test.calls);
    }
}

TEST_F(AUOutputFailures, AUnitThatTellsNoFormatGetsTheRateAlone) {
    hardware.addDevice(loudspeaker("A", 96000));
    script.hasFormat = false;
    unit().setOutputDeviceAtIndex(0);
    EXPECT_EQ(script.format, (StreamDescription{.sampleRate = 96000}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputFailures, ADeviceThatTellsNoFormatKeepsTheRateOfTheLastOne) {
    hardware.addDevice(loudspeaker("A", 96000));
    const DeviceId b = hardware.addDevice(loudspeaker("B", 44100));
    unit().setOutputDeviceAtIndex(0);
    hardware.faults().failEvery(HardwareCall::streamFormat, -1, b);
    unit().setOutputDeviceAtIndex(1);
    EXPECT_EQ(unit().outputDevice(), b);
    EXPECT_EQ(unit().sampleRate(), 96000.0);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUOutputFailures, ADataSourceThatIsRefusedIsSilent) {
    const DeviceId card = hardware.addDevice(loudspeaker("Card", 44100, {"Line", "Phones"}));
    unit();
    hardware.faults().failEvery(HardwareCall::setDataSource, -9, card);
    unit().setOutputDeviceAtIndex(1);
    EXPECT_EQ(unit().outputDeviceName(), "M : Phones");
    EXPECT_TRUE(unit().isRunning());
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace veltrano
