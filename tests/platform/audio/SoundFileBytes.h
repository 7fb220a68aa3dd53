// SPDX-License-Identifier: GPL-3.0-or-later
// Sound files byte by byte, good and broken ones, and a folder to put them into.
#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace veltrano {

/// A folder that goes with the test.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "veltrano-XXXXXX";
        mPath = ::mkdtemp(pattern.data());
    }
    ~ScratchFolder() { std::filesystem::remove_all(mPath); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string path(std::string_view name) const { return mPath / name; }
    /// @returns the file's path
    std::string write(std::string_view name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

private:
    std::filesystem::path mPath;
};

/// @p value as @p bytes bytes, least significant first.
inline std::string littleEndian(std::uint64_t value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8)
        text += static_cast<char>(value & 0xFF);
    return text;
}

template <class Number>
std::string bytesOf(const std::vector<Number>& numbers) {
    std::string bytes(numbers.size() * sizeof(Number), '\0');
    if (!numbers.empty()) std::memcpy(bytes.data(), numbers.data(), bytes.size());
    return bytes;
}

/// What a WAV file says about itself, whether true or not.
struct WavHeader {
    unsigned channels = 1;
    std::uint32_t rateHz = 44100;
    unsigned bits = 16;
    bool isFloat = false;
    bool isExtensible = false;
};

inline std::string wavFormatChunk(const WavHeader& header) {
    const unsigned code = header.isFloat ? 3 : 1;
    const unsigned frameBytes = header.channels * header.bits / 8;
    std::string body = littleEndian(header.isExtensible ? 0xFFFE : code, 2) +
                       littleEndian(header.channels, 2) + littleEndian(header.rateHz, 4) +
                       littleEndian(std::uint64_t(header.rateHz) * frameBytes, 4) +
                       littleEndian(frameBytes, 2) + littleEndian(header.bits, 2);
    if (header.isExtensible) {
        const std::string_view rest("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
        body += littleEndian(22, 2) + littleEndian(header.bits, 2) + littleEndian(0, 4) +
                littleEndian(code, 2) + std::string(rest);
    }
    return "fmt " + littleEndian(body.size(), 4) + body;
}

/// A whole WAV file around @p data, the samples as the header's format has them.
inline std::string wav(const WavHeader& header, const std::string& data) {
    const std::string format = wavFormatChunk(header);
    return "RIFF" + littleEndian(4 + format.size() + 8 + data.size(), 4) + "WAVE" + format +
           "data" + littleEndian(data.size(), 4) + data;
}

/// A 16-bit WAV file.
inline std::string wav16(unsigned channels, std::uint32_t rateHz,
                         const std::vector<std::int16_t>& samples) {
    return wav({channels, rateHz, 16}, bytesOf(samples));
}

/// 0, 1, 2, ... in every channel, shifted by 1000 from one channel to the next.
inline std::vector<std::int16_t> countingSamples(int frames, int channels) {
    std::vector<std::int16_t> samples;
    for (int frame = 0; frame < frames; ++frame) {
        for (int channel = 0; channel < channels; ++channel) {
            samples.push_back(static_cast<std::int16_t>(frame + 1000 * channel));
        }
    }
    return samples;
}

} // namespace veltrano
