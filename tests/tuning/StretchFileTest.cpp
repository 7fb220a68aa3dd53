// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of stretch tables, and what is read from any bytes.
#include "tuning/StretchFile.h"

#include "platform/foundation/LenientNumber.h"
#include "tests/support/RecordingLog.h"
#include "tests/tuning/GoldenFile.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Texts = std::vector<std::string>;

const Texts kInvalid{"Stretch data is invalid."};
const Texts kOutOfRange{"Stretch offset is out of range. It has to be between -50 and +50 cents."};

StretchTable curve() {
    StretchTable table;
    for (int key = 0; key < 108; ++key)
        table[std::size_t(key)] = (key - 57) * (key - 57) * (key - 57) / 4096.0;
    return table;
}

/// A table of zeros but for some keys.
StretchTable tableWith(std::initializer_list<std::pair<std::size_t, double>> values) {
    StretchTable table{};
    for (const auto& [key, cents] : values)
        table[key] = cents;
    return table;
}

TEST(StretchKeys, AreNameAndOctave) {
    const struct {
        int key;
        const char* name;
    } cases[] = {{0, "C0"},  {1, "C#0"}, {3, "Eb0"}, {11, "B0"},
                 {12, "C1"}, {57, "A4"}, {107, "B8"}};
    for (const auto& test : cases)
        EXPECT_EQ(stretch_file::keyName(test.key), test.name);
}

TEST(StretchFile, WritesTheGoldenBytes) {
    EXPECT_EQ(stretch_file::data({}, "", ""), goldenFile("zero.stretch"));
    EXPECT_EQ(stretch_file::data(curve(), "A \"curve\"\nof\rthree", "cubic,\n57 is 0 \\ \u266F"),
              goldenFile("curve.stretch"));
}

TEST(StretchFile, EmptyTableIsNineBlocksOfTwelveZeros) {
    const std::string text = stretch_file::data({}, "", "");
    EXPECT_TRUE(text.starts_with(
        "//  Stretch Table\n\n\"Name\"=\"\";\n\"Description\"=\"\";\n\n\"C0\"=\"+0.000\";\n"));
    EXPECT_TRUE(text.ends_with("\n\"B8\"=\"+0.000\";\n\n"));
    int zeros = 0, blocks = 0;
    for (std::size_t at = 0; (at = text.find("=\"+0.000\";\n", at)) != std::string::npos; ++at)
        ++zeros;
    for (std::size_t at = 0; (at = text.find("=\"+0.000\";\n\n", at)) != std::string::npos; ++at)
        ++blocks;
    EXPECT_EQ(zeros, 108);
    EXPECT_EQ(blocks, 9);
}

TEST(StretchFile, CarriageReturnStaysInTheComment) {
    EXPECT_EQ(stretch_file::commentString("a\nb\rc"), "a b\rc");
    RecordingLog log;
    // So a name with one ends its comment too early.
    EXPECT_FALSE(stretch_file::readData(stretch_file::data({}, "a\rb", ""), log));
    EXPECT_EQ(log.lines, kInvalid);
    EXPECT_EQ(log.details, Texts{"The first error is in line 2."});
}

struct ReadCase {
    const char* what;
    std::string text;
    StretchTable expected;
};

TEST(StretchFile, Reads) {
    const ReadCase cases[] = {
        {"empty file", "", {}},
        {"some keys", R"("C0"="-1.5";"A4"="+2";"B8"="3";)",
         tableWith({{0, -1.5}, {57, 2}, {107, 3}})},
        {"other spellings and octaves are ignored",
         R"("Db4"="9";"D#4"="9";"c4"="9";"C9"="9";"C"="9";"C04"="9";"C-1"="9";"4"="9";""="9";)",
         {}},
        {"exactly 50 both ways", R"("C4"="50";"D4"="-50.000";)", tableWith({{48, 50}, {50, -50}})},
        {"text for a number is 0", R"("C4"="x";)", {}},
        {"a comma ends a number", R"("C4"="1,9";)", tableWith({{48, 1}})},
        {"the last of two", R"("C4"="99";"C4"="1";)", tableWith({{48, 1}})},
        {"neither normalised nor taken for ratios", R"("A4"="10";"C4"="1";"B4"="1.9";)",
         tableWith({{48, 1}, {57, 10}, {59, 1.9}})},
    };
    for (const ReadCase& test : cases) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        const auto entry = stretch_file::readData(test.text, log);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->stretch, test.expected);
        EXPECT_EQ(entry->name, std::nullopt);
        EXPECT_EQ(entry->path, "");
        EXPECT_TRUE(log.lines.empty());
    }
}

