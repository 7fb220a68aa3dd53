// SPDX-License-Identifier: GPL-3.0-or-later
// Ends the program in order when the system asks for it.
#pragma once

#include <functional>

class QSocketNotifier;

namespace veltrano {

/// Calls a function on the main thread upon SIGTERM, SIGHUP and SIGINT, so that the settings are
/// written. Thread: main. One at a time; at its end the signals are as they were by default.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> terminate);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    const std::function<void()> mTerminate;
    QSocketNotifier* mNotifier;
};

} // namespace veltrano
