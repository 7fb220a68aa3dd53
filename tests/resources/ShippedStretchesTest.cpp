// SPDX-License-Identifier: GPL-3.0-or-later
// Every shipped stretch table: its shape and its file.
#include "resources/content/ShippedFiles.h"
#include "tests/resources/ShippedFolder.h"
#include "tests/support/RecordingLog.h"
#include "tuning/StretchFile.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr std::size_t kA0 = 9, kA4 = 57, kC8 = 96;
constexpr double kRounding = 0.001; // [cents] a file holds three decimals

std::map<std::string, StretchEntry> shippedStretches() {
    std::map<std::string, StretchEntry> entries;
    for (const auto& [fileName, bytes] : shippedFolder("Stretches")) {
        SCOPED_TRACE(fileName);
        RecordingLog log;
        const auto entry = stretch_file::readData(bytes, log);
        EXPECT_EQ(log.lines, std::vector<std::string>{});
        if (entry) entries[fileName] = *entry;
    }
    return entries;
}

TEST(ShippedStretches, AreThePianosInUse) {
    std::vector<std::string> names;
    for (const auto& [fileName, entry] : shippedStretches()) {
        ASSERT_TRUE(entry.name && entry.description);
        EXPECT_EQ(*entry.name + ".stretch", fileName);
        EXPECT_LE(entry.description->size(), 240u);
        names.push_back(*entry.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Concert Grand", "Console", "Parlour Grand",
                                               "Spinet", "Upright"}));
}

TEST(ShippedStretches, RiseSmoothlyThroughA4) {
    for (const auto& [fileName, entry] : shippedStretches()) {
        SCOPED_TRACE(fileName);
        const StretchTable& cents = entry.stretch;
        EXPECT_EQ(cents[kA4], 0);
        EXPECT_LT(cents.front(), -5);
        EXPECT_GT(cents.front(), -45);
        EXPECT_LT(cents.back(), 48);
        for (std::size_t key = 0; key + 1 < cents.size(); ++key) {
            EXPECT_GE(cents[key + 1], cents[key]) << key;
            if (key == 0) continue;
            const double bend = cents[key + 1] - 2 * cents[key] + cents[key - 1];
            const bool isOnKeyboard = key > kA0 && key < kC8;
            EXPECT_LE(std::abs(bend), (isOnKeyboard ? 0.3 : 0.6) + kRounding) << key;
        }
    }
}

TEST(ShippedStretches, LevelOffBeyondTheKeyboard) {
    for (const auto& [fileName, entry] : shippedStretches()) {
        SCOPED_TRACE(fileName);
        const StretchTable& cents = entry.stretch;
        EXPECT_NEAR(cents[107], cents[106], 0.02);
        EXPECT_NEAR(cents[1], cents[0], 0.2);
        for (std::size_t key = kC8; key + 2 < cents.size(); ++key) {
            EXPECT_LE(cents[key + 2] - cents[key + 1], cents[key + 1] - cents[key] + kRounding);
        }
        for (std::size_t key = 0; key < kA0; ++key) {
            EXPECT_LE(cents[key + 1] - cents[key], cents[key + 2] - cents[key + 1] + kRounding);
        }
    }
}

TEST(ShippedStretches, SmallerPianosAreStretchedMore) {
    const auto entries = shippedStretches();
    const char* const kBySize[] = {"Concert Grand.stretch", "Parlour Grand.stretch",
                                   "Upright.stretch", "Console.stretch", "Spinet.stretch"};
    for (std::size_t i = 0; i + 1 < std::size(kBySize); ++i) {
        SCOPED_TRACE(kBySize[i]);
        const StretchTable& large = entries.at(kBySize[i]).stretch;
        const StretchTable& small = entries.at(kBySize[i + 1]).stretch;
        EXPECT_GT(large[kA0], small[kA0]);
        EXPECT_LT(large[kC8], small[kC8]);
    }
}

TEST(ShippedStretches, AreWhatTheProgramMakes) {
    std::map<std::string, std::string> made;
    for (const auto& file : content::shippedFiles()) {
        constexpr std::string_view kFolder = "Stretches/";
        if (file.path.starts_with(kFolder)) made[file.path.substr(kFolder.size())] = file.bytes;
    }
    EXPECT_EQ(made, shippedFolder("Stretches")) << "run the target \"content\"";
}

} // namespace
} // namespace veltrano
