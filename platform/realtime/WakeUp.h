// SPDX-License-Identifier: GPL-3.0-or-later
// A non-blocking signal from any thread to an event loop.
#pragma once

namespace veltrano {

/// An eventfd: signal() makes the descriptor readable until clear().
///
/// Thread: signal() from any thread, the audio thread included: one write that neither waits nor
/// allocates. clear() on the thread that watches descriptor().
/// Errors: when the system has no descriptor left, descriptor() is -1 and signals are lost.
class WakeUp {
public:
    WakeUp() noexcept;
    ~WakeUp();
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;

    int descriptor() const noexcept { return mDescriptor; }
    void signal() noexcept;
    void clear() noexcept;

private:
    const int mDescriptor;
};

} // namespace veltrano
