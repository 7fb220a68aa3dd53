// SPDX-License-Identifier: GPL-3.0-or-later
// The event loop's one-shot timer.
#include "platform/desktop/EventLoopTimer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

class EventLoopTimerTest : public testing::Test {
protected:
    // Until so much time has gone by.
    static void run(int milliseconds) {
        QElapsedTimer elapsed;
        elapsed.start();
        while (elapsed.elapsed() < milliseconds) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
    }

    int mArgc = 1;
    std::string mName = "test";
    char* mArgv[2] = {mName.data(), nullptr};
    QCoreApplication mApplication{mArgc, mArgv};
    EventLoopTimer mTimer;
    std::string mDone;
};

TEST_F(EventLoopTimerTest, RunsOnceAndNotBeforeItsTime) {
    QElapsedTimer elapsed;
    elapsed.start();
    qint64 at = -1;
    mTimer.start(30, [&] { at = elapsed.elapsed(), mDone += "a"; });
    run(120);
    EXPECT_EQ(mDone, "a");
    EXPECT_GE(at, 28); // coarse timers may be early by a twentieth
}

TEST_F(EventLoopTimerTest, AStartReplacesTheOneBefore) {
    mTimer.start(10, [&] { mDone += "a"; });
    mTimer.start(20, [&] { mDone += "b"; });
    run(100);
    EXPECT_EQ(mDone, "b");
}

TEST_F(EventLoopTimerTest, CancelAndTheEndOfTheTimer) {
    mTimer.start(10, [&] { mDone += "a"; });
    mTimer.cancel();
    {
        EventLoopTimer other;
        other.start(10, [&] { mDone += "b"; });
    }
    run(60);
    EXPECT_EQ(mDone, "");
}

TEST_F(EventLoopTimerTest, WhatRunsMayStartItAnew) {
    mTimer.start(1, [&] {
        mDone += "a";
        mTimer.start(1, [&] { mDone += "b"; });
    });
    run(60);
    EXPECT_EQ(mDone, "ab");
}

} // namespace
} // namespace veltrano
