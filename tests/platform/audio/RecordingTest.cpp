// SPDX-License-Identifier: GPL-3.0-or-later
// Good sound files, to the last bit.
#include "platform/audio/Recording.h"
#include "tests/platform/audio/SoundFileBytes.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sndfile.h>

namespace veltrano {
namespace {

/// Everything that the file holds, or the error line as a failure.
std::vector<float> samplesOf(const std::string& path) {
    std::string error;
    const auto recording = Recording::open(path, error);
    EXPECT_NE(recording, nullptr) << error;
    if (recording == nullptr) return {};
    std::vector<float> all;
    std::vector<float> block(std::size_t(100 * recording->channels()));
    while (const std::int64_t frames = recording->read(block)) {
        all.insert(all.end(), block.begin(), block.begin() + frames * recording->channels());
    }
    return all;
}

TEST(Recording, EveryEightBitSampleIsItsDistanceFromTheMiddleBy128) {
    const ScratchFolder folder;
    std::string data;
    for (int value = 0; value < 256; ++value)
        data += static_cast<char>(value);
    const auto samples = samplesOf(folder.write("a.wav", wav({1, 44100, 8}, data)));
    ASSERT_EQ(samples.size(), 256u);
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(samples[std::size_t(value)], float(value - 128) / 128.0f) << value;
    }
}

TEST(Recording, EverySixteenBitSampleIsDividedBy32768) {
    const ScratchFolder folder;
    std::vector<std::int16_t> numbers;
    for (int n = -32768; n <= 32767; ++n)
        numbers.push_back(std::int16_t(n));
    const auto samples = samplesOf(folder.write("a.wav", wav16(1, 44100, numbers)));
    ASSERT_EQ(samples.size(), numbers.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        ASSERT_EQ(samples[i], float(numbers[i]) / 32768.0f) << numbers[i];
    }
}

TEST(Recording, WideIntegersAreDividedByTheirFullScale) {
    const ScratchFolder folder;
    for (const int bits : {24, 32}) {
        const double fullScale = std::ldexp(1.0, bits - 1);
        std::vector<std::int64_t> numbers = {0, 1, -1, 12345, -12345, 8388607, -8388608};
        if (bits == 32) {
            // 2^24 + 1 has no float of its own: the nearest is taken.
            for (std::int64_t n : {2147483647LL, -2147483648LL, 16777217LL, -99999999LL}) {
                numbers.push_back(n);
            }
        }
        std::string data;
        for (const auto n : numbers)
            data += littleEndian(std::uint64_t(n), bits / 8);
        const auto samples =
            samplesOf(folder.write("a.wav", wav({1, 44100, static_cast<unsigned>(bits)}, data)));
        ASSERT_EQ(samples.size(), numbers.size()) << bits;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            EXPECT_EQ(samples[i], float(double(numbers[i]) / fullScale)) << bits << ' ' << i;
        }
    }
}

TEST(Recording, FloatsStayAsTheyAre) {
    const ScratchFolder folder;
    const float infinity = std::numeric_limits<float>::infinity();
    const std::vector<float> numbers = {0.0f,  -0.0f,    1.0f,     -1.0f,     1.7f, -3.0f,
                                        1e30f, 1.5e-45f, infinity, -infinity, 0.1f};
    const auto samples =
        samplesOf(folder.write("a.wav", wav({1, 44100, 32, true}, bytesOf(numbers))));
    ASSERT_EQ(samples.size(), numbers.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        EXPECT_EQ(std::bit_cast<std::uint32_t>(samples[i]),
                  std::bit_cast<std::uint32_t>(numbers[i]))
            << numbers[i];
    }
}

TEST(Recording, NotANumberPasses) {
    const ScratchFolder folder;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const std::vector<float> numbers = {0.5f, nan, -0.5f};
    const auto samples =
        samplesOf(folder.write("a.wav", wav({1, 44100, 32, true}, bytesOf(numbers))));
    ASSERT_EQ(samples.size(), 3u);
    EXPECT_EQ(samples[0], 0.5f);
    EXPECT_TRUE(std::isnan(samples[1]));
    EXPECT_EQ(samples[2], -0.5f);
}

