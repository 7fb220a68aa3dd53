// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/MainThread.h"

#include <QSocketNotifier>
#include <utility>

namespace veltrano {

MainThread::MainThread()
    : mNotifier(new QSocketNotifier(mWakeUp.descriptor(), QSocketNotifier::Read, this)) {
    connect(mNotifier, &QSocketNotifier::activated, this, &MainThread::runPending);
}

MainThread::~MainThread() = default;

void MainThread::post(std::function<void()> function) {
    {
        const std::scoped_lock lock(mMutex);
        mWaiting.push_back(std::move(function));
    }
    mWakeUp.signal();
}

void MainThread::runPending() {
    mWakeUp.clear();
    std::size_t waiting = 0;
    {
        const std::scoped_lock lock(mMutex);
        waiting = mWaiting.size(); // what they post in turn runs later
    }
    for (; waiting > 0; --waiting) {
        std::function<void()> function;
        {
            const std::scoped_lock lock(mMutex);
            if (mWaiting.empty()) return; // a dialog that a function ran has served them
            function = std::move(mWaiting.front());
            mWaiting.pop_front();
            // A function may run a dialog: the rest must not wait for the dialog's end.
            if (!mWaiting.empty()) mWakeUp.signal();
        }
        function();
    }
}

} // namespace veltrano
