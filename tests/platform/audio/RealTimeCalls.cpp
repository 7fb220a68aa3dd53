// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/audio/RealTimeCalls.h"

#include <cstdlib>
#include <dlfcn.h>
#include <pthread.h>

namespace veltrano {
namespace {
thread_local bool tIsCounting = false;
thread_local std::size_t tAllocations = 0;
thread_local std::size_t tLocks = 0;

[[maybe_unused]] void countAllocation() noexcept {
    if (tIsCounting) ++tAllocations;
}
} // namespace

void RealTimeCalls::begin() noexcept {
    tAllocations = tLocks = 0;
    tIsCounting = true;
}
void RealTimeCalls::end() noexcept { tIsCounting = false; }
std::size_t RealTimeCalls::allocations() noexcept { return tAllocations; }
std::size_t RealTimeCalls::locks() noexcept { return tLocks; }

#ifdef VELTRANO_SANITIZED
bool RealTimeCalls::isAvailable() { return false; }
} // namespace veltrano
#else
bool RealTimeCalls::isAvailable() { return true; }
} // namespace veltrano

// These stand in front of the C library's own functions for the whole program.
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t size) {
    veltrano::countAllocation();
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    veltrano::countAllocation();
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    veltrano::countAllocation();
    return __libc_realloc(memory, size);
}
void free(void* memory) {
    if (memory != nullptr) veltrano::countAllocation();
    __libc_free(memory);
}
int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    using Lock = int (*)(pthread_mutex_t*);
    static const Lock next = reinterpret_cast<Lock>(::dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    if (veltrano::tIsCounting) ++veltrano::tLocks;
    return next(mutex);
}
}
#endif
