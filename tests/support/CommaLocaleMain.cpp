// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a test program in the locale it was started in, or with --comma-locale=CACHE in German.
#include "tests/support/CommaLocale.h"

#include <gtest/gtest.h>
#include <iostream>
#include <string_view>

namespace {
constexpr int kSkipped = 77; ///< what ctest counts as "not run"
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    constexpr std::string_view option = "--comma-locale=";
    if (argc == 2 && std::string_view(argv[1]).starts_with(option)) {
        const auto cache = std::string_view(argv[1]).substr(option.size());
        if (const std::string reason = veltrano::useCommaLocale(cache); !reason.empty()) {
            std::cout << "Skipped: " << reason << ".\n";
            return kSkipped;
        }
    }
    return RUN_ALL_TESTS();
}