TEST(Recording, DoublesAreRoundedToFloats) {
    const ScratchFolder folder;
    const std::vector<double> numbers = {0.1, -1.0, 1.7, 1.0 / 3.0};
    const auto samples =
        samplesOf(folder.write("a.wav", wav({1, 44100, 64, true}, bytesOf(numbers))));
    EXPECT_EQ(samples, (std::vector<float>{0.1f, -1.0f, 1.7f, float(1.0 / 3.0)}));
}

TEST(Recording, ChannelsComeInterleaved) {
    const ScratchFolder folder;
    for (const int channels : {1, 2, 3, 6, 64}) {
        for (const bool isExtensible : {false, true}) {
            SCOPED_TRACE(testing::Message() << channels << (isExtensible ? " extensible" : ""));
            const auto numbers = countingSamples(10, channels);
            WavHeader header{unsigned(channels), 48000, 16};
            header.isExtensible = isExtensible;
            const std::string path = folder.write("a.wav", wav(header, bytesOf(numbers)));
            std::string error;
            const auto recording = Recording::open(path, error);
            ASSERT_NE(recording, nullptr) << error;
            EXPECT_EQ(recording->channels(), channels);
            EXPECT_EQ(recording->frames(), 10);
            const auto samples = samplesOf(path);
            ASSERT_EQ(samples.size(), numbers.size());
            for (std::size_t i = 0; i < samples.size(); ++i) {
                EXPECT_EQ(samples[i], float(numbers[i]) / 32768.0f);
            }
        }
    }
}

TEST(Recording, AnyRateInBoundsIsKept) {
    const ScratchFolder folder;
    for (const unsigned rateHz : {9u, 4000u, 11025u, 44101u, 48000u, 96000u, 192000u, 384000u}) {
        std::string error;
        const auto recording =
            Recording::open(folder.write("a.wav", wav16(1, rateHz, {1, 2, 3})), error);
        ASSERT_NE(recording, nullptr) << error;
        EXPECT_EQ(recording->sampleRateHz(), int(rateHz));
    }
}

TEST(Recording, SeekGoesBackAndForth) {
    const ScratchFolder folder;
    std::string error;
    const auto recording =
        Recording::open(folder.write("a.wav", wav16(2, 44100, countingSamples(50, 2))), error);
    ASSERT_NE(recording, nullptr) << error;
    std::vector<float> frame(2);
    for (const int at : {49, 0, 25}) {
        ASSERT_TRUE(recording->seek(at));
        ASSERT_EQ(recording->read(frame), 1);
        EXPECT_EQ(frame[0], float(at) / 32768.0f);
    }
}

struct OtherFormat {
    const char* name;
    int format;
    float tolerance; ///< absolute; 0: exact
};

TEST(Recording, OtherFormatsOfTheLibraryAreRead) {
    const ScratchFolder folder;
    constexpr OtherFormat kFormats[] = {
        {"a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 0},
        {"b.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 0},
        {"a.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 0},
        {"a.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 0.05f},
    };
    std::vector<short> numbers;
    for (int i = 0; i < 2000; ++i)
        numbers.push_back(short(8000 * std::sin(i * 0.05)));
    for (const OtherFormat& other : kFormats) {
        SCOPED_TRACE(other.name);
        SF_INFO info{};
        info.samplerate = 44100;
        info.channels = 1;
        info.format = other.format;
        SNDFILE* const file = sf_open(folder.path(other.name).c_str(), SFM_WRITE, &info);
        ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
        sf_write_short(file, numbers.data(), sf_count_t(numbers.size()));
        sf_close(file);

        const auto samples = samplesOf(folder.path(other.name));
        ASSERT_EQ(samples.size(), numbers.size());
        for (std::size_t i = 0; i < samples.size(); ++i) {
            ASSERT_NEAR(samples[i], float(numbers[i]) / 32768.0f, other.tolerance) << i;
        }
    }
}

} // namespace
} // namespace veltrano
