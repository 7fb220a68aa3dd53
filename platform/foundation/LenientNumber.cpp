// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/LenientNumber.h"

#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace veltrano {

namespace {

constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

struct Signed {
    bool negative = false;
    std::string_view digits; ///< what follows white space and sign
};

Signed splitSign(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    if (text.empty() || (text.front() != '+' && text.front() != '-')) return {false, text};
    return {text.front() == '-', text.substr(1)};
}

/// Whether a decimal number begins here: from_chars would also take "inf" and "nan".
bool startsNumber(std::string_view digits) {
    if (digits.empty()) return false;
    if (isDigit(digits.front())) return true;
    return digits.size() > 1 && digits.front() == '.' && isDigit(digits[1]);
}

/// from_chars leaves an out-of-range value untouched: the exponent's sign tells which way it went.
bool underflows(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return exponent + 1 < number.size() && number[exponent + 1] == '-';
    }
    const std::size_t significant = number.find_first_not_of('0');
    return significant != std::string_view::npos && number[significant] == '.';
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

std::string fixedDecimals(double value, int decimals) {
    // The largest double has 309 digits before its point.
    std::array<char, 400> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::fixed, decimals);
    return std::string(text.data(), result.ptr);
}

} // namespace veltrano
