// SPDX-License-Identifier: GPL-3.0-or-later
// The time of an update cycle.
#pragma once

namespace veltrano {

/// Seconds since a reference date. Thread: main.
class Clock {
public:
    virtual ~Clock() = default;
    virtual double now() const = 0; ///< [s] never runs backwards
};

/// A clock that stands where it was put: the recording's own time, and tests.
class ManualClock final : public Clock {
public:
    double now() const override { return mNow; }
    void set(double seconds) { mNow = seconds; }

private:
    double mNow = 0;
};

} // namespace veltrano
