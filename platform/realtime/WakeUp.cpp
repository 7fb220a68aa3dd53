// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/realtime/WakeUp.h"

#include "platform/realtime/Realtime.h"

#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace veltrano {

WakeUp::WakeUp() noexcept : mDescriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

WakeUp::~WakeUp() {
    if (mDescriptor >= 0) ::close(mDescriptor);
}

void WakeUp::signal() noexcept {
    const KnownNotToWait written; // the descriptor is non-blocking
    const std::uint64_t one = 1;
    // EAGAIN means that the counter is full: the reader is awake already.
    while (::write(mDescriptor, &one, sizeof one) < 0 && errno == EINTR) {
    }
}

void WakeUp::clear() noexcept {
    std::uint64_t count = 0;
    while (::read(mDescriptor, &count, sizeof count) < 0 && errno == EINTR) {
    }
}

} // namespace veltrano
