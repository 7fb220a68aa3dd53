// SPDX-License-Identifier: GPL-3.0-or-later
// Characters of UTF-8 and ISO Latin-1 texts.
#include "platform/foundation/Utf8.h"

#include <array>

namespace veltrano {

namespace {

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// Length of a character and the payload of its first byte; length 0: no first byte.
Utf8Character leadOf(unsigned byte) {
    if (byte < 0x80) return {byte, 1};
    if (byte >= 0xC2 && byte < 0xE0) return {byte & 0x1F, 2};
    if (byte >= 0xE0 && byte < 0xF0) return {byte & 0x0F, 3};
    if (byte >= 0xF0 && byte < 0xF5) return {byte & 0x07, 4};
    return {};
}

constexpr std::array<char32_t, 5> kLeastOfLength{0, 0, 0x80, 0x800, 0x10000};

} // namespace

std::optional<Utf8Character> firstUtf8(std::string_view text) {
    if (text.empty()) return std::nullopt;
    Utf8Character character = leadOf(byteAt(text, 0));
    if (character.length == 0 || character.length > text.size()) return std::nullopt;
    for (std::size_t i = 1; i < character.length; ++i) {
        const unsigned byte = byteAt(text, i);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character.code = (character.code << 6) | (byte & 0x3F);
    }
    const bool isSurrogate = character.code >= 0xD800 && character.code < 0xE000;
    if (isSurrogate || character.code > 0x10FFFF ||
        character.code < kLeastOfLength[character.length])
        return std::nullopt;
    return character;
}

void appendUtf8(std::string& text, char32_t code) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xC0 | (code >> 6));
        append(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        append(0xE0 | (code >> 12));
        append(0x80 | ((code >> 6) & 0x3F));
        append(0x80 | (code & 0x3F));
    } else {
        append(0xF0 | (code >> 18));
        append(0x80 | ((code >> 12) & 0x3F));
        append(0x80 | ((code >> 6) & 0x3F));
        append(0x80 | (code & 0x3F));
    }
}

std::string utf8OfLatin1(std::string_view latin1) {
    std::string text;
    text.reserve(latin1.size());
    for (const char c : latin1)
        appendUtf8(text, static_cast<unsigned char>(c));
    return text;
}

std::string latin1OfUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Utf8Character character = firstUtf8(utf8).value_or(Utf8Character{U'?', 1});
        text += character.code < 0x100 ? static_cast<char>(character.code) : '?';
        utf8.remove_prefix(character.length);
    }
    return text;
}

bool isUnicodeSpace(char32_t code) {
    if (code <= 0x20) return code == 0x20 || (code >= 0x09 && code <= 0x0D);
    return code == 0x85 || code == 0xA0 || code == 0x1680 || (code >= 0x2000 && code <= 0x200A) ||
           code == 0x2028 || code == 0x2029 || code == 0x202F || code == 0x205F || code == 0x3000;
}

std::string_view trimmedUtf8(std::string_view utf8) {
    while (const auto first = firstUtf8(utf8)) {
        if (!isUnicodeSpace(first->code)) break;
        utf8.remove_prefix(first->length);
    }
    while (!utf8.empty()) {
        std::size_t at = utf8.size() - 1;
        while (at > 0 && (byteAt(utf8, at) & 0xC0) == 0x80)
            --at;
        const auto last = firstUtf8(utf8.substr(at));
        if (!last || !isUnicodeSpace(last->code)) break;
        utf8.remove_suffix(utf8.size() - at);
    }
    return utf8;
}

} // namespace veltrano
