// SPDX-License-Identifier: GPL-3.0-or-later
// Sound as the bytes of a file.
#pragma once

#include <span>
#include <string>

namespace veltrano {

/// A WAV file of 32-bit floats, samples as they are. Thread: any.
/// @param samples interleaved
/// @param rateHz 1 ... 384000
/// @param channels 1 ... 64
/// @return empty when it could not be made
std::string waveFileBytes(std::span<const float> samples, int rateHz, int channels);

} // namespace veltrano
