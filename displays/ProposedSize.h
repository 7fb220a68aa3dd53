// SPDX-License-Identifier: GPL-3.0-or-later
// The size that a window of fixed proportions takes.
#pragma once

#include "displays/Geometry.h"

namespace veltrano {

/// The keys held while a window is resized.
struct ResizeKeys {
    bool alt = false;   ///< whole multiples of the minimum size only
    bool shift = false; ///< the proposed size as it is; without effect when Alt is held
};

/// The smaller of the two ratios proposed / minimum, in single precision, times @p minimum.
///
/// Alt cuts the ratio to a whole number. Below the minimum size that would be 0 and the window
/// would vanish: such a proposal gives the minimum size itself. Without Alt a proposal below the
/// minimum gives the smaller size that the ratio says; the window system keeps to the minimum.
/// @param minimum  an axis that is not above 0 has no ratio: the proposal is accepted
Extent proposedSize(Extent minimum, Extent proposed, ResizeKeys keys) noexcept;

} // namespace veltrano
