// SPDX-License-Identifier: GPL-3.0-or-later
// The watch sees what it is there to see; without that, a count of zero would mean nothing.
#include "tests/realtime/RealtimeWatch.h"
#include "platform/realtime/Realtime.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <thread>
#include <vector>

namespace veltrano {
namespace {

using Counts = RealtimeWatch::Counts;

Counts operator-(const Counts& a, const Counts& b) {
    return {a.allocations - b.allocations, a.releases - b.releases, a.locks - b.locks,
            a.waits - b.waits};
}

/// The compiler may not leave out what goes through here.
void* volatile kept = nullptr;

void release() {
    std::free(kept);
    kept = nullptr;
}

struct Sin {
    const char* name;
    std::function<void()> commit;
    bool allocates, releases, locks, waits;
};

std::mutex mutex;
std::shared_mutex sharedMutex;
std::condition_variable condition;
std::vector<float> samples;
std::string text;
std::atomic<int> atomicValue{0};

const Sin kSins[] = {
    {"nothing", [] {}, false, false, false, false},
    {"malloc",
     [] {
         kept = std::malloc(100);
         release();
     },
     true, true, false, false},
    {"calloc",
     [] {
         kept = std::calloc(10, 10);
         release();
     },
     true, true, false, false},
    {"realloc", [] { kept = std::realloc(kept, 200); }, true, false, false, false},
    {"free", [] { release(); }, false, true, false, false},
    {"aligned_alloc",
     [] {
         kept = std::aligned_alloc(64, 128);
         release();
     },
     true, true, false, false},
    {"posix_memalign",
     [] {
         void* memory = nullptr;
         if (::posix_memalign(&memory, 64, 128) == 0) kept = memory;
         release();
     },
     true, true, false, false},
    {"new and delete", [] { delete new std::string(100, 'x'); }, true, true, false, false},
    {"over-aligned new",
     [] {
         struct alignas(128) Wide {
             float values[64];
         };
         const auto wide = std::make_unique<Wide>();
         kept = wide.get();
         kept = nullptr;
     },
     true, true, false, false},
    {"vector that grows", [] { samples.resize(samples.size() + 5000); }, true, false, false, false},
    {"text that grows", [] { text.append(500, 'x'); }, true, false, false, false},
    {"mutex", [] { const std::scoped_lock lock(mutex); }, false, false, true, false},
    {"tried mutex",
     [] {
         if (mutex.try_lock()) mutex.unlock();
     },
     false, false, true, false},
    {"shared mutex", [] { const std::shared_lock lock(sharedMutex); }, false, false, true, false},
    {"condition signalled", [] { condition.notify_one(); }, false, false, true, false},
    {"condition waited for",
     [] {
         std::unique_lock lock(mutex);
         condition.wait_for(lock, std::chrono::milliseconds(1));
     },
     false, false, true, false},
    {"sleep", [] { std::this_thread::sleep_for(std::chrono::microseconds(10)); }, false, false,
     false, true},
    {"yield", [] { std::this_thread::yield(); }, false, false, false, true},
    {"wait on an atomic",
     [] {
         atomicValue.store(0);
         std::thread other([] {
             std::this_thread::sleep_for(std::chrono::milliseconds(5));
             atomicValue.store(1);
             atomicValue.notify_one();
         });
         atomicValue.wait(0);
         other.join();
     },
     true, false, false, true}, // starting the thread allocates
};

class RealtimeWatchTest : public testing::Test {
protected:
    RealtimeWatchTest() {
        if (!RealtimeWatch::isCounting()) {
            mReason = "the sanitizer of this build replaces the same functions itself";
        }
    }
    void SetUp() override {
        if (!mReason.empty()) GTEST_SKIP() << mReason;
    }

private:
    std::string mReason;
};

TEST_F(RealtimeWatchTest, CountsEverySin) {
    for (const Sin& sin : kSins) {
        SCOPED_TRACE(sin.name);
        const Counts before = RealtimeWatch::counts();
        {
            const RealtimeWatch watch;
            sin.commit();
        }
        const Counts found = RealtimeWatch::counts() - before;
        EXPECT_EQ(found.allocations > 0, sin.allocates);
        EXPECT_EQ(found.releases > 0, sin.releases);
        EXPECT_EQ(found.locks > 0, sin.locks);
        EXPECT_EQ(found.waits > 0, sin.waits);
    }
}

TEST_F(RealtimeWatchTest, CountsNothingOutsideAndNoOtherThread) {
    const Counts before = RealtimeWatch::counts();
    const auto commitAll = [] {
        for (const Sin& sin : kSins)
            sin.commit();
    };
    commitAll();
    std::atomic<bool> isWatching{false}, isDone{false};
    std::thread other([&] {
        while (!isWatching)
            std::this_thread::yield();
        commitAll();
        isDone = true;
    });
    {
        const RealtimeWatch watch;
        isWatching = true;
        while (!isDone) {
        }
    }
    other.join();
    EXPECT_EQ(RealtimeWatch::counts() - before, Counts{});
}

#ifdef VELTRANO_REALTIME_SANITIZER
void allocateInACallback() noexcept VELTRANO_NONBLOCKING { kept = std::malloc(100); }
void lockInACallback() noexcept VELTRANO_NONBLOCKING { mutex.lock(); }

TEST(RealtimeSanitizerTest, EndsTheProgramForASin) {
    EXPECT_DEATH(allocateInACallback(), "malloc");
    EXPECT_DEATH(lockInACallback(), "pthread_mutex_lock");
}
#endif

} // namespace
} // namespace veltrano
