// SPDX-License-Identifier: GPL-3.0-or-later
// The key, its target and the deviation from it.
#include "engine/NoteEvaluation.h"

#include "engine/NumberTexts.h"
#include "tuning/PitchClass.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

constexpr std::array<double, 12> kNoCents{};
constexpr std::array<double, 108> kNoStretch{};

/// A stretch table with one entry.
std::array<double, 108> stretchAt(int key, double cents) {
    std::array<double, 108> table{};
    table[static_cast<std::size_t>(key)] = cents;
    return table;
}

std::optional<NoteReading> read(float hz, const std::array<double, 108>& stretch = kNoStretch,
                                float reference = 440.0f) {
    return evaluateNote(hz, {reference, false, 0, kNoCents, stretch});
}

float hzOf(double key, double reference = 440.0) {
    return float(reference * std::exp2((key - kKeyA4) / 12.0));
}

TEST(NoteEvaluation, A4AtItsPitchHasNoDeviation) {
    const auto reading = read(440.0f);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 57);
    EXPECT_EQ(reading->octave, 4);
    EXPECT_NEAR(reading->deviation, 0.0, 1e-12);
    EXPECT_EQ(reading->idealHz, 440.0);
    EXPECT_EQ(plusMinusValueString(truncated(double(float(reading->deviation) * 1000.0f))),
              "\u00B100.0");
}

TEST(NoteEvaluation, F445IsNineteenAndAHalfCentsSharp) {
    const auto reading = read(445.0f);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 57);
    EXPECT_NEAR(reading->deviation, 12 * std::log2(445.0 / 440.0), 1e-6);
    EXPECT_EQ(plusMinusValueString(truncated(double(float(reading->deviation) * 1000.0f))),
              "+19.5");
}

TEST(NoteEvaluation, EveryKeyIsNamedAtItsOwnPitch) {
    for (const float reference : {392.0f, 415.0f, 440.0f, 466.0f}) {
        for (int key = 0; key < kKeys; ++key) {
            const auto reading = read(hzOf(key, double(reference)), kNoStretch, reference);
            ASSERT_TRUE(reading) << key;
            EXPECT_EQ(reading->key, key);
            EXPECT_EQ(reading->octave, key / 12);
            EXPECT_NEAR(reading->deviation, 0, 1e-5);
            EXPECT_NEAR(reading->idealHz / double(hzOf(key, double(reference))), 1, 1e-6);
        }
    }
}

TEST(NoteEvaluation, StretchMovesTheTargetOnce) {
    const auto reading = read(hzOf(57.1), stretchAt(57, 12.5));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 57);
    EXPECT_NEAR(reading->deviation, 0.1 - 0.125, 1e-5);
    EXPECT_EQ(reading->stretchCents, 12.5);
    EXPECT_NEAR(reading->idealHz, 440 * std::exp2(0.125 / 12), 1e-9);
}

TEST(NoteEvaluation, NeighbourShiftKeepsTheOldStretchAndTheOldOctave) {
    // A quarter of a semitone below C5 (key 60), whose target is 30 cents high.
    const auto reading = read(hzOf(59.75), stretchAt(60, 30));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 59);   // B4 ...
    EXPECT_EQ(reading->octave, 5); // ... but the octave of C5
    EXPECT_NEAR(reading->deviation, 0.45, 1e-5);
    EXPECT_EQ(reading->stretchCents, 0); // of B4
    EXPECT_NEAR(reading->idealHz, double(hzOf(59)), 1e-3);
}

TEST(NoteEvaluation, ShiftGoesUpOneKeyToo) {
    const auto reading = read(hzOf(59.3), stretchAt(59, -25));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 60);
    EXPECT_EQ(reading->octave, 4); // kept from B4
    EXPECT_NEAR(reading->deviation, 0.3 + 0.25 - 1.0, 1e-5);
}

TEST(NoteEvaluation, TheEndsOfTheKeyboardDoNotShift) {
    const auto top = read(hzOf(107.3), stretchAt(107, -40));
    ASSERT_TRUE(top);
    EXPECT_EQ(top->key, 107);
    EXPECT_GT(top->deviation, 0.5);
    EXPECT_NEAR(top->deviation, 0.7, 1e-5);
    const auto bottom = read(hzOf(-0.3), stretchAt(0, 40));
    ASSERT_TRUE(bottom);
    EXPECT_EQ(bottom->key, 0);
    EXPECT_NEAR(bottom->deviation, -0.7, 1e-5);
}

TEST(NoteEvaluation, JustBelowTheLowestKeyTruncationGoesTowardZero) {
    // kept: below C0 less a quarter tone the parts of the logarithm are negative, so the key stays
    // 0 and the deviation passes half a semitone.
    const auto reading = read(hzOf(-0.9));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 0);
    EXPECT_NEAR(reading->deviation, -0.4 - 0.5, 1e-5);
}

