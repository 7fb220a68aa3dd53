// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of Scala files, and what is read from any bytes.
#include "tuning/ScalaScaleData.h"

#include "tests/support/RecordingLog.h"
#include "tests/tuning/GoldenFile.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr const char* kOnlyTwelve = "Veltrano only supports 12-note scales.";
constexpr const char* kBadRatio = "Invalid \"ratio\" value in Scala Scale file (.scl).";
constexpr const char* kBadCent = "Invalid \"cent\" value in Scala Scale file (.scl).";

RatioTable equalScale() {
    RatioTable ratios;
    for (int degree = 0; degree < 12; ++degree)
        ratios[std::size_t(degree)] = std::pow(2.0, degree / 12.0);
    return ratios;
}

/// The equal scale but for its first degrees above the tonic.
RatioTable scaleOf(std::initializer_list<double> first) {
    RatioTable ratios = equalScale();
    std::size_t degree = 1;
    for (const double ratio : first)
        ratios[degree++] = ratio;
    return ratios;
}

void expectSame(const RatioTable& ratios, const RatioTable& expected) {
    for (std::size_t degree = 0; degree < 12; ++degree)
        EXPECT_DOUBLE_EQ(ratios[degree], expected[degree]) << degree;
}

TEST(ScalaFile, ReadsDescriptionAndPitches) {
    const struct {
        const char* what;
        std::string text;
        std::optional<std::string> description;
        RatioTable ratios;
    } cases[] = {
        {"empty file", "", std::nullopt, equalScale()},
        {"only comments", "! a\n!\n!b", std::nullopt, equalScale()},
        {"only a description", "d", "d", equalScale()},
        {"no pitches", "! c\nd\n12\n", "d", equalScale()},
        {"description is trimmed", " \t a b \v\n12\n", "a b", equalScale()},
        {"white space of Latin-1", "\xA0\x1F\xE9\xA0\n12\n", "\x1F\u00E9", equalScale()},
        {"blank description", " \n12\n", "", equalScale()},
        {"comments between lines", "d\n!\n12\n!x\n9/8\n!\n5/4", "d", scaleOf({9 / 8.0, 1.25})},
        {"no comment with space before", " !d\n12\n", "!d", equalScale()},
        {"cents", "d\n12\n100.0\n", "d", scaleOf({std::pow(2.0, 1 / 12.0)})},
        {"ratio", "d\n12\n3/2\n", "d", scaleOf({1.5})},
        {"whole number is cents", "d\n12\n2\n", "d", scaleOf({std::pow(2.0, 2 / 1200.0)})},
        {"negative cents", "d\n12\n-100.\n", "d", scaleOf({std::pow(2.0, -1 / 12.0)})},
        {"exponent", "d\n12\n1e2\n", "d", scaleOf({std::pow(2.0, 1 / 12.0)})},
        {"white space before", "d\n\t 12\n \xA0 3/2\n\t 100", "d",
         scaleOf({1.5, std::pow(2.0, 1 / 12.0)})},
        {"text behind", "d\n12 notes\n100.0 cents\n3/2 fifth\n", "d",
         scaleOf({std::pow(2.0, 1 / 12.0), 1.5})},
        {"slash in the text behind", "d\n12\n100.5 or 3/2\n", "d", {}},
        {"slash behind that makes a ratio", "d\n12\n6 of 7/4\n", "d", scaleOf({1.5})},
        {"space around the slash", "d\n12\n3 / 2\n", "d", scaleOf({1.5})},
        {"the first slash divides", "d\n12\n3/2/5\n", "d", scaleOf({1.5})},
        {"decimals of a ratio are cut", "d\n12\n3.9/2.9\n", "d", scaleOf({1.5})},
        {"negative ratio", "d\n12\n-3/2\n", "d", scaleOf({-1.5})},
        {"long ratio", "d\n12\n" + std::string(30, '9') + "/3" + std::string(29, '0') + "\n", "d",
         scaleOf({1e30 / 3e29})},
        {"above 32 bits", "d\n12\n6442450944/4294967296\n", "d", scaleOf({1.5})},
        {"comma ends a number", "d\n12\n100,9\n", "d", scaleOf({std::pow(2.0, 1 / 12.0)})},
        {"range is not checked", "d\n12\n1/4\n9000.\n", "d", scaleOf({0.25, std::pow(2.0, 7.5)})},
        {"CR LF", "! c\r\nd\r\n12\r\n3/2\r\n", "d", scaleOf({1.5})},
        {"U+0085",
         "d\x85"
         "12\x85"
         "3/2\x85",
         "d", scaleOf({1.5})},
        {"count with sign and zeros", "d\n+0012.9\n3/2", "d", scaleOf({1.5})},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        ScalaScaleData scale;
        if (test.ratios == RatioTable{}) { // 100 of "100.5 or 3" by 2
            ASSERT_TRUE(scale.parseData(test.text));
            EXPECT_EQ(scale.scaleData()[1], 50);
            continue;
        }
        ASSERT_TRUE(scale.parseData(test.text));
        EXPECT_EQ(scale.description(), test.description);
        expectSame(scale.scaleData(), test.ratios);
        EXPECT_FALSE(scale.errorMessage());
    }
}

