// SPDX-License-Identifier: GPL-3.0-or-later
// The piano keyboard's pictures.
#include "analysis/PianoView.h"

#include "tests/analysis/PianoPictures.h"

#include <gtest/gtest.h>
#include <set>

namespace veltrano {

using namespace piano_pictures;

namespace {

class PianoViewTest : public testing::Test {
protected:
    PianoViewTest() { mView.resize(kSize); }
    QImage picture(int key, double ratio = 1) {
        mView.setMidiNote(key);
        return pictureOf(mView, ratio);
    }
    PianoView mView;
};

TEST_F(PianoViewTest, IsOpaqueAndMarksNothingAtFirst) {
    EXPECT_EQ(mView.midiNote(), -1);
    EXPECT_TRUE(mView.testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_TRUE(extentOfColor(pictureOf(mView), kRed).isEmpty());
}

TEST_F(PianoViewTest, DrawsTheKeysInBothColorsAsTheyAreWhenItIsMade) {
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        PianoView view;
        view.resize(kSize);
        for (const double ratio : {1.0, 2.0}) {
            SCOPED_TRACE(testing::Message() << nameOf(colors.choice) << " at " << ratio);
            EXPECT_TRUE(areSame(pictureOf(view, ratio), keyboard(colors, ratio)));
        }
    }
}

TEST_F(PianoViewTest, TakesOtherColorsWithTheNextDrawing) {
    for (const Colors& colors : {kColors[1], kColors[0], kColors[1]}) {
        const InColors in(colors.choice);
        EXPECT_TRUE(areSame(pictureOf(mView), keyboard(colors, 1))) << nameOf(colors.choice);
    }
}

TEST_F(PianoViewTest, TheDarkKeyboardLooksInverted) {
    const InColors in(AppearanceChoice::dark);
    const Seen seen(mView);
    EXPECT_EQ(seen.at(10, 20), kBlack) << "A0";
    EXPECT_EQ(seen.at(20, 60), kWhite) << "Bb0";
}

TEST_F(PianoViewTest, OnlyThreeColorsAreThereAtAnySizeAndRatio) {
    for (const QSize size : {QSize(780, 96), QSize(901, 133), QSize(261, 49), QSize(1999, 700)}) {
        for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            SCOPED_TRACE(testing::Message() << size.width() << " at " << ratio);
            mView.resize(size);
            const QImage picture = pictureOf(mView, ratio);
            std::set<QRgb> colors;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x)
                    colors.insert(picture.pixel(x, y));
            }
            EXPECT_EQ(colors, (std::set{kBlack, kWhite, kLightGrey}));
        }
    }
}

TEST_F(PianoViewTest, KeysStretchWithTheView) {
    for (const QSize size : {QSize(780, 96), QSize(901, 133), QSize(520, 300)}) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            SCOPED_TRACE(testing::Message() << size.width() << " at " << ratio);
            mView.resize(size);
            const Seen seen(mView, ratio);
            const double kw = size.width() / 52.0;
            const double foot = 0.37 * size.height();
            for (int i = 0; i < 52; ++i) {
                SCOPED_TRACE(i);
                EXPECT_EQ(seen.at((i + 0.5) * kw, 0.2 * size.height()),
                          isAlternating(i) ? kLightGrey : kWhite);
                if (!hasBlackKeyRight(i)) continue;
                EXPECT_TRUE(seen.isAll(kBlack, (i + 0.7) * kw + 1, foot + 1, 0.6 * kw - 2, 9));
                EXPECT_NE(seen.at((i + 0.7) * kw - 1, foot + 5), kBlack);
                EXPECT_NE(seen.at((i + 1.3) * kw + 1, foot + 5), kBlack);
                EXPECT_NE(seen.at((i + 0.7) * kw + 1, foot - 1), kBlack);
            }
        }
    }
}

/// Lengths of the runs of black along a row of pixels.
std::set<int> blackRuns(const QImage& picture, int row, int from, int to) {
    std::set<int> runs;
    int run = 0;
    for (int x = from; x <= to; ++x) {
        if (x < to && picture.pixel(x, row) == kBlack) {
            ++run;
        } else if (run > 0) {
            runs.insert(std::exchange(run, 0));
        }
    }
    return runs;
}

TEST_F(PianoViewTest, OutlinesAreEvenAtBrokenRatiosToo) {
    struct Case {
        double ratio;
        int line; ///< [pixels] one point
    };
    for (const QSize size : {QSize(780, 96), QSize(901, 133)}) {
        for (const Case& c : {Case{1, 1}, {1.25, 1}, {1.5, 2}, {1.75, 2}, {2, 2}, {3, 3}}) {
            SCOPED_TRACE(testing::Message() << size.width() << " at " << c.ratio);
            mView.resize(size);
            const QImage picture = pictureOf(mView, c.ratio);
            const int end = picture.width() - c.line;
            const int row = picture.height() - picture.height() / 5;
            EXPECT_EQ(blackRuns(picture, row, c.line, end), std::set{2 * c.line});
            EXPECT_EQ(blackRuns(picture, row, 0, 4 * c.line), std::set{c.line}) << "left";
            EXPECT_EQ(blackRuns(picture, row, picture.width() - 4 * c.line, picture.width()),
                      std::set{c.line})
                << "right";
            const QImage turned = picture.transformed(QTransform().rotate(90));
            const int column = static_cast<int>(0.3 * size.width() / 52 * c.ratio); // of A0
            EXPECT_EQ(blackRuns(turned, column, 0, turned.width()), std::set{c.line});
        }
    }
}

} // namespace
} // namespace veltrano
