// SPDX-License-Identifier: GPL-3.0-or-later
// Accepts the estimates that can be a note and smooths them.
#pragma once

namespace veltrano {

/// Thread: any, one call at a time.
namespace frequency_gate {

constexpr double kLowestHz = 15.886;    ///< C0 less 50 cents at A4 = 440 Hz
constexpr double kHighestHz = 8133.683; ///< B8 plus 50 cents

/// Whether @p rawHz can be a note; both limits count. NaN cannot.
bool isAccepted(float rawHz) noexcept;

/// The smoothed frequency after @p rawHz: the mean of both within 1 % of @p smoothedHz, otherwise
/// @p rawHz itself, so that a new note is taken at once. @p smoothedHz is 0 before the first.
float smoothed(float smoothedHz, float rawHz) noexcept;

} // namespace frequency_gate

} // namespace veltrano
