// SPDX-License-Identifier: GPL-3.0-or-later
// The partials of a sound in words.
#include "analysis/PartialRecords.h"

#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

TEST(IsInTune, TheThresholdItselfDoesNotCount) {
    struct {
        const char* name;
        float cent, threshold;
        bool isInTune;
    } const cases[] = {
        {"none", 0, 2, true},
        {"just below", 1.9999f, 2, true},
        {"sharp by the threshold", 2, 2, false},
        {"flat by the threshold", -2, 2, false},
        {"just above", -1.9999f, 2, true},
        {"no threshold", 0, 0, false},
        {"flat by a little", -0.4f, 0.3f, false},
        {"not a number", std::numeric_limits<float>::quiet_NaN(), 2, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(isInTune(c.cent, c.threshold), c.isInTune);
    }
}

TEST(CentLabel, IsWholeCentsWithTheirSign) {
    struct {
        float cent;
        const char* label;
    } const cases[] = {
        {0, "0"},        {0.4f, "0"},     {-0.4f, "0"},   {-0.0f, "0"},      {0.5f, "+1"},
        {-0.5f, "-1"},   {1.5f, "+2"},    {2.5f, "+3"},   {-2.5f, "-3"},     {70, "+70"},
        {-49.6f, "-50"}, {0.49999f, "0"}, {12.3f, "+12"}, {-100.2f, "-100"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(centLabel(c.cent), c.label) << c.cent;
}

TEST(PartialsSpeech, TellsTheKeysAndTheirDeviations) {
    constexpr float kThreshold = 2;
    struct {
        const char* name;
        std::vector<PartialData> records;
        const char* brief;
        const char* details;
    } const cases[] = {
        {"none", {}, "no partials", "no partials"},
        {"one in tune",
         {{1, 1.9f, 57, 9, 4}},
         "one partial: ay 4, in tune. ",
         "one partial: root note, ay 4, in tune cent. "},
        {"one sharp by the threshold",
         {{1, 2, 49, 1, 4}},
         "one partial: C sharp 4, +2. ",
         "one partial: root note, C sharp 4, +2 cent. "},
        {"one flat",
         {{1, -12.6f, 94, 10, 7}},
         "one partial: B flat 7, -13. ",
         "one partial: root note, B flat 7, -13 cent. "},
        {"several",
         {{1, 0, 9, 9, 0}, {1, 19.5f, 51, 3, 4}, {1, -2.5f, 96, 0, 8}},
         "3 partials: ay 0, in tune. E flat 4, +20. C 8, -2. ",
         "3 partials: root note, ay 0, in tune cent. E flat 4, +20 cent. C 8, -2 cent. "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(partialsSpeech(c.records, kThreshold, false), c.brief);
        EXPECT_EQ(partialsSpeech(c.records, kThreshold, true), c.details);
    }
}

TEST(PartialsSpeech, ALittleDeviationKeepsItsSign) {
    EXPECT_EQ(partialsSpeech(std::vector<PartialData>{{1, -0.4f, 48, 0, 4}}, 0.3f, false),
              "one partial: C 4, -0. ");
    EXPECT_EQ(partialsSpeech(std::vector<PartialData>{{1, 0.4f, 48, 0, 4}}, 0.3f, false),
              "one partial: C 4, +0. ");
}

TEST(PartialsSpeech, NamesEveryPitchClass) {
    constexpr const char* kNames[] = {"C",       "C sharp", "D",       "E flat", "E",      "F",
                                      "F sharp", "G",       "G sharp", "ay",     "B flat", "B"};
    for (std::int64_t note = 0; note < 12; ++note) {
        EXPECT_EQ(partialsSpeech(std::vector<PartialData>{{1, 0, 48 + note, note, 4}}, 1, false),
                  std::string("one partial: ") + kNames[note] + " 4, in tune. ");
    }
}

} // namespace
} // namespace veltrano
