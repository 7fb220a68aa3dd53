// SPDX-License-Identifier: GPL-3.0-or-later
// The traces of the phase scope.
#include "tests/analysis/ScopeRig.h"

namespace veltrano {
namespace {

class HilbertTraceViewTest : public ScopeTest {};

struct Ring {
    double radius; ///< [points] of the line's middle
    double width;  ///< [points]
};

/// The line in one direction from the middle of the view.
/// @param turns 0 to the right, 0.25 upwards
Ring ringAt(const Seen& seen, QSize size, double turns) {
    constexpr double kStep = 1.0 / 64;
    const QPointF middle(size.width() * 0.5 + 0.5, size.height() * 0.5 + 0.5);
    double ink = 0;
    double moment = 0;
    for (double radius = 1;; radius += kStep) {
        const double x = middle.x() + radius * std::cos(2 * std::numbers::pi * turns);
        const double y = middle.y() + radius * std::sin(2 * std::numbers::pi * turns);
        if (x < 0 || y < 0 || x >= size.width() || y >= size.height()) break;
        ink += inkOf(seen.at(x, y)) * kStep;
        moment += inkOf(seen.at(x, y)) * kStep * radius;
    }
    return {moment / ink, ink};
}

TEST_F(HilbertTraceViewTest, ASteadySineIsACircleInViewsOfAnyShape) {
    for (const QSize size : {QSize(360, 360), QSize(700, 240), QSize(301, 201)}) {
        for (const double turns : {40.0, 41.5, 440 * 4096 / 44100.0}) {
            SCOPED_TRACE(testing::Message() << size.width() << " wide, " << turns << " turns");
            mView.resize(size);
            mView.setPeak(0.5f);
            const Seen seen = draw(sine(turns, 0.4));
            const double radius = size.height() * 0.5 * 0.8;
            for (double direction = 0; direction < 1; direction += 1.0 / 64)
                EXPECT_NEAR(ringAt(seen, size, direction).radius, radius, radius * 0.01);
        }
    }
}

TEST_F(HilbertTraceViewTest, ASineAtThePeakReachesHalfTheHeight) {
    const QSize size(500, 300);
    mView.resize(size);
    for (const float peak : {0.011f, 0.25f, 1.0f}) {
        SCOPED_TRACE(peak);
        mView.setPeak(peak);
        const Seen seen = draw(sine(64, static_cast<double>(peak)));
        for (const double direction : {0.0, 0.1, 0.15, 0.35, 0.5, 0.65, 0.9})
            EXPECT_NEAR(ringAt(seen, size, direction).radius, 150, 1.5) << direction;
    }
}

TEST_F(HilbertTraceViewTest, ThePeakIsOneAtFirst) {
    const Seen seen = draw(sine(40, 0.5));
    EXPECT_NEAR(ringAt(seen, mView.size(), 0.1).radius, 90, 0.5);
}

TEST_F(HilbertTraceViewTest, TheSignalPointsUpAndItsTransformToTheRight) {
    // An eighth of a turn to both sides of the block's middle.
    struct Case {
        const char* name;
        double phase;
        double direction; ///< of the arc's middle
    };
    for (const Case& c : {Case{"cosine", 0.25, 0.25},
                          {"sine", 0, 0.5},
                          {"-cosine", 0.75, 0.75},
                          {"-sine", 0.5, 0.0}}) {
        SCOPED_TRACE(c.name);
        const Seen seen = draw(blockOf(wave(2, 0.8, c.phase)));
        for (const double side : {-0.12, 0.0, 0.12})
            EXPECT_NEAR(ringAt(seen, mView.size(), c.direction + side).radius, 144, 1.44);
        for (const double side : {-0.135, 0.135, 0.25, 0.5, 0.75})
            EXPECT_EQ(ringAt(seen, mView.size(), c.direction + side).width, 0) << side;
    }
}

TEST_F(HilbertTraceViewTest, TheLineIsASixtiethOfHalfTheHeightWide) {
    for (const QSize size : {QSize(360, 360), QSize(300, 600), QSize(800, 240)}) {
        mView.resize(size);
        const double radius = 0.4 * size.height() / 2;
        const double line = size.height() / 2.0 / 60;
        const Seen seen = draw(sine(40, 0.4));
        for (const double direction : {0.0, 0.25, 0.5, 0.75}) {
            const Ring ring = ringAt(seen, size, direction);
            EXPECT_GT(ring.width, line - 0.15) << size.height();
            // Round after round, the half-covered pixels of the edges become full ones.
            EXPECT_LT(ring.width, line + 1 / ratio() + 0.15) << size.height();
            EXPECT_NEAR(ring.radius, radius, 0.01 * radius);
        }
    }
}

TEST_F(HilbertTraceViewTest, TheLineHasRoundJoins) {
    mView.resize(1200, 1200); // a line of 10 points along a square whose corners are 300 away
    const Seen seen = draw(sine(1024, 0.5));
    const QRect extent = extentBeside(kWhite, seen.picture());
    const double pixel = ratio();
    EXPECT_NEAR(extent.left(), (600.5 - 305) * pixel, 1.1);
    EXPECT_NEAR(extent.left() + extent.width(), (600.5 + 305) * pixel, 1.1);
    EXPECT_NEAR(extent.top(), (599.5 - 305) * pixel, 1.1);
    EXPECT_NEAR(extent.top() + extent.height(), (599.5 + 305) * pixel, 1.1);
    for (const double side : {-5.0, -2.0, 0.0, 2.0, 5.0}) { // across an edge of the square
        EXPECT_EQ(seen.at(750.5 + side, 750.5 + side), std::abs(side) < 5 ? kBlack : kWhite);
        EXPECT_EQ(seen.at(750.5 + side, 450.5 - side), std::abs(side) < 5 ? kBlack : kWhite);
    }
}

TEST_F(HilbertTraceViewTest, DotsAreSquaresAndStandAlone) {
    mPreferences.setHilbertLine(false);
    const Seen seen = draw(sine(256, 0.5)); // 16 points around
    for (int corner = 0; corner < 16; ++corner) {
        const double turns = corner / 16.0;
        EXPECT_GT(ringAt(seen, mView.size(), turns).width, 2) << corner;
        EXPECT_EQ(ringAt(seen, mView.size(), turns + 1.0 / 32).width, 0) << "between the dots";
    }
    // The one on the right: three points wide and high.
    EXPECT_TRUE(seen.isAll(kBlack, 269.2, 179.2, 2.6, 2.6));
    for (const QPointF& beside : {QPointF(268, 180), {273, 180}, {270, 178}, {270, 183}})
        EXPECT_EQ(seen.at(beside.x(), beside.y()), kWhite);
}

TEST_F(HilbertTraceViewTest, ADotIsASixtiethOfHalfTheHeightWideAndHigh) {
    mPreferences.setHilbertLine(false);
    const Seen seen = draw(impulse(2048, 0.5f)); // alone, 90 points above the middle
    const double pixel = ratio();
    if (pixel != std::floor(pixel)) GTEST_SKIP() << "three points are not whole pixels";
    for (const double x : {179.1, 180.5, 181.9}) {
        for (const double y : {269.1, 270.5, 271.9})
            EXPECT_LE(difference(seen.at(x, y), kBlack), 1) << x << ", " << y;
        EXPECT_LE(difference(seen.at(x, 268.9), kWhite), 1);
        EXPECT_LE(difference(seen.at(x, 272.1), kWhite), 1);
    }
    for (const double x : {178.9, 182.1})
        EXPECT_LE(difference(seen.at(x, 270.5), kWhite), 1);
}

TEST_F(HilbertTraceViewTest, TheLineConnectsThePoints) {
    const Seen seen = draw(sine(256, 0.5));
    for (int corner = 0; corner < 32; ++corner)
        EXPECT_GT(ringAt(seen, mView.size(), corner / 32.0).width, 2) << corner;
}

TEST_F(HilbertTraceViewTest, LineOrDotsIsAskedAtEveryDrawing) {
    const Seen line = draw(sine(256, 0.5));
    mPreferences.setHilbertLine(false);
    const Seen dots = draw();
    EXPECT_NE(dots.picture(), line.picture());
    mPreferences.setHilbertLine(true);
    EXPECT_TRUE(areSame(draw().picture(), line.picture()));
}

TEST_F(HilbertTraceViewTest, TheZeroBlockIsThePointInTheMiddle) {
    struct Case {
        const char* name;
        FrameRef block;
    };
    const Case cases[] = {{"one zero", zeroBlock()},
                          {"empty", blockOf({})},
                          {"none", nullptr},
                          {"silence", blockOf(std::vector<float>(kBlock))}};
    for (const bool line : {true, false}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << c.name << (line ? " in a line" : " in dots"));
            mPreferences.setHilbertLine(line);
            draw(sine(40, 0.5));
            const Seen seen = draw(c.block);
            const QRect extent = extentBeside(kWhite, seen.picture());
            const double pixel = ratio();
            EXPECT_GE(extent.left(), std::floor(179 * pixel));
            EXPECT_LE(extent.left() + extent.width(), std::ceil(182 * pixel));
            EXPECT_GE(extent.top(), std::floor((360 - 182) * pixel));
            EXPECT_LE(extent.top() + extent.height(), std::ceil((360 - 179) * pixel));
            EXPECT_TRUE(seen.isAll(kBlack, 180, 180, 1, 1));
            if (!line) {
                EXPECT_TRUE(seen.isAll(kBlack, 179, 179, 3, 3));
            }
        }
    }
}

