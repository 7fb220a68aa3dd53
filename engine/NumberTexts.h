// SPDX-License-Identifier: GPL-3.0-or-later
// How the tuner writes its numbers.
#pragma once

#include <cstdint>
#include <string>

namespace veltrano {

/// @p tenths of a cent with sign: 123 is "+12.3", -5 is "-00.5", 0 is "±00.0" (UTF-8).
std::string plusMinusValueString(std::int32_t tenths);

/// @p value with sign and three decimals: "+1.234", "-0.250"; below half a thousandth "±0.000".
std::string plusMinusFloatString(float value);

/// "%.3f" of a frequency in Hz.
std::string frequencyString(double hz);

/// @p value truncated toward zero and clipped to 32 bits; 0 for NaN. In range it is the plain
/// conversion; out of range that conversion would be undefined.
std::int32_t truncated(double value);

} // namespace veltrano
