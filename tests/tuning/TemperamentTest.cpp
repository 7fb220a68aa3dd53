// SPDX-License-Identifier: GPL-3.0-or-later
// Cents, ratios and hertz of twelve degrees: key arithmetic, normalising, change of root key.
#include "tuning/Temperament.h"

#include "platform/foundation/LenientNumber.h"
#include "tests/support/RecordingLog.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

using Column = Temperament::Column;
using Texts = std::vector<std::string>;

const Texts kOneLine{"Temperament value is out of range. It has to be between -50 and +50 cents."};
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The ratio of a row's note to A, worked out apart from the program's order of operations.
double ratioOf(int row, int tonic, double cents) {
    return std::exp2(((tonic + row) % 12 - 9) / 12.0 + cents / 1200);
}

void expectAgreement(const Temperament& table) {
    for (std::size_t row = 0; row < 12; ++row) {
        SCOPED_TRACE(row);
        const double ratio = ratioOf(int(row), table.tonic(), table.cents()[row]);
        EXPECT_NEAR(table.ratios()[row], ratio, 1e-14);
        EXPECT_EQ(table.hertz()[row], table.ratios()[row] * table.referencePitch());
    }
}

TEST(NoteNames, AreMixedSharpsAndFlats) {
    const char* const names[] = {"C", "C#", "D", "Eb", "E", "F", "F#", "G", "G#", "A", "Bb", "B"};
    for (int index = 0; index < 36; ++index)
        EXPECT_EQ(temperament::noteName(index), names[index % 12]);
    for (const char* name : names)
        EXPECT_TRUE(temperament::isNoteName(name));
    for (const char* name : {"", "Db", "D#", "H", "c", "C ", "A#", "Name"})
        EXPECT_FALSE(temperament::isNoteName(name)) << name;
}

TEST(NoteNames, IntervalsFollowTheTonic) {
    const char* const ofD[] = {"D (PU)",  "Eb (m2)", "E (M2)",  "F (m3)", "F# (M3)", "G (P4)",
                               "G# (TT)", "A (P5)",  "Bb (m6)", "B (M6)", "C (m7)",  "C# (M7)"};
    const Temperament table(440, 2);
    for (int row = 0; row < 12; ++row) {
        EXPECT_EQ(table.noteIntervalName(row), ofD[row]);
        EXPECT_EQ(table.cell(Column::label, row), ofD[row]);
    }
    EXPECT_EQ(table.noteName(11), "C#");
}

TEST(NewTemperament, IsEqualInEveryKey) {
    for (int tonic = 0; tonic < 12; ++tonic) {
        SCOPED_TRACE(tonic);
        const Temperament table(442, tonic);
        EXPECT_EQ(table.cents(), CentTable{});
        for (int row = 0; row < 12; ++row)
            EXPECT_EQ(table.cell(Column::cent, row), "\u00B10.000");
        EXPECT_EQ(table.hertz()[std::size_t(temperament::rowOfA(tonic))], 442);
        expectAgreement(table);
    }
}

TEST(NewTemperament, CellsOfCAt440) {
    const Temperament table(440, 0);
    EXPECT_EQ(table.cell(Column::ratio, 0), "0.594603558");
    EXPECT_EQ(table.cell(Column::hertz, 0), "261.625565");
    EXPECT_EQ(table.cell(Column::ratio, 9), "1.000000000");
    EXPECT_EQ(table.cell(Column::hertz, 9), "440.000000");
    EXPECT_EQ(table.cell(Column::hertz, 11), "493.883301");
}

TEST(ClearedTemperament, IsAsANewOne) {
    for (const int tonic : {0, 9}) {
        Temperament table(442, tonic);
        ASSERT_TRUE(table.setCell(Column::cent, 3, "12.5"));
        ASSERT_TRUE(table.setCell(Column::cent, 11, "-7"));
        table.clearTemperament();
        EXPECT_EQ(table, Temperament(442, tonic));
    }
}

