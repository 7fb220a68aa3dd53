// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/Recording.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sndfile.h>
#include <string_view>
#include <system_error>
#include <utility>

namespace veltrano {

struct Recording::File {
    SF_INFO info{};
    SNDFILE* handle = nullptr;

    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (handle != nullptr) sf_close(handle);
    }
};

namespace {

/// What keeps the path from being opened at all.
std::optional<std::string> pathProblem(const std::string& path) {
    std::error_code failure;
    const auto status = std::filesystem::status(path, failure);
    if (status.type() == std::filesystem::file_type::not_found) return "no such file";
    if (failure) return failure.message();
    if (status.type() == std::filesystem::file_type::directory) return "is a folder";
    if (status.type() != std::filesystem::file_type::regular) return std::nullopt;
    const auto size = std::filesystem::file_size(path, failure);
    if (!failure && size == 0) return "the file is empty";
    return std::nullopt;
}

/// The library's own words as part of one line: some of them end in a point or a line end.
std::string oneLine(std::string_view text) {
    std::string line(text.substr(0, text.find_last_not_of(". \r\n") + 1));
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

/// What keeps a file with this header from being tuned.
std::optional<std::string> formatProblem(const SF_INFO& info) {
    const auto text = [](int number) { return std::to_string(number); };
    if (info.channels < 1) return "the recording has no channel";
    if (info.channels > Recording::kMaxChannels) {
        return text(info.channels) + " channels, at most " + text(Recording::kMaxChannels) +
               " can be read";
    }
    if (info.samplerate > Recording::kMaxSampleRateHz) {
        return "a sample rate of " + text(info.samplerate) + " Hz, at most " +
               text(Recording::kMaxSampleRateHz) + " Hz can be read";
    }
    // 2 x rate / lowest note below 1: an analysis frame without a sample
    if (2.0 * info.samplerate < Recording::kLowestNoteHz) {
        return "a sample rate of " + text(info.samplerate) + " Hz is too low";
    }
    if (info.frames < 1) return "the recording holds no sound";
    return std::nullopt;
}

} // namespace

Recording::Recording(std::unique_ptr<File> file) : mFile(std::move(file)) {}

Recording::~Recording() = default;

std::unique_ptr<Recording> Recording::open(const std::string& path, std::string& error) {
    std::optional<std::string> problem = pathProblem(path);
    auto file = std::make_unique<File>();
    if (!problem) {
        file->handle = sf_open(path.c_str(), SFM_READ, &file->info);
        problem = file->handle == nullptr
                      ? "not a readable recording (" + oneLine(sf_strerror(nullptr)) + ")"
                      : formatProblem(file->info);
    }
    if (problem) {
        error = path + ": " + *problem;
        return nullptr;
    }
    return std::unique_ptr<Recording>(new Recording(std::move(file)));
}

int Recording::sampleRateHz() const { return mFile->info.samplerate; }

int Recording::channels() const { return mFile->info.channels; }

std::int64_t Recording::frames() const { return mFile->info.frames; }

std::int64_t Recording::read(std::span<float> interleaved) {
    const auto room = static_cast<sf_count_t>(interleaved.size()) / channels();
    return std::max<sf_count_t>(sf_readf_float(mFile->handle, interleaved.data(), room), 0);
}

bool Recording::seek(std::int64_t frame) {
    return sf_seek(mFile->handle, frame, SEEK_SET) == frame;
}

} // namespace veltrano
