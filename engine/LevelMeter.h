// SPDX-License-Identifier: GPL-3.0-or-later
// The eight level lights and their text.
#pragma once

#include "platform/desktop/ControlPorts.h"

#include <array>
#include <string>

namespace veltrano {

/// One light per 4 dB above 60 dB; the held peak is marked on top. Thread: any.
namespace level_meter {

constexpr int kLights = 8;
constexpr int kFullScaleDb = 96;

/// The images of the lights, lowest first.
/// @param peak, peakHold [dB above the 16-bit floor] 0 ... 96
std::array<LightImage, kLights> lights(int peak, int peakHold);

/// "-12dB": the held peak below full scale.
std::string text(int peakHold);

} // namespace level_meter

} // namespace veltrano
