// SPDX-License-Identifier: GPL-3.0-or-later
// Filtering, merging and smoothing of partials.
#include "analysis/PartialRecords.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

const PartialTargets kEqual;

float hzAt(double key, double referencePitchHz = 440) {
    return static_cast<float>(referencePitchHz * std::exp2((key - 57) / 12));
}

/// The nearest float at or above @p hz.
float notBelow(double hz) {
    const auto nearest = static_cast<float>(hz);
    return static_cast<double>(nearest) < hz ? std::nextafter(nearest, 1e9f) : nearest;
}
float notAbove(double hz) {
    const auto nearest = static_cast<float>(hz);
    return static_cast<double>(nearest) > hz ? std::nextafter(nearest, 0.0f) : nearest;
}

Partials risingFrom(float hz, int count) {
    Partials partials;
    for (int i = 0; i < count; ++i)
        partials.push_back({hz + 50 * static_cast<float>(i), 1 - 0.01f * static_cast<float>(i)});
    return partials;
}

std::vector<PartialData> generate(PartialRecords& records, const Partials& partials,
                                  const PartialTargets& targets = kEqual) {
    const auto made = records.generatePartialData(partials, targets);
    EXPECT_EQ(made.data(), records.records().data());
    EXPECT_EQ(made.size(), records.records().size());
    return {made.begin(), made.end()};
}

/// Cents are known to about 1e-12 only.
std::vector<PartialData> rounded(std::vector<PartialData> records) {
    for (PartialData& record : records)
        record.cent = std::nearbyint(record.cent * 1000) / 1000;
    return records;
}

std::vector<PartialData> fresh(const Partials& partials, const PartialTargets& targets = kEqual) {
    PartialRecords records;
    return generate(records, partials, targets);
}

// --- filtering

