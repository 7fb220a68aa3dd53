// SPDX-License-Identifier: GPL-3.0-or-later
// Characters of UTF-8 and ISO Latin-1 texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// One code point and the bytes it takes.
struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0; ///< 1 ... 4
};

/// The character at the start of @p text; nullopt when the bytes are no UTF-8 (overlong forms,
/// surrogates and values above U+10FFFF are none) or @p text is empty.
std::optional<Utf8Character> firstUtf8(std::string_view text);

void appendUtf8(std::string& text, char32_t code); ///< @p code at most U+10FFFF
std::string utf8OfLatin1(std::string_view latin1);
/// What ISO Latin-1 lacks becomes "?".
std::string latin1OfUtf8(std::string_view utf8);

/// White space as Unicode has it, line and paragraph separators included.
bool isUnicodeSpace(char32_t code);

/// @p utf8 without white space and line breaks at its ends.
std::string_view trimmedUtf8(std::string_view utf8);

} // namespace veltrano
