// SPDX-License-Identifier: GPL-3.0-or-later
// Random documents are written, read and written again: 1000 of each kind, 10 000 in the soak run.
#include "platform/foundation/LenientNumber.h"
#include "platform/foundation/Utf8.h"
#include "tests/support/RecordingLog.h"
#include "tuning/ScalaScaleData.h"
#include "tuning/StretchFile.h"
#include "tuning/Temperament.h"
#include "tuning/TemperamentFile.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace veltrano {
namespace {

int documents() { return std::getenv("VELTRANO_SOAK") ? 10000 : 1000; }

/// Random tables and texts, the same in every run.
class Source {
public:
    double cents(int decimals) { return std::round(uniform() * scale(decimals)) / scale(decimals); }
    double uniform() { return std::uniform_real_distribution<double>(-50, 50)(mRandom); }

    /// Letters, what has to be escaped, and any other character but those that end a comment and
    /// are not replaced there.
    std::string text(std::size_t longest) {
        static constexpr std::array<char32_t, 12> kSpecial{
            U'\\', U'"', U'\n', U'\t', U'/', U'*', U';', U'=', U'\u0085', U'\0', U'\uFEFF', U'n'};
        std::string text;
        for (auto left = std::uniform_int_distribution<std::size_t>(0, longest)(mRandom); left > 0;
             --left) {
            const auto kind = std::uniform_int_distribution<int>(0, 9)(mRandom);
            if (kind < 4)
                appendUtf8(text, kSpecial[std::size_t(number(0, kSpecial.size() - 1))]);
            else
                appendUtf8(text, kind < 8 ? number(U' ', U'~') : anyCharacter());
        }
        return text;
    }

private:
    static double scale(int decimals) { return std::pow(10.0, decimals); }
    char32_t number(std::size_t first, std::size_t last) {
        return static_cast<char32_t>(
            std::uniform_int_distribution<std::size_t>(first, last)(mRandom));
    }
    char32_t anyCharacter() {
        for (;;) {
            const char32_t code = number(1, 0x10FFFF);
            const bool isSurrogate = code >= 0xD800 && code < 0xE000;
            if (!isSurrogate && code != U'\r' && code != 0x2028 && code != 0x2029) return code;
        }
    }

    std::mt19937 mRandom{20240229}; // NOLINT: the same in every run
};

/// The quoted values of a file, without its comments.
std::string withoutComments(const std::string& file) {
    std::string rest;
    for (std::size_t at = 0; at < file.size();) {
        const std::size_t end = file.find('\n', at);
        const std::string line = file.substr(at, end - at);
        rest += line.substr(0, line.find(";\t//")) + '\n';
        at = end + 1;
    }
    return rest;
}

class RoundTrip : public testing::Test {
protected:
    TemperamentEntry readTemperament(const std::string& bytes) {
        auto entry = temperament_file::readData(bytes, mLog);
        EXPECT_TRUE(entry) << bytes;
        EXPECT_TRUE(mLog.lines.empty() && mLog.details.empty());
        return entry.value_or(TemperamentEntry{});
    }
    Source source;
    RecordingLog mLog;
};

TEST_F(RoundTrip, TemperamentsOfNineDecimalsKeepEveryByte) {
    for (int i = 0; i < documents() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Temperament document(440, 0);
        for (int row = 0; row < 12; ++row) {
            if (!document.mayEdit(Temperament::Column::cent, row)) continue;
            ASSERT_TRUE(document.setCell(Temperament::Column::cent, row,
                                         fixedDecimals(source.cents(i % 10), 9)));
        }
        const std::string name = source.text(20), description = source.text(200);
        const std::string first = temperament_file::data(document.cents(), name, description);
        const TemperamentEntry entry = readTemperament(first);
        EXPECT_EQ(entry.name, name);
        EXPECT_EQ(entry.description, description);
        Temperament opened(442, 0);
        opened.setCents(entry.temperament, mLog);
        EXPECT_EQ(opened.cents(), document.cents());
        EXPECT_EQ(temperament_file::data(opened.cents(), name, description), first);
    }
}

/// Cents that were computed have more decimals than the file. The comments are made of all of them,
/// so that their last digit can differ once, when they are made of what was read.
TEST_F(RoundTrip, TemperamentsOfAnyCentsKeepNineDecimals) {
    int differences = 0;
    for (int i = 0; i < documents() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        CentTable cents;
        for (double& cent : cents)
            cent = source.uniform();
        cents[9] = 0;
        const std::string name = source.text(20), description = source.text(200);
        const std::string first = temperament_file::data(cents, name, description);
        const TemperamentEntry entry = readTemperament(first);
        for (std::size_t row = 0; row < 12; ++row)
            EXPECT_LE(std::abs(entry.temperament[row] - cents[row]), 0.5000001e-9);
        const std::string second = temperament_file::data(entry.temperament, name, description);
        EXPECT_EQ(withoutComments(second), withoutComments(first));
        if (second != first) ++differences;
        const CentTable again = readTemperament(second).temperament;
        EXPECT_EQ(temperament_file::data(again, name, description), second);
    }
    EXPECT_LT(differences, documents() / 100);
    RecordProperty("differing_comments", differences);
}

TEST_F(RoundTrip, StretchTablesKeepEveryByte) {
    for (int i = 0; i < documents() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        StretchTable table;
        for (double& offset : table)
            offset = source.uniform();
        const std::string name = source.text(20), description = source.text(200);
        const std::string first = stretch_file::data(table, name, description);
        const auto entry = stretch_file::readData(first, mLog);
        ASSERT_TRUE(entry && mLog.lines.empty()) << first;
        EXPECT_EQ(entry->name, name);
        EXPECT_EQ(entry->description, description);
        for (std::size_t key = 0; key < 108; ++key)
            EXPECT_LE(std::abs(entry->stretch[key] - table[key]), 0.0005000001);
        EXPECT_EQ(stretch_file::data(entry->stretch, name, description), first);
    }
}

TEST_F(RoundTrip, ScalesKeepEveryByte) {
    for (int i = 0; i < documents() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        RatioTable ratios{1};
        for (std::size_t degree = 1; degree < 12; ++degree)
            ratios[degree] = std::exp2((100 * double(degree) + source.uniform()) / 1200);
        // U+0085 ends a line of Latin-1.
        std::string name = source.text(100), description = source.text(100);
        for (std::string* text : {&name, &description})
            for (std::size_t at; (at = text->find("\u0085")) != std::string::npos;)
                text->replace(at, 2, "x");
        const std::string first = ScalaScaleData::scaleDataWithName(name, description, ratios);
        ScalaScaleData scale;
        ASSERT_TRUE(scale.parseData(first)) << first;
        for (std::size_t degree = 1; degree < 12; ++degree)
            EXPECT_NEAR(scale.scaleData()[degree] / ratios[degree], 1, 3e-10);
        const std::string read = scale.description().value_or("");
        ScalaScaleData again;
        const std::string second = ScalaScaleData::scaleDataWithName(name, read, scale.scaleData());
        ASSERT_TRUE(again.parseData(second));
        EXPECT_EQ(again.description(), read);
        EXPECT_EQ(ScalaScaleData::scaleDataWithName(name, read, again.scaleData()), second);
    }
}

} // namespace
} // namespace veltrano