TEST(FilteredPartials, DropsWeakOnesBelowTheStrongest) {
    const float octaveLow = notBelow(400 * std::exp2(-1225.0 / 1200));
    const float octaveHigh = notAbove(400 * std::exp2(-1175.0 / 1200));
    const float twoLow = notBelow(400 * std::exp2(-2425.0 / 1200));
    const float twoHigh = notAbove(400 * std::exp2(-2375.0 / 1200));
    struct {
        const char* name;
        Partials partials;
        Partials kept;
    } const cases[] = {
        {"one alone", {{400, 1}}, {{400, 1}}},
        {"one alone without power", {{400, 0}}, {{400, 0}}},
        {"weak and below", {{300, 0.1f}, {400, 1}}, {{400, 1}}},
        {"an eighth is not weak", {{300, 0.125f}, {400, 1}}, {{300, 0.125f}, {400, 1}}},
        {"just less than an eighth", {{300, 0.12499999f}, {400, 1}}, {{400, 1}}},
        {"weak and above", {{400, 1}, {401, 1e-6f}}, {{400, 1}, {401, 1e-6f}}},
        {"weak at the same frequency", {{400, 1e-6f}, {400, 1}}, {{400, 1}, {400, 1e-6f}}},
        {"an octave below", {{200, 1e-6f}, {400, 1}}, {{200, 1e-6f}, {400, 1}}},
        {"25 cents below that", {{octaveLow, 0.1f}, {400, 1}}, {{octaveLow, 0.1f}, {400, 1}}},
        {"more", {{std::nextafter(octaveLow, 0.0f), 0.1f}, {400, 1}}, {{400, 1}}},
        {"25 cents above it", {{octaveHigh, 0.1f}, {400, 1}}, {{octaveHigh, 0.1f}, {400, 1}}},
        {"more than that", {{std::nextafter(octaveHigh, 1e9f), 0.1f}, {400, 1}}, {{400, 1}}},
        {"two octaves below", {{100, 1e-6f}, {400, 1}}, {{100, 1e-6f}, {400, 1}}},
        {"25 cents below those", {{twoLow, 0.1f}, {400, 1}}, {{twoLow, 0.1f}, {400, 1}}},
        {"even more", {{std::nextafter(twoLow, 0.0f), 0.1f}, {400, 1}}, {{400, 1}}},
        {"25 cents above those", {{twoHigh, 0.1f}, {400, 1}}, {{twoHigh, 0.1f}, {400, 1}}},
        {"even more than that", {{std::nextafter(twoHigh, 1e9f), 0.1f}, {400, 1}}, {{400, 1}}},
        {"three octaves below", {{50, 0.1f}, {400, 1}}, {{400, 1}}},
        {"a twelfth below", {{400.0f / 3, 0.1f}, {400, 1}}, {{400, 1}}},
        {"against the strongest, not the next one",
         {{300, 0.2f}, {400, 1}, {350, 0.1f}},
         {{300, 0.2f}, {400, 1}}},
        {"all at once",
         {{400, 1},
          {300, 0.1f},
          {200, 0.1f},
          {100, 0.01f},
          {202.9f, 0.1f},
          {203, 0.1f},
          {390, 0.125f},
          {500, 1e-6f},
          {50, 0.1f}},
         {{100, 0.01f}, {200, 0.1f}, {202.9f, 0.1f}, {390, 0.125f}, {400, 1}, {500, 1e-6f}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(filteredPartials(c.partials), c.kept);
    }
}

TEST(FilteredPartials, AreSortedByFrequency) {
    EXPECT_EQ(filteredPartials({{900, 0.2f}, {300, 0.3f}, {600, 0.25f}}),
              (Partials{{300, 0.3f}, {600, 0.25f}, {900, 0.2f}}));
}

TEST(FilteredPartials, ASeventeenthPartialIsNeverShown) {
    const Partials seventeen = risingFrom(100, 17);
    const Partials sixteen = risingFrom(100, 16);
    const Partials fifteen = risingFrom(100, 15);
    EXPECT_EQ(filteredPartials(fifteen), fifteen);
    EXPECT_EQ(filteredPartials(sixteen), sixteen);
    EXPECT_EQ(filteredPartials(seventeen), sixteen);

    // The weakest goes, wherever it lies.
    Partials weakFirst = risingFrom(100, 17);
    std::swap(weakFirst[0].power, weakFirst[16].power);
    EXPECT_EQ(filteredPartials(weakFirst), Partials(weakFirst.begin() + 1, weakFirst.end()));

    // Those that are noise take no place.
    Partials withNoise = risingFrom(100, 16);
    withNoise.insert(withNoise.begin(), {70, 0.1f});
    EXPECT_EQ(filteredPartials(withNoise), sixteen);
}

TEST(FilteredPartials, ShowNoSeventeenthRecord) {
    PartialRecords records;
    Partials partials;
    for (int i = 0; i < 20; ++i)
        partials.push_back({hzAt(30 + i), 1 - 0.01f * static_cast<float>(i)});
    EXPECT_EQ(generate(records, partials).size(), 16u);
    EXPECT_EQ(records.records().back().noteNumber, 45);
}

// --- cents

TEST(CalculateCent, IsTheFractionWithoutATemperament) {
    EXPECT_EQ(calculateCent(-0.25, 57, 1000, kEqual), -0.25);
}

TEST(CalculateCent, IsTheDistanceFromTheTemperedKey) {
    PartialTargets::Tempered tempered;
    tempered.cents = {0, -10.1, 3.3, 5, -7, 11, -13, 17, -19, 23.7, -29, 31.9};
    struct {
        const char* name;
        int tonic;
        std::int64_t key;
        double hz;
        double referencePitchHz;
        double cents;
    } const cases[] = {
        {"A on its own tonic", 9, 57, 440, 440, 0},
        {"A is the second degree of G#", 8, 57, 440, 440, 10.1},
        {"A in C", 0, 57, 440, 440, -23.7},
        {"C in C", 0, 60, 440 * std::exp2(3 / 12.0), 440, 0},
        {"C in B", 11, 60, 440 * std::exp2(3 / 12.0), 440, 10.1},
        {"B in B", 11, 59, 440 * std::exp2(2 / 12.0), 440, 0},
        {"B in C", 0, 59, 440 * std::exp2(2 / 12.0), 440, -31.9},
        {"another pitch", 9, 57, 440, 442, 1200 * std::log2(440.0 / 442)},
        {"50 cents sharp", 9, 57, 440 * std::exp2(50 / 1200.0), 440, 50},
        {"the lowest key", 9, 9, 27.5, 440, 0},
        {"the lowest key in C", 0, 9, 27.5, 440, -23.7},
        {"the lowest key in B", 11, 9, 27.5, 440, 29},
        {"the highest key", 9, 96, 440 * std::exp2(39 / 12.0), 440, -5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        tempered.tonic = c.tonic;
        const PartialTargets targets{c.referencePitchHz, tempered};
        EXPECT_NEAR(100 * calculateCent(7, c.key, c.hz, targets), c.cents, 1e-9);
    }
}

// --- records

TEST(PartialRecords, BelongToTheNearestKey) {
    struct {
        const char* name;
        double key; ///< with its fraction
        PartialData expected;
    } const cases[] = {
        {"A4", 57, {1, 0, 57, 9, 4}},
        {"A4 49 cents sharp", 57.49, {1, 49, 57, 9, 4}},
        {"Bb4 49 cents flat", 57.51, {1, -49, 58, 10, 4}},
        {"B4 30 cents sharp", 59.3, {1, 30, 59, 11, 4}},
        {"C5 30 cents flat", 59.7, {1, -30, 60, 0, 5}},
        {"A0", 9, {1, 0, 9, 9, 0}},
        {"C8", 96, {1, 0, 96, 0, 8}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(rounded(fresh({{hzAt(c.key), 1}})), std::vector{c.expected});
    }
}

/// The pitch of A4 at which @p hz lies exactly @p semitones from it.
double pitchFor(float hz, double semitones) {
    const auto exact = static_cast<double>(hz);
    double pitch = exact * std::exp2(-semitones / 12) * (1 - 1e-14);
    for (int i = 0; i < 1000 && 12 * std::log2(exact / pitch) != semitones; ++i)
        pitch = std::nextafter(pitch, 1e9);
    EXPECT_EQ(12 * std::log2(exact / pitch), semitones);
    return pitch;
}

TEST(PartialRecords, HalfWayBetweenTwoKeysBelongsToTheUpperOne) {
    EXPECT_EQ(fresh({{27, 1}}, {pitchFor(27, -48.5), {}}),
              (std::vector<PartialData>{{1, -50, 9, 9, 0}}));
    EXPECT_TRUE(fresh({{4300, 1}}, {pitchFor(4300, 39.5), {}}).empty()); // not C8, but above it
}

TEST(PartialRecords, CentsAreWorkedOutInDoublePrecision) {
    for (int i = 0; i < 1000; ++i) {
        const float hz = hzAt(40.0 + 0.031 * i);
        SCOPED_TRACE(hz);
        const long double keys = 12 * std::log2(static_cast<long double>(hz) / 440);
        const auto cents = static_cast<double>(100 * (keys - std::nearbyint(keys)));
        const std::vector<PartialData> records = fresh({{hz, 1}});
        ASSERT_EQ(records.size(), 1u);
        EXPECT_NEAR(static_cast<double>(records[0].cent), cents, 1e-10 + std::abs(cents) * 6e-8);
    }
}

TEST(PartialRecords, FollowTheReferencePitch) {
    const PartialTargets low{415, {}};
    EXPECT_EQ(rounded(fresh({{415, 1}}, low)), (std::vector<PartialData>{{1, 0, 57, 9, 4}}));
    const std::vector<PartialData> records = fresh({{440, 1}}, low);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].noteNumber, 58);
    EXPECT_NEAR(static_cast<double>(records[0].cent), 1200 * std::log2(440.0 / 415) - 100, 1e-4);
}

TEST(PartialRecords, ADeviationUnderATemperamentMayPassHalfASemitone) {
    PartialTargets::Tempered tempered;
    tempered.tonic = 9;
    tempered.cents[0] = -30;
    const std::vector<PartialData> records =
        fresh({{hzAt(57.4), 1}}, {440, tempered}); // the key is the equal-tempered one
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].noteNumber, 57);
    EXPECT_NEAR(records[0].cent, 70, 1e-3f);
}

