// SPDX-License-Identifier: GPL-3.0-or-later
// Signs that are said.
#include "platform/desktop/SpeechText.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(SpeechText, SaysSignsThatMatter) {
    const struct {
        const char* written;
        const char* said;
    } cases[] = {
        {"", ""},
        {"A flat, in tune, 415.305 hertz", "A flat, in tune, 415.305 hertz"},
        {"C, +9.2 cent", "C, plus 9.2 cent"},
        {"C, -9.2 cent", "C, minus 9.2 cent"},
        {"+3", "plus 3"},
        {"-0.0", "minus 0.0"},
        {"F 4, +12 cent. C sharp 5, -9 cent. ", "F 4, plus 12 cent. C sharp 5, minus 9 cent. "},
        {"Key: F#. ", "Key: F sharp. "},
        {"Key: E\u266d. ", "Key: E flat. "},
        {"Key: F\u266f. ", "Key: F sharp. "},
        {"C# -3, G#", "C sharp minus 3, G sharp"},
        // Names have signs that are none.
        {"1/4-comma meantone", "1/4-comma meantone"},
        {"3-4 + 5 - 6", "3-4 + 5 - 6"},
        {"#1, F#4, F#x, 7#, # ", "#1, F#4, F#x, 7#, # "},
        {"1+2 3-4", "1+2 3-4"},
        {"+", "+"},
        {"-a +b", "-a +b"},
        {"Ger\u00e4t +1 \u2212 2", "Ger\u00e4t plus 1 \u2212 2"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(speechText(c.written), c.said) << c.written;
    }
}

} // namespace
} // namespace veltrano
