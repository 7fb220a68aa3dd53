// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CommaLocale.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace veltrano {

namespace {

constexpr const char* kName = "de_DE.UTF-8";

bool writesComma() {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%.1f", 1.5);
    return std::string_view(text.data()) == "1,5";
}

/// Compiles the locale under a name of its own first: programs may run side by side.
void compileLocale(const std::filesystem::path& cache) {
    if (std::filesystem::exists(cache / kName)) return;
    const std::filesystem::path mine = cache / ("compiling." + std::to_string(::getpid()));
    std::error_code failed;
    std::filesystem::create_directories(mine, failed);
    const std::string command =
        "localedef -i de_DE -f UTF-8 '" + (mine / kName).string() + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) == 0) {
        std::filesystem::rename(mine / kName, cache / kName, failed);
    }
    std::filesystem::remove_all(mine, failed);
}

} // namespace

std::string useCommaLocale(const std::filesystem::path& cache) {
    ::setenv("LC_ALL", kName, 1);
    if (std::setlocale(LC_ALL, kName) == nullptr) {
        compileLocale(cache);
        ::setenv("LOCPATH", cache.c_str(), 1);
        if (std::setlocale(LC_ALL, kName) == nullptr) {
            return "the locale de_DE.UTF-8 is neither installed nor can localedef compile it";
        }
    }
    return writesComma() ? "" : "the locale de_DE.UTF-8 writes no decimal comma";
}

} // namespace veltrano
