// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/SoundFile.h"

#include <algorithm>
#include <cstring>
#include <sndfile.h>

namespace veltrano {

namespace {

/// A file in memory, as libsndfile's functions want it.
struct MemoryFile {
    std::string bytes;
    std::size_t position = 0;

    static MemoryFile& of(void* file) { return *static_cast<MemoryFile*>(file); }
    static sf_count_t length(void* file) { return sf_count_t(of(file).bytes.size()); }
    static sf_count_t tell(void* file) { return sf_count_t(of(file).position); }
    static sf_count_t seek(sf_count_t offset, int whence, void* file) {
        const sf_count_t base = whence == SEEK_SET   ? 0
                                : whence == SEEK_CUR ? tell(file)
                                                     : length(file);
        of(file).position = std::size_t(std::max<sf_count_t>(base + offset, 0));
        return tell(file);
    }
    static sf_count_t read(void* to, sf_count_t count, void* file) {
        MemoryFile& self = of(file);
        const std::size_t begin = std::min(self.position, self.bytes.size());
        const std::size_t part = std::min(std::size_t(count), self.bytes.size() - begin);
        std::memcpy(to, self.bytes.data() + begin, part);
        self.position = begin + part;
        return sf_count_t(part);
    }
    static sf_count_t write(const void* from, sf_count_t count, void* file) {
        MemoryFile& self = of(file);
        const std::size_t end = self.position + std::size_t(count);
        if (self.bytes.size() < end) self.bytes.resize(end);
        std::memcpy(self.bytes.data() + self.position, from, std::size_t(count));
        self.position = end;
        return count;
    }
};

} // namespace

std::string waveFileBytes(std::span<const float> samples, int rateHz, int channels) {
    if (samples.size() > kMostWaveSamples) return {};
    constexpr std::size_t kHeaderBytes = 1024; // more than enough
    MemoryFile memory;
    memory.bytes.reserve(samples.size_bytes() + kHeaderBytes); // may throw, the library must not
    SF_VIRTUAL_IO io{&MemoryFile::length, &MemoryFile::seek, &MemoryFile::read, &MemoryFile::write,
                     &MemoryFile::tell};
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* const file = sf_open_virtual(&io, SFM_WRITE, &info, &memory);
    if (!file) return {};
    sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE); // it would hold the time of day
    const auto count = sf_count_t(samples.size());
    const bool isWritten = sf_write_float(file, samples.data(), count) == count;
    const bool isClosed = sf_close(file) == 0; // writes the header
    return isWritten && isClosed ? std::move(memory.bytes) : std::string();
}

} // namespace veltrano
