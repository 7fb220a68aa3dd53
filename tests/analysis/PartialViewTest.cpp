// SPDX-License-Identifier: GPL-3.0-or-later
// The partials view's keyboard, colours and scaling.
#include "tests/analysis/PartialsRig.h"

#include <set>

namespace veltrano {

using namespace partial_pictures;

namespace {

class PartialViewTest : public PartialsTest {};

TEST_F(PartialViewTest, IsOpaqueTakesTheFocusAndHasTheSizeOfItsDrawing) {
    EXPECT_TRUE(mView.testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_EQ(mView.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(mView.sizeHint(), QSize(781, 207));
}

TEST_F(PartialViewTest, WithoutPartialsThereAreTheKeyboardAndTheCentreLine) {
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        for (const double ratio : {1.0, 2.0}) {
            SCOPED_TRACE(testing::Message() << nameOf(colors.choice) << " at " << ratio);
            PartialView view({mPreferences, mNotifications});
            view.resize(kSize);
            EXPECT_TRUE(areSame(pictureOf(view, ratio), drawing(colors, {}, ratio)));
        }
    }
}

TEST_F(PartialViewTest, TheMiddlesOfTheKeysAreWhereTheyAreSaidToBe) {
    EXPECT_EQ(middleOf(9), 7.5);
    EXPECT_EQ(middleOf(96), 772.5);
    EXPECT_EQ(middleOf(57), 427.5);
}

TEST_F(PartialViewTest, TakesOtherColorsWithTheNextDrawingTheKeyboardToo) {
    const std::vector<Shown> shown = {{57, 10, "+10", kRed, true, 0, 10},
                                      {61, -20, "-20", kBlue, false, -20, 0}};
    mView.setPartials(published({partialAt(57, 10), partialAt(61, -20)}));
    for (const Colors& colors : {kColors[0], kColors[1], kColors[0], kColors[1]}) {
        SCOPED_TRACE(nameOf(colors.choice));
        const InColors in(colors.choice);
        EXPECT_TRUE(areSame(pictureOf(mView), drawing(colors, shown), 1));
    }
}

TEST_F(PartialViewTest, OddOctavesAreShaded) {
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        const Seen seen(mView);
        for (int key = 9; key <= 96; ++key) {
            const double x = middleOf(key);
            if (!isWhite(key)) {
                EXPECT_TRUE(seen.isAll(colors.key, x - 4.5, 33, 9, 56)) << key;
                continue;
            }
            const QRgb fill = (key / 12) % 2 == 1 ? colors.oddOctave : colors.background;
            EXPECT_TRUE(seen.isAll(fill, x - 6.5, 1, 14, 31)) << key;
            EXPECT_TRUE(seen.isAll(colors.key, x - 7.5, 0, 1, 33)) << key;
            EXPECT_TRUE(seen.isAll(colors.key, x + 7.5, 0, 1, 33)) << key;
        }
    }
}

TEST_F(PartialViewTest, TheDrawingIsScaledToTheWindow) {
    const Partials partials{partialAt(33, 12), partialAt(45, -20), partialAt(46, 2),
                            partialAt(57, 60)};
    EXPECT_TRUE(areSame(pictureOfPartials(partials, 1, kSize * 2),
                        pictureOfPartials(partials, 2, kSize), 1));
    EXPECT_TRUE(areSame(pictureOfPartials(partials, 1, kSize * 3),
                        pictureOfPartials(partials, 3, kSize), 1));
}

TEST_F(PartialViewTest, EverythingKeepsItsPlaceInWindowsOfOtherShapes) {
    const Partials partials{partialAt(33, 30), partialAt(45, -20), partialAt(57, 2)};
    for (const QSize size :
         {QSize(1000, 300), QSize(391, 104), QSize(600, 600), QSize(1500, 180)}) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            SCOPED_TRACE(testing::Message() << size.width() << " at " << ratio);
            const Seen seen = seenPartials(partials, ratio, size);
            const auto at = [&](double x, double y) {
                return seen.at(x * size.width() / 781, y * size.height() / 207);
            };
            EXPECT_EQ(at(427.5, 139.5), kGreen);
            EXPECT_EQ(at(middleOf(33), 139.5 + 25), kRed);
            EXPECT_NE(at(middleOf(33), 139.5 - 20), kWhite) << "guide line";
            EXPECT_EQ(at(middleOf(45), 139.5 - 15), kBlue);
            for (const int key : {33, 45, 57}) {
                EXPECT_EQ(at(middleOf(key), 50), kRed);
                EXPECT_EQ(at(middleOf(key) - 4, 20), kRed);
            }
            for (int key = 9; key <= 96; ++key) {
                if (isWhite(key)) continue;
                EXPECT_EQ(at(middleOf(key), 60), kBlack) << key;
            }
            EXPECT_EQ(at(middleOf(24), 16), kWhite) << "C2";
            EXPECT_EQ(at(middleOf(36), 16), 0xffd9d9d9) << "C3";
            EXPECT_EQ(at(100, 110), kWhite);
            EXPECT_EQ(at(780.5, 206.5), kWhite);
        }
    }
}

TEST_F(PartialViewTest, TheKeyboardIsSharpAfterEveryChangeOfSizeOrScreen) {
    struct Case {
        QSize size;
        double ratio;
    };
    for (const Case& c : {Case{kSize, 1},
                          {kSize, 2},
                          {kSize, 1},
                          {{1000, 300}, 1},
                          {{1000, 300}, 1.5},
                          {{500, 600}, 1},
                          {kSize, 1}}) {
        SCOPED_TRACE(testing::Message() << c.size.width() << " at " << c.ratio);
        mView.resize(c.size);
        PartialView fresh({mPreferences, mNotifications});
        fresh.resize(c.size);
        EXPECT_TRUE(areSame(pictureOf(mView, c.ratio), pictureOf(fresh, c.ratio)));
    }
}

TEST_F(PartialViewTest, AllOfTheViewIsPainted) {
    for (const QSize size : {kSize, QSize(333, 97), QSize(1001, 301)}) {
        for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
            mView.resize(size);
            const QImage picture = pictureOf(mView, ratio);
            std::set<int> alphas;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x)
                    alphas.insert(qAlpha(picture.pixel(x, y)));
            }
            EXPECT_EQ(alphas, std::set{255}) << size.width() << " at " << ratio;
        }
    }
}

} // namespace
} // namespace veltrano
