// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/LenientNumber.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace veltrano {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberCase {
    const char* text;
    double expected;
};

constexpr NumberCase kNumbers[] = {
    {"1.5", 1.5},
    {"-1.5", -1.5},
    {"+1.5", 1.5},
    {"  \t\n 1.5", 1.5},
    {"1.5 cents", 1.5},
    {"1,5", 1}, // a comma ends the number, wherever the user lives
    {"1.5,3", 1.5},
    {".5", 0.5},
    {"5.", 5},
    {"-.5", -0.5},
    {"00012.50", 12.5},
    {"1e3", 1000},
    {"1E-3", 0.001},
    {"1e", 1},
    {"1e+", 1},
    {"1.2.3", 1.2},
    {"440.123456", 440.123456},
    {"16.35159783", 16.35159783},
    {"0.1", 0.1},
    {"4.9e-324", 4.9e-324},
    {"1.7976931348623157e308", 1.7976931348623157e308},
};

constexpr NumberCase kNoNumbers[] = {
    {"", 0},    {" ", 0},    {"abc", 0}, {"--.-", 0}, {"+-5", 0},        {"- 5", 0},
    {".", 0},   {"-", 0},    {"e5", 0},  {".e5", 0},  {",5", 0},         {"inf", 0},
    {"nan", 0}, {"-inf", 0}, {"NaN", 0}, {"0x1F", 0}, {"\xC2\xB1 5", 0}, {"\xEF\xBC\x95", 0},
};

TEST(LenientDouble, ReadsTheNumberAtTheStart) {
    for (const NumberCase& test : kNumbers)
        EXPECT_EQ(lenientDouble(test.text), test.expected) << test.text;
}

TEST(LenientDouble, IsZeroWithoutANumber) {
    for (const NumberCase& test : kNoNumbers)
        EXPECT_EQ(lenientDouble(test.text), 0) << test.text;
}

TEST(LenientDouble, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(lenientDouble("-0")));
    EXPECT_FALSE(std::signbit(lenientDouble("0")));
}

TEST(LenientDouble, TooLargeIsInfiniteTooSmallIsZero) {
    const std::string zeros(500, '0');
    const struct {
        std::string text;
        double expected;
    } cases[] = {
        {"1e400", kInfinity},
        {"-1e400", -kInfinity},
        {"1e-400", 0},
        {"1" + zeros, kInfinity},
        {"1" + zeros + ".5", kInfinity},
        {"1" + zeros + "e-1", kInfinity},
        {"1" + zeros + "e-500", 1},
        {"0." + zeros + "1", 0},
        {"." + zeros + "1e1", 0},
        {"." + zeros + "1e501", 1},
        {"1e99999999999999999999", kInfinity},
        {"1e-99999999999999999999", 0},
        {"0e99999999999999999999", 0},
    };
    for (const auto& test : cases)
        EXPECT_EQ(lenientDouble(test.text), test.expected) << test.text;
}

TEST(LenientFloat, IsRoundedOnceFromTheText) {
    // Half way between two floats, and a little more than a double can tell.
    EXPECT_EQ(lenientFloat("1.00000005960464477540"), std::nextafter(1.0F, 2.0F));
    EXPECT_EQ(float(lenientDouble("1.00000005960464477540")), 1.0F) << "rounded twice";
    EXPECT_EQ(lenientFloat("440.123456"), 440.123456F);
    EXPECT_EQ(lenientFloat("1e39"), std::numeric_limits<float>::infinity());
    EXPECT_EQ(lenientFloat("1e-60"), 0.0F);
    EXPECT_EQ(lenientFloat("x"), 0.0F);
}

