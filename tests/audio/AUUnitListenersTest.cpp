// SPDX-License-Identifier: GPL-3.0-or-later
// The listeners that all units share, and the way from their thread to the main thread.
#include "tests/audio/AudioUnitTestBase.h"

#include <algorithm>
#include <thread>

namespace veltrano {
namespace {

using call_text::word;

/// Keeps what it is told, by its name, in a list shared with others.
class ToldUnit final : public AUUnit {
public:
    ToldUnit(AUUnitRegistry& registry, std::string name, Lines& told)
        : AUUnit(registry), mName(std::move(name)), mTold(told) {
        registry.addListenerTarget(*this);
    }
    Status audioHardwareListener(PropertyCode property) override {
        note(word(property));
        return 0;
    }
    Status audioDevicePropertyListener(DeviceId device, std::uint32_t channel, bool isInput,
                                       PropertyCode property) override {
        note(word(device) + " " + word(channel) + (isInput ? " input " : " output ") +
             word(property));
        return 0;
    }
    std::function<void()> onTold;

private:
    void note(const std::string& what) {
        mTold.push_back(mName + ": " + what);
        if (onTold) onTold();
    }

    const std::string mName;
    Lines& mTold;
};

class AUUnitListeners : public AudioUnitTestBase {
protected:
    explicit AUUnitListeners(NotifyOn where = NotifyOn::callingThread) : AudioUnitTestBase(where) {}

    /// The calls that install (or remove) the listeners of one device.
    static Lines listenerCalls(const std::string& operation, DeviceId device) {
        Lines calls;
        for (const char* side : {" input ", " output "}) {
            for (const char* what : {"diff 0", "sfmt 0", "ssrc 0", "volm all", "slay 0"}) {
                calls.push_back(operation + " " + text(device) + side + what);
            }
        }
        return calls;
    }
    static Lines removals(DeviceId device) { return listenerCalls("removeDeviceListener", device); }
    static Lines additions(DeviceId device) { return listenerCalls("addDeviceListener", device); }

    Lines told;
};

TEST_F(AUUnitListeners, AtTheStartTheDeviceListsListenerComesFirstThenFivePerSide) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(speaker("B"));
    registry();
    EXPECT_EQ(takeCalls(),
              joined({{"addHardwareListener dev#", "devices"}, additions(a), additions(b)}));
    EXPECT_EQ(registry().deviceIDs(), (std::vector{a, b}));
}

TEST_F(AUUnitListeners, UnpluggingRemovesTheOldListenersReadsTheArrayAndOnlyThenTellsTheTargets) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    const DeviceId b = hardware.addDevice(microphone("B"));
    ToldUnit first(registry(), "first", told);
    ToldUnit second(registry(), "second", told);
    // A read that nobody else makes marks the moment in the log of calls.
    first.onTold = [&] { hardware.defaultDevice(kOut); };
    second.onTold = [&] { hardware.defaultDevice(kIn); };
    takeCalls();

    hardware.removeDevice(a);
    EXPECT_EQ(takeCalls(), Lines{}); // nothing happens on the notifying thread
    mainThread.runAll();
    EXPECT_EQ(takeCalls(), joined({removals(a),
                                   removals(b),
                                   {"devices"},
                                   additions(b),
                                   {"defaultDevice output", "defaultDevice input"}}));
    EXPECT_EQ(told, (Lines{"first: dev#", "second: dev#"}));
    EXPECT_EQ(hardware.notifier().listenerCount(), 1u + 10);
}

TEST_F(AUUnitListeners, APluggedDeviceCarriesListenersBeforeTheTargetsHearOfIt) {
    ToldUnit unit(registry(), "unit", told);
    std::size_t listeners = 0;
    unit.onTold = [&] { listeners = hardware.notifier().listenerCount(); };
    hardware.addDevice(microphone("A"));
    mainThread.runAll();
    EXPECT_EQ(listeners, 1u + 10);
}

TEST_F(AUUnitListeners, EveryDeviceNotificationReachesAllTargetsInTheirOrder) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    ToldUnit first(registry(), "first", told);
    ToldUnit second(registry(), "second", told);
    const struct {
        std::uint32_t channel;
        Direction direction;
        PropertyCode property;
        const char* words;
    } rows[] = {
        {0, kIn, PropertyCode::deviceHasChanged, "0 input diff"},
        {0, kIn, PropertyCode::streamFormat, "0 input sfmt"},
        {0, kOut, PropertyCode::streamFormat, "0 output sfmt"},
        {0, kIn, PropertyCode::dataSource, "0 input ssrc"},
        {2, kIn, PropertyCode::volumeScalar, "2 input volm"},
        {0, kOut, PropertyCode::streamConfiguration, "0 output slay"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        told.clear();
        hardware.announce(a, row.channel, row.direction, row.property);
        EXPECT_EQ(told, Lines{});
        mainThread.runAll();
        const std::string words = text(a) + " " + row.words;
        EXPECT_EQ(told, (Lines{"first: " + words, "second: " + words}));
    }
}

