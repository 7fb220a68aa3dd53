// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/realtime/RealtimeWatch.h"

#include <atomic>

namespace veltrano::realtime_watch {

thread_local bool isInside = false;
std::atomic<long> allocations{0};
std::atomic<long> releases{0};
std::atomic<long> locks{0};
std::atomic<long> waits{0};

inline void count(std::atomic<long>& what) noexcept {
    if (isInside) what.fetch_add(1, std::memory_order_relaxed);
}

} // namespace veltrano::realtime_watch

namespace veltrano {

RealtimeWatch::RealtimeWatch() noexcept { realtime_watch::isInside = true; }
RealtimeWatch::~RealtimeWatch() { realtime_watch::isInside = false; }

RealtimeWatch::Counts RealtimeWatch::counts() noexcept {
    return {realtime_watch::allocations.load(), realtime_watch::releases.load(),
            realtime_watch::locks.load(), realtime_watch::waits.load()};
}

} // namespace veltrano

#ifdef VELTRANO_SANITIZED

bool veltrano::RealtimeWatch::isCounting() noexcept { return false; }

#else

bool veltrano::RealtimeWatch::isCounting() noexcept { return true; }

#include <cstddef>
#include <dlfcn.h>

// The names under which the C library itself offers what is replaced below.
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);
}

namespace {

using namespace veltrano::realtime_watch;

/// The library's own function, found once; that two threads find it does no harm.
template <class Function>
Function original(std::atomic<Function>& found, const char* name) noexcept {
    Function function = found.load(std::memory_order_relaxed);
    if (!function) {
        function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
        found.store(function, std::memory_order_relaxed);
    }
    return function;
}

} // namespace

// The definitions get their symbol by an assembler label: the headers' declarations, with their
// own exception specifications and types, stay out of the way.
#define VELTRANO_NAMED(result, name, parameters)                                                   \
    extern "C" result watched_##name parameters __asm__(#name);                                    \
    extern "C" result watched_##name parameters

VELTRANO_NAMED(void*, malloc, (std::size_t size)) {
    count(allocations);
    return __libc_malloc(size);
}

VELTRANO_NAMED(void*, calloc, (std::size_t number, std::size_t size)) {
    count(allocations);
    return __libc_calloc(number, size);
}

VELTRANO_NAMED(void*, realloc, (void* old, std::size_t size)) {
    count(allocations);
    return __libc_realloc(old, size);
}

VELTRANO_NAMED(void*, memalign, (std::size_t alignment, std::size_t size)) {
    count(allocations);
    return __libc_memalign(alignment, size);
}

VELTRANO_NAMED(void*, aligned_alloc, (std::size_t alignment, std::size_t size)) {
    count(allocations);
    return __libc_memalign(alignment, size);
}

VELTRANO_NAMED(int, posix_memalign, (void** result, std::size_t alignment, std::size_t size)) {
    constexpr int kNoMemory = 12;
    count(allocations);
    *result = __libc_memalign(alignment, size);
    return *result ? 0 : kNoMemory;
}

VELTRANO_NAMED(void, free, (void* memory)) {
    if (memory) count(releases);
    __libc_free(memory);
}

// Counts a call and passes it on.
#define VELTRANO_WATCH(counter, result, name, parameters, arguments)                               \
    VELTRANO_NAMED(result, name, parameters) {                                                     \
        static std::atomic<result(*) parameters> found{nullptr};                                   \
        count(counter);                                                                            \
        return original(found, #name) arguments;                                                   \
    }

VELTRANO_WATCH(locks, int, pthread_mutex_lock, (void* m), (m))
VELTRANO_WATCH(locks, int, pthread_mutex_trylock, (void* m), (m))
VELTRANO_WATCH(locks, int, pthread_mutex_timedlock, (void* m, const void* t), (m, t))
VELTRANO_WATCH(locks, int, pthread_mutex_clocklock, (void* m, int c, const void* t), (m, c, t))
VELTRANO_WATCH(locks, int, pthread_mutex_unlock, (void* m), (m))
VELTRANO_WATCH(locks, int, pthread_spin_lock, (void* s), (s))
VELTRANO_WATCH(locks, int, pthread_rwlock_rdlock, (void* l), (l))
VELTRANO_WATCH(locks, int, pthread_rwlock_wrlock, (void* l), (l))
VELTRANO_WATCH(locks, int, pthread_cond_wait, (void* c, void* m), (c, m))
VELTRANO_WATCH(locks, int, pthread_cond_timedwait, (void* c, void* m, const void* t), (c, m, t))
VELTRANO_WATCH(locks, int, pthread_cond_clockwait, (void* c, void* m, int k, const void* t),
               (c, m, k, t))
VELTRANO_WATCH(locks, int, pthread_cond_signal, (void* c), (c))
VELTRANO_WATCH(locks, int, pthread_cond_broadcast, (void* c), (c))
VELTRANO_WATCH(locks, int, sem_wait, (void* s), (s))
VELTRANO_WATCH(locks, int, sem_post, (void* s), (s))
VELTRANO_WATCH(waits, int, nanosleep, (const void* t, void* r), (t, r))
VELTRANO_WATCH(waits, int, clock_nanosleep, (int c, int f, const void* t, void* r), (c, f, t, r))
VELTRANO_WATCH(waits, int, usleep, (unsigned t), (t))
VELTRANO_WATCH(waits, int, poll, (void* f, unsigned long n, int t), (f, n, t))
VELTRANO_WATCH(waits, int, ppoll, (void* f, unsigned long n, const void* t, const void* s),
               (f, n, t, s))
VELTRANO_WATCH(waits, int, sched_yield, (), ())
// What a wait on an atomic becomes.
VELTRANO_WATCH(waits, long, syscall, (long number, long a, long b, long c, long d, long e, long f),
               (number, a, b, c, d, e, f))

#endif
