// SPDX-License-Identifier: GPL-3.0-or-later
// Where the lines of a text in ISO Latin-1 end.
#include "tuning/LineData.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(std::string_view text) {
    LineData data = LineData::lineDataWithData(text);
    Lines lines;
    while (const auto line = data.nextLine())
        lines.emplace_back(*line);
    EXPECT_FALSE(data.nextLine()) << "the end stays the end";
    return lines;
}

TEST(LineData, Splits) {
    const struct {
        const char* what;
        std::string_view text;
        Lines lines;
    } cases[] = {
        {"nothing", "", {}},
        {"no line end", "a", {"a"}},
        {"LF", "a\nb\n", {"a", "b"}},
        {"CR", "a\rb\r", {"a", "b"}},
        {"CR LF is one", "a\r\nb\r\n", {"a", "b"}},
        {"LF CR are two", "a\n\rb", {"a", "", "b"}},
        {"CR CR LF are two", "a\r\r\nb", {"a", "", "b"}},
        {"U+0085",
         "a\x85"
         "b\x85",
         {"a", "b"}},
        {"CR U+0085 are two",
         "a\r\x85"
         "b",
         {"a", "", "b"}},
        {"only a line end", "\n", {""}},
        {"empty lines", "\n\na", {"", "", "a"}},
        {"CR at the end", "a\r", {"a"}},
        {"no line ends: VT, FF, U+00A0, separators of ASCII",
         "a\v\f\xA0\x1C\x1D\x1E z",
         {"a\v\f\xA0\x1C\x1D\x1E z"}},
        {"zero byte", std::string_view("a\0b\nc", 5), {std::string("a\0b", 3), "c"}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        EXPECT_EQ(linesOf(test.text), test.lines);
    }
}

TEST(LineData, SetDataBeginsAnew) {
    LineData data("a\nb");
    EXPECT_EQ(data.nextLine(), "a");
    data.setData("c");
    EXPECT_EQ(data.nextLine(), "c");
    EXPECT_FALSE(data.nextLine());
}

} // namespace
} // namespace veltrano
