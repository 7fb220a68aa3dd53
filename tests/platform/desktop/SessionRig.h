// SPDX-License-Identifier: GPL-3.0-or-later
// An event loop and a folder for tests of what the session gives.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace veltrano {

class SessionTest : public testing::Test {
protected:
    /// Serves events until the condition holds. @return whether it does within 10 s
    template <class Condition>
    static bool await(Condition condition, int milliseconds = 10000) {
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.elapsed() > milliseconds) return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return true;
    }
    static void serve(int milliseconds) {
        await([] { return false; }, milliseconds);
    }

    QTemporaryDir folder;

private:
    int mCount = 1;
    char mName[8] = "session";
    char* mArguments[2] = {mName, nullptr};
    const QCoreApplication mApplication{mCount, mArguments};
};

} // namespace veltrano