TEST(NoteEvaluation, TemperamentIsReadFromTheTonicAndReplacesTheDeviation) {
    std::array<double, 12> cents{};
    cents[7] = 10;
    const TuningChoice tuning{440.0f, true, 2, cents, kNoStretch};
    const auto reading = evaluateNote(440.0f, tuning); // (57 + 12 - 2) mod 12 = 7
    ASSERT_TRUE(reading);
    EXPECT_NEAR(reading->idealHz, 440 * std::pow(2.0, 10.0 / 1200), 1e-9);
    EXPECT_NEAR(reading->deviation, -0.1, 1e-9);

    const auto stretch = stretchAt(57, 5);
    const TuningChoice stretched{440.0f, true, 2, cents, stretch};
    EXPECT_NEAR(evaluateNote(440.0f, stretched)->deviation, -0.15, 1e-9);
}

TEST(NoteEvaluation, ATemperamentCorrectsTheDeviationAfterAShift) {
    const auto stretch = stretchAt(60, 30);
    const TuningChoice tuning{440.0f, true, 0, kNoCents, stretch};
    const auto reading = evaluateNote(hzOf(59.75), tuning);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->key, 59);
    EXPECT_NEAR(reading->deviation, 0.75, 1e-5);
}

TEST(NoteEvaluation, ManualTargetKeepsTheDeviationInEqualTemperament) {
    const TuningChoice tuning{440.0f, false, 0, kNoCents, kNoStretch};
    const KeyTarget target = calculateCent(0.25, 69, 100, 1.0f, tuning);
    EXPECT_EQ(target.deviation, 0.25);
    EXPECT_NEAR(target.idealHz, 440 * std::pow(2.0, 13.0 / 12), 1e-9);
}

TEST(NoteEvaluation, OutsideTheKeysNothingIsRead) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float hz :
         {0.0f, -440.0f, hzOf(-13), hzOf(107.6), hzOf(200), infinity, nan, 1e-44f}) {
        EXPECT_FALSE(read(hz)) << double(hz);
    }
    EXPECT_FALSE(read(440.0f, kNoStretch, 0.0f));
    EXPECT_FALSE(read(0.0f, kNoStretch, 0.0f));
    EXPECT_FALSE(read(440.0f, kNoStretch, nan));
    EXPECT_TRUE(read(hzOf(107.49)));
}

TEST(NumberTexts, ValuesInTenths) {
    struct {
        std::int32_t tenths;
        const char* text;
    } const cases[] = {{123, "+12.3"}, {-5, "-00.5"},    {0, "\u00B100.0"},          {-4, "-00.4"},
                       {195, "+19.5"}, {1000, "+100.0"}, {INT32_MIN, "-214748364.8"}};
    for (const auto& c : cases)
        EXPECT_EQ(plusMinusValueString(c.tenths), c.text);
}

TEST(NumberTexts, FloatsWithThreeDecimals) {
    struct {
        float value;
        const char* text;
    } const cases[] = {{1.234f, "+1.234"},        {-0.25f, "-0.250"},    {-0.0004f, "\u00B10.000"},
                       {0.00049f, "\u00B10.000"}, {0.0005f, "+0.001"},   {0, "\u00B10.000"},
                       {-12.3456f, "-12.346"},    {1000.0f, "+1000.000"}};
    for (const auto& c : cases)
        EXPECT_EQ(plusMinusFloatString(c.value), c.text);
    EXPECT_EQ(frequencyString(440.0), "440.000");
    EXPECT_EQ(frequencyString(double(27.5f)), "27.500");
}

TEST(NumberTexts, TruncationIsDefinedForEveryValue) {
    EXPECT_EQ(truncated(195.6), 195);
    EXPECT_EQ(truncated(-0.9), 0);
    EXPECT_EQ(truncated(std::nan("")), 0);
    EXPECT_EQ(truncated(1e300), INT32_MAX);
    EXPECT_EQ(truncated(-HUGE_VAL), INT32_MIN);
}

TEST(NoteEvaluation, EverySpellingIsFixed) {
    constexpr const char* kSpellings[] = {"C ", "C\u266F", "D ", "E\u266D", "E ", "F ", "F\u266F",
                                          "G ", "G\u266F", "A ", "B\u266D", "B "};
    for (int key = 0; key < kKeys; ++key) {
        const NoteSpelling& spelling = spellingOfKey(key);
        EXPECT_EQ(std::string(1, spelling.letter) + std::string(spelling.accidental),
                  kSpellings[key % 12]);
    }
}

TEST(NoteEvaluation, FrequencyOverPitchIsDividedInSinglePrecision) {
    // A double quotient gives 0.19562174794921, a single-precision logarithm 0.19562157243491.
    EXPECT_NEAR(read(445.0f)->deviation, 0.19562156243983, 1e-11);
}

TEST(NoteEvaluation, ExactlyHalfASemitoneDoesNotShift) {
    for (const double cents : {-50.0, 50.0}) { // 27.5 Hz is A0 (key 9) without any deviation
        const auto reading = read(27.5f, stretchAt(9, cents));
        ASSERT_TRUE(reading);
        EXPECT_EQ(reading->key, 9);
        EXPECT_EQ(reading->deviation, cents / -100.0);
    }
}

} // namespace
} // namespace veltrano
