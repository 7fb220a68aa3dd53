// SPDX-License-Identifier: GPL-3.0-or-later
// The newest value of one thread for one other thread.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <type_traits>

namespace veltrano {

/// A triple buffer: each value crosses whole, and only the newest one counts.
///
/// Thread: set() on one thread, get() on one other thread; neither waits, locks or allocates.
template <class T>
class LatestValue {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    /// Writer.
    void set(const T& value) noexcept {
        mSlots[mWriting] = value;
        mWriting = mShared.exchange(mWriting | kFresh, std::memory_order_acq_rel) & kIndex;
    }

    /// Reader. The newest value, the same again when there is no newer one.
    const T& get() noexcept {
        if ((mShared.load(std::memory_order_relaxed) & kFresh) != 0) {
            mReading = mShared.exchange(mReading, std::memory_order_acq_rel) & kIndex;
        }
        return mSlots[mReading];
    }

private:
    static constexpr std::uint32_t kIndex = 3;
    static constexpr std::uint32_t kFresh = 4; ///< the reader has not seen the shared slot

    std::array<T, 3> mSlots{};
    std::uint32_t mWriting = 0;            ///< writer only
    std::uint32_t mReading = 1;            ///< reader only
    std::atomic<std::uint32_t> mShared{2}; ///< exchanged by both
};

} // namespace veltrano
