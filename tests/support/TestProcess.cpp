// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ; // NOLINT: the C library's own name

namespace veltrano {

namespace {

/// Pointers for exec; the strings must live on.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

TestProcess::TestProcess(const std::vector<std::string>& command,
                         const std::vector<std::string>& environment, const std::string& output) {
    // Everything that allocates comes before the fork: another thread may hold the heap's lock.
    std::vector<std::string> words = command;
    std::vector<std::string> variables = environment;
    for (char** variable = environ; *variable; ++variable)
        variables.emplace_back(*variable);
    const auto arguments = pointersTo(words);
    const auto all = pointersTo(variables);
    const std::string file = output.empty() ? "/dev/null" : output;
    const pid_t parent = ::getpid();
    mId = ::fork();
    if (mId != 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(127); // it died in between
    const int out = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(out, STDERR_FILENO);
    ::execvpe(arguments[0], arguments.data(), all.data());
    ::_exit(127);
}

TestProcess::~TestProcess() { kill(); }

void TestProcess::signal(int number) {
    if (mId > 0) ::kill(mId, number);
}

void TestProcess::kill() {
    signal(SIGKILL);
    await();
}

int TestProcess::await() {
    if (mId <= 0) return -1;
    int status = 0;
    while (::waitpid(mId, &status, 0) < 0 && errno == EINTR) {
    }
    mId = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace veltrano
