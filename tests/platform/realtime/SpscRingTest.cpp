// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/SpscRing.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

TEST(SpscRingTest, CapacityIsRoundedUpToAPowerOfTwo) {
    constexpr struct {
        std::size_t wanted, given;
    } kCases[] = {{0, 1}, {1, 1}, {2, 2}, {3, 4}, {32, 32}, {33, 64}};
    for (const auto& test : kCases)
        EXPECT_EQ(SpscRing<int>(test.wanted).capacity(), test.given);
}

TEST(SpscRingTest, EveryPlaceIsUsableAndTheOrderIsKept) {
    SpscRing<int> ring(4);
    int value = -1;
    for (int round = 0; round < 5; ++round) { // over the end of the storage
        for (int i = 0; i < 4; ++i)
            EXPECT_TRUE(ring.push(10 * round + i));
        EXPECT_FALSE(ring.push(99)) << "full";
        for (int i = 0; i < 4; ++i) {
            EXPECT_TRUE(ring.pop(value));
            EXPECT_EQ(value, 10 * round + i);
        }
        value = 7;
        EXPECT_FALSE(ring.pop(value)) << "empty";
        EXPECT_EQ(value, 7) << "untouched";
        EXPECT_TRUE(ring.push(0));
        EXPECT_TRUE(ring.pop(value));
    }
}

/// Larger than a machine word, so that a torn value would show.
struct Wide {
    std::uint64_t serial = 0;
    std::uint64_t twice = 0;
    std::uint64_t negated = 0;
};

TEST(SpscRingTest, TwoThreadsLoseNothingAndTearNothing) {
    constexpr std::uint64_t kValues = 500'000;
    SpscRing<Wide> ring(8);
    std::thread producer([&] {
        for (std::uint64_t i = 0; i < kValues; ++i) {
            while (!ring.push({i, 2 * i, ~i}))
                std::this_thread::yield();
        }
    });
    for (std::uint64_t expected = 0; expected < kValues; ++expected) {
        Wide value;
        while (!ring.pop(value))
            std::this_thread::yield();
        ASSERT_EQ(value.serial, expected);
        ASSERT_EQ(value.twice, 2 * expected);
        ASSERT_EQ(value.negated, ~expected);
    }
    producer.join();
    Wide rest;
    EXPECT_FALSE(ring.pop(rest));
}

} // namespace
} // namespace veltrano
