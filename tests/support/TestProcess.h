// SPDX-License-Identifier: GPL-3.0-or-later
// A process that lives no longer than the test that started it.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace veltrano {

/// A process of the test's own. It is killed when this object goes, and when the test dies.
/// Thread: main (the kernel ends it together with the thread that started it).
class TestProcess {
public:
    /// @param environment added to the test's own, "NAME=value" each
    /// @param output where its standard output and error go; empty: nowhere
    TestProcess(const std::vector<std::string>& command,
                const std::vector<std::string>& environment, const std::string& output);
    ~TestProcess();
    TestProcess(const TestProcess&) = delete;
    TestProcess& operator=(const TestProcess&) = delete;

    pid_t id() const { return mId; }
    /// Sends it a signal.
    void signal(int number);
    /// SIGKILL, and waits until it is gone: another may take its place.
    void kill();
    /// Waits for its own end. @returns its exit code, or -1 when it was ended by a signal
    int await();

private:
    pid_t mId = -1; ///< -1: not running any more
};

} // namespace veltrano
