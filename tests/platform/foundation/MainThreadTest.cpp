// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/MainThread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace veltrano {
namespace {

class MainThreadTest : public testing::Test {
protected:
    MainThreadTest() : mApplication(mArgc, mArgv) {}

    /// Runs the event loop until @p isDone, at most two seconds.
    template <class Condition>
    static bool waitFor(Condition isDone) {
        QTimer limit;
        limit.setSingleShot(true);
        limit.start(2000);
        while (!isDone() && limit.isActive()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        }
        return isDone();
    }

private:
    int mArgc = 1;
    char mName[5] = "test";
    char* mArgv[2] = {mName, nullptr};
    QCoreApplication mApplication;
};

using Order = std::vector<int>;

TEST_F(MainThreadTest, RunsPostsOfAnotherThreadHereInTheirOrder) {
    MainThread mainThread;
    Order order;
    std::vector<std::thread::id> ranOn;
    std::thread poster([&] {
        for (int i = 0; i < 1000; ++i) {
            mainThread.post([&, i] {
                order.push_back(i);
                ranOn.push_back(std::this_thread::get_id());
            });
        }
    });
    EXPECT_TRUE(waitFor([&] { return order.size() == 1000; }));
    poster.join();
    for (std::size_t i = 0; i < order.size(); ++i)
        ASSERT_EQ(order[i], int(i));
    for (const std::thread::id id : ranOn)
        ASSERT_EQ(id, std::this_thread::get_id());
}

TEST_F(MainThreadTest, PostFromTheMainThreadDoesNotRunAtOnce) {
    MainThread mainThread;
    bool hasRun = false;
    mainThread.post([&] { hasRun = true; });
    EXPECT_FALSE(hasRun);
    EXPECT_TRUE(waitFor([&] { return hasRun; }));
}

TEST_F(MainThreadTest, SeveralPostersLoseNothing) {
    MainThread mainThread;
    int count = 0;
    std::vector<std::thread> posters;
    for (int t = 0; t < 4; ++t) {
        posters.emplace_back([&] {
            for (int i = 0; i < 500; ++i)
                mainThread.post([&] { ++count; });
        });
    }
    EXPECT_TRUE(waitFor([&] { return count == 2000; }));
    for (std::thread& poster : posters)
        poster.join();
}

TEST_F(MainThreadTest, RunPendingNeedsNoEventLoop) {
    MainThread mainThread;
    Order order;
    mainThread.post([&] {
        order.push_back(1);
        mainThread.post([&] { order.push_back(3); });
    });
    mainThread.post([&] { order.push_back(2); });
    mainThread.runPending();
    EXPECT_EQ(order, (Order{1, 2})) << "what a function posts runs in a later turn";
    mainThread.runPending();
    EXPECT_EQ(order, (Order{1, 2, 3}));
    mainThread.runPending();
    EXPECT_EQ(order, (Order{1, 2, 3}));
}

TEST_F(MainThreadTest, IsServedInsideANestedEventLoop) {
    MainThread mainThread;
    Order order;
    QEventLoop dialog;
    mainThread.post([&] {
        order.push_back(1);
        dialog.exec(); // what is already waiting must not wait for its end
        order.push_back(4);
    });
    mainThread.post([&] { order.push_back(2); });
    std::thread poster;
    mainThread.post([&] {
        poster = std::thread([&] {
            mainThread.post([&] {
                order.push_back(3);
                dialog.quit();
            });
        });
    });
    QTimer::singleShot(2000, &dialog, &QEventLoop::quit);
    EXPECT_TRUE(waitFor([&] { return order.size() == 4; }));
    poster.join();
    EXPECT_EQ(order, (Order{1, 2, 3, 4}));
}

TEST_F(MainThreadTest, WhatStillWaitsAtTheEndIsDropped) {
    bool hasRun = false;
    {
        MainThread mainThread;
        mainThread.post([&] { hasRun = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasRun);
}

} // namespace
} // namespace veltrano
