// SPDX-License-Identifier: GPL-3.0-or-later
// The gate, the level lights and the spoken sentences.
#include "engine/FrequencyGate.h"
#include "engine/LevelMeter.h"
#include "engine/SpokenReports.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(FrequencyGate, AcceptsTheKeysAndAQuarterToneBeyond) {
    for (const float hz : {15.887f, 440.0f, 8133.68f, 8133.6826f})
        EXPECT_TRUE(frequency_gate::isAccepted(hz));
    for (const float hz :
         {0.0f, 15.0f, 15.885f, 15.8859f, 8133.6831f, 8133.7f, -440.0f, HUGE_VALF, std::nanf("")}) {
        EXPECT_FALSE(frequency_gate::isAccepted(hz)) << double(hz);
    }
}

TEST(FrequencyGate, SmoothsWithinOnePercentAndJumpsBeyond) {
    struct {
        const char* name;
        float smoothed, raw, expected;
    } const cases[] = {
        {"440 then 441 is 440.5", 440, 441, 440.5f},
        {"a semitone up is taken at once", 440, 466.16f, 466.16f},
        {"the first is taken as it is", 0, 440, 440},
        {"1.01 itself is a jump", 100, 101, 101},
        {"0.99 itself is a jump", 100, 99, 99},
        {"just inside below", 100, 99.25f, 99.625f},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(frequency_gate::smoothed(c.smoothed, c.raw), c.expected) << c.name;
    }
}

/// Lights from the lowest, a letter each.
std::string picture(int peak, int hold) {
    std::string text;
    for (const LightImage image : level_meter::lights(peak, hold)) {
        text += image == LightImage::gray16x16     ? '.'
                : image == LightImage::green16x16  ? 'g'
                : image == LightImage::yellow16x16 ? 'y'
                : image == LightImage::red16x16    ? 'r'
                                                   : '?';
    }
    return text;
}

TEST(LevelMeter, OneLightPerFourDecibels) {
    struct {
        int peak, hold;
        const char* lights;
    } const cases[] = {
        {0, 0, "........"},   {60, 60, "........"}, {61, 61, "........"}, {63, 63, "........"},
        {64, 0, "g......."},  {64, 64, "y......."}, {67, 0, "g......."},  {68, 0, "gg......"},
        {92, 0, "gggggggg"},  {95, 95, "gggggggy"}, {95, 0, "gggggggg"},  {96, 0, "gggggggr"},
        {96, 96, "gggggggr"}, {0, 96, ".......r"},  {0, 84, ".....y.."},  {0, 63, "........"},
        {80, 91, "ggggg.y."}, {70, 84, "gg...y.."}, {96, 95, "gggggggy"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(picture(c.peak, c.hold), c.lights) << c.peak << " held " << c.hold;
    }
}

TEST(LevelMeter, TextIsTheHeldPeakBelowFullScale) {
    EXPECT_EQ(level_meter::text(84), "-12dB");
    EXPECT_EQ(level_meter::text(96), "0dB");
    EXPECT_EQ(level_meter::text(0), "-96dB");
}

using spoken_reports::Shown;

TEST(SpokenReports, NamesTheNoteAsShown) {
    struct {
        const char* name;
        Shown shown;
        bool withOctave;
        const char* text;
    } const cases[] = {
        {"A is spoken ay", {"A", " ", "4"}, false, "ay  "},
        {"flat", {"E", "\u266D", "5"}, false, "E flat"},
        {"sharp with octave", {"C", "\u266F", "3"}, true, "C sharp 3"},
        {"A with octave", {"A", " ", "4"}, true, "ay   4"},
        {"the placeholder octave is left out", {"-", "", "-"}, true, "- sharp"},
        {"nothing shown yet", {}, true, " sharp "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(spoken_reports::noteName(c.shown, c.withOctave), c.text) << c.name;
    }
}

TEST(SpokenReports, SaysInTuneWithinTheThresholdIncluded) {
    struct {
        const char* cent;
        int threshold;
        const char* text;
    } const cases[] = {
        {"+03.0", 3, "B flat, in tune"},      {"-03.0", 3, "B flat, in tune"},
        {"+03.1", 3, "B flat, +3.1 cent"},    {"-12.3", 3, "B flat, -12.3 cent"},
        {"\u00B100.0", 0, "B flat, in tune"}, {"--.-", 3, "B flat, in tune"},
    };
    for (const auto& c : cases) {
        const Shown shown{"B", "\u266D", "3", c.cent, "233.082", c.threshold};
        EXPECT_EQ(spoken_reports::tuneSpeech(shown, false), c.text);
    }
}

TEST(SpokenReports, StatusAndDetails) {
    const Shown shown{"A", " ", "4", "+19.5", "445.000", 3};
    EXPECT_EQ(spoken_reports::hertzSpeech(shown), "445.000 hertz");
    EXPECT_EQ(spoken_reports::status(shown), "ay  , +19.5 cent, 445.000 hertz");
    spoken_reports::Details details{442.5f, "Equal Tempered", "None", "ACME : Mic", "-14dB", -1};
    EXPECT_EQ(spoken_reports::details(shown, details),
              "ay  , +19.5 cent, 445.000 hertz. Reference Pitch: 442.500 hertz. "
              "Temperament: Equal Tempered. Stretch: None. Input Device: ACME : Mic. "
              "Input Peak Level: -14 dB. ");
    details.tonic = 3;
    EXPECT_NE(
        spoken_reports::details(shown, details).find("Temperament: Equal Tempered. Key: E\u266D. "),
        std::string::npos);
}

TEST(SpokenReports, PlaceholdersReadAsZero) {
    EXPECT_EQ(spoken_reports::hertzSpeech({"-", "", "-", "--.-", "---.---"}), "0.000 hertz");
}

} // namespace
} // namespace veltrano
