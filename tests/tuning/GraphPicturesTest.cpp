// SPDX-License-Identifier: GPL-3.0-or-later
// The graphs as they are painted: ground, grid, black lines, curve, labels.
#include "platform/desktop/Appearance.h"
#include "tests/support/Pictures.h"
#include "tests/tuning/TuningTestBase.h"
#include "tuning/GraphViews.h"

#include <QPainter>
#include <algorithm>

namespace veltrano {
namespace {

constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kGrey = qRgb(190, 190, 190);
constexpr QRgb kBlack = qRgb(0, 0, 0);
constexpr QRgb kCurve = qRgb(64, 64, 64);

class GraphPictures : public TuningTestBase {
protected:
    GraphPictures() : temperament(temperamentPorts()), stretch(stretchPorts()) {
        // Plots of 480 x 200 and 1080 x 200: two units per cent, columns of 40 and 10.
        temperamentView.resize(505, 216);
        stretchView.resize(1105, 216);
        temperamentView.setTemperamentDocument(&temperament);
        stretchView.setStretchDocument(&stretch);
    }

    /// The colour at a place with y upwards, whose pixel is the one above it.
    static QRgb at(const QImage& picture, int x, int y) {
        return picture.pixel(x, picture.height() - 1 - y);
    }
    /// Whether a pixel of that colour lies within a step of a place: lines lie between two pixels.
    static bool isNear(const QImage& picture, int x, int y, QRgb color) {
        for (const int dx : {-1, 0, 1}) {
            for (const int dy : {-1, 0, 1}) {
                if (at(picture, x + dx, y + dy) == color) return true;
            }
        }
        return false;
    }

    MVTemperamentDocument temperament;
    MVStretchDocument stretch;
    TemperamentGraphView temperamentView;
    StretchGraphView stretchView;
};

TEST_F(GraphPictures, WhiteGroundAndGreyFrameAlsoInTheDark) {
    for (const AppearanceChoice choice : {AppearanceChoice::light, AppearanceChoice::dark}) {
        temperamentView.setPalette(Appearance::palette(choice));
        const QImage picture = pictureOf(temperamentView);
        EXPECT_EQ(at(picture, 0, 100), kGrey);
        EXPECT_EQ(at(picture, 504, 100), kGrey);
        EXPECT_EQ(at(picture, 300, 0), kGrey);
        EXPECT_EQ(at(picture, 300, 215), kGrey);
        EXPECT_EQ(at(picture, 2, 2), kWhite);
        EXPECT_EQ(at(picture, 502, 213), kWhite);
        EXPECT_EQ(at(picture, 52, 93), kWhite) << "between the lines";
    }
}

TEST_F(GraphPictures, LinesOfTheTemperamentGraph) {
    const QImage picture = pictureOf(temperamentView);
    // Columns at 42, 82 ... 482; heights at 3 + 2 x (cents + 50).
    for (int row = 0; row < 12; ++row) {
        EXPECT_TRUE(isNear(picture, 42 + 40 * row, 13, kGrey)) << row;
        EXPECT_TRUE(isNear(picture, 42 + 40 * row, 190, kGrey)) << row;
    }
    for (int cents = -50; cents <= 50; cents += 10) {
        if (cents == 0) continue;
        EXPECT_TRUE(isNear(picture, 60, 103 + 2 * cents, kGrey)) << cents;
    }
    // Between the columns of 30 and 40 cents there is nothing.
    EXPECT_FALSE(isNear(picture, 62, 173, kGrey));
    // No line left of the first column or right of the last.
    EXPECT_FALSE(isNear(picture, 38, 63, kGrey));
    EXPECT_FALSE(isNear(picture, 487, 63, kGrey));
}

TEST_F(GraphPictures, TheCurveLiesOnItsPointsAndTouchesTheEdges) {
    temperament.setCell(Temperament::Column::cent, 0, "50");
    temperament.setCell(Temperament::Column::cent, 1, "-50");
    temperament.setCell(Temperament::Column::cent, 4, "25");
    const QImage picture = pictureOf(temperamentView);
    EXPECT_TRUE(isNear(picture, 42, 202, kCurve)) << "the top edge";
    EXPECT_TRUE(isNear(picture, 82, 3, kCurve)) << "the bottom edge";
    EXPECT_TRUE(isNear(picture, 202, 153, kCurve));
    EXPECT_TRUE(isNear(picture, 402, 103, kCurve)) << "over the line of 0 cents";
    EXPECT_TRUE(isNear(picture, 182, 128, kCurve)) << "straight between the points";
    EXPECT_EQ(extentOfColor(picture.copy(485, 0, 20, 216), kCurve), QRect());
}

TEST_F(GraphPictures, TheCurveIsThreeWide) {
    const QImage picture = pictureOf(temperamentView, 4);
    const int x = 4 * 262;
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixel(x, y) == kCurve) ++dark;
    }
    EXPECT_NEAR(dark, 12, 1);
}

