// SPDX-License-Identifier: GPL-3.0-or-later
// Broken sound files: one line that says why, or as much sound as there is.
#include "platform/audio/Recording.h"
#include "tests/platform/audio/SoundFileBytes.h"

#include <gtest/gtest.h>
#include <random>

namespace veltrano {
namespace {

/// The error line without the path in front of it; empty when the file was opened.
std::string reasonOf(const std::string& path) {
    std::string error;
    if (Recording::open(path, error) != nullptr) {
        EXPECT_EQ(error, "") << "an error although it was opened";
        return "";
    }
    EXPECT_EQ(error.substr(0, path.size() + 2), path + ": ");
    EXPECT_EQ(error.find('\n'), std::string::npos);
    return error.substr(path.size() + 2);
}

/// Sample frames that can be read; -1 when it cannot be opened.
std::int64_t readableFrames(const std::string& path) {
    std::string error;
    const auto recording = Recording::open(path, error);
    if (recording == nullptr) return -1;
    std::vector<float> block(std::size_t(64 * recording->channels()));
    std::int64_t all = 0;
    while (const std::int64_t frames = recording->read(block))
        all += frames;
    return all;
}

const std::string kNotReadable = "not a readable recording (";

struct Refused {
    const char* name;
    std::string bytes;
    std::string reason; ///< whole, or its start when it is kNotReadable
};

TEST(BrokenRecording, OneLineSaysWhy) {
    const std::string good = wav16(1, 44100, countingSamples(100, 1));
    const Refused cases[] = {
        {"zero length", "", "the file is empty"},
        {"text", "This is not a sound file, whatever it is called.\n", kNotReadable},
        {"zero bytes", std::string(1000, '\0'), kNotReadable},
        {"header of a truncated file", good.substr(0, 30), kNotReadable},
        {"zero channels", wav({0, 44100, 16}, bytesOf(countingSamples(100, 1))), kNotReadable},
        {"no sample", wav16(1, 44100, {}), "the recording holds no sound"},
        {"less than one sample frame", wav({2, 44100, 16}, "ab"), "the recording holds no sound"},
        {"65 channels", wav16(65, 44100, countingSamples(3, 65)),
         "65 channels, at most 64 can be read"},
        {"rate above the highest", wav16(1, 384001, {1, 2}),
         "a sample rate of 384001 Hz, at most 384000 Hz can be read"},
        {"rate without a sample per analysis frame", wav16(1, 8, {1, 2}),
         "a sample rate of 8 Hz is too low"},
        {"rate 1", wav16(1, 1, {1, 2}), "a sample rate of 1 Hz is too low"},
        {"rate 0", wav16(1, 0, {1, 2}), kNotReadable},
    };
    const ScratchFolder folder;
    for (const Refused& refused : cases) {
        SCOPED_TRACE(refused.name);
        const std::string reason = reasonOf(folder.write("broken.wav", refused.bytes));
        if (refused.reason == kNotReadable) {
            EXPECT_EQ(reason.substr(0, kNotReadable.size()), kNotReadable);
            EXPECT_EQ(reason.back(), ')');
        } else {
            EXPECT_EQ(reason, refused.reason);
        }
    }
}

TEST(BrokenRecording, WhatIsNoFileIsSaidSo) {
    const ScratchFolder folder;
    EXPECT_EQ(reasonOf(folder.path("missing.wav")), "no such file");
    EXPECT_EQ(reasonOf(folder.path("missing/a.wav")), "no such file");
    EXPECT_EQ(reasonOf(folder.path("")), "is a folder");
    EXPECT_EQ(reasonOf(folder.write("file", "x") + "/a.wav"), "no such file");
}

TEST(BrokenRecording, ANameThatIsTooLongIsRefused) {
    EXPECT_NE(reasonOf("/tmp/" + std::string(300, 'a') + ".wav"), "");
}

TEST(BrokenRecording, ATruncatedFileIsReadAsFarAsItGoes) {
    const ScratchFolder folder;
    const std::string good = wav16(2, 44100, countingSamples(100, 2));
    const std::size_t header = good.size() - 400;
    const struct {
        std::size_t dataBytes;
        std::int64_t frames;
    } cases[] = {{400, 100}, {200, 50}, {199, 49}, {6, 1}, {4, 1}};
    for (const auto& [dataBytes, frames] : cases) {
        EXPECT_EQ(readableFrames(folder.write("cut.wav", good.substr(0, header + dataBytes))),
                  frames)
            << dataBytes;
    }
    EXPECT_EQ(reasonOf(folder.write("cut.wav", good.substr(0, header + 3))),
              "the recording holds no sound");
}

TEST(BrokenRecording, NoStartOfAFileCrashes) {
    const ScratchFolder folder;
    WavHeader header{2, 44100, 16};
    header.isExtensible = true;
    const std::string good = wav(header, bytesOf(countingSamples(20, 2)));
    for (std::size_t length = 0; length <= good.size(); ++length) {
        const std::int64_t frames = readableFrames(folder.write("cut.wav", good.substr(0, length)));
        EXPECT_LE(frames, 20) << length;
    }
}

TEST(BrokenRecording, NoDamageCrashes) {
    const ScratchFolder folder;
    const std::string good = wav16(2, 44100, countingSamples(200, 2));
    std::mt19937 random(1);
    for (int round = 0; round < 1500; ++round) {
        std::string damaged = good;
        for (unsigned hits = 1 + random() % 4; hits > 0; --hits) {
            damaged[random() % 60] = static_cast<char>(random());
        }
        // Whatever it is taken for, there is an end to it.
        EXPECT_LE(readableFrames(folder.write("damaged.wav", damaged)), 10000) << round;
    }
}

} // namespace
} // namespace veltrano
