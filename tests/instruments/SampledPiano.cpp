// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/instruments/SampledPiano.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sndfile.h>

namespace veltrano {

namespace {

constexpr int kMidiOfKey0 = 12;
constexpr char kVelocity = 80;
constexpr std::uint32_t kHeldTicks = 3000; ///< 1000 ticks make a second
constexpr std::uint32_t kFreeTicks = 1000; ///< until a note has died away
constexpr double kSpacingSeconds = (kHeldTicks + kFreeTicks) / 1000.0;
constexpr double kPeak = 0.9;

void appendNumber(std::string& bytes, std::uint32_t value, int count) {
    for (int i = count - 1; i >= 0; --i)
        bytes += char((value >> (8 * i)) & 0xFF);
}

/// A time difference: seven bits per byte, the last byte below 128.
void appendTicks(std::string& bytes, std::uint32_t ticks) {
    for (int shift = 21; shift > 0; shift -= 7) {
        if (ticks >> shift) bytes += char(0x80 | ((ticks >> shift) & 0x7F));
    }
    bytes += char(ticks & 0x7F);
}

/// A MIDI file that plays every key once.
std::string midiFile() {
    std::string track;
    track += {0, char(0xFF), 0x51, 3, 0x07, char(0xA1), 0x20}; // a quarter note lasts 0.5 s
    track += {0, char(0xC0), 0};                               // program 1, grand piano
    for (int key = SampledPiano::kFirstKey; key <= SampledPiano::kLastKey; ++key) {
        appendTicks(track, key == SampledPiano::kFirstKey ? 0 : kFreeTicks);
        track += {char(0x90), char(key + kMidiOfKey0), kVelocity};
        appendTicks(track, kHeldTicks);
        track += {char(0x80), char(key + kMidiOfKey0), 0};
    }
    appendTicks(track, kFreeTicks);
    track += {char(0xFF), 0x2F, 0};

    std::string file = "MThd";
    appendNumber(file, 6, 4);
    appendNumber(file, 0, 2); // a single track
    appendNumber(file, 1, 2);
    appendNumber(file, 500, 2); // ticks per quarter note
    file += "MTrk";
    appendNumber(file, std::uint32_t(track.size()), 4);
    return file + track;
}

bool write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), std::streamsize(bytes.size()));
    return file.good();
}

/// The sum of all channels.
std::vector<float> readMono(const std::filesystem::path& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file) return {};
    std::vector<float> interleaved(std::size_t(info.frames * info.channels));
    sf_readf_float(file, interleaved.data(), info.frames);
    sf_close(file);
    std::vector<float> mono(std::size_t(info.frames), 0.0F);
    for (std::size_t i = 0; i < interleaved.size(); ++i) {
        mono[i / std::size_t(info.channels)] += interleaved[i];
    }
    return mono;
}

std::string quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

} // namespace

std::vector<std::filesystem::path> SampledPiano::installedFonts() {
    std::vector<std::filesystem::path> found;
    for (const char* name : {"TimGM6mb.sf2", "FluidR3_GM.sf2"}) {
        const std::filesystem::path path = std::filesystem::path("/usr/share/sounds/sf2") / name;
        if (std::filesystem::exists(path)) found.push_back(path);
    }
    return found;
}

bool SampledPiano::canRender() { return std::system("command -v fluidsynth >/dev/null 2>&1") == 0; }

std::optional<SampledPiano> SampledPiano::render(const std::filesystem::path& font,
                                                 const std::filesystem::path& folder) {
    const std::filesystem::path midi = folder / "keys.mid", wav = folder / "keys.wav";
    if (!write(midi, midiFile())) return std::nullopt;
    const std::string command = "fluidsynth -niq -R 0 -C 0 -g 0.5 -r " + std::to_string(kRateHz) +
                                " -T wav -O float -F " + quoted(wav) + ' ' + quoted(font) + ' ' +
                                quoted(midi) + " >/dev/null 2>&1 </dev/null";
    if (std::system(command.c_str()) != 0) return std::nullopt;
    SampledPiano piano;
    piano.mSamples = readMono(wav);
    std::filesystem::remove(wav);
    const double seconds = double(piano.mSamples.size()) / kRateHz;
    if (seconds < (kLastKey - kFirstKey) * kSpacingSeconds + kNoteSeconds) return std::nullopt;
    return piano;
}

std::vector<float> SampledPiano::note(int key) const {
    const auto start = std::ptrdiff_t((key - kFirstKey) * kSpacingSeconds * kRateHz);
    const auto length = std::ptrdiff_t(kNoteSeconds * kRateHz);
    std::vector<float> samples(mSamples.begin() + start, mSamples.begin() + start + length);
    float most = 0;
    for (const float x : samples)
        most = std::max(most, std::abs(x));
    for (float& x : samples)
        x *= most > 0 ? float(kPeak) / most : 0;
    return samples;
}

} // namespace veltrano