TEST(PartialRecords, APartialBelowA0OrAboveC8IsDropped) {
    struct {
        const char* name;
        double key;
        std::size_t count;
    } const cases[] = {
        {"G#0", 8, 0},
        {"51 cents below A0", 8.49, 0},
        {"49 cents below A0", 8.51, 1},
        {"49 cents above C8", 96.49, 1},
        {"51 cents above C8", 96.51, 0},
        {"B8", 107, 0},
        {"C0", 0, 0},
        {"far below", -200, 0},
        {"far above", 500, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(fresh({{hzAt(c.key), 1}}).size(), c.count);
    }
    for (const float hz : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN(),
                           std::numeric_limits<float>::infinity()})
        EXPECT_TRUE(fresh({{hz, 1}}).empty()) << hz;
}

TEST(PartialRecords, WhenAllAreDroppedNothingIsLeft) {
    PartialRecords records;
    EXPECT_EQ(generate(records, {{440, 1}, {880, 1}}).size(), 2u);
    EXPECT_TRUE(generate(records, {{25, 1}, {4500, 1}}).empty());
    EXPECT_TRUE(records.records().empty());
    // What was there before has no part in what comes next.
    EXPECT_EQ(rounded(generate(records, {{440, 3}})), (std::vector<PartialData>{{3, 0, 57, 9, 4}}));
}

