// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/WakeUp.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <thread>

namespace veltrano {
namespace {

bool isReadable(const WakeUp& wakeUp, int milliseconds = 0) {
    pollfd watched{wakeUp.descriptor(), POLLIN, 0};
    return ::poll(&watched, 1, milliseconds) == 1 && (watched.revents & POLLIN) != 0;
}

TEST(WakeUpTest, IsReadableFromTheSignalToTheClear) {
    WakeUp wakeUp;
    ASSERT_GE(wakeUp.descriptor(), 0);
    EXPECT_FALSE(isReadable(wakeUp));
    wakeUp.signal();
    EXPECT_TRUE(isReadable(wakeUp));
    EXPECT_TRUE(isReadable(wakeUp)) << "looking does not clear";
    wakeUp.clear();
    EXPECT_FALSE(isReadable(wakeUp));
}

TEST(WakeUpTest, ManySignalsAreClearedTogether) {
    WakeUp wakeUp;
    for (int i = 0; i < 1000; ++i)
        wakeUp.signal();
    wakeUp.clear();
    EXPECT_FALSE(isReadable(wakeUp));
}

TEST(WakeUpTest, ClearWithoutASignalDoesNotWait) {
    WakeUp wakeUp;
    wakeUp.clear();
    EXPECT_FALSE(isReadable(wakeUp));
}

TEST(WakeUpTest, WakesAWaitingThread) {
    WakeUp wakeUp;
    std::thread audio([&] { wakeUp.signal(); });
    EXPECT_TRUE(isReadable(wakeUp, 5000));
    audio.join();
}

} // namespace
} // namespace veltrano
