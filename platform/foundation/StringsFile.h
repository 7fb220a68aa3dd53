// SPDX-License-Identifier: GPL-3.0-or-later
// Files of quoted key and value pairs, in which temperaments and stretch tables are kept.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Value by key, both UTF-8.
using StringsDictionary = std::map<std::string, std::string, std::less<>>;

struct StringsFile {
    std::optional<StringsDictionary> pairs; ///< empty: the text was refused
    /// Of the first offence, counted from 1; 0 without one. A text or comment that has no end
    /// offends where it begins.
    int errorLine = 0;
};

/// Whether the value of a key is of use.
using StringsKeyFilter = bool (*)(std::string_view key);

/// Reads `"key" = "value";` pairs with "//" and "/* */" comments and white space between tokens.
///
/// Thread: any. Time and memory grow linearly with the text for a bounded number of kept keys.
/// Strict: anything else is refused as a whole, also bytes that are not UTF-8, a byte-order mark,
/// an escape other than \" \\ \n \t \r, and a comment or text without its end. Raw line breaks
/// inside quotes are taken. White space is what Unicode calls so. A line comment ends at LF, CR,
/// U+2028 or U+2029. A key that occurs twice has its last value. An empty file has no pairs.
/// @param isWanted the keys to keep; null: all. The others are checked as strictly and then
/// forgotten: millions of keys that nobody asks for take time, but no memory.
StringsFile parseStringsFile(std::string_view utf8, StringsKeyFilter isWanted = nullptr);

/// The value under @p key; nullopt: there is no such key.
std::optional<std::string> valueOf(const StringsDictionary& pairs, std::string_view key);

/// @p text as it stands between the quotes of a file: backslash, double quote, newline, tab and
/// carriage return escaped, in this order.
std::string propertyString(std::string_view text);

} // namespace veltrano
