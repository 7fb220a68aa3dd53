// SPDX-License-Identifier: GPL-3.0-or-later
// A queue of fixed size between exactly two threads.
#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace veltrano {

/// Single-producer single-consumer queue of small values.
///
/// Thread: push() on one thread, pop() on one other thread; neither waits, locks or allocates.
/// Allocates: once, in the constructor. The running counters never wrap in practice (64 bit), so
/// every slot is usable and full and empty are told apart by their difference.
template <class T>
class SpscRing {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    /// @param capacity at least this many values fit; rounded up to a power of two
    explicit SpscRing(std::size_t capacity)
        : mMask(std::bit_ceil(capacity == 0 ? std::size_t{1} : capacity) - 1),
          mSlots(std::make_unique<T[]>(mMask + 1)) {}

    std::size_t capacity() const noexcept { return mMask + 1; }

    /// Producer. False, and nothing stored, when the queue is full.
    bool push(const T& value) noexcept {
        const std::size_t head = mHead.load(std::memory_order_relaxed);
        if (head - mTail.load(std::memory_order_acquire) > mMask) return false;
        mSlots[head & mMask] = value;
        mHead.store(head + 1, std::memory_order_release);
        return true;
    }

    /// Consumer. False, and @p value untouched, when the queue is empty.
    bool pop(T& value) noexcept {
        const std::size_t tail = mTail.load(std::memory_order_relaxed);
        if (tail == mHead.load(std::memory_order_acquire)) return false;
        value = mSlots[tail & mMask];
        mTail.store(tail + 1, std::memory_order_release);
        return true;
    }

private:
    const std::size_t mMask;
    const std::unique_ptr<T[]> mSlots;
    alignas(64) std::atomic<std::size_t> mHead{0}; ///< written by the producer only
    alignas(64) std::atomic<std::size_t> mTail{0}; ///< written by the consumer only
};

} // namespace veltrano
