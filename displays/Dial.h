// SPDX-License-Identifier: GPL-3.0-or-later
// Where the needle stands on the dial, in the units of the dial artwork.
#pragma once

#include "displays/Geometry.h"

namespace veltrano::dial {

constexpr float kUnitsPerCent = 4.0f;
constexpr float kCentreX = 202.0f;      ///< [dial units] 0 cents
constexpr double kNeedleBaseline = 3.0; ///< [dial units] above the bottom
constexpr int kEndStop = 49;            ///< [cents] the needle goes no further
constexpr long kDefaultThreshold = 3;   ///< [cents]

enum class Needle { normal, inTune, endStop };

struct Pose {
    Needle needle;
    float centreX; ///< [dial units]
    bool operator==(const Pose&) const = default;
};

/// Whole cents are compared, cut towards zero: in tune when they are below the threshold (the
/// light, unlike the needle, also counts the threshold itself), at the end stop from 49 on. The
/// end stop is on the flat side for anything that is not >= 0, NaN included.
/// @param cents any value  @param threshold [cents]
Pose needlePose(float cents, long threshold) noexcept;

/// The needle's place inside a view of @p bounds.
/// @param needle natural size of the normal needle, used for every needle
/// @param dial natural size of the dial; an axis of 0 gives an empty rectangle
YUpRect needleRect(float centreX, Extent needle, Extent dial, Extent bounds) noexcept;

} // namespace veltrano::dial
