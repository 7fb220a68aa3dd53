// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/FrequencyGate.h"

namespace veltrano::frequency_gate {

bool isAccepted(float rawHz) noexcept {
    return double(rawHz) >= kLowestHz && double(rawHz) <= kHighestHz;
}

float smoothed(float smoothedHz, float rawHz) noexcept {
    const float ratio = rawHz / smoothedHz;
    if (0.99f < ratio && ratio < 1.01f) return (smoothedHz + rawHz) * 0.5f;
    return rawHz;
}

} // namespace veltrano::frequency_gate
