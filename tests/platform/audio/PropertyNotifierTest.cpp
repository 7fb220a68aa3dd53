// SPDX-License-Identifier: GPL-3.0-or-later
// Listeners: on which thread, in which order, and never after their removal.
#include "platform/audio/PropertyNotifier.h"
#include "tests/platform/audio/NotificationRecorder.h"

#include <atomic>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

PropertyNotifier::HardwareListener hardwareListener(NotificationRecorder& recorder) {
    return {PropertyCode::devices, NotificationRecorder::onHardware, &recorder};
}
PropertyNotifier::DeviceListener deviceListener(NotificationRecorder& recorder) {
    return {
        5,        0, Direction::input, PropertyCode::streamFormat, NotificationRecorder::onDevice,
        &recorder};
}

TEST(PropertyNotifier, OnTheCallingThreadListenersHearAtOnce) {
    PropertyNotifier notifier(NotifyOn::callingThread);
    NotificationRecorder recorder;
    notifier.add(hardwareListener(recorder));
    notifier.notifyHardware(PropertyCode::devices);
    EXPECT_EQ(recorder.lines(), Lines{"dev#"});
    EXPECT_EQ(recorder.thread(), std::this_thread::get_id());
    notifier.notifyHardware(PropertyCode::streamFormat);
    EXPECT_EQ(recorder.lines().size(), 1u);
}

TEST(PropertyNotifier, OnItsOwnThreadListenersHearInTheOrderOfTheChanges) {
    PropertyNotifier notifier(NotifyOn::notificationThread);
    NotificationRecorder recorder;
    notifier.add(hardwareListener(recorder));
    notifier.add(deviceListener(recorder));
    Lines expected;
    for (int round = 0; round < 50; ++round) {
        notifier.notifyHardware(PropertyCode::devices);
        notifier.notifyDevice(5, 0, Direction::input, PropertyCode::streamFormat);
        expected.insert(expected.end(), {"dev#", "5 0 input sfmt"});
    }
    notifier.drain();
    EXPECT_EQ(recorder.lines(), expected);
    EXPECT_NE(recorder.thread(), std::this_thread::get_id());
}

TEST(PropertyNotifier, ListenersHearInTheOrderOfTheirAdding) {
    PropertyNotifier notifier(NotifyOn::callingThread);
    std::vector<int> heard;
    NotificationRecorder first;
    NotificationRecorder second;
    first.inside = [&] { heard.push_back(1); };
    second.inside = [&] { heard.push_back(2); };
    notifier.add(hardwareListener(first));
    notifier.add(hardwareListener(second));
    notifier.notifyHardware(PropertyCode::devices);
    EXPECT_EQ(heard, (std::vector{1, 2}));
}

TEST(PropertyNotifier, AListenerMayRemoveTheNextOneAndAddAnother) {
    PropertyNotifier notifier(NotifyOn::callingThread);
    NotificationRecorder first;
    NotificationRecorder second;
    NotificationRecorder third;
    first.inside = [&] {
        notifier.remove(hardwareListener(second));
        notifier.add(hardwareListener(third));
    };
    notifier.add(hardwareListener(first));
    notifier.add(hardwareListener(second));
    notifier.notifyHardware(PropertyCode::devices);
    EXPECT_EQ(first.lines().size(), 1u);
    EXPECT_TRUE(second.lines().empty());
    EXPECT_TRUE(third.lines().empty()); // hears of the next change
}

TEST(PropertyNotifier, AListenerThatIsPutBackIsNotCalledForTheChangeUnderWay) {
    PropertyNotifier notifier(NotifyOn::callingThread);
    NotificationRecorder first;
    NotificationRecorder second;
    first.inside = [&] {
        notifier.remove(hardwareListener(second));
        notifier.add(hardwareListener(second));
    };
    notifier.add(hardwareListener(first));
    notifier.add(hardwareListener(second));
    notifier.notifyHardware(PropertyCode::devices);
    EXPECT_TRUE(second.lines().empty());
}

TEST(PropertyNotifier, WhenRemovalHasReturnedTheListenerIsNotRunning) {
    PropertyNotifier notifier(NotifyOn::notificationThread);
    for (int round = 0; round < 100; ++round) {
        std::atomic<bool> isInside = false;
        auto recorder = std::make_unique<NotificationRecorder>();
        recorder->inside = [&] {
            isInside = true;
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            isInside = false;
        };
        notifier.add(hardwareListener(*recorder));
        notifier.notifyHardware(PropertyCode::devices);
        notifier.notifyHardware(PropertyCode::devices);
        if (round % 2 == 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
        EXPECT_TRUE(notifier.remove(hardwareListener(*recorder)));
        EXPECT_FALSE(isInside);
        recorder.reset(); // a later call would touch it
    }
    notifier.drain();
}

TEST(PropertyNotifier, ChangesThatWaitAtTheEndAreDropped) {
    NotificationRecorder recorder;
    recorder.inside = [] { std::this_thread::sleep_for(std::chrono::milliseconds(5)); };
    {
        PropertyNotifier notifier(NotifyOn::notificationThread);
        notifier.add(hardwareListener(recorder));
        for (int i = 0; i < 1000; ++i)
            notifier.notifyHardware(PropertyCode::devices);
    }
    EXPECT_LT(recorder.lines().size(), 1000u);
}

} // namespace
} // namespace veltrano
