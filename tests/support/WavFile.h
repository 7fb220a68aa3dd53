// SPDX-License-Identifier: GPL-3.0-or-later
// Writes WAV files of every layout that a test needs.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <vector>

namespace veltrano {

enum class WavFormat { int16, int24, float32 };

/// Mono samples on one channel per gain, interleaved. {1, 1} is a duplicated mono signal.
std::vector<float> onChannels(std::span<const float> mono, std::span<const float> gains);

/// Writes a WAV file.
/// @param samples interleaved; integers are rounded to steps of 1 / 2^(bits-1) and limited, floats
///        are written as they are
/// @param rateHz 1 ... 4294967295
/// @param channels 1 ... 65535
/// @return false when the file could not be written
bool writeWav(const std::filesystem::path& path, std::span<const float> samples, unsigned rateHz,
              unsigned channels = 1, WavFormat format = WavFormat::int16);

} // namespace veltrano
