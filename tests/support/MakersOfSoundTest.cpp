// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds that other tests rely on are what they are said to be.
#include "tests/support/PianoNote.h"
#include "tests/support/PortableMath.h"
#include "tests/support/WavFile.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <numbers>
#include <numeric>
#include <sndfile.h>
#include <span>
#include <unistd.h>

namespace veltrano {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

/// [Hz] of the strongest component within @p cents of @p hz, by trying every half cent with a
/// smooth window.
double strongestNear(std::span<const float> samples, double rate, double hz, double cents) {
    double best = 0, strength = -1;
    for (double offset = -cents; offset <= cents; offset += 0.5) {
        const double tried = hz * std::exp2(offset / 1200);
        std::complex<double> sum;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double window = 0.5 - 0.5 * std::cos(kTwoPi * double(i) / double(samples.size()));
            sum +=
                window * double(samples[i]) * std::polar(1.0, -kTwoPi * tried / rate * double(i));
        }
        if (std::abs(sum) > strength) {
            strength = std::abs(sum);
            best = tried;
        }
    }
    return best;
}

double centsBetween(double a, double b) { return 1200 * std::log2(a / b); }

std::uint64_t fingerprint(std::span<const float> samples) {
    return std::accumulate(samples.begin(), samples.end(), std::uint64_t{14695981039346656037u},
                           [](std::uint64_t hash, float x) {
                               return (hash ^ std::bit_cast<std::uint32_t>(x)) * 1099511628211u;
                           });
}

TEST(PortableMathTest, AgreesWithTheMathsLibrary) {
    for (double x = -30; x < 30; x += 0.37) {
        EXPECT_NEAR(portable::exp(x) / std::exp(x), 1, 1e-14) << x;
        EXPECT_NEAR(portable::exp2(x) / std::exp2(x), 1, 1e-14) << x;
        EXPECT_NEAR(portable::sineCosine(x).sine, std::sin(kTwoPi * x), 1e-13) << x;
        EXPECT_NEAR(portable::sineCosine(x).cosine, std::cos(kTwoPi * x), 1e-13) << x;
    }
}

TEST(PianoNoteTest, FundamentalFollowsKeyCentsAndReference) {
    EXPECT_DOUBLE_EQ(PianoNote{.key = 57}.fundamentalHz(), 440.0);
    EXPECT_DOUBLE_EQ(PianoNote{.key = 69}.fundamentalHz(), 880.0);
    EXPECT_NEAR(PianoNote{.key = 9}.fundamentalHz(), 27.5, 1e-9);
    const PianoNote sharp{.key = 58, .centsOff = -50, .referencePitch = 442};
    EXPECT_NEAR(centsBetween(sharp.fundamentalHz(), 442), 50, 1e-9);
}

TEST(PianoNoteTest, PartialsAreStretchedByTheStiffness) {
    const PianoNote note{.key = 57, .inharmonicity = 0.001};
    EXPECT_DOUBLE_EQ(note.partialHz(1), 440 * std::sqrt(1.001));
    EXPECT_DOUBLE_EQ(note.partialHz(4), 4 * 440 * std::sqrt(1.016));
    EXPECT_LT(PianoNote{.key = 36}.stiffness(), PianoNote{.key = 57}.stiffness());
    EXPECT_LT(PianoNote{.key = 57}.stiffness(), PianoNote{.key = 96}.stiffness());
}

TEST(PianoNoteTest, SoundsAtItsPartials) {
    for (const double rate : {44100.0, 48000.0, 96000.0}) {
        PianoNote note{.key = 45, .centsOff = -7, .sampleRate = rate, .seconds = 0.7};
        const std::vector<float> samples = note.render();
        for (const int n : {1, 2, 3, 5}) {
            const double hz = note.partialHz(n);
            EXPECT_NEAR(centsBetween(strongestNear(samples, rate, hz, 12), hz), 0, 1.5)
                << "partial " << n << " at " << rate << " Hz";
        }
    }
}

TEST(PianoNoteTest, IsTheSameOnEveryMachine) {
    const PianoNote note{.key = 40, .seconds = 0.25, .unisonCents = {-0.4, 0, 0.3}, .seed = 7};
    EXPECT_EQ(fingerprint(note.render()), 138013988589290077u) << "the sound changed";
    PianoNote other = note;
    other.seed = 8;
    EXPECT_NE(note.render(), other.render()) << "another stroke of the hammer";
}

TEST(PianoNoteTest, HasTheLengthAndThePeakAskedFor) {
    const PianoNote note{.key = 30, .sampleRate = 48000, .seconds = 0.5, .peak = 0.9};
    const std::vector<float> samples = note.render();
    EXPECT_EQ(samples.size(), 24000u);
    float most = 0;
    for (const float x : samples)
        most = std::max(most, std::abs(x));
    EXPECT_NEAR(double(most), 0.9, 1e-6);
    EXPECT_TRUE(PianoNote{.seconds = 0}.render().empty());
}

