// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TerminationSignals.h"

#include "platform/realtime/WakeUp.h"

#include <QObject>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <utility>

namespace veltrano {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

WakeUp& wakeUp() {
    static WakeUp wakeUp; // made before the handlers are installed
    return wakeUp;
}

/// One write, which a signal handler may do. Any thread may be interrupted by it.
void handle(int) {
    const int error = errno;
    wakeUp().signal();
    errno = error;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> terminate)
    : mTerminate(std::move(terminate)),
      mNotifier(new QSocketNotifier(wakeUp().descriptor(), QSocketNotifier::Read)) {
    QObject::connect(mNotifier, &QSocketNotifier::activated, [this] {
        wakeUp().clear();
        mTerminate();
    });
    for (const int signal : kSignals)
        std::signal(signal, handle);
}

TerminationSignals::~TerminationSignals() {
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    delete mNotifier;
}

} // namespace veltrano