TEST_F(HilbertTraceViewTest, SamplesFrom1792To2303ArePlotted) {
    struct Case {
        std::size_t place;
        bool isPlotted;
    };
    for (const bool line : {true, false}) {
        mPreferences.setHilbertLine(line);
        for (const Case& c : {Case{0, false},
                              {1791, false},
                              {1792, true},
                              {1793, true},
                              {2048, true},
                              {2302, true},
                              {2303, true},
                              {2304, false},
                              {4095, false},
                              {4096, false}}) {
            SCOPED_TRACE(testing::Message() << c.place << (line ? " in a line" : " in dots"));
            const Seen seen = draw(impulse(c.place, 0.5f)); // the transform is 0 there
            EXPECT_EQ(seen.isAll(kBlack, 180.2, 270.2, 0.6, 0.6) && seen.at(180.5, 270.5) == kBlack,
                      c.isPlotted);
        }
    }
}

TEST_F(HilbertTraceViewTest, TheFirstAndTheLastPointBelongToTheLine) {
    for (const std::size_t end : {std::size_t{1792}, std::size_t{2303}}) {
        const Seen seen = draw(impulse(end, 0.5f)); // its neighbours lie on the middle's height
        const QImage between =
            seen.picture().copy(0, static_cast<int>((360 - 235) * ratio()), seen.picture().width(),
                                static_cast<int>(20 * ratio()));
        EXPECT_EQ(extentBeside(kWhite, between).height(), between.height()) << end;
    }
}

