// SPDX-License-Identifier: GPL-3.0-or-later
// Counts what a real-time thread must not do.
#pragma once

#include <cstddef>

namespace veltrano {

/// Counts the calls of malloc, free and pthread_mutex_lock of single threads. In sanitized builds,
/// where those functions are the sanitizer's, nothing is counted.
/// Thread: any; each call is about the calling thread.
class RealTimeCalls {
public:
    static bool isAvailable();
    static void begin() noexcept; ///< counts from now on, on this thread
    static void end() noexcept;
    static std::size_t allocations() noexcept; ///< malloc, calloc, realloc and free since begin()
    static std::size_t locks() noexcept;
};

} // namespace veltrano
