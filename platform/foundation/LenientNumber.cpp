// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/LenientNumber.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace veltrano {

namespace {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

struct Signed {
    bool negative = false;
    std::string_view digits; ///< what follows white space and sign
};

Signed splitSign(std::string_view text) {
    while (const auto first = firstUtf8(text)) {
        if (!isUnicodeSpace(first->code)) break;
        text.remove_prefix(first->length);
    }
    if (text.empty() || (text.front() != '+' && text.front() != '-')) return {false, text};
    return {text.front() == '-', text.substr(1)};
}

/// Whether a decimal number begins here: from_chars would also take "inf" and "nan".
bool startsNumber(std::string_view digits) {
    if (digits.empty()) return false;
    if (isDigit(digits.front())) return true;
    return digits.size() > 1 && digits.front() == '.' && isDigit(digits[1]);
}

/// from_chars leaves an out-of-range value untouched; this tells which way it went.
/// @param number digits with at most one point and an exponent, not in the range of any double
bool underflows(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, e);
    const std::size_t significant = digits.find_first_of("123456789");
    if (significant == std::string_view::npos) return true; // a zero, whatever its exponent
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const auto magnitude = static_cast<long long>(point) - static_cast<long long>(significant);
    return magnitude + lenientInt(number.substr(std::min(e + 1, number.size()))) < 0;
}

template <class T>
T lenient(std::string_view text) {
    const Signed parts = splitSign(text);
    if (!startsNumber(parts.digits)) return 0;
    const char* first = parts.digits.data();
    T value = 0;
    const auto [end, error] = std::from_chars(first, first + parts.digits.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::string_view number(first, static_cast<std::size_t>(end - first));
        value = underflows(number) ? T(0) : std::numeric_limits<T>::infinity();
    }
    return parts.negative ? -value : value;
}

} // namespace

double lenientDouble(std::string_view text) { return lenient<double>(text); }

float lenientFloat(std::string_view text) { return lenient<float>(text); }

int lenientInt(std::string_view text) {
    const Signed parts = splitSign(text);
    const char* first = parts.digits.data();
    if (parts.digits.empty() || !isDigit(*first)) return 0;
    long long value = 0;
    const auto result = std::from_chars(first, first + parts.digits.size(), value);
    constexpr long long most = std::numeric_limits<int>::max();
    if (result.ec == std::errc::result_out_of_range) value = most + 1;
    if (parts.negative) return value > most ? std::numeric_limits<int>::min() : int(-value);
    return value > most ? std::numeric_limits<int>::max() : int(value);
}

double lenientWhole(std::string_view text) {
    const Signed parts = splitSign(text);
    std::size_t length = 0;
    while (length < parts.digits.size() && isDigit(parts.digits[length]))
        ++length;
    const double magnitude = lenientDouble(parts.digits.substr(0, length));
    return parts.negative ? -magnitude : magnitude;
}

std::string fixedDecimals(double value, int decimals) {
    // The largest double has 309 digits before its point.
    std::array<char, 400> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::fixed, decimals);
    return std::string(text.data(), result.ptr);
}

std::string signedDecimals(double value, int decimals) {
    const std::string text = fixedDecimals(value, decimals);
    return text.front() == '-' ? text : '+' + text;
}

} // namespace veltrano
