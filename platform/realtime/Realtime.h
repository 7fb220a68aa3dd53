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
