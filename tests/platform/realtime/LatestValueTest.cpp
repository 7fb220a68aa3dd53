// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/LatestValue.h"

#include <atomic>
#include <cstdint>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

TEST(LatestValueTest, IsADefaultValueBeforeTheFirstOne) {
    LatestValue<int> value;
    EXPECT_EQ(value.get(), 0);
    EXPECT_EQ(value.get(), 0);
}

TEST(LatestValueTest, TheNewestValueCountsAndStays) {
    LatestValue<int> value;
    for (int first = 1; first < 40; first += 3) {
        value.set(first);
        EXPECT_EQ(value.get(), first);
        EXPECT_EQ(value.get(), first) << "the same again";
        value.set(first + 1);
        value.set(first + 2);
        value.set(first + 3);
        EXPECT_EQ(value.get(), first + 3) << "those between are lost";
        EXPECT_EQ(value.get(), first + 3);
    }
}

/// Larger than a machine word, so that a torn value would show.
struct Wide {
    std::uint64_t serial = 0;
    std::uint64_t twice = 0;
    std::uint64_t rest[13]{};

    static Wide of(std::uint64_t serial) {
        Wide made{serial, 2 * serial, {}};
        for (std::uint64_t& word : made.rest)
            word = serial;
        return made;
    }
    bool isWhole() const {
        bool isSame = twice == 2 * serial;
        for (const std::uint64_t word : rest)
            isSame = isSame && word == serial;
        return isSame;
    }
};

TEST(LatestValueTest, TwoThreadsTearNothingAndNeverGoBack) {
    LatestValue<Wide> value;
    std::atomic<bool> isSeenOften{false};
    std::atomic<std::uint64_t> last{0};
    std::thread writer([&] {
        std::uint64_t serial = 0;
        while (!isSeenOften || serial < 2'000'000)
            value.set(Wide::of(++serial));
        last = serial;
    });
    std::uint64_t newest = 0, torn = 0, backward = 0, different = 0;
    while (last == 0 || newest < last) { // the last value arrives
        const Wide& seen = value.get();
        torn += !seen.isWhole();
        backward += seen.serial < newest;
        different += seen.serial != newest;
        newest = seen.serial;
        if (different >= 50) isSeenOften = true; // the threads run side by side
    }
    writer.join();
    EXPECT_EQ(torn, 0u);
    EXPECT_EQ(backward, 0u);
}

} // namespace
} // namespace veltrano
