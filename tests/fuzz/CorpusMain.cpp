// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a fuzz target over the files of a folder, where there is no fuzzer.
#include "tests/fuzz/Require.h"

#include <filesystem>
#include <fstream>
#include <iterator>

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout); // the last one named is the one that failed
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(bytes.data()),
                                   bytes.size());
            ++files;
        }
    }
    return files > 0 ? 0 : 1;
}
