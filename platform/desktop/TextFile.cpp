// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veltrano {

namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 16;

/// A file descriptor that closes itself.
class OpenFile {
public:
    /// Non-blocking, so that a pipe without a writer does not hold the program up.
    explicit OpenFile(const std::string& path)
        : mDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
    ~OpenFile() {
        if (mDescriptor >= 0) ::close(mDescriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return mDescriptor >= 0; }
    bool status(struct stat& result) const { return ::fstat(mDescriptor, &result) == 0; }
    /// @return bytes read, 0 at the end, -1 on failure
    ssize_t read(char* to, std::size_t count) const {
        ssize_t result;
        do {
            result = ::read(mDescriptor, to, count);
        } while (result < 0 && errno == EINTR);
        return result;
    }

private:
    const int mDescriptor;
};

TextFile refused(std::string_view path, std::string_view why) {
    return {std::nullopt, std::string(path) + ": " + std::string(why)};
}

TextFile tooLarge(std::string_view path, std::size_t limit) {
    return refused(path, "larger than " + std::to_string(limit >> 20) + " MB");
}

} // namespace

TextFile readTextFile(std::string_view path, std::size_t limit) {
    // Asked before it is opened as well: opening alone can already do something to a device.
    struct stat status;
    const std::string name(path);
    if (::stat(name.c_str(), &status) != 0) return refused(path, std::strerror(errno));
    if (!S_ISREG(status.st_mode)) return refused(path, "no regular file");
    const OpenFile file(name);
    if (!file.isOpen() || !file.status(status)) return refused(path, std::strerror(errno));
    if (!S_ISREG(status.st_mode)) return refused(path, "no regular file");
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > limit) return tooLarge(path, limit);

    // The size is only a hint: the file may grow meanwhile, and some files do not tell theirs.
    std::string bytes;
    for (std::size_t step = size + 1;; step = kChunkBytes) {
        const std::size_t before = bytes.size();
        bytes.resize(std::min(before + step, limit + 1));
        const ssize_t count = file.read(bytes.data() + before, bytes.size() - before);
        if (count < 0) return refused(path, std::strerror(errno));
        bytes.resize(before + static_cast<std::size_t>(count));
        if (count == 0) return {std::move(bytes), {}};
        if (bytes.size() > limit) return tooLarge(path, limit);
    }
}

} // namespace veltrano
