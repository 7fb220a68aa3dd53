// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/WavFile.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace veltrano {

namespace {

constexpr unsigned kIntegerCoding = 1, kFloatCoding = 3;

unsigned bytesOf(WavFormat format) {
    switch (format) {
    case WavFormat::int16:
        return 2;
    case WavFormat::int24:
        return 3;
    case WavFormat::float32:
        break;
    }
    return 4;
}

void append(std::string& bytes, std::uint32_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::uint32_t coded(float sample, WavFormat format) {
    if (format == WavFormat::float32) return std::bit_cast<std::uint32_t>(sample);
    const double steps = format == WavFormat::int16 ? 32768.0 : 8388608.0;
    if (std::isnan(sample)) return 0;
    const double rounded = std::nearbyint(double(sample) * steps);
    return static_cast<std::uint32_t>(
        static_cast<std::int32_t>(std::clamp(rounded, -steps, steps - 1)));
}

} // namespace

std::vector<float> onChannels(std::span<const float> mono, std::span<const float> gains) {
    std::vector<float> interleaved;
    interleaved.reserve(mono.size() * gains.size());
    for (const float sample : mono) {
        for (const float gain : gains)
            interleaved.push_back(sample * gain);
    }
    return interleaved;
}

bool writeWav(const std::filesystem::path& path, std::span<const float> samples, unsigned rateHz,
              unsigned channels, WavFormat format) {
    const unsigned width = bytesOf(format);
    const auto dataBytes = static_cast<std::uint32_t>(samples.size() * width);
    std::string bytes = "RIFF";
    append(bytes, 36 + dataBytes, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);
    append(bytes, format == WavFormat::float32 ? kFloatCoding : kIntegerCoding, 2);
    append(bytes, channels, 2);
    append(bytes, rateHz, 4);
    append(bytes, rateHz * channels * width, 4);
    append(bytes, channels * width, 2);
    append(bytes, 8 * width, 2);
    bytes += "data";
    append(bytes, dataBytes, 4);
    for (const float sample : samples)
        append(bytes, coded(sample, format), width);
    if (dataBytes % 2 != 0) bytes += '\0'; // chunks have even lengths
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return file.good();
}

} // namespace veltrano
