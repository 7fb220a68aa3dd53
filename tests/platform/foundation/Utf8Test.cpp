// SPDX-License-Identifier: GPL-3.0-or-later
// Characters, white space, ISO Latin-1.
#include "platform/foundation/Utf8.h"

#include <gtest/gtest.h>
#include <set>

namespace veltrano {
namespace {

TEST(Utf8, CharactersOfEveryLengthAtTheirLimits) {
    for (const char32_t code :
         {U'\0', U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\u5A69', U'\uD7FF', U'\uE000', U'\uFFFF',
          U'\U00010000', U'\U0005A967', U'\U0010FFFF'}) {
        std::string text;
        appendUtf8(text, code);
        const auto character = firstUtf8(text + "x");
        ASSERT_TRUE(character) << std::hex << unsigned(code);
        EXPECT_EQ(character->code, code);
        EXPECT_EQ(character->length, text.size());
    }
    EXPECT_EQ(firstUtf8("\u2603")->length, 3u);
}

TEST(Utf8, BytesThatAreNone) {
    constexpr std::string_view kNone[] = {
        "",
        "\x80",
        "\xBF",
        "\xC0\x80",
        "\xC1\xBF",
        "\xE0\x9F\xBF",
        "\xED\xA0\x80",
        "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80",
        "\xFF",
        "\xC3",
        "\xE2\x98",
        "\xC3x",
        "\xE2\x98x",
        "\xF0\x9F\x8E",
    };
    for (const std::string_view bytes : kNone)
        EXPECT_FALSE(firstUtf8(bytes)) << testing::PrintToString(std::string(bytes));
}

TEST(Utf8, WhiteSpaceIsThatOfUnicode) {
    std::set<char32_t> spaces{0x20, 0x85, 0xA0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
    for (char32_t code = 0x09; code <= 0x0D; ++code)
        spaces.insert(code);
    for (char32_t code = 0x2000; code <= 0x200A; ++code)
        spaces.insert(code);
    for (char32_t code = 0; code <= 0x10FFFF; ++code)
        ASSERT_EQ(isUnicodeSpace(code), spaces.contains(code)) << std::hex << unsigned(code);
}

TEST(Utf8, TrimsBothEnds) {
    constexpr struct {
        std::string_view text;
        std::string_view expected;
    } kCases[] = {
        {"", ""},
        {" \r\n\t ", ""},
        {" a b ", "a b"},
        {"\u00A0\u0085a\u0085\u00A0", "a"},
        {"\u3000\u2028\u00E9\u2603\u2029\u2003", "\u00E9\u2603"},
        {"\u200Ba\uFEFF", "\u200Ba\uFEFF"}, // no white space
        {"\x01 a \x1F", "\x01 a \x1F"},
    };
    for (const auto& test : kCases)
        EXPECT_EQ(trimmedUtf8(test.text), test.expected) << test.text;
    EXPECT_EQ(trimmedUtf8(" \xC3 "), "\xC3") << "bytes that are none stay";
}

TEST(Latin1, EveryByteComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(latin1OfUtf8(utf8OfLatin1(all)), all);
    EXPECT_EQ(utf8OfLatin1("\xE9"), "\u00E9");
}

TEST(Latin1, WhatItLacksBecomesAQuestionMark) {
    EXPECT_EQ(latin1OfUtf8("a\u00FF\u0100\u2603\U0001F3B9z"), "a\xFF???z");
    EXPECT_EQ(latin1OfUtf8("a\xC3"), "a?") << "bytes that are no UTF-8";
}

} // namespace
} // namespace veltrano
