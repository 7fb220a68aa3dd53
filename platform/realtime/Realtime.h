// SPDX-License-Identifier: GPL-3.0-or-later
// Marks functions that run in an audio callback.
#pragma once

// With clang's RealtimeSanitizer the mark makes every allocation, lock or wait inside an error.
#if defined(__clang__) && defined(__has_cpp_attribute)
#if __has_cpp_attribute(clang::nonblocking)
#define VELTRANO_NONBLOCKING [[clang::nonblocking]]
#endif
#endif
#ifndef VELTRANO_NONBLOCKING
#define VELTRANO_NONBLOCKING
#endif

#if defined(__has_feature)
#if __has_feature(realtime_sanitizer)
#define VELTRANO_REALTIME_SANITIZER
extern "C" void __rtsan_disable(void);
extern "C" void __rtsan_enable(void);
#endif
#endif

namespace veltrano {

/// While one lives, the sanitizer lets calls pass that wait in general but not as they are used
/// here. Name the reason where it stands.
class KnownNotToWait {
public:
#ifdef VELTRANO_REALTIME_SANITIZER
    KnownNotToWait() noexcept { __rtsan_disable(); }
    ~KnownNotToWait() { __rtsan_enable(); }
#else
    KnownNotToWait() noexcept {}
    ~KnownNotToWait() {}
#endif
    KnownNotToWait(const KnownNotToWait&) = delete;
    KnownNotToWait& operator=(const KnownNotToWait&) = delete;
};

} // namespace veltrano
