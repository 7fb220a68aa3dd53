// SPDX-License-Identifier: GPL-3.0-or-later
// The door to the main thread for every thread that may lock and allocate.
#pragma once

#include "platform/realtime/WakeUp.h"

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

class QSocketNotifier;

namespace veltrano {

/// Runs functions on the main thread, in the order of posting, without making the poster wait.
///
/// Thread: post() from any thread but an audio callback (it locks and allocates); the functions run
/// on the thread that made this object, also while a menu tracks or a modal dialog runs.
/// Edges: a function posted by a running function runs in a later turn of the event loop. Functions
/// still waiting when this object is destroyed are dropped.
class MainThread : public QObject {
    Q_OBJECT
public:
    MainThread();
    ~MainThread() override;

    void post(std::function<void()> function);
    /// Main thread. Runs what is waiting now; for tests and programs without an event loop.
    void runPending();

private:
    std::mutex mMutex;
    std::deque<std::function<void()>> mWaiting; ///< guarded by mMutex
    WakeUp mWakeUp;
    QSocketNotifier* mNotifier; ///< child of this
};

} // namespace veltrano
