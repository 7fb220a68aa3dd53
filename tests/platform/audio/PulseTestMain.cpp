// SPDX-License-Identifier: GPL-3.0-or-later
// Runs tests with an event loop, and without the user's own sound server in reach.
#include <QCoreApplication>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    std::string home = "/tmp/sound-home-XXXXXX";
    if (!::mkdtemp(home.data())) return 1;
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
        ::setenv(variable, home.c_str(), 1);
    for (const char* variable : {"PULSE_SERVER", "PULSE_RUNTIME_PATH", "DISPLAY"})
        ::unsetenv(variable);
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    std::filesystem::remove_all(home);
    return result;
}
