// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers out of texts that people typed, and into texts that people read; never by locale.
#pragma once

#include <string>
#include <string_view>

namespace veltrano {

/// The number at the start of @p text (UTF-8): white space, an optional sign, digits, at most one
/// point and an optional exponent; whatever follows is ignored. 0 when there is no number, so a
/// text like
/// "--.-" is 0. A comma ends the number. Overflow gives the infinity of its sign.
double lenientDouble(std::string_view text);

/// The same in single precision, rounded once from the text.
float lenientFloat(std::string_view text);

/// The whole number at the start of @p text: white space, an optional sign, digits. 0 when there is
/// none; clipped to the range of int.
int lenientInt(std::string_view text);

/// The same of any length, as the nearest double; an infinity beyond the largest one.
double lenientWhole(std::string_view text);

/// @p value with exactly @p decimals digits after the point, correctly rounded, always with a
/// point. "inf" and "nan" for values that are no numbers.
/// @param decimals 0 ... 80
std::string fixedDecimals(double value, int decimals);

/// The same always with its sign: "+0.000", "-12.500".
std::string signedDecimals(double value, int decimals);

} // namespace veltrano