TEST(CentText, ZeroHasBothSigns) {
    const struct {
        double cents;
        const char* expected;
    } cases[] = {
        {0, "\u00B10.000"},       {-0.0, "\u00B10.000"}, {0.0004, "\u00B10.000"},
        {-0.0004, "\u00B10.000"}, {0.0006, "+0.001"},    {-0.0006, "-0.001"},
        {12.3456, "+12.346"},     {-50, "-50.000"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(temperament::centText(test.cents), test.expected) << test.cents;
}

TEST(RowOfA, OfEveryKey) {
    const int rows[] = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 11, 10};
    for (int key = 0; key < 12; ++key)
        EXPECT_EQ(temperament::rowOfA(key), rows[key]);
}

struct CentsCase {
    const char* what;
    int key;
    CentTable cents;
    bool isTaken;
    CentTable expected;
};

const CentsCase kCents[] = {
    {"A is the reference in C",
     0,
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12},
     true,
     {-9, -8, -7, -6, -5, -4, -3, -2, -1, 0, 1, 2}},
    {"A is row 0 in A",
     9,
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12},
     true,
     {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    {"A is row 11 in Bb",
     10,
     {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5},
     true,
     {-5, -5, -5, -5, -5, -5, -5, -5, -5, -5, -5, 0}},
    {"exactly 50 both ways", 0, {50, -50}, true, {50, -50}},
    {"rows before a failing one stay shifted",
     0,
     {10, 60.5, 7, 0, 0, 0, 0, 0, 0, 10},
     false,
     {0, 60.5, 7, 0, 0, 0, 0, 0, 0, 10}},
    {"just above", 0, {50.000001}, false, {50.000001}},
    {"just below", 0, {0, -50.000001}, false, {0, -50.000001}},
    {"out of range only before the shift",
     0,
     {55, 0, 0, 0, 0, 0, 0, 0, 0, 10},
     true,
     {45, -10, -10, -10, -10, -10, -10, -10, -10, 0, -10, -10}},
    {"infinity", 0, {0, kInfinity}, false, {0, kInfinity}},
};

TEST(NormalizeCents, ShiftsAToZero) {
    for (const CentsCase& test : kCents) {
        SCOPED_TRACE(test.what);
        RecordingLog log;
        CentTable cents = test.cents;
        EXPECT_EQ(temperament::normalizeCents(cents, test.key, log), test.isTaken);
        EXPECT_EQ(cents, test.expected);
        EXPECT_EQ(log.lines, test.isTaken ? Texts{} : kOneLine);
        EXPECT_TRUE(log.details.empty());
    }
}

TEST(NormalizeCents, WhatIsNoNumberIsOutOfRange) {
    for (const std::size_t row : {std::size_t(3), std::size_t(9)}) {
        RecordingLog log;
        CentTable cents{};
        cents[row] = kNaN;
        EXPECT_FALSE(temperament::normalizeCents(cents, 0, log));
        EXPECT_EQ(log.lines, kOneLine);
    }
}

TEST(NormalizeRatios, HalvesRowsPastB) {
    for (int key = 0; key < 12; ++key) {
        SCOPED_TRACE(key);
        RecordingLog log;
        RatioTable ratios;
        for (int row = 0; row < 12; ++row)
            ratios[std::size_t(row)] = 2 + row;
        const double a = ratios[std::size_t(temperament::rowOfA(key))];
        EXPECT_TRUE(temperament::normalizeRatios(ratios, key, log));
        for (int row = 0; row < 12; ++row) {
            const double whole = (2 + row) / a;
            EXPECT_EQ(ratios[std::size_t(row)], row >= 12 - key ? whole / 2 : whole) << row;
        }
        EXPECT_TRUE(log.lines.empty());
    }
}

TEST(NormalizeRatios, Key3HalvesRows9To11) {
    RecordingLog log;
    RatioTable ratios;
    ratios.fill(1);
    EXPECT_TRUE(temperament::normalizeRatios(ratios, 3, log));
    EXPECT_EQ(ratios, (RatioTable{1, 1, 1, 1, 1, 1, 1, 1, 1, 0.5, 0.5, 0.5}));
}

TEST(NormalizeRatios, ZeroOnAIsRefusedAndChangesNothing) {
    RecordingLog log;
    RatioTable ratios;
    ratios.fill(1.5);
    ratios[7] = 0; // A in D
    const RatioTable before = ratios;
    EXPECT_FALSE(temperament::normalizeRatios(ratios, 2, log));
    EXPECT_EQ(ratios, before);
    EXPECT_EQ(log.lines, kOneLine);
}

TEST(RootKey, LaysTheSameDegreesOntoTheNewTonic) {
    Temperament table(440, 0);
    ASSERT_TRUE(table.setCell(Column::cent, 0, "5"));
    ASSERT_TRUE(table.setCell(Column::cent, 2, "3"));
    table.setTonic(7); // A is degree 2 of G
    EXPECT_EQ(table.noteName(0), "G");
    EXPECT_EQ(table.cents(), (CentTable{2, -3, 0, -3, -3, -3, -3, -3, -3, -3, -3, -3}));
    expectAgreement(table);
}

TEST(RootKey, MayLeaveTheRange) {
    Temperament table(440, 0);
    ASSERT_TRUE(table.setCell(Column::cent, 2, "50"));
    ASSERT_TRUE(table.setCell(Column::cent, 3, "-50"));
    table.setTonic(7);
    EXPECT_EQ(table.cents()[3], -100);
    EXPECT_EQ(table.cents()[2], 0);
    expectAgreement(table);
}

TEST(ReferencePitch, ChangesHertzAlone) {
    Temperament table(440, 4);
    ASSERT_TRUE(table.setCell(Column::cent, 1, "12.5"));
    const auto cents = table.cents();
    const auto ratios = table.ratios();
    table.setReferencePitch(415);
    EXPECT_EQ(table.referencePitch(), 415);
    EXPECT_EQ(table.hertz()[5], 415) << "A in E";
    EXPECT_EQ(table.cents(), cents);
    EXPECT_EQ(table.ratios(), ratios);
    expectAgreement(table);
}

TEST(SetCents, ShiftsForTheTonic) {
    RecordingLog log;
    Temperament table(440, 7);
    table.setCents({5, 0, 2}, log);
    EXPECT_EQ(table.cents(), (CentTable{3, -2, 0, -2, -2, -2, -2, -2, -2, -2, -2, -2}));
    EXPECT_TRUE(log.lines.empty());
    expectAgreement(table);
}

TEST(SetCents, RowsBeforeOneOutOfRangeStayShiftedAndItIsNoFailure) {
    RecordingLog log;
    Temperament table(440, 7);
    table.setCents({5, -40, 20, 0, 1}, log);
    EXPECT_EQ(table.cents(), (CentTable{-15, -40, 20, 0, 1})) << "only row 0 was shifted";
    EXPECT_EQ(log.lines, kOneLine);
    expectAgreement(table);
}

RatioTable equalScale() {
    RatioTable ratios;
    for (std::size_t degree = 0; degree < 12; ++degree)
        ratios[degree] = std::exp2(double(degree) / 12);
    return ratios;
}

TEST(SetScalaRatios, LiesOnTheTonicExceptForBbAndB) {
    for (int tonic = 0; tonic < 12; ++tonic) {
        SCOPED_TRACE(tonic);
        RecordingLog log;
        Temperament table(440, tonic);
        RatioTable ratios = equalScale();
        ratios[7] = 1.5;
        const bool isTaken = table.setScalaRatios(ratios, log);
        EXPECT_EQ(isTaken, tonic < 10);
        EXPECT_EQ(log.lines, isTaken ? Texts{} : kOneLine);
        if (!isTaken) continue;
        const double fifth = 1200 * std::log2(1.5) - 700;
        for (int row = 0; row < 12; ++row) {
            const double shift = tonic == 2 ? fifth : 0; // A is the fifth of D
            EXPECT_NEAR(table.cents()[std::size_t(row)], (row == 7 ? fifth : 0) - shift, 1e-9);
        }
        EXPECT_EQ(table.hertz()[std::size_t(temperament::rowOfA(tonic))], 440);
        expectAgreement(table);
    }
}

TEST(SetScalaRatios, RowsBeforeOneOutOfRangeAreUpdated) {
    RecordingLog log;
    Temperament table(440, 0);
    RatioTable ratios = equalScale();
    ratios[1] *= std::exp2(10 / 1200.0);
    ratios[2] *= std::exp2(50.001 / 1200);
    ratios[3] *= std::exp2(10 / 1200.0);
    EXPECT_FALSE(table.setScalaRatios(ratios, log));
    EXPECT_EQ(log.lines, kOneLine);
    EXPECT_NEAR(table.cents()[1], 10, 1e-9);
    EXPECT_EQ(table.cents()[2], 0);
    EXPECT_EQ(table.cents()[3], 0);
}

TEST(SetScalaRatios, WhatIsNoNumberIsOutOfRange) {
    for (const double bad : {kNaN, kInfinity, -1.5}) {
        for (const std::size_t row : {std::size_t(4), std::size_t(9)}) {
            RecordingLog log;
            Temperament table(440, 0);
            RatioTable ratios = equalScale();
            ratios[row] = bad;
            EXPECT_FALSE(table.setScalaRatios(ratios, log));
            EXPECT_EQ(log.lines, kOneLine);
        }
    }
}

} // namespace
} // namespace veltrano