TEST(ScalaFile, ElevenPitchesAndNoMore) {
    std::string text = "d\n12\n";
    for (int degree = 1; degree <= 11; ++degree)
        text += std::to_string(12 + degree) + "/12\n";
    text += "7/1\nabc\n0\n1/0\n";
    ScalaScaleData scale;
    ASSERT_TRUE(scale.parseData(text)) << "lines after the pitches are ignored";
    for (int degree = 0; degree < 12; ++degree)
        EXPECT_EQ(scale.scaleData()[std::size_t(degree)], (12 + degree) / 12.0);
}

TEST(ScalaFile, SaysWhyItRefuses) {
    const std::string zeros(400, '0');
    const struct {
        const char* what;
        std::string text;
        std::optional<std::string> error;
    } cases[] = {
        {"seven notes, before any pitch is read", "d\n7\nabc\n", kOnlyTwelve},
        {"a hundred and twenty notes", "d\n120\n", kOnlyTwelve},
        {"minus twelve", "d\n-12\n", kOnlyTwelve},
        {"no count", "d\nx 12\n", kOnlyTwelve},
        {"a pitch for a count", "d\n100.0\n", kOnlyTwelve},
        {"a count that would be twelve in 32 bits", "d\n4294967308\n", kOnlyTwelve},
        {"a count that would be twelve in 64 bits", "d\n18446744073709551628\n", kOnlyTwelve},
        {"cents are 0", "d\n12\n0.0\n", kBadCent},
        {"cents are -0", "d\n12\n-0\n", kBadCent},
        {"cents are too small for a number", "d\n12\n1e-999\n", kBadCent},
        {"cents are no number", "d\n12\nabc\n", kBadCent},
        {"only white space", "d\n12\n \n", kBadCent},
        {"infinity is no number", "d\n12\ninf\n", kBadCent},
        {"denominator 0", "d\n12\n3/0\n", kBadRatio},
        {"numerator 0", "d\n12\n0/2\n", kBadRatio},
        {"numerator is no number", "d\n12\na/2\n", kBadRatio},
        {"denominator is no number", "d\n12\n3/b\n", kBadRatio},
        {"no numerator", "d\n12\n/2\n", kBadRatio},
        {"no denominator", "d\n12\n3/\n", kBadRatio},
        {"numerator cut to 0", "d\n12\n0.9/2\n", kBadRatio},
        {"a comment about a slash", "d\n12\nfifth 3/2\n", kBadRatio},
        {"the last pitch", "d\n12\n1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n0\n2/1\n", kBadCent},
        {"empty line first", "\nd\n12\n", std::nullopt},
        {"empty line for a description", "!c\n\n12\n", std::nullopt},
        {"empty line among pitches", "d\n12\n3/2\n\n5/4\n", std::nullopt},
        {"empty line after the pitches", "d\n12\n1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n2/1\n\n",
         std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        ScalaScaleData scale;
        EXPECT_FALSE(scale.parseData(test.text));
        EXPECT_EQ(scale.errorMessage(), test.error);
    }
}

TEST(ScalaFile, RatiosBeyondAllNumbersDoNotFitADocument) {
    for (const std::string& pitch : {std::string(400, '9') + "/1", "1/" + std::string(400, '9'),
                                     std::string(400, '9') + "/" + std::string(400, '9'),
                                     std::string("1e308"), std::string("-1e308")}) {
        RecordingLog log;
        ScalaScaleData scale;
        ASSERT_TRUE(scale.parseData("d\n12\n" + pitch + "\n"));
        Temperament table(440, 0);
        EXPECT_FALSE(table.setScalaRatios(scale.scaleData(), log));
        EXPECT_EQ(log.lines, std::vector<std::string>{std::string(temperament::kOutOfRange)});
    }
}

TEST(ScalaFile, PitchFarFromEqualIsReadButFitsNoDocument) {
    const struct {
        const char* pitch;
        bool fits;
    } cases[] = {{"149.9999", true}, {"150.0001", false}, {"50.0001", true}, {"49.9999", false}};
    for (const auto& test : cases) {
        RecordingLog log;
        ScalaScaleData scale;
        ASSERT_TRUE(scale.parseData(std::string("d\n12\n") + test.pitch));
        Temperament table(440, 0);
        EXPECT_EQ(table.setScalaRatios(scale.scaleData(), log), test.fits) << test.pitch;
        EXPECT_EQ(log.lines.size(), test.fits ? 0u : 1u);
    }
}

TEST(ScalaText, IsTrimmedCleanedAndCut) {
    std::string eighty, ninety;
    for (int i = 0; i < 90; ++i)
        (i < 80 ? eighty : ninety) += "\u2603";
    const struct {
        const char* what;
        std::string text;
        std::string expected;
    } cases[] = {
        {"nothing", "", ""},
        {"white space and line breaks at the ends", " \n\u2003a\u2028\u00A0", "a"},
        {"tab inside", "a\tb", "a b"},
        {"line breaks inside", "a\r\nb", "a  b"},
        {"control characters at the ends stay as spaces",
         "\x01"
         "a\x1F",
         " a "},
        {"no control characters", "a\x7F\u0085b", "a\x7F\u0085b"},
        {"80 characters of three bytes", eighty, eighty},
        {"90 characters", eighty + ninety, eighty},
        {"81 characters", std::string(80, 'a') + "b", std::string(80, 'a')},
        {"cut after trimming", " " + std::string(80, 'a'), std::string(80, 'a')},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ScalaScaleData::trimString(test.text), test.expected) << test.what;
}

TEST(ScalaFile, WritesTheGoldenBytes) {
    const Temperament inC(440, 0);
    EXPECT_EQ(ScalaScaleData::scaleDataWithName("Equal", "of a document in C", inC.ratios()),
              goldenFile("equal.scl"))
        << "measured against A";
    EXPECT_EQ(ScalaScaleData::scaleDataWithName(
                  " tab\there \u00E9\u2603" + std::string(90, 'x'), "above\r\nan\t\x01octave\n",
                  {1, 16 / 15.0, 9 / 8.0, 6 / 5.0, 5 / 4.0, 4 / 3.0, 45 / 32.0, 3 / 2.0, 8 / 5.0,
                   5 / 3.0, 9 / 5.0, 15 / 8.0}),
              goldenFile("just.scl"));
}

} // namespace
} // namespace veltrano
