// SPDX-License-Identifier: GPL-3.0-or-later
// Counts what an audio callback must not do.
#pragma once

#include <string>

namespace veltrano {

/// While one lives, every allocation, lock and wait of this thread is counted.
///
/// The C library's functions are replaced for the whole program: malloc and its relatives (the
/// operators new and delete end there), the mutex, condition, read-write-lock and semaphore
/// functions of pthread, sleeping and polling. Other threads are not counted.
class RealtimeWatch {
public:
    struct Counts {
        long allocations = 0; ///< malloc, calloc, realloc, aligned forms
        long releases = 0;    ///< free
        long locks = 0;       ///< taken, tried or signalled
        long waits = 0;       ///< sleeps and polls

        bool operator==(const Counts&) const = default;
    };

    RealtimeWatch() noexcept;
    ~RealtimeWatch();
    RealtimeWatch(const RealtimeWatch&) = delete;
    RealtimeWatch& operator=(const RealtimeWatch&) = delete;

    /// Of all threads, since the program began.
    static Counts counts() noexcept;
    /// False in a build with a sanitizer, which replaces the same functions itself.
    static bool isCounting() noexcept;
};

} // namespace veltrano
