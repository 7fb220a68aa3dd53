// SPDX-License-Identifier: GPL-3.0-or-later
// Frames, broken samples and notifications of the detector of partials.
#include "tests/analysis/HeardPartials.h"

#include <QCryptographicHash>
#include <gtest/gtest.h>
#include <utility>

namespace veltrano {
namespace {

using namespace partials_test;

TEST(BlackmanWindow, IsTheOneThatWasCheckedWithSixtyDigits) {
    const auto& window = partial_scan::blackmanWindow();
    const QByteArray bytes(reinterpret_cast<const char*>(window.data()), sizeof window);
    EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString(),
              "85d7fe883320f422a0f7a5fabecc456ada7bab0c771c033a09b5a409cd71e527");
}

// --- collection

TEST(PartialDetector, BeginsWithNothing) {
    Heard heard;
    EXPECT_EQ(heard.detector.sampleRate(), 44100.0f);
    EXPECT_EQ(heard.detector.collected(), 0u);
    EXPECT_EQ(heard.detector.fundamental(), 0.0f);
    EXPECT_EQ(heard.detector.peak(), 0.0f);
    EXPECT_EQ(heard.detector.partials(), nullptr);
}

TEST(PartialDetector, AnEmptyBlockClearsTheResultAndKeepsTheCollectedSamples) {
    Heard heard;
    heard.hear(sine(440, kFrame + 100));
    EXPECT_EQ(heard.posts.size(), 1u);
    EXPECT_EQ(heard.detector.collected(), 100u);
    const float fundamental = heard.detector.fundamental();
    heard.hear({});
    EXPECT_EQ(heard.detector.partials(), nullptr);
    ASSERT_EQ(heard.posts.size(), 2u);
    EXPECT_EQ(heard.posts[1], nullptr);
    EXPECT_EQ(heard.detector.collected(), 100u);
    EXPECT_EQ(heard.detector.fundamental(), fundamental);
    EXPECT_EQ(heard.analyses, 1);

    // The frame goes on where it stood: together these are one unbroken tone.
    Heard unbroken;
    const std::vector<float> tone = sine(440, 2 * kFrame);
    unbroken.hear(tone);
    heard.hear({tone.begin() + kFrame + 100, tone.end()});
    EXPECT_EQ(heard.partials(), unbroken.partials());
    EXPECT_EQ(heard.detector.collected(), 0u);
}

TEST(PartialDetector, OneSampleIsABlock) {
    Heard heard;
    const std::vector<float> tone = sine(440, kFrame);
    for (std::size_t n = 0; n < kFrame; ++n) {
        EXPECT_EQ(heard.analyses, 0);
        EXPECT_EQ(heard.detector.collected(), n);
        heard.hear({tone[n]});
    }
    EXPECT_EQ(heard.analyses, 1);
    Heard whole;
    whole.hear(tone);
    EXPECT_EQ(heard.partials(), whole.partials());
}

TEST(PartialDetector, ABlockOf10000SamplesTriggersTwoAnalysesAndLeaves1808) {
    Heard heard;
    heard.hear(sine(440, 10000));
    EXPECT_EQ(heard.analyses, 2);
    EXPECT_EQ(heard.posts.size(), 2u);
    EXPECT_EQ(heard.detector.collected(), 1808u);
}

TEST(PartialDetector, FourUpdateFramesOf5393TriggerOneOneOneAndTwoAnalyses) {
    Heard heard;
    const std::vector<float> tone = sine(440, 4 * 5393);
    const int analyses[] = {1, 1, 1, 2};
    const std::size_t left[] = {1297, 2594, 3891, 1092};
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        const auto begin = tone.begin() + static_cast<std::ptrdiff_t>(i * 5393);
        const int before = heard.analyses;
        const std::size_t posts = heard.posts.size();
        heard.hear({begin, begin + 5393});
        EXPECT_EQ(heard.analyses - before, analyses[i]);
        EXPECT_EQ(heard.posts.size() - posts, static_cast<std::size_t>(analyses[i]));
        EXPECT_EQ(heard.detector.collected(), left[i]);
    }
}

TEST(PartialDetector, FramesFollowEachOtherWithoutOverlap) {
    std::vector<float> samples = tones({{64, 0.5}});
    const std::vector<float> second = tones({{100, 0.5}});
    samples.insert(samples.end(), second.begin(), second.end());
    Heard heard;
    heard.hear(samples);
    ASSERT_EQ(heard.posts.size(), 2u);
    EXPECT_NEAR(static_cast<double>(heard.posts[0]->at(0).hz), 64 * kBinHz, 0.01);
    EXPECT_NEAR(static_cast<double>(heard.posts[1]->at(0).hz), 100 * kBinHz, 0.01);
    EXPECT_EQ(heard.posts[1]->size(), 1u);
}

