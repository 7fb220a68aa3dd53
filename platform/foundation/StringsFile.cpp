// SPDX-License-Identifier: GPL-3.0-or-later
// Files of quoted key and value pairs.
#include "platform/foundation/StringsFile.h"

#include "platform/foundation/Utf8.h"

#include <utility>

namespace veltrano {

namespace {

constexpr bool endsLineComment(char32_t code) {
    return code == U'\n' || code == U'\r' || code == 0x2028 || code == 0x2029;
}

/// The character that an escape stands for; nullopt: no such escape.
std::optional<char> unescaped(char32_t code) {
    switch (code) {
    case U'"':
    case U'\\':
        return static_cast<char>(code);
    case U'n':
        return '\n';
    case U't':
        return '\t';
    case U'r':
        return '\r';
    default:
        return std::nullopt;
    }
}

/// Reads a text from its start to its end; what does not fit leaves the place where it stands.
class Reader {
public:
    explicit Reader(std::string_view text) : mRest(text) {}

    bool isAtEnd() const { return mRest.empty(); }
    /// Where reading stopped; the beginning of a text or comment whose end is missing.
    int errorLine() const { return mRest.empty() && mOpenedLine ? *mOpenedLine : mLine; }

    /// Goes past white space and comments. False: a comment has no end, or no UTF-8.
    bool skipToToken() {
        while (!mRest.empty()) {
            if (mRest.starts_with("//")) {
                if (!skipLineComment()) return false;
            } else if (mRest.starts_with("/*")) {
                if (!skipBlockComment()) return false;
            } else {
                const auto next = firstUtf8(mRest);
                if (!next) return false;
                if (!isUnicodeSpace(next->code)) return true;
                take(*next);
            }
        }
        return true;
    }

    bool takeSign(char sign) {
        if (!skipToToken() || mRest.empty() || mRest.front() != sign) return false;
        mRest.remove_prefix(1);
        return true;
    }

    std::optional<std::string> takeQuoted() {
        if (!takeSign('"')) return std::nullopt;
        mOpenedLine = mLine;
        std::string text;
        while (const auto next = firstUtf8(mRest)) {
            if (next->code == U'"') {
                mRest.remove_prefix(1);
                mOpenedLine.reset();
                return text;
            }
            if (next->code == U'\\') {
                const auto escape = firstUtf8(mRest.substr(1));
                const auto meant = escape ? unescaped(escape->code) : std::nullopt;
                if (!meant) return std::nullopt;
                text += *meant;
                mRest.remove_prefix(2);
            } else {
                text += mRest.substr(0, next->length);
                take(*next);
            }
        }
        return std::nullopt;
    }

private:
    /// CR LF is one line end.
    void take(const Utf8Character& character) {
        if (endsLineComment(character.code) || character.code == 0x85) {
            const bool isFirstHalf = character.code == U'\r' && mRest.substr(1).starts_with('\n');
            if (!isFirstHalf) ++mLine;
        }
        mRest.remove_prefix(character.length);
    }

    bool skipLineComment() {
        while (!mRest.empty()) {
            const auto next = firstUtf8(mRest);
            if (!next) return false;
            if (endsLineComment(next->code)) return true; // white space from here on
            take(*next);
        }
        return true;
    }

    bool skipBlockComment() {
        mRest.remove_prefix(2);
        mOpenedLine = mLine;
        while (!mRest.starts_with("*/")) {
            const auto next = firstUtf8(mRest);
            if (!next) return false;
            take(*next);
        }
        mRest.remove_prefix(2);
        mOpenedLine.reset();
        return true;
    }

    std::string_view mRest;
    int mLine = 1;
    std::optional<int> mOpenedLine; ///< of the text or block comment that is being read
};

bool readPair(Reader& reader, StringsKeyFilter isWanted, StringsDictionary& pairs) {
    auto key = reader.takeQuoted();
    if (!key || !reader.takeSign('=')) return false;
    auto value = reader.takeQuoted();
    if (!value || !reader.takeSign(';')) return false;
    if (isWanted && !isWanted(*key)) return true;
    pairs.insert_or_assign(std::move(*key), std::move(*value));
    return true;
}

} // namespace

StringsFile parseStringsFile(std::string_view utf8, StringsKeyFilter isWanted) {
    Reader reader(utf8);
    StringsDictionary pairs;
    while (reader.skipToToken()) {
        if (reader.isAtEnd()) return {std::move(pairs), 0};
        if (!readPair(reader, isWanted, pairs)) break;
    }
    return {std::nullopt, reader.errorLine()};
}

std::optional<std::string> valueOf(const StringsDictionary& pairs, std::string_view key) {
    const auto found = pairs.find(key);
    if (found == pairs.end()) return std::nullopt;
    return found->second;
}

std::string propertyString(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    // One pass gives what escaping the backslash first and the others after it gives.
    for (const char c : text) {
        switch (c) {
        case '\\':
            escaped += "\\\\";
            break;
        case '"':
            escaped += "\\\"";
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\t':
            escaped += "\\t";
            break;
        case '\r':
            escaped += "\\r";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

} // namespace veltrano