TEST(LenientInt, ReadsTheWholeNumberAtTheStart) {
    constexpr struct {
        const char* text;
        int expected;
    } kCases[] = {
        {"42", 42},
        {"-42", -42},
        {"+42", 42},
        {" \t42", 42},
        {"42.9", 42},
        {"42,9", 42},
        {"-14dB", -14},
        {"0x10", 0},
        {"", 0},
        {"-", 0},
        {"abc", 0},
        {".5", 0},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"-2147483648", std::numeric_limits<int>::min()},
        {"-2147483647", -2147483647},
        {"-2147483649", std::numeric_limits<int>::min()},
        {"99999999999999999999999", 2147483647},
        {"-99999999999999999999999", std::numeric_limits<int>::min()},
    };
    for (const auto& test : kCases)
        EXPECT_EQ(lenientInt(test.text), test.expected) << test.text;
}

TEST(LenientWhole, ReadsDigitsOfAnyLength) {
    const struct {
        std::string text;
        double expected;
    } cases[] = {
        {"3", 3},
        {" \u00A0+3", 3},
        {"-3", -3},
        {"3.9", 3},
        {"3e2", 3},
        {"12 x", 12},
        {"", 0},
        {"x", 0},
        {".5", 0},
        {"- 3", 0},
        {"2147483648", 2147483648.0},
        {"9007199254740993", 9007199254740992.0}, // a tie goes to the even one
        {"9007199254740995", 9007199254740996.0},
        {"18446744073709551616", 18446744073709551616.0},
        {"1" + std::string(300, '0'), 1e300},
        {"-1" + std::string(300, '0'), -1e300},
        {std::string(1000, '0') + "7", 7},
        {"1" + std::string(400, '0'), kInfinity},
        {"-1" + std::string(400, '0'), -kInfinity},
    };
    for (const auto& test : cases)
        EXPECT_EQ(lenientWhole(test.text), test.expected) << test.text;
}

TEST(LenientNumbers, WhiteSpaceBeforeThemIsThatOfUnicode) {
    EXPECT_EQ(lenientDouble("\u2003\u00A0\u0085\u2028 1.5"), 1.5);
    EXPECT_EQ(lenientInt("\u3000\v\f12"), 12);
    EXPECT_EQ(lenientDouble("\u200B1.5"), 0) << "no white space";
}

TEST(SignedDecimals, AlwaysHasItsSign) {
    const struct {
        double value;
        std::string expected;
    } cases[] = {
        {0, "+0.000"},        {-0.0, "-0.000"},    {1, "+1.000"},      {-12.5, "-12.500"},
        {0.0005, "+0.001"},   {-0.0004, "-0.000"}, {0.0004, "+0.000"}, {50, "+50.000"},
        {0.0625, "+0.062"},   {0.1875, "+0.188"}, // ties go to the even digit
        {49.9995, "+49.999"},                     // the double lies below the half
    };
    for (const auto& test : cases)
        EXPECT_EQ(signedDecimals(test.value, 3), test.expected);
}

TEST(FixedDecimals, HasRoomForTheLargestDouble) {
    const std::string text = fixedDecimals(std::numeric_limits<double>::max(), 3);
    EXPECT_EQ(text.size(), 309u + 4u);
    EXPECT_TRUE(text.starts_with("17976931348623157"));
    EXPECT_TRUE(text.ends_with(".000"));
}

TEST(FixedDecimals, AlwaysWritesAPoint) {
    const struct {
        double value;
        int decimals;
        std::string expected;
    } cases[] = {
        {440, 3, "440.000"},         {1.5, 1, "1.5"},
        {-0.25, 3, "-0.250"},        {0.0005, 3, "0.001"}, // the double lies above the half
        {0.125, 2, "0.12"},                                // a tie goes to the even digit
        {0.375, 2, "0.38"},          {2.675, 2, "2.67"},   // the double lies below the half
        {-0.0, 1, "-0.0"},           {7, 0, "7"},
        {1234567.8, 1, "1234567.8"}, // no grouping
        {kInfinity, 2, "inf"},       {-kInfinity, 2, "-inf"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(fixedDecimals(test.value, test.decimals), test.expected);
    }
}

} // namespace
} // namespace veltrano