TEST(StretchFile, EveryKeyComesBack) {
    RecordingLog log;
    const std::string text = stretch_file::data(curve(), "n\"", "d\n");
    const auto entry = stretch_file::readData(text, log);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "n\"");
    EXPECT_EQ(entry->description, "d\n");
    for (std::size_t key = 0; key < 108; ++key)
        EXPECT_NEAR(entry->stretch[key], curve()[key], 0.00050001) << key;
    EXPECT_EQ(stretch_file::data(entry->stretch, "n\"", "d\n"), text);
}

TEST(StretchFile, RefusalIsLoggedOnce) {
    const struct {
        const char* what;
        std::string bytes;
        Texts lines;
        Texts details;
    } cases[] = {
        {"just above", R"("C4"="50.001";)", kOutOfRange, {}},
        {"just below", R"("C4"="-50.001";)", kOutOfRange, {}},
        {"two of them", R"("C4"="51";"D4"="52";)", kOutOfRange, {}},
        {"infinite", R"("B8"="1e999";)", kOutOfRange, {}},
        {"negative infinite", R"("C0"="-1e999";)", kOutOfRange, {}},
        {"syntax", "\"C4\"=\"1\";\n\"D4\"=2;", kInvalid, {"The first error is in line 2."}},
        {"not UTF-8", "\xE9", kInvalid, {"The first error is in line 1."}},
        {"syntax after a value out of range",
         "\"C4\"=\"51\";\n\n?",
         kInvalid,
         {"The first error is in line 3."}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        EXPECT_FALSE(stretch_file::readData(test.bytes, log));
        EXPECT_EQ(log.lines, test.lines);
        EXPECT_EQ(log.details, test.details);
    }
}

TEST(StretchFile, ReadingIntoATableReplacesWhatIsBeforeAValueOutOfRange) {
    RecordingLog log;
    StretchTable table;
    table.fill(7);
    EXPECT_FALSE(stretch_file::readInto(table, R"("D0"="51";"C0"="1";"C#0"="2";)", log));
    EXPECT_EQ(table[0], 1);
    EXPECT_EQ(table[1], 2);
    EXPECT_TRUE(std::all_of(table.begin() + 2, table.end(), [](double c) { return c == 7; }));
    EXPECT_EQ(log.lines, kOutOfRange);
}

TEST(StretchFile, ReadingBadSyntaxIntoATableChangesNothing) {
    RecordingLog log;
    StretchTable table;
    table.fill(7);
    const StretchTable before = table;
    EXPECT_FALSE(stretch_file::readInto(table, R"("C0"="1";?)", log));
    EXPECT_EQ(table, before);
}

TEST(StretchFile, ReadingIntoATableSetsMissingKeysToZero) {
    RecordingLog log;
    StretchTable table;
    table.fill(7);
    const auto names = stretch_file::readInto(table, R"("Name"="n";"A4"="1";)", log);
    ASSERT_TRUE(names);
    EXPECT_EQ(names->name, "n");
    EXPECT_EQ(names->description, std::nullopt);
    EXPECT_EQ(table, tableWith({{57, 1}}));
}

TEST(StretchCell, TakesTypedTexts) {
    const struct {
        const char* what;
        const char* text;
        std::optional<double> expected;
    } cases[] = {
        {"number", "12.5", 12.5},
        {"limit", "50", 50},
        {"negative limit", "-50", -50},
        {"plus-minus and zero", "\u00B10.000", 0},
        {"plus-minus and a number", "\u00B13", 3},
        {"plus-minus alone", "\u00B1", 0},
        {"no number", "x", 0},
        {"just above", "50.0001", std::nullopt},
        {"just below", "-50.0001", std::nullopt},
        {"infinite", "1e999", std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        StretchTable table;
        table.fill(7);
        StretchTable expected = table;
        if (test.expected) expected[57] = *test.expected;
        EXPECT_EQ(stretch_file::setCell(table, 57, test.text), test.expected.has_value());
        EXPECT_EQ(table, expected);
    }
}

} // namespace
} // namespace veltrano
