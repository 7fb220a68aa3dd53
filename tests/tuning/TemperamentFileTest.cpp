// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of temperament files, and what is read from any bytes.
#include "tuning/TemperamentFile.h"

#include "platform/foundation/LenientNumber.h"
#include "tests/support/RecordingLog.h"
#include "tests/tuning/GoldenFile.h"
#include "tuning/Temperament.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Texts = std::vector<std::string>;

const Texts kInvalid{"Temperament data is invalid."};
const Texts kOutOfRange{
    "Temperament value is out of range. It has to be between -50 and +50 cents."};

const std::string kName = "Quarter \"comma\"\nmean\\tone\rof \u00E9\u2603";
const std::string kDescription = "1/4\tcomma,\n\"pure\" thirds \\ fifths\r";
constexpr CentTable kCents{10.265,   -13.686, 3.4215,   20.53, -3.4215, 13.6865,
                           -10.2645, 6.843,   -17.1075, 2.5,   17.1085, -6.84312345678912};

/// A file with a value for every note.
std::string fileOf(const std::function<double(int)>& value) {
    std::string text;
    for (int note = 0; note < 12; ++note) {
        text += '"' + std::string(temperament::noteName(note)) + "\"=\"";
        text += fixedDecimals(value(note), 12) + "\";\n";
    }
    return text;
}

std::string fileOf(const CentTable& values) {
    return fileOf([&](int note) { return values[std::size_t(note)]; });
}

TEST(TemperamentFile, WritesTheGoldenBytes) {
    EXPECT_EQ(temperament_file::data({}, "Equal", ""), goldenFile("equal.temperament"));
    EXPECT_EQ(temperament_file::data(kCents, kName, kDescription), goldenFile("texts.temperament"));
}

TEST(TemperamentFile, LinesOfCAndAInEqualTemperament) {
    const std::string text = temperament_file::data({}, "", "");
    EXPECT_NE(text.find("\n\"C\" =\"0.000000000\";\t// 0.594603558 : 261.625565\n"),
              std::string::npos);
    EXPECT_NE(text.find("\n\"A\" =\"0.000000000\";\t// 1.000000000 : 440.000000\n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with(": 493.883301\n")) << "no blank line at the end";
}

TEST(TemperamentFile, TextsComeBackWithQuotesAndLineBreaks) {
    RecordingLog log;
    const auto entry = temperament_file::readData(goldenFile("texts.temperament"), log);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, kName);
    EXPECT_EQ(entry->description, kDescription);
    EXPECT_EQ(entry->path, "");
    for (std::size_t row = 0; row < 12; ++row)
        EXPECT_NEAR(entry->temperament[row], kCents[row] - 2.5, 0.5000001e-9) << row;
    EXPECT_EQ(entry->temperament[9], 0);
    EXPECT_TRUE(log.lines.empty());
}

TEST(TemperamentFile, LineSeparatorInANameEndsItsComment) {
    RecordingLog log;
    EXPECT_FALSE(temperament_file::readData(temperament_file::data({}, "a\u2028b", ""), log));
    EXPECT_EQ(log.lines, kInvalid);
    EXPECT_EQ(log.details, Texts{"The first error is in line 2."});
}

TEST(TemperamentFile, OnlyTextsIsEqualTemperament) {
    RecordingLog log;
    const auto entry = temperament_file::readData(R"("Name"="n";"Description"="d";)", log);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "n");
    EXPECT_EQ(entry->description, "d");
    EXPECT_EQ(entry->temperament, CentTable{});
}

TEST(TemperamentFile, EmptyFileIsEqualTemperamentWithoutTexts) {
    RecordingLog log;
    const auto entry = temperament_file::readData("", log);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, std::nullopt);
    EXPECT_EQ(entry->description, std::nullopt);
    EXPECT_EQ(entry->temperament, CentTable{});
}

TEST(TemperamentFile, UnreadableIsLoggedWithItsLine) {
    const struct {
        const char* what;
        std::string bytes;
        const char* detail;
    } cases[] = {
        {"unfinished pair", R"("C"="1")", "The first error is in line 1."},
        {"bad escape in the third line", "\n\n\"C\"=\"\\x\";", "The first error is in line 3."},
        {"not UTF-8", "\"Name\"=\"a\xE9\";\n", "The first error is in line 1."},
        {"byte-order mark", "\uFEFF\"C\"=\"1\";", "The first error is in line 1."},
        {"no semicolon before the next line", "// x\r\n\"C\"=\"1\"\r\n\"D\"=\"1\";",
         "The first error is in line 3."},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        EXPECT_FALSE(temperament_file::readData(test.bytes, log));
        EXPECT_EQ(log.lines, kInvalid);
        EXPECT_EQ(log.details, Texts{test.detail});
    }
}

struct CentCase {
    const char* what;
    std::string text;
    CentTable expected;
};

TEST(TemperamentFile, ReadsCents) {
    const CentCase cases[] = {
        {"A is the reference",
         R"("C"="5";"A"="2";)",
         {3, -2, -2, -2, -2, -2, -2, -2, -2, 0, -2, -2}},
        {"exactly 50 both ways", R"("C"="50";"B"="-50";)", {50, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -50}},
        {"text for a number is 0", R"("C"="abc";"D"="--1";)", {}},
        {"a number with more behind it", R"("C"=" +1.5 cents";)", {1.5}},
        {"a comma ends a number", R"("C"="1,5";)", {1}},
        {"other keys are ignored", R"("Db"="7";"c"="7";"D#"="7";"C4"="7";"C"="1";)", {1}},
        {"the last of two", R"("C"="7";"C"="1";)", {1}},
    };
    for (const CentCase& test : cases) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        const auto entry = temperament_file::readData(test.text, log);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->temperament, test.expected);
        EXPECT_TRUE(log.lines.empty());
    }
}

