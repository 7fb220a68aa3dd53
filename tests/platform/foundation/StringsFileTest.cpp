// SPDX-License-Identifier: GPL-3.0-or-later
// What a file of key and value pairs may hold, and where it is refused.
#include "platform/foundation/StringsFile.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

using namespace std::string_literals;

struct TakenCase {
    const char* what;
    std::string text;
    StringsDictionary pairs;
};

const TakenCase kTaken[] = {
    {"empty file", "", {}},
    {"only white space", " \t\r\n\v\f", {}},
    {"one pair", R"("a"="b";)", {{"a", "b"}}},
    {"empty key and value", R"(""="";)", {{"", ""}}},
    {"no space between pairs", R"("a"="b";"c"="d";)", {{"a", "b"}, {"c", "d"}}},
    {"white space between all tokens", " \n\"a\"\t=\r\n\"b\"  ;\n", {{"a", "b"}}},
    {"comments between all tokens", "/*1*/\"a\"/*2*/=//3\n\"b\"/*4*/;//5", {{"a", "b"}}},
    {"white space of Unicode",
     "\u00A0\u0085\u1680\u2000\u200A\u2028\u2029\u202F\u205F\u3000\"a\"=\"b\";",
     {{"a", "b"}}},
    {"the five escapes", R"("\\\"\n\t\r"="\r\t\n\"\\";)", {{"\\\"\n\t\r", "\r\t\n\"\\"}}},
    {"escaped backslash before n", R"("a"="\\n";)", {{"a", "\\n"}}},
    {"escaped backslash before the end", R"("a"="\\";)", {{"a", "\\"}}},
    {"raw line breaks inside quotes", "\"a\nb\"=\"c\r\nd\re\";", {{"a\nb", "c\r\nd\re"}}},
    {"comment signs inside quotes", R"("a"="// /* */";)", {{"a", "// /* */"}}},
    {"quotes inside a comment", "// \"\n/* \" */\"a\"=\"b\";", {{"a", "b"}}},
    {"a key twice has its last value", R"("a"="1";"b"="2";"a"="3";)", {{"a", "3"}, {"b", "2"}}},
    {"line comment ends at LF", "// x\n\"a\"=\"b\";", {{"a", "b"}}},
    {"line comment ends at CR", "// x\r\"a\"=\"b\";", {{"a", "b"}}},
    {"line comment ends at U+2028", "// x\u2028\"a\"=\"b\";", {{"a", "b"}}},
    {"line comment ends at U+2029", "// x\u2029\"a\"=\"b\";", {{"a", "b"}}},
    {"line comment goes on past U+0085, VT and FF", "// x\u0085\v\f\"a\"=\"b\";", {}},
    {"line comment without a line end", "\"a\"=\"b\";//", {{"a", "b"}}},
    {"block comments do not nest", "/* /* */\"a\"=\"b\";", {{"a", "b"}}},
    {"shortest block comment", "/**/\"a\"=\"b\";", {{"a", "b"}}},
    {"block comment full of stars", "/***/\"a\"=\"b\";", {{"a", "b"}}},
    {"block comment over lines, with a line comment", "/* // \n */\"a\"=\"b\";", {{"a", "b"}}},
    {"UTF-8 of every length", "\"\u00E9\"=\"\u2603\U0001F3B9\";", {{"\u00E9", "\u2603\U0001F3B9"}}},
    {"byte-order mark inside quotes", "\"\uFEFF\"=\"b\";", {{"\uFEFF", "b"}}},
    {"zero bytes inside quotes", "\"\0\"=\"\0\";"s, {{"\0"s, "\0"s}}},
};

TEST(StringsFile, Takes) {
    for (const TakenCase& test : kTaken) {
        SCOPED_TRACE(test.what);
        const StringsFile file = parseStringsFile(test.text);
        EXPECT_EQ(file.pairs, test.pairs);
        EXPECT_EQ(file.errorLine, 0);
    }
}

struct RefusedCase {
    const char* what;
    std::string text;
    int line;
};

