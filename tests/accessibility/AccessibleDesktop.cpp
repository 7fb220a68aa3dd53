// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/accessibility/AccessibleDesktop.h"

#include "tests/accessibility/AccessibleNode.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace veltrano {

namespace {

constexpr const char* kLauncher = "/usr/libexec/at-spi-bus-launcher";
constexpr const char* kBus = "/usr/bin/dbus-daemon";

} // namespace

std::optional<std::string> AccessibleDesktop::missing() {
    for (const char* program : {kLauncher, kBus}) {
        if (!std::filesystem::exists(program))
            return std::string("the program ") + program + " is not installed";
    }
    return std::nullopt;
}

bool AccessibleDesktop::start() {
    for (const char* variable : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "HOME"})
        ::setenv(variable, mFolder.c_str(), 1);
    const std::string socket = mFolder + "/bus";
    const std::string address = "unix:path=" + socket;
    const std::string log = mFolder + "/desktop.log";
    mBus = std::make_unique<TestProcess>(
        std::vector<std::string>{kBus, "--session", "--nofork", "--address=" + address},
        std::vector<std::string>{}, log);
    if (!accessible::await([&] { return std::filesystem::exists(socket); })) return false;
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    mLauncher =
        std::make_unique<TestProcess>(std::vector<std::string>{kLauncher, "--launch-immediately"},
                                      std::vector<std::string>{}, log);
    return accessible::await([&] { return std::filesystem::exists(mFolder + "/at-spi"); }) &&
           accessible::connect();
}

AccessibleDesktop::~AccessibleDesktop() {
    if (!mLauncher) return;
    accessible::disconnect();
    mLauncher->signal(SIGTERM); // upon which it ends the bus that it has started
    mLauncher->await();
}

} // namespace veltrano