TEST_F(GraphPictures, TheLineOfZeroCentsIsBlack) {
    temperament.setCell(Temperament::Column::cent, 2, "30");
    temperament.setCell(Temperament::Column::cent, 1, "30");
    const QImage picture = pictureOf(temperamentView);
    EXPECT_TRUE(isNear(picture, 102, 103, kBlack));
    EXPECT_FALSE(isNear(picture, 39, 103, kBlack) && isNear(picture, 37, 103, kBlack));
}

TEST_F(GraphPictures, NamesFollowTheRootKey) {
    // The ink of the names, as a picture of its own, changes with the key.
    const auto names = [](const QImage& picture) { return picture.copy(0, 0, 505, 12); };
    const QImage inC = names(pictureOf(temperamentView));
    settings.key = 7;
    MVTemperamentDocument inG(temperamentPorts());
    temperamentView.setTemperamentDocument(&inG);
    EXPECT_NE(inC, names(pictureOf(temperamentView)));
    EXPECT_EQ(TemperamentGraphView::graphOf(inG).columns[0].label, "G");
    EXPECT_EQ(TemperamentGraphView::graphOf(inG).columns[2].label, "A");
    temperamentView.setTemperamentDocument(nullptr);
}

TEST_F(GraphPictures, LabelsEndLeftOfTheirLinesAndAreCentredOnThem) {
    const QImage picture = pictureOf(temperamentView);
    // The ink left of the first column's lines: letters only, about their lines.
    for (const int cents : {-40, -20, 20, 40}) {
        const int y = 103 + 2 * cents;
        int highest = 0, lowest = 1000, rightmost = 0;
        for (int x = 4; x < 41; ++x) {
            for (int dy = -9; dy <= 9; ++dy) {
                if (qGray(at(picture, x, y + dy)) > 100) continue;
                highest = std::max(highest, y + dy);
                lowest = std::min(lowest, y + dy);
                rightmost = std::max(rightmost, x);
            }
        }
        EXPECT_NEAR((highest + lowest) / 2.0, y - 0.5, 1.5) << cents;
        EXPECT_NEAR(rightmost, 37, 2) << cents;
    }
    for (const int cents : {-30, -10, 10, 30}) {
        for (int x = 4; x < 38; ++x)
            EXPECT_GT(qGray(at(picture, x, 103 + 2 * cents)), 180) << cents << " has no label";
    }
}

TEST_F(GraphPictures, EveryAOfTheStretchGraphIsBlackAndNamed) {
    const QImage picture = pictureOf(stretchView);
    for (int key = 0; key < 108; ++key) {
        const int x = 27 + 10 * key; // its column's centre
        EXPECT_EQ(isNear(picture, x, 13, kBlack), key % 12 == 9) << key;
        EXPECT_TRUE(isNear(picture, x, 13, key % 12 == 9 ? kBlack : kGrey)) << key;
    }
    const CentGraph graph = StretchGraphView::graphOf(stretch);
    EXPECT_EQ(graph.columns[9].label, "A0");
    EXPECT_EQ(graph.columns[105].label, "A8");
    EXPECT_EQ(
        std::ranges::count_if(graph.columns, [](const auto& c) { return !c.label.isEmpty(); }), 9);
}

TEST_F(GraphPictures, TheStretchCurveHasAPointPerKey) {
    stretch.setCell(9, 4, "25"); // A4
    const QImage picture = pictureOf(stretchView);
    EXPECT_TRUE(isNear(picture, 27 + 570, 151, kCurve));
    EXPECT_TRUE(isNear(picture, 27 + 560, 103, kCurve));
    EXPECT_TRUE(isNear(picture, 27 + 1070, 103, kCurve));
}

TEST_F(GraphPictures, ValuesBeyondTheEdgesStayInTheGraph) {
    QImage picture(505, 400, QImage::Format_RGB32);
    picture.fill(Qt::white);
    const CentTable beyond{-200, 200, -200, 200, -200, 200, -200, 200, -200, 200, -200, 200};
    CentGraph graph = TemperamentGraphView::graphOf(temperament);
    graph.cents = beyond;
    {
        QPainter painter(&picture);
        painter.translate(0, 100);
        graph.paint(painter, 505, 216);
    }
    QImage blank(505, 84, QImage::Format_RGB32);
    blank.fill(Qt::white);
    EXPECT_EQ(picture.copy(0, 0, 505, 84), blank);
    EXPECT_EQ(picture.copy(0, 316, 505, 84), blank);
}

TEST_F(GraphPictures, WithoutADocumentThereIsNoCurve) {
    stretchView.setStretchDocument(nullptr);
    const QRect besideTheLabels(30, 15, 1000, 190);
    EXPECT_EQ(extentOfColor(pictureOf(stretchView).copy(besideTheLabels), kCurve), QRect());
    stretchView.setStretchDocument(&stretch);
    EXPECT_NE(extentOfColor(pictureOf(stretchView).copy(besideTheLabels), kCurve), QRect());
}

} // namespace
} // namespace veltrano
