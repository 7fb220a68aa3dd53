// SPDX-License-Identifier: GPL-3.0-or-later
// The services of a desktop through which assistive technologies reach programs.
#pragma once

#include "tests/support/TestProcess.h"

#include <memory>
#include <optional>
#include <string>

namespace veltrano {

/// A session bus on a socket of its own with the accessibility bus beside it, both ended with this
/// object. The environment of this process, and so of what it starts, leads to them. Thread: main.
class AccessibleDesktop {
public:
    /// The reason why there cannot be one here, or nullopt.
    static std::optional<std::string> missing();

    /// @param folder private, for sockets, settings and logs; its path is short
    explicit AccessibleDesktop(std::string folder) : mFolder(std::move(folder)) {}
    ~AccessibleDesktop();

    /// DISPLAY is set. @return whether both buses are there within 20 s
    bool start();

private:
    const std::string mFolder;
    std::unique_ptr<TestProcess> mBus;
    std::unique_ptr<TestProcess> mLauncher;
};

} // namespace veltrano