TEST_F(HilbertTraceViewTest, LongBlocksAreCutAndShortOnesFilledUp) {
    std::vector<float> noise(5393);
    unsigned state = 1;
    for (float& sample : noise) {
        state = state * 1664525u + 1013904223u;
        sample = static_cast<float>(state >> 8) / 16777216.0f - 0.5f;
    }
    const Seen whole = draw(blockOf(noise));
    std::vector<float> cut(noise.begin(), noise.begin() + 4096);
    EXPECT_TRUE(areSame(draw(blockOf(cut)).picture(), whole.picture()));

    std::vector<float> shorter(noise.begin(), noise.begin() + 4000);
    const Seen padded = draw(blockOf(shorter));
    EXPECT_NE(padded.picture(), whole.picture());
    std::fill(cut.begin() + 4000, cut.end(), 0.0f);
    EXPECT_TRUE(areSame(draw(blockOf(cut)).picture(), padded.picture()));
}

TEST_F(HilbertTraceViewTest, ABlockOf1000SamplesLiesOnTheLineAcrossTheMiddle) {
    std::vector<float> samples(1000, 0.9f);
    for (const bool line : {true, false}) {
        mPreferences.setHilbertLine(line);
        const Seen seen = draw(blockOf(samples));
        const QRect extent = extentBeside(kWhite, seen.picture());
        EXPECT_GE(extent.top(), std::floor((360 - 182) * ratio()));
        EXPECT_LE(extent.top() + extent.height(), std::ceil((360 - 179) * ratio()));
        EXPECT_GT(extent.width(), 10 * ratio());
    }
}

TEST_F(HilbertTraceViewTest, ABlockWithNaNDrawsNothingAndDoesNoHarm) {
    const Seen before = draw(sine(40, 0.5));
    for (const float broken :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        for (const bool line : {true, false}) {
            mPreferences.setHilbertLine(line);
            std::vector<float> samples = wave(40, 0.5);
            samples[2000] = broken;
            EXPECT_TRUE(extentBeside(kWhite, draw(blockOf(samples)).picture()).isEmpty());
        }
    }
    mPreferences.setHilbertLine(true);
    EXPECT_TRUE(areSame(draw(sine(40, 0.5)).picture(), before.picture()));
}

} // namespace
} // namespace veltrano
