// SPDX-License-Identifier: GPL-3.0-or-later
// What a voice is given to read.
#include "platform/desktop/SpeechText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veltrano {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// The word for a sign between its neighbours, '\0' beyond the ends; empty for what stays.
std::string_view wordFor(char sign, char before, char after) {
    const bool isFirst = before == '\0' || before == ' ';
    if (sign == '+' && isFirst && isDigit(after)) return "plus ";
    if (sign == '-' && isFirst && isDigit(after)) return "minus ";
    if (sign == '#' && isLetter(before) && !isLetter(after) && !isDigit(after)) return " sharp";
    return {};
}

/// A sign of more than one byte at the start of @p utf8, and its word.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kAccidentals{
    {{"\u266f", " sharp"}, {"\u266d", " flat"}}};

} // namespace

std::string speechText(std::string_view utf8) {
    const auto at = [utf8](std::size_t index) { return index < utf8.size() ? utf8[index] : '\0'; };
    std::string text;
    for (std::size_t index = 0; index < utf8.size(); ++index) {
        const auto rest = utf8.substr(index);
        const auto accidental = std::ranges::find_if(
            kAccidentals, [rest](const auto& sign) { return rest.starts_with(sign.first); });
        if (accidental != kAccidentals.end()) {
            text += accidental->second;
            index += accidental->first.size() - 1;
            continue;
        }
        const char before = index > 0 ? at(index - 1) : '\0';
        const std::string_view word = wordFor(at(index), before, at(index + 1));
        text += word.empty() ? utf8.substr(index, 1) : word;
    }
    return text;
}

} // namespace veltrano
