// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a sound file block by block.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace veltrano {

/// An open sound file (WAV, FLAC, Ogg, AIFF and the like), read from its start to its end.
///
/// Integer samples become n / 2^(bits - 1) (16 bit: n / 32768), floating-point samples stay as they
/// are: nothing is normalised or clipped, and NaN passes.
/// Thread: one at a time. Allocates: read() may, as the file's decoder pleases.
class Recording {
public:
    static constexpr int kMaxSampleRateHz = 384000;
    static constexpr int kMaxChannels = 64;
    /// An analysis frame spans two periods of this note, trunc(2 x rate / 16.35159783) samples; a
    /// rate that leaves it without a sample is refused: 9 Hz is the lowest.
    static constexpr double kLowestNoteHz = 16.35159783;

    /// Opens @p path (bytes as the file system has them).
    /// @param error set to one line, "PATH: reason", when null is answered: no such file, empty, no
    ///        sound file, a rate or a channel count that is out of bounds, not a single sample
    static std::unique_ptr<Recording> open(const std::string& path, std::string& error);
    ~Recording();

    int sampleRateHz() const; ///< 9 ... kMaxSampleRateHz
    int channels() const;     ///< 1 ... kMaxChannels
    /// Sample frames that the file claims to have; a truncated one may hold fewer.
    std::int64_t frames() const;

    /// Reads the next sample frames, all channels interleaved.
    /// @param interleaved room for a whole number of sample frames
    /// @return sample frames read; fewer than there is room for only at the end (or where the file
    ///         is broken), then 0
    std::int64_t read(std::span<float> interleaved);

    /// Goes to a sample frame, 0 = start. False when the file cannot; the place is then undefined.
    bool seek(std::int64_t frame);

private:
    struct File;
    explicit Recording(std::unique_ptr<File> file);

    const std::unique_ptr<File> mFile;
};

} // namespace veltrano