TEST(PartialRecords, TheDroppedOnesLeaveTheOthersAlone) {
    EXPECT_EQ(rounded(fresh({{25, 1}, {440, 1}, {4500, 1}})),
              (std::vector<PartialData>{{1, 0, 57, 9, 4}}));
}

TEST(PartialRecords, TwoPartialsOfTheSameKeyAreMergedIntoOneWithWeightedCents) {
    const double cents = 1200 * std::log2(445.0 / 440);
    struct {
        const char* name;
        Partials partials;
        float power;
        double cent;
    } const cases[] = {
        {"equally strong", {{440, 1}, {445, 1}}, 2, cents / 2},
        {"the upper one stronger", {{440, 1}, {445, 3}}, 4, cents * 3 / 4},
        {"the lower one stronger", {{440, 3}, {445, 1}}, 4, cents / 4},
        {"three", {{440, 1}, {445, 2}, {445, 1}}, 4, cents * 3 / 4},
        {"the upper one without power", {{440, 1}, {445, 0}}, 1, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<PartialData> records = fresh(c.partials);
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].noteNumber, 57);
        EXPECT_EQ(records[0].note, 9);
        EXPECT_EQ(records[0].octave, 4);
        EXPECT_EQ(records[0].power, c.power);
        EXPECT_NEAR(static_cast<double>(records[0].cent), c.cent, 1e-4);
    }
}

TEST(PartialRecords, MergingLeavesTheNeighboursAlone) {
    const std::vector<PartialData> records =
        fresh({{220, 1}, {440, 1}, {440, 1}, {880, 1}, {880, 3}});
    EXPECT_EQ(rounded(records),
              (std::vector<PartialData>{{1, 0, 45, 9, 3}, {2, 0, 57, 9, 4}, {4, 0, 69, 9, 5}}));
}

// --- smoothing

TEST(PartialRecords, AreSmoothedWithThoseBefore) {
    struct Row {
        float power;
        std::int64_t key;
    };
    struct {
        const char* name;
        Partials before;
        Partials now;
        std::vector<Row> expected;
    } const cases[] = {
        {"the same keys", {{440, 3}, {880, 4}}, {{440, 1}, {880, 2}}, {{2, 57}, {3, 69}}},
        {"another lowest key", {{220, 3}, {880, 4}}, {{440, 1}, {880, 2}}, {{1, 57}, {2, 69}}},
        {"another key in the middle",
         {{440, 3}, {880, 4}, {1760, 8}},
         {{440, 1}, {931, 2}, {1760, 4}},
         {{2, 57}, {2, 70}, {6, 81}}},
        {"by place, not by key",
         {{440, 3}, {880, 4}, {1760, 8}},
         {{440, 1}, {1760, 4}},
         {{2, 57}, {4, 81}}},
        {"fewer before", {{440, 3}}, {{440, 1}, {880, 2}}, {{2, 57}, {2, 69}}},
        {"more before", {{440, 3}, {880, 4}}, {{440, 1}}, {{2, 57}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PartialRecords records;
        generate(records, c.before);
        const std::vector<PartialData> now = generate(records, c.now);
        ASSERT_EQ(now.size(), c.expected.size());
        for (std::size_t i = 0; i < now.size(); ++i) {
            EXPECT_EQ(now[i].power, c.expected[i].power) << i;
            EXPECT_EQ(now[i].noteNumber, c.expected[i].key) << i;
        }
    }
}

TEST(PartialRecords, CentsMoveHalfWayEachTime) {
    PartialRecords records;
    generate(records, {{hzAt(57.40), 1}});
    EXPECT_NEAR(generate(records, {{440, 1}})[0].cent, 20, 1e-3f);
    EXPECT_NEAR(generate(records, {{440, 1}})[0].cent, 10, 1e-3f);
    EXPECT_NEAR(generate(records, {{hzAt(57.30), 1}})[0].cent, 20, 1e-3f);
}

TEST(PartialRecords, ADroppedDrawingEndsTheSmoothing) {
    PartialRecords records;
    generate(records, {{440, 3}, {880, 4}});
    generate(records, {{25, 1}});
    EXPECT_EQ(generate(records, {{440, 1}})[0].power, 1);
}

} // namespace
} // namespace veltrano
