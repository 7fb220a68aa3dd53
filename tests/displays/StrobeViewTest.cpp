// SPDX-License-Identifier: GPL-3.0-or-later
// The strobe's pictures.
#include "displays/StrobeView.h"

#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

namespace veltrano {
namespace {

constexpr QRgb kBackground = 0xff000080;
constexpr QRgb kLeftHalf = 0xffff0000;
constexpr QRgb kRightHalf = 0xff00ff00;
constexpr int kBarWidth = 400;

FrameRef frameOf(std::vector<float> samples) {
    struct Held {
        std::vector<float> samples;
        Frame frame;
    };
    auto held = std::make_shared<Held>();
    held->samples = std::move(samples);
    held->frame.samples = held->samples;
    return {held, &held->frame};
}

FrameRef sineFrame(double hz, std::size_t number) {
    constexpr std::size_t kFrame = 5393;
    std::vector<float> samples(kFrame);
    for (std::size_t i = 0; i < kFrame; ++i) {
        const double seconds = static_cast<double>(number * kFrame + i) / 44100.0;
        samples[i] = static_cast<float>(std::sin(2 * std::numbers::pi * hz * (seconds + 1e-9)));
    }
    return frameOf(std::move(samples));
}

struct StrobeArtwork : ArtworkFolder {
    StrobeArtwork() {
        addPlain("strobeviewbackground", 404, 48, "#000080");
        add("strobeviewbar", kBarWidth, 40,
            "<rect width=\"200\" height=\"40\" fill=\"#ff0000\"/>"
            "<rect x=\"200\" width=\"200\" height=\"40\" fill=\"#00ff00\"/>");
    }
};

class StrobeViewTest : public testing::Test {
protected:
    StrobeViewTest() {
        mView.resize(404, 48);
        mView.setSampleRate(44100);
        mView.setFrequency(441);
    }

    StrobeArtwork mArtwork;
    RecordingLog mLog;
    ImageLibrary mImages{mArtwork.path(), mLog};
    StrobeView mView{mImages};
};

TEST_F(StrobeViewTest, WithoutAFrameOnlyTheBackgroundShows) {
    const QImage background = pictureOf(mView);
    EXPECT_EQ(extentOfColor(background, kBackground), QRect(0, 0, 404, 48));
    EXPECT_EQ(background.pixel(0, 0), background.pixel(403, 47));

    mView.setData(sineFrame(441, 0));
    EXPECT_NE(pictureOf(mView), background);
    mView.setData(frameOf({}));
    EXPECT_EQ(pictureOf(mView), background);
    mView.setData(nullptr);
    EXPECT_EQ(pictureOf(mView), background);
}

TEST_F(StrobeViewTest, AllSamplesNotNegativeGiveOneBarTwoRightAndFourUp) {
    mView.setData(frameOf(std::vector<float>(5393, 0.0f)));
    for (const int ratio : {1, 2, 3}) {
        SCOPED_TRACE(ratio);
        const QImage picture = pictureOf(mView, ratio);
        EXPECT_EQ(extentOfColor(picture, kLeftHalf),
                  QRect(2 * ratio, 4 * ratio, 200 * ratio, 40 * ratio));
        EXPECT_EQ(extentOfColor(picture, kRightHalf),
                  QRect(202 * ratio, 4 * ratio, 200 * ratio, 40 * ratio));
    }
}

TEST_F(StrobeViewTest, BarsLieWhereTheRunsAre) {
    for (const int scale : {1, 2}) {
        SCOPED_TRACE(scale);
        StrobePattern pattern;
        pattern.setSampleRate(44100);
        pattern.setFrequency(441);
        StrobeView view(mImages);
        view.resize(404 * scale, 48 * scale);
        view.setSampleRate(44100);
        view.setFrequency(441);
        const FrameRef frame = sineFrame(500, 0);
        view.setData(frame);
        const QImage picture = pictureOf(view);
        std::vector<bool> lit(kBarWidth, false);
        for (const StrobeRun& run : pattern.pass(frame->samples, kBarWidth)) {
            for (int i = 0; i < run.length; ++i)
                lit[static_cast<std::size_t>(run.start + i)] = true;
        }
        for (int column = 0; column < kBarWidth; ++column) {
            const QRgb bar = column < 200 ? kLeftHalf : kRightHalf;
            const QRgb expected = lit[static_cast<std::size_t>(column)] ? bar : kBackground;
            for (int sub = 0; sub < scale; ++sub) {
                ASSERT_EQ(picture.pixel((column + 2) * scale + sub, 24 * scale), expected)
                    << column;
            }
        }
    }
}

TEST_F(StrobeViewTest, BarsStandStillAtTheTargetAndDriftBesideIt) {
    mView.setData(sineFrame(441, 0));
    const QImage first = pictureOf(mView);
    for (std::size_t number = 1; number < 8; ++number) {
        mView.setData(sineFrame(441, number));
        EXPECT_EQ(pictureOf(mView), first);
    }
    mView.setData(sineFrame(443, 8));
    EXPECT_NE(pictureOf(mView), first);
}

TEST_F(StrobeViewTest, EveryDrawingPassMovesThePhase) {
    mView.setData(sineFrame(441, 0));
    const QImage first = pictureOf(mView);
    EXPECT_NE(pictureOf(mView), first) << "a second pass over the same frame";
    mView.setFrequency(440);
    mView.setFrequency(441);
    EXPECT_EQ(pictureOf(mView), first) << "the phase restarted with the target";
}

TEST_F(StrobeViewTest, RedrawsOnlyForAnotherFrame) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    const FrameRef frame = sineFrame(441, 0);
    mView.setData(frame);
    EXPECT_EQ(paints.take(), 1);
    mView.setData(frame);
    mView.setPeak(0.5f);
    EXPECT_EQ(paints.take(), 0);
    mView.setData(nullptr);
    EXPECT_EQ(paints.take(), 1);
    mView.setData(nullptr);
    EXPECT_EQ(paints.take(), 0);
    EXPECT_EQ(mView.peak(), 0.5f);
}

TEST_F(StrobeViewTest, KeepsTheFrameOnlyWhileItIsShown) {
    FrameRef frame = sineFrame(441, 0);
    const std::weak_ptr<const Frame> watch = frame;
    mView.setData(std::move(frame));
    EXPECT_FALSE(watch.expired());
    mView.setData(nullptr);
    EXPECT_TRUE(watch.expired());
}

TEST_F(StrobeViewTest, DoesWithoutArtwork) {
    ArtworkFolder nothing;
    ImageLibrary none(nothing.path(), mLog);
    StrobeView view(none);
    view.resize(404, 48);
    view.setData(sineFrame(441, 0));
    EXPECT_EQ(pictureOf(view).pixel(200, 24), 0u);
}

TEST_F(StrobeViewTest, SaysWhetherThereIsASignal) {
    EXPECT_EQ(mView.accessibleValue(), "no signal");
    mView.setData(sineFrame(441, 0));
    EXPECT_EQ(mView.accessibleValue(), "signal");
}

} // namespace
} // namespace veltrano
