// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the shipped temperaments and stretch tables: veltrano-make-content FOLDER
#include "resources/content/ShippedFiles.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: veltrano-make-content FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    for (const auto& [path, bytes] : veltrano::content::shippedFiles()) {
        std::error_code error;
        std::filesystem::create_directories((folder / path).parent_path(), error);
        std::ofstream file(folder / path, std::ios::binary);
        file << bytes;
        file.close();
        if (!file) {
            std::cerr << "cannot write " << (folder / path) << '\n';
            return 1;
        }
    }
    return 0;
}