TEST_F(AUUnitListeners, AHardwarePropertyOtherThanTheListIsToldWithoutARebuild) {
    hardware.addDevice(microphone("A"));
    ToldUnit unit(registry(), "unit", told);
    takeCalls();
    registry().audioHardwareListenerWithObject(PropertyCode::volumeScalar);
    EXPECT_EQ(takeCalls(), Lines{});
    EXPECT_EQ(told, Lines{"unit: volm"});
}

TEST_F(AUUnitListeners, FailuresOfListenerCallsAreIgnored) {
    for (const HardwareCall call :
         {HardwareCall::addHardwareListener, HardwareCall::addDeviceListener,
          HardwareCall::removeDeviceListener}) {
        SCOPED_TRACE(call_text::nameOf(call));
        hardware.faults().failEvery(call, 5);
        const DeviceId a = hardware.addDevice(microphone("A"));
        registry().rebuildDeviceList();
        EXPECT_EQ(registry().deviceIDs().back(), a);
        hardware.faults().clear();
        endRegistry();
    }
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(AUUnitListeners, ADeviceListThatCannotBeReadIsEmpty) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    registry();
    hardware.faults().failNext(HardwareCall::devices, 5);
    registry().rebuildDeviceList();
    EXPECT_TRUE(registry().deviceIDs().empty());
    EXPECT_EQ(hardware.notifier().listenerCount(), 1u);
    registry().rebuildDeviceList();
    EXPECT_EQ(registry().deviceIDs(), std::vector{a});
}

TEST_F(AUUnitListeners, AUnitThatEndsIsToldNoMoreAndTheOthersAreNotPassedOver) {
    auto first = std::make_unique<ToldUnit>(registry(), "first", told);
    ToldUnit second(registry(), "second", told);
    auto third = std::make_unique<ToldUnit>(registry(), "third", told);
    ToldUnit fourth(registry(), "fourth", told);
    second.onTold = [&] {
        first.reset(); // was told before
        third.reset(); // would be told next
    };
    registry().audioHardwareListenerWithObject(PropertyCode::devices);
    EXPECT_EQ(std::exchange(told, {}), (Lines{"first: dev#", "second: dev#", "fourth: dev#"}));
    registry().audioHardwareListenerWithObject(PropertyCode::devices);
    EXPECT_EQ(told, (Lines{"second: dev#", "fourth: dev#"}));
}

TEST_F(AUUnitListeners, AtItsEndNoListenerIsLeftAndWhatWaitsIsDropped) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    registry();
    hardware.announce(a, 0, kIn, PropertyCode::streamFormat);
    hardware.removeDevice(a);
    endRegistry();
    EXPECT_EQ(hardware.notifier().listenerCount(), 0u);
    EXPECT_EQ(mainThread.runAll(), 2);
}

class AUUnitHandOff : public AUUnitListeners {
protected:
    AUUnitHandOff() : AUUnitListeners(NotifyOn::notificationThread) {}
};

TEST_F(AUUnitHandOff, WhatANotificationThreadReportsIsToldOnTheMainThreadInOrder) {
    const DeviceId a = hardware.addDevice(microphone("A"));
    hardware.notifier().drain();
    ToldUnit unit(registry(), "unit", told);
    std::vector<std::thread::id> threads;
    unit.onTold = [&] { threads.push_back(std::this_thread::get_id()); };
    hardware.announce(a, 0, kIn, PropertyCode::streamFormat);
    hardware.announce(a, 1, kIn, PropertyCode::volumeScalar);
    hardware.removeDevice(a);
    hardware.notifier().drain();
    EXPECT_TRUE(told.empty()); // waits for the main thread
    mainThread.runAll();
    EXPECT_EQ(told, (Lines{"unit: " + text(a) + " 0 input sfmt",
                           "unit: " + text(a) + " 1 input volm", "unit: dev#"}));
    EXPECT_EQ(threads, std::vector(3, std::this_thread::get_id()));
}

TEST_F(AUUnitHandOff, DevicesComeAndGoWhileTheMainThreadWorks) {
    ToldUnit unit(registry(), "unit", told);
    for (int round = 0; round < 200; ++round) {
        const DeviceId id = hardware.addDevice(microphone("A"));
        hardware.announce(id, 0, kIn, PropertyCode::streamFormat);
        mainThread.runAll();
        hardware.removeDevice(id);
        mainThread.runAll();
    }
    hardware.notifier().drain();
    mainThread.runAll();
    EXPECT_EQ(std::count(told.begin(), told.end(), "unit: dev#"), 400);
    EXPECT_TRUE(registry().deviceIDs().empty());
    EXPECT_EQ(hardware.notifier().listenerCount(), 1u);
}

TEST_F(AUUnitHandOff, TheRegistryMayEndWhileNotificationsArrive) {
    for (int round = 0; round < 50; ++round) {
        registry();
        for (int i = 0; i < 5; ++i) {
            const DeviceId id = hardware.addDevice(microphone("A"));
            hardware.announce(id, 0, kIn, PropertyCode::streamFormat);
            hardware.removeDevice(id);
        }
        endRegistry();
        mainThread.runAll();
    }
    EXPECT_EQ(hardware.notifier().listenerCount(), 0u);
}

} // namespace
} // namespace veltrano