const RefusedCase kRefused[] = {
    {"bare word", "a", 1},
    {"unquoted key", R"(a="b";)", 1},
    {"unquoted value", R"("a"=b;)", 1},
    {"number as value", R"("a"=1;)", 1},
    {"only a key", R"("a")", 1},
    {"key without value", R"("a";)", 1},
    {"no value", R"("a"=;)", 1},
    {"no semicolon", R"("a"="b")", 1},
    {"no semicolon before the next pair", "\"a\"=\"b\"\n\"c\"=\"d\";", 2},
    {"two semicolons", R"("a"="b";;)", 1},
    {"two equals signs", R"("a"=="b";)", 1},
    {"single quotes", "'a'='b';", 1},
    {"braces", R"({"a"="b";})", 1},
    {"parentheses", R"("a"=("b");)", 1},
    {"one slash", "/", 1},
    {"slash before a pair", R"(/"a"="b";)", 1},
    {"end of a comment without its begin", "*/", 1},
    {"number sign as comment", "# x\n\"a\"=\"b\";", 1},
    {"escape of a letter", R"("a"="\a";)", 1},
    {"escape in octal", R"("a"="\101";)", 1},
    {"escape of a code point", R"("a"="\U0041";)", 1},
    {"escape of a single quote", R"("a"="\'";)", 1},
    {"escape of a slash", R"("a"="\/";)", 1},
    {"escape of a line break", "\"a\"=\"\\\n\";", 1},
    {"escape of a long character", "\"a\"=\"\\\u00E9\";", 1},
    {"escape at the end", "\"a\"=\"\\", 1},
    {"no semicolon before blank lines", "\"a\"=\"b\"\n\n", 3},
    {"no value before a comment and blank lines", "\"a\"=/* x */\n\n", 3},
    {"text without its end", "\n\"a\"=\"b;\n\n", 2},
    {"key without its end", "\n\n\"a\n\n", 3},
    {"comment without its end", "\"a\"=\"b\";\n/* x\n\n", 2},
    {"comment that ends in a star", "/* *", 1},
    {"comment that is begun and ended by one star", "/*/", 1},
    {"byte-order mark", "\uFEFF\"a\"=\"b\";", 1},
    {"zero byte between tokens", "\"a\"=\0\"b\";"s, 1},
    {"zero width space", "\u200B\"a\"=\"b\";", 1},
    {"byte above the end of a character", "\"a\"=\"\x80\";", 1},
    {"cut character", "\"a\"=\"\xC3\";", 1},
    {"cut character at the end", "\n\"a\"=\"\xE2\x98", 2},
    {"overlong zero", "\"a\"=\"\xC0\x80\";", 1},
    {"overlong slash", "\"a\"=\"\xE0\x80\xAF\";", 1},
    {"surrogate", "\"a\"=\"\xED\xA0\x80\";", 1},
    {"above the last code point", "\"a\"=\"\xF4\x90\x80\x80\";", 1},
    {"Latin-1 in a line comment", "\n// \xE9\n\"a\"=\"b\";", 2},
    {"Latin-1 in a block comment", "/*\n\n\xE9*/\"a\"=\"b\";", 3},
    {"Latin-1 after the last pair", "\"a\"=\"b\";\n\xE9", 2},
    {"UTF-16", "\xFF\xFE\"\0"s, 1},
    {"a good pair does not save a bad one", "\"a\"=\"b\";\nx", 2},
};

TEST(StringsFile, RefusesAsAWholeAndSaysTheLine) {
    for (const RefusedCase& test : kRefused) {
        SCOPED_TRACE(test.what);
        const StringsFile file = parseStringsFile(test.text);
        EXPECT_FALSE(file.pairs);
        EXPECT_EQ(file.errorLine, test.line);
    }
}

TEST(StringsFile, CountsLinesByEveryLineEnd) {
    const struct {
        const char* what;
        std::string before;
        int line;
    } cases[] = {
        {"LF", "\n\n", 3},
        {"CR", "\r\r", 3},
        {"CR LF is one", "\r\n\r\n", 3},
        {"LF CR are two", "\n\r", 3},
        {"U+0085", "\u0085\u0085", 3},
        {"U+2028 and U+2029", "\u2028\u2029", 3},
        {"in a block comment", "/*\r\n\r*/", 3},
        {"ends of line comments", "// a\r\n// b\n", 3},
        {"inside quotes", "\"a\n\"=\"\r\n\";", 3},
        {"an escaped line break is none", R"("a"="\n";)", 1},
    };
    for (const auto& test : cases)
        EXPECT_EQ(parseStringsFile(test.before + "?").errorLine, test.line) << test.what;
}

bool isA(std::string_view key) { return key == "a"; }

TEST(StringsFile, ForgetsKeysThatNobodyAsksForButChecksThem) {
    const StringsDictionary expected{{"a", "3"}};
    EXPECT_EQ(parseStringsFile(R"("b"="1";"a"="2";"c"="";"a"="3";)", isA).pairs, expected);
    EXPECT_FALSE(parseStringsFile(R"("b"="\q";"a"="2";)", isA).pairs);
    EXPECT_FALSE(parseStringsFile(R"("a"="2";"b")", isA).pairs);
}

TEST(StringsFile, ValueOfAKey) {
    const StringsDictionary pairs{{"a", ""}, {"b", "2"}};
    EXPECT_EQ(valueOf(pairs, "a"), "");
    EXPECT_EQ(valueOf(pairs, "b"), "2");
    EXPECT_EQ(valueOf(pairs, "c"), std::nullopt);
}

TEST(PropertyString, EscapesBackslashesFirst) {
    const struct {
        const char* what;
        std::string text;
        std::string expected;
    } cases[] = {
        {"nothing", "", ""},
        {"plain", "Kirnberger III", "Kirnberger III"},
        {"backslash", R"(\)", R"(\\)"},
        {"double quote", R"(")", R"(\")"},
        {"backslash and quote", R"(\")", R"(\\\")"},
        {"newline, tab, carriage return", "\n\t\r", R"(\n\t\r)"},
        {"backslash and n", R"(\n)", R"(\\n)"},
        {"others stay", "'\u00E9\v\u2028/", "'\u00E9\v\u2028/"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        EXPECT_EQ(propertyString(test.text), test.expected);
        const auto pairs = parseStringsFile("\"a\"=\"" + test.expected + "\";").pairs;
        ASSERT_TRUE(pairs);
        EXPECT_EQ(pairs->at("a"), test.text) << "read back";
    }
}

} // namespace
} // namespace veltrano