double equal(int note) { return std::exp2(note / 12.0); }

/// Values that are told apart by the rule of which they miss no part, or just one.
struct UnitCase {
    const char* what;
    CentTable values;
    bool areProportional;
};

constexpr CentTable kJust{1,         16 / 15.0, 9 / 8.0, 6 / 5.0, 5 / 4.0, 4 / 3.0,
                          45 / 32.0, 3 / 2.0,   8 / 5.0, 5 / 3.0, 9 / 5.0, 15 / 8.0};

CentTable with(CentTable values, std::size_t at, double value) {
    values[at] = value;
    return values;
}

CentTable scaled(CentTable values, double factor) {
    for (double& value : values)
        value *= factor;
    return values;
}

const UnitCase kUnits[] = {
    {"twelve ratios", kJust, true},
    {"ratios that begin below 1", scaled(kJust, 0.9), true},
    {"ascending cents that begin far above 2", scaled(kJust, 10), false},
    {"equal neighbours do not decrease", with(kJust, 4, 6 / 5.0), true},
    {"one decreases", with(with(kJust, 4, 1.26), 5, 1.25), false},
    {"the last decreases", with(kJust, 11, 1.79), false},
    {"exactly an octave", with(kJust, 11, 2.0), true},
    {"above an octave", with(kJust, 11, 2.0000001), false},
    {"exactly ten semitones are too few", with(with(kJust, 11, 1.781797436), 10, 1.7), false},
    {"just above ten semitones", with(with(kJust, 11, 1.7817974361), 10, 1.7), true},
    {"the first is 0", with(kJust, 0, 0), false},
    {"the first is negative", with(kJust, 0, -1), false},
    {"highest below 1", scaled(kJust, 0.5), false},
    {"highest is 1", with(scaled(kJust, 8 / 15.0), 11, 1), true},
    {"lowest is 2", scaled(kJust, 2), true},
    {"lowest above 2", scaled(kJust, 2.0001), false},
};

TEST(TemperamentFile, TellsRatiosFromCents) {
    for (const UnitCase& test : kUnits) {
        SCOPED_TRACE(test.what);
        StringsDictionary pairs;
        for (int note = 0; note < 12; ++note) {
            pairs[std::string(temperament::noteName(note))] =
                fixedDecimals(test.values[std::size_t(note)], 20);
        }
        const CentTable cents = temperament_file::getCents(pairs);
        for (std::size_t i = 0; i < 12; ++i) {
            const double ratio = test.values[i] / test.values[9];
            const double converted = 1200 * std::log2(ratio) - (double(i) - 9) * 100;
            const double expected = test.areProportional ? converted : test.values[i];
            EXPECT_NEAR(cents[i], expected, 1e-9) << i;
        }
    }
}

TEST(TemperamentFile, ReadsProportionalValues) {
    const struct {
        const char* what;
        std::string text;
        bool isTaken;
        double centsOfE;
    } cases[] = {
        {"equal ratios to C", fileOf(equal), true, 0},
        {"just ratios", fileOf(kJust), true, 1200 * std::log2(1.25 / (5 / 3.0)) + 500},
        {"hertz", fileOf([](int n) { return 440 * equal(n - 9); }), true, 0},
        {"low hertz, only some above 50", fileOf([](int n) { return 50 * equal(n - 9); }), true, 0},
        {"hertz whose A is 60", fileOf([](int n) { return 60 * equal(n - 9); }), true, 0},
        {"hertz in any octave order", fileOf(with(scaled(kJust, 100), 4, 250)), false, 0},
        {"negative values below -50", fileOf([](int n) { return -440 * equal(n - 9); }), true, 0},
        {"one value of 60 among cents", R"("C"="60";"A"="1";)", false, 0},
        {"50.001 in one key", R"("C"="50.001";)", false, 0},
        {"below -50 in one key", R"("B"="-50.001";)", false, 0},
        {"A is 0", R"("C"="60";"A"="0";)", false, 0},
        {"infinite", R"("C"="1e999";)", false, 0},
        {"infinite A", R"("A"="-1e999";)", false, 0},
        {"all infinite", fileOf([](int) { return 1e300; }), false, 0},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        const auto entry = temperament_file::readData(test.text, log);
        ASSERT_EQ(entry.has_value(), test.isTaken);
        EXPECT_EQ(log.lines, test.isTaken ? Texts{} : kOutOfRange);
        EXPECT_TRUE(log.details.empty());
        if (!entry) continue;
        EXPECT_NEAR(entry->temperament[4], test.centsOfE, 1e-8);
        EXPECT_EQ(entry->temperament[9], 0);
    }
}

TEST(TemperamentFile, AscendingPositiveCentsOfQuotient19AreTakenForRatios) {
    RecordingLog log;
    const auto text = fileOf([](int n) { return std::pow(1.9, n / 11.0); });
    const auto entry = temperament_file::readData(text, log);
    ASSERT_TRUE(entry);
    EXPECT_NEAR(entry->temperament[0], 900 - 1200 * std::log2(1.9) * 9 / 11, 1e-8)
        << "as cents this would be 1 - 1.9^(9 / 11)";
}

TEST(TemperamentFile, CommentsHaveNoLineBreaks) {
    EXPECT_EQ(temperament_file::commentString("a\nb\rc\r\nd\te"), "a b c  d\te");
}

} // namespace
} // namespace veltrano
