// SPDX-License-Identifier: GPL-3.0-or-later
// Sound as the bytes of a file.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace veltrano {

/// A WAV file tells its length as 32 bits; a little is left for what is not sound.
constexpr std::size_t kMostWaveSamples = (0xFFFFFFFFu - 4096) / sizeof(float);

/// A WAV file of 32-bit floats, samples as they are. Thread: any.
/// @param samples interleaved, at most kMostWaveSamples
/// @param rateHz 1 ... 384000
/// @param channels 1 ... 64
/// @return empty when it could not be made
/// Throws std::bad_alloc when there is no room for it.
std::string waveFileBytes(std::span<const float> samples, int rateHz, int channels);

} // namespace veltrano