// --- samples that are no numbers

TEST(PartialDetector, AFrameWithNaNHasNoPartials) {
    Heard heard;
    heard.hear(tones({{64, 0.8}}));
    std::vector<float> broken = tones({{64, 0.8}});
    broken[1000] = kNaN;
    heard.hear(broken);
    EXPECT_EQ(heard.detector.partials(), nullptr);
    EXPECT_EQ(heard.detector.fundamental(), 0.0f);
    EXPECT_EQ(heard.analyses, 2);
    heard.hear(tones({{64, 0.8}}));
    expectFrequencies(heard, {64});
}

TEST(PartialDetector, NaNLeavesTheHistoryAfterFourFrames) {
    Heard heard;
    std::vector<float> broken = tones({{20, 0.8}});
    broken[1000] = kNaN;
    heard.hear(broken);
    for (int frame = 1; frame <= 4; ++frame) {
        SCOPED_TRACE(frame);
        heard.hear(tones({{20, 0.8}}));
        EXPECT_EQ(heard.detector.partials() != nullptr, frame == 4);
    }
    expectFrequencies(heard, {20});
}

// --- what is told

TEST(PartialDetector, AnAnalysisWithoutAPeakKeepsThePowerOfTheOneBefore) {
    Heard heard;
    heard.hear(tones({{64, 0.8}}));
    const float peak = heard.detector.peak();
    EXPECT_GT(peak, 0);
    heard.hear(kSilence);
    EXPECT_EQ(heard.detector.partials(), nullptr);
    EXPECT_EQ(heard.detector.fundamental(), 0.0f);
    EXPECT_EQ(heard.detector.peak(), peak);

    // Too low in the history.
    heard.hear(tones({{64, 0.8}}));
    heard.hear(tones({{1, 0.8}}, 4));
    EXPECT_EQ(heard.detector.partials(), nullptr);
    EXPECT_EQ(heard.detector.fundamental(), 0.0f);
}

TEST(PartialDetector, TellsOfEachResultOnce) {
    Heard heard;
    heard.hear({});
    heard.hear(kSilence);
    EXPECT_EQ(heard.posts.size(), 0u); // there were none before
    EXPECT_EQ(heard.analyses, 1);
    heard.hear(tones({{64, 0.8}}));
    EXPECT_EQ(heard.posts.size(), 1u);
    heard.hear(tones({{64, 0.8}})); // the same partials are a new result
    EXPECT_EQ(heard.posts.size(), 2u);
    EXPECT_EQ(*heard.posts[0], *heard.posts[1]);
    EXPECT_NE(heard.posts[0], heard.posts[1]);
    heard.hear({});
    EXPECT_EQ(heard.posts.size(), 3u);
    heard.hear({});
    heard.hear(kSilence);
    EXPECT_EQ(heard.posts.size(), 3u);
    EXPECT_EQ(heard.posts[2], nullptr);
    EXPECT_EQ(heard.analyses, 4);
}

TEST(PartialDetector, EveryAnalysisIsObservedAfterItsResultIsThere) {
    Heard heard;
    std::vector<std::pair<float, std::size_t>> seen; ///< fundamental and posts so far
    heard.detector.setAnalysisObserver([&] {
        seen.emplace_back(heard.detector.fundamental() > 0 ? 1.0f : 0.0f, heard.posts.size());
    });
    heard.hear(kSilence);
    heard.hear(tones({{64, 0.8}}));
    heard.hear({});
    heard.hear(kSilence);
    heard.hear(tones({{64, 0.8}}, 2));
    EXPECT_EQ(seen,
              (std::vector<std::pair<float, std::size_t>>{{0, 0}, {1, 1}, {0, 2}, {1, 3}, {1, 4}}));
    heard.detector.setAnalysisObserver({});
    heard.hear(kSilence);
    EXPECT_EQ(seen.size(), 5u);
}

TEST(PartialDetector, AnalysesTheFrameAsItStands) {
    Heard heard;
    heard.hear(tones({{64, 0.8}}));
    heard.detector.detection();
    EXPECT_EQ(heard.analyses, 2);
    EXPECT_EQ(heard.posts.size(), 2u);
    EXPECT_EQ(*heard.posts[1], *heard.posts[0]);
    EXPECT_EQ(heard.detector.collected(), 0u);
}

} // namespace
} // namespace veltrano
