// SPDX-License-Identifier: GPL-3.0-or-later
// The piano keyboard's pictures.
#include "analysis/PianoView.h"

#include "tests/analysis/ViewPictures.h"

#include <gtest/gtest.h>
#include <set>

namespace veltrano {
namespace {

// White keys of 20 points, black ones of 12 that begin 14 points from the white key's left edge.
constexpr QSize kSize(1040, 100);
constexpr int kA4 = 57;
constexpr QRgb kLightGrey = 0xffd9d9d9; ///< 0.85 of white

struct Colors {
    AppearanceChoice choice;
    QRgb white, alternating, black;
};
constexpr Colors kColors[] = {
    {AppearanceChoice::light, kWhite, kLightGrey, kBlack},
    {AppearanceChoice::dark, kBlack, kDarkGrey, kWhite},
};

/// Rows of the keys from A0 to C8: true for those of every other octave, from C1 on.
bool isAlternating(int whiteKey) {
    return std::string_view(
               "..xxxxxxx.......xxxxxxx.......xxxxxxx.......xxxxxxx.")[static_cast<std::size_t>(
               whiteKey)] == 'x';
}

bool hasBlackKeyRight(int whiteKey) {
    return std::string_view("ABCDEFG")[static_cast<std::size_t>(whiteKey % 7)] != 'B' &&
           std::string_view("ABCDEFG")[static_cast<std::size_t>(whiteKey % 7)] != 'E' &&
           whiteKey < 51;
}

void fillUp(QPainter& painter, double x, double y, double width, double height, QRgb color) {
    painter.fillRect(QRectF(x, kSize.height() - y - height, width, height), QColor(color));
}

void frameUp(QPainter& painter, double x, double y, double width, double height, QRgb color) {
    fillUp(painter, x, y, 1, height, color);
    fillUp(painter, x + width - 1, y, 1, height, color);
    fillUp(painter, x, y, width, 1, color);
    fillUp(painter, x, y + height - 1, width, 1, color);
}

/// @param red index of a white key, or of the gap whose black key is marked
QImage keyboard(const Colors& colors, double ratio, int redWhite = -1, int redGap = -1) {
    return drawn(kSize, ratio, [&](QPainter& painter) {
        for (int i = 0; i < 52; ++i) {
            const QRgb fill = isAlternating(i) ? colors.alternating : colors.white;
            fillUp(painter, i * 20, 0, 20, 100, i == redWhite ? kRed : fill);
            frameUp(painter, i * 20, 0, 20, 100, colors.black);
        }
        for (int gap = 0; gap < 51; ++gap) {
            if (!hasBlackKeyRight(gap)) continue;
            fillUp(painter, 14 + gap * 20, 37, 12, 62, gap == redGap ? kRed : colors.black);
            if (gap == redGap) frameUp(painter, 14 + gap * 20, 37, 12, 62, colors.black);
        }
    });
}

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
            EXPECT_EQ(pictureOf(view, ratio), keyboard(colors, ratio));
        }
    }
}

TEST_F(PianoViewTest, TakesOtherColorsWithTheNextDrawing) {
    for (const Colors& colors : {kColors[1], kColors[0], kColors[1]}) {
        const InColors in(colors.choice);
        EXPECT_EQ(pictureOf(mView), keyboard(colors, 1)) << nameOf(colors.choice);
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