TEST(PianoNoteTest, DecaysFasterInTheTrebleAndEndsWithTheDamper) {
    const auto rest = [](int key) { // of the level after a second, against the start
        const std::vector<float> samples = PianoNote{.key = key, .seconds = 1.2}.render();
        const auto loudness = [&](std::size_t from) {
            double sum = 0;
            for (std::size_t i = from; i < from + 4410; ++i)
                sum += double(samples[i]) * double(samples[i]);
            return sum;
        };
        return loudness(44100) / loudness(2205);
    };
    EXPECT_LT(rest(80), rest(40) / 4);
    const std::vector<float> damped = PianoNote{.key = 57, .releaseSeconds = 0.2}.render();
    EXPECT_LT(std::abs(damped.back()), 0.001F);
}

class WavFileTest : public testing::Test {
protected:
    ~WavFileTest() override { std::filesystem::remove(mPath); }

    struct Sound {
        SF_INFO info{};
        std::vector<float> samples;
    };
    /// What another program reads.
    Sound read() const {
        Sound sound;
        SNDFILE* file = sf_open(mPath.c_str(), SFM_READ, &sound.info);
        if (!file) return sound;
        sound.samples.resize(std::size_t(sound.info.frames * sound.info.channels));
        sf_readf_float(file, sound.samples.data(), sound.info.frames);
        sf_close(file);
        return sound;
    }

    const std::filesystem::path mPath =
        std::filesystem::path(testing::TempDir()) / ("wav" + std::to_string(::getpid()) + ".wav");
};

TEST_F(WavFileTest, ReadsBackInEveryFormat) {
    constexpr struct {
        const char* name;
        WavFormat format;
        int coding;
        unsigned rate, channels;
        double step;
    } kCases[] = {
        {"16 bit mono", WavFormat::int16, SF_FORMAT_PCM_16, 44100, 1, 1.0 / 32768},
        {"16 bit stereo", WavFormat::int16, SF_FORMAT_PCM_16, 48000, 2, 1.0 / 32768},
        {"24 bit, three channels", WavFormat::int24, SF_FORMAT_PCM_24, 96000, 3, 1.0 / 8388608},
        {"24 bit mono, odd length", WavFormat::int24, SF_FORMAT_PCM_24, 8000, 1, 1.0 / 8388608},
        {"float, 384 kHz", WavFormat::float32, SF_FORMAT_FLOAT, 384000, 1, 0},
        {"float, 64 channels", WavFormat::float32, SF_FORMAT_FLOAT, 44100, 64, 0},
    };
    const std::vector<float> mono{0.0F, 0.5F, -0.25F, 0.123456F, -0.999F};
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.name);
        const std::vector<float> gains(test.channels, 0.5F);
        const std::vector<float> samples = onChannels(mono, gains);
        ASSERT_TRUE(writeWav(mPath, samples, test.rate, test.channels, test.format));
        const Sound sound = read();
        EXPECT_EQ(sound.info.samplerate, int(test.rate));
        EXPECT_EQ(sound.info.channels, int(test.channels));
        EXPECT_EQ(sound.info.format & SF_FORMAT_SUBMASK, test.coding);
        ASSERT_EQ(sound.samples.size(), samples.size());
        for (std::size_t i = 0; i < samples.size(); ++i) {
            EXPECT_NEAR(double(sound.samples[i]), double(samples[i]), test.step / 2) << i;
        }
    }
}

TEST_F(WavFileTest, IntegersAreLimited) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(writeWav(mPath, std::vector{1.0F, 2.0F, -1.0F, -2.0F, nan}, 44100));
    EXPECT_EQ(read().samples,
              (std::vector{32767 / 32768.0F, 32767 / 32768.0F, -1.0F, -1.0F, 0.0F}));
}

TEST_F(WavFileTest, FloatsKeepEvenWhatIsNoNumber) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(writeWav(mPath, std::vector{2.5F, nan}, 44100, 1, WavFormat::float32));
    const Sound sound = read();
    ASSERT_EQ(sound.samples.size(), 2u);
    EXPECT_EQ(sound.samples[0], 2.5F);
    EXPECT_TRUE(std::isnan(sound.samples[1]));
}

TEST_F(WavFileTest, TellsWhenTheFileCannotBeWritten) {
    EXPECT_FALSE(writeWav("/no/such/folder/x.wav", std::vector{0.0F}, 44100));
}

} // namespace
} // namespace veltrano
