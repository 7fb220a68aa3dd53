// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner names the keys of a recorded piano.
#include "tests/engine/ControllerRig.h"
#include "tests/instruments/SampledPiano.h"
#include "tuning/PitchClass.h"

#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

// Frames are counted that end within this time after the stroke.
constexpr double kFromSeconds = 0.2, kToSeconds = 2.0;
// The keys for which the tuner answers, C3 to B6, and how many of their frames must name the key.
constexpr int kLowestKey = 36, kHighestKey = 83;
constexpr double kShareOfAll = 0.95, kShareOfEach = 0.85;

struct Score {
    int frames = 0;
    int right = 0;    ///< the key shown is the key struck
    double cents = 0; ///< sum of the deviations shown in the right frames

    double share() const { return frames == 0 ? 0 : double(right) / frames; }
};

/// Counts the readings of every update cycle.
class ReadingCounter final : public FrameObserver {
public:
    ReadingCounter(int key, ManualClock& clock) : mKey(key), mClock(clock) {}
    void willUpdate(double seconds) override { mClock.set(seconds); }
    void didUpdate(const ReadingRecord& record) override {
        if (record.seconds < kFromSeconds || record.seconds > kToSeconds) return;
        ++score.frames;
        if (!record.shown || record.shown->key != mKey) return;
        ++score.right;
        score.cents += double(record.deviation) * 100;
    }

    Score score;

private:
    const int mKey;
    ManualClock& mClock;
};

/// Plays the note to a tuner that has heard nothing before.
Score scoreOf(const SampledPiano& piano, int key) {
    ControllerRig rig;
    ReadingCounter counter(key, rig.clock);
    rig.ports.frames = &counter;
    Controller& controller = rig.start();
    const std::vector<float> note = piano.note(key);
    constexpr std::size_t kBlock = 512;
    for (std::size_t start = 0; start < note.size(); start += kBlock) {
        const std::size_t end = std::min(start + kBlock, note.size());
        rig.deliver({note.begin() + std::ptrdiff_t(start), note.begin() + std::ptrdiff_t(end)},
                    double(start + 1));
        controller.serveFrames();
    }
    return counter.score;
}

std::string nameOf(int key) {
    const NoteSpelling& spelling = spellingOfKey(key);
    const bool isNatural = spelling.accidental == kNoAccidental;
    return spelling.letter + std::string(isNatural ? "" : spelling.accidental) +
           std::to_string(key / 12);
}

class RealInstrument : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(RealInstrument, IsNamedKeyByKey) {
    if (!SampledPiano::canRender()) GTEST_SKIP() << "fluidsynth is not installed.";
    const QTemporaryDir folder;
    const auto piano = SampledPiano::render(GetParam(), folder.path().toStdString());
    ASSERT_TRUE(piano) << "fluidsynth could not render the notes";

    Score all;
    std::printf("%s: frames from %.1f s to %.1f s whose key is right\n",
                GetParam().filename().c_str(), kFromSeconds, kToSeconds);
    for (int key = SampledPiano::kFirstKey; key <= SampledPiano::kLastKey; ++key) {
        const Score score = scoreOf(*piano, key);
        const bool isAnsweredFor = key >= kLowestKey && key <= kHighestKey;
        std::printf("  %3d  %s\t%2d of %2d  %3.0f %%  mean %+6.1f cents%s\n", key,
                    nameOf(key).c_str(), score.right, score.frames, score.share() * 100,
                    score.right ? score.cents / score.right : 0.0,
                    isAnsweredFor ? "" : "  (not judged)");
        if (!isAnsweredFor) continue;
        all.frames += score.frames;
        all.right += score.right;
        EXPECT_GE(score.frames, 14) << nameOf(key);
        EXPECT_GE(score.share(), kShareOfEach) << nameOf(key);
    }
    std::printf("  C3 to B6: %d of %d, %.2f %%\n", all.right, all.frames, all.share() * 100);
    EXPECT_GE(all.share(), kShareOfAll);
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealInstrument);
INSTANTIATE_TEST_SUITE_P(SoundFonts, RealInstrument,
                         testing::ValuesIn(SampledPiano::installedFonts()),
                         [](const auto& info) { return info.param.stem().string(); });

TEST(RealInstrumentFonts, AreInstalled) {
    if (SampledPiano::installedFonts().empty()) {
        GTEST_SKIP() << "No sound font: install timgm6mb-soundfont.";
    }
}

} // namespace
} // namespace veltrano
