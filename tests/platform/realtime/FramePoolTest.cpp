// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/FramePool.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace veltrano {
namespace {

std::vector<float> samples(std::size_t count, float value) {
    return std::vector<float>(count, value);
}

TEST(FramePoolTest, HandsOverCopiesInOrder) {
    const auto pool = FramePool::create(4, 8);
    std::vector<float> frame{0.25F, -0.5F, 1.0F};
    EXPECT_TRUE(pool->publish(frame, 3));
    frame.assign({9, 9, 9, 9}); // the audio thread goes on filling
    EXPECT_TRUE(pool->publish(frame, 7));

    const FrameRef first = pool->take();
    const FrameRef second = pool->take();
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(std::ranges::equal(first->samples, std::vector{0.25F, -0.5F, 1.0F}));
    EXPECT_EQ(first->samplesSoFar, 3u);
    EXPECT_TRUE(std::ranges::equal(second->samples, samples(4, 9)));
    EXPECT_EQ(second->samplesSoFar, 7u);
    EXPECT_EQ(pool->take(), nullptr);
    EXPECT_EQ(pool->dropped(), 0u);
}

TEST(FramePoolTest, DropsWholeFramesAndCountsThemWhenNoSlotIsFree) {
    const auto pool = FramePool::create(3, 4);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(pool->publish(samples(4, float(i)), std::uint64_t(i)), i < 3) << i;
    }
    EXPECT_EQ(pool->dropped(), 7u);
    for (int i = 0; i < 3; ++i) {
        const FrameRef frame = pool->take();
        ASSERT_TRUE(frame);
        EXPECT_TRUE(std::ranges::equal(frame->samples, samples(4, float(i)))) << "the oldest stay";
    }
    EXPECT_EQ(pool->take(), nullptr);
}

TEST(FramePoolTest, SlotReturnsWithItsLastReference) {
    const auto pool = FramePool::create(1, 4);
    EXPECT_TRUE(pool->publish(samples(4, 1), 4));
    FrameRef strobe = pool->take();
    FrameRef scope = strobe;
    EXPECT_FALSE(pool->publish(samples(4, 2), 8)) << "two views look at it";
    strobe.reset();
    EXPECT_FALSE(pool->publish(samples(4, 2), 8)) << "one view looks at it";
    EXPECT_TRUE(std::ranges::equal(scope->samples, samples(4, 1)));
    scope.reset();
    EXPECT_TRUE(pool->publish(samples(4, 3), 12));
    EXPECT_EQ(pool->dropped(), 2u);
}

TEST(FramePoolTest, FrameThatIsTooLongIsDropped) {
    const auto pool = FramePool::create(2, 4);
    EXPECT_FALSE(pool->publish(samples(5, 1), 5));
    EXPECT_EQ(pool->dropped(), 1u);
    EXPECT_EQ(pool->take(), nullptr);
    EXPECT_TRUE(pool->publish(samples(4, 1), 4)) << "the slots are all still there";
    EXPECT_TRUE(pool->publish(samples(4, 1), 8));
}

TEST(FramePoolTest, FrameOutlivesThePoolsOwner) {
    auto pool = FramePool::create(2, 4);
    pool->publish(samples(4, 0.5F), 4);
    const FrameRef frame = pool->take();
    pool.reset();
    EXPECT_TRUE(std::ranges::equal(frame->samples, samples(4, 0.5F)));
}

TEST(FramePoolTest, EverySlotServesForEver) {
    const auto pool = FramePool::create(3, 2);
    std::vector<FrameRef> held;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(pool->publish(samples(2, float(i)), std::uint64_t(i)));
        held.push_back(pool->take());
        ASSERT_EQ(held.back()->samples[1], float(i));
        if (held.size() == 3) held.erase(held.begin() + i % 3); // slots return in any order
    }
    EXPECT_EQ(pool->dropped(), 0u);
}

TEST(FramePoolTest, TwoThreadsTearNothingAndCountEveryFrame) {
    constexpr std::uint64_t kFrames = 50'000;
    constexpr std::size_t kLength = 64;
    const auto pool = FramePool::create(4, kLength);
    std::atomic<bool> isDone{false};
    std::uint64_t published = 0; // the audio thread's own count, read after it was joined
    std::thread audio([&] {
        std::vector<float> frame(kLength);
        for (std::uint64_t serial = 1; serial <= kFrames; ++serial) {
            std::ranges::fill(frame, float(serial));
            if (pool->publish(frame, serial)) ++published;
        }
        isDone.store(true);
    });
    std::uint64_t taken = 0, last = 0;
    std::vector<FrameRef> held; // as the views do
    for (;;) {
        const bool wasDone = isDone.load();
        FrameRef frame = pool->take();
        if (!frame) {
            if (wasDone) break;
            std::this_thread::yield();
            continue;
        }
        ++taken;
        ASSERT_GT(frame->samplesSoFar, last) << "out of order";
        last = frame->samplesSoFar;
        for (const float x : frame->samples)
            ASSERT_EQ(x, float(last)) << "torn";
        held.push_back(std::move(frame));
        if (held.size() > 2) held.erase(held.begin());
    }
    audio.join();
    EXPECT_EQ(taken, published);
    EXPECT_EQ(taken + pool->dropped(), kFrames);
    EXPECT_GT(taken, 0u);
}

} // namespace
} // namespace veltrano
