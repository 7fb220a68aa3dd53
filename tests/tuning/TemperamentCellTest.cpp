// SPDX-License-Identifier: GPL-3.0-or-later
// What may be typed into the cells of a temperament, and what follows from it.
#include "platform/foundation/LenientNumber.h"
#include "tests/support/RecordingLog.h"
#include "tuning/Temperament.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Column = Temperament::Column;

struct TypedCase {
    const char* what;
    const char* text;
    double expected;
};

TEST(TypedNumber, DropsALeadingPlusMinus) {
    constexpr TypedCase kCases[] = {
        {"with a number", "\u00B11", 1},
        {"with a negative number", "\u00B1-2.5", -2.5},
        {"with zero", "\u00B10.000", 0},
        {"alone", "\u00B1", 0},
        {"only one", "\u00B1\u00B11", 0},
        {"not after white space", " \u00B11", 0},
        {"none", "-3", -3},
        {"comma", "1,9", 1},
        {"unit behind", "12 cents", 12},
        {"no number", "abc", 0},
    };
    for (const TypedCase& test : kCases)
        EXPECT_EQ(temperament::typedNumber(test.text), test.expected) << test.what;
}

struct RefusedCase {
    Column column;
    const char* text;
};

TEST(TypedCell, RefusedChangesNothing) {
    constexpr RefusedCase kCases[] = {
        {Column::cent, "50.0001"}, {Column::cent, "-50.0001"},   {Column::cent, "1e999"},
        {Column::cent, "-1e999"},  {Column::cent, "\u00B150.1"}, {Column::ratio, "0.5"},
        {Column::ratio, "2.0"},    {Column::ratio, "0"},         {Column::ratio, "x"},
        {Column::ratio, "-0.6"},   {Column::ratio, "0.7"},       {Column::ratio, "1e999"},
        {Column::hertz, "0"},      {Column::hertz, "x"},         {Column::hertz, "-261.6"},
        {Column::hertz, "-1e999"}, {Column::hertz, "1e999"},     {Column::hertz, "523.25"},
        {Column::hertz, "269.30"}, {Column::hertz, "254.17"},    {Column::label, "1"},
    };
    for (const RefusedCase& test : kCases) {
        SCOPED_TRACE(test.text);
        Temperament table(440, 0);
        ASSERT_TRUE(table.setCell(Column::cent, 0, "1"));
        const Temperament before = table;
        EXPECT_FALSE(table.setCell(test.column, 0, test.text));
        EXPECT_EQ(table, before);
    }
}

TEST(TypedCell, CentSetsRatioAndHertz) {
    const TypedCase cases[] = {
        {"positive", "12.5", 12.5}, {"plus-minus", "\u00B11", 1},    {"highest", "50", 50},
        {"lowest", "-50", -50},     {"no number is zero", "abc", 0}, {"plus", "+3", 3},
    };
    for (const TypedCase& test : cases) {
        SCOPED_TRACE(test.what);
        Temperament table(442, 7); // row 4 is B
        ASSERT_TRUE(table.setCell(Column::cent, 4, test.text));
        const double ratio = std::exp2((200 + test.expected) / 1200);
        EXPECT_EQ(table.cents()[4], test.expected);
        EXPECT_NEAR(table.ratios()[4], ratio, 1e-14);
        EXPECT_EQ(table.hertz()[4], 442 * table.ratios()[4]);
        EXPECT_EQ(table.cents()[3], 0);
    }
}

TEST(TypedCell, RatioIsKeptAndSetsCentsAndHertz) {
    Temperament table(442, 7); // row 0 is G
    ASSERT_TRUE(table.setCell(Column::ratio, 0, "0.888888889"));
    EXPECT_EQ(table.ratios()[0], 0.888888889);
    EXPECT_NEAR(table.cents()[0], 1200 * std::log2(0.888888889) + 200, 1e-9);
    EXPECT_EQ(table.hertz()[0], 442 * 0.888888889);
}

TEST(TypedCell, RatioReachesFiftyCentsBothWays) {
    for (const double cents : {-49.9999, 49.9999, -50.0001, 50.0001}) {
        Temperament table(440, 0);
        const double ratio = std::exp2((200 + cents) / 1200); // of B
        EXPECT_EQ(table.setCell(Column::ratio, 11, fixedDecimals(ratio, 15)), std::abs(cents) < 50)
            << cents;
    }
}

TEST(TypedCell, HertzIsKeptAsTyped) {
    Temperament table(441, 0);
    ASSERT_TRUE(table.setCell(Column::hertz, 0, "262.123456789"));
    EXPECT_EQ(table.hertz()[0], 262.123456789) << "not what the ratio gives";
    const double cents = 1200 * std::log2(262.123456789 / (441 * std::exp2(-9 / 12.0)));
    EXPECT_NEAR(table.cents()[0], cents, 1e-9);
    EXPECT_NEAR(table.ratios()[0], std::exp2((-900 + cents) / 1200), 1e-14);
}

TEST(TypedCell, HertzIsMeasuredAgainstTheCentsOfA) {
    RecordingLog log;
    Temperament table(440, 7); // A is row 2
    table.setCents({5, -40, 20}, log);
    ASSERT_EQ(table.cents()[2], 20) << "a shift out of range left A where it was";
    const double hz = 440 * std::exp2((-200 + 3) / 1200.0); // G, 3 cents high
    ASSERT_TRUE(table.setCell(Column::hertz, 0, fixedDecimals(hz, 12)));
    EXPECT_NEAR(table.cents()[0], 23, 1e-6);
    EXPECT_NEAR(table.ratios()[0], std::exp2((-200 + 23) / 1200.0), 1e-9);
}

TEST(EditableCells, NeverAAndNeverTheLabel) {
    for (int tonic = 0; tonic < 12; ++tonic) {
        const Temperament table(440, tonic);
        for (int row = 0; row < 12; ++row) {
            const bool isA = table.noteName(row) == "A";
            for (const Column column : {Column::cent, Column::ratio, Column::hertz})
                EXPECT_EQ(table.mayEdit(column, row), !isA) << tonic << " " << row;
            EXPECT_FALSE(table.mayEdit(Column::label, row));
        }
    }
    EXPECT_FALSE(Temperament(440, 3).mayEdit(Column::cent, 6)) << "A in Eb";
}

} // namespace
} // namespace veltrano
