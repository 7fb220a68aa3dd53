// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/StandardErrorLog.h"
#include "platform/foundation/SteadyClock.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

TEST(StandardErrorLogTest, WritesOneLineEach) {
    StandardErrorLog log;
    testing::internal::CaptureStderr();
    log.line("AudioOutputUnitStart failed: -1");
    log.detail("3 frames were dropped.");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "AudioOutputUnitStart failed: -1\nveltrano.detail: 3 frames were dropped.\n");
}

TEST(SteadyClockTest, CountsSecondsForward) {
    const SteadyClock clock;
    const double before = clock.now();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double passed = clock.now() - before;
    EXPECT_GE(passed, 0.020);
    EXPECT_LT(passed, 5.0);
}

TEST(ManualClockTest, StandsWhereItWasPut) {
    ManualClock clock;
    EXPECT_EQ(clock.now(), 0.0);
    clock.set(12.25);
    EXPECT_EQ(clock.now(), 12.25);
}

} // namespace
} // namespace veltrano
