// SPDX-License-Identifier: GPL-3.0-or-later
// The graphs to a quarter of a unit: where lines begin and end, letters, the shape of the curve.
#include "platform/desktop/LabelFont.h"
#include "tests/support/Pictures.h"
#include "tuning/CentGraph.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <span>
#include <utility>

namespace veltrano {
namespace {

constexpr QRgb kWhite = qRgb(255, 255, 255);
constexpr QRgb kGrey = qRgb(190, 190, 190);
constexpr QRgb kBlack = qRgb(0, 0, 0);
constexpr QRgb kCurve = qRgb(64, 64, 64);

// A plot of 480 x 200: two units per cent, columns of 40, from (22, 3) to (502, 203).
constexpr int kWidth = 505, kHeight = 216, kPlotTop = 203;
constexpr int kFirst = 42, kLast = 482; // centres of the outer columns
constexpr int kZoom = 4;                // pixels per unit
constexpr double kStep = 0.25;          // [units] a pixel

int centreOf(int column) { return kFirst + 40 * column; }
int heightOf(int cents) { return 3 + 2 * (cents + 50); }

QImage pictureOf(const CentGraph& graph, int zoom = kZoom) {
    QImage picture(kWidth * zoom, kHeight * zoom, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QPainter painter(&picture);
    painter.scale(zoom, zoom);
    graph.paint(painter, kWidth, kHeight);
    return picture;
}

/// A stretch of ink in units.
struct Extent {
    double from = 0;
    double to = 0;
};

/// Where pixels of a colour lie on a line. @param place the pixel number i of the line
Extent extentOn(int pixels, QRgb color, const std::function<QRgb(int i)>& place) {
    int first = pixels, last = -1;
    for (int i = 0; i < pixels; ++i) {
        if (place(i) != color) continue;
        first = std::min(first, i);
        last = i;
    }
    return {first * kStep, (last + 1) * kStep};
}

constexpr int kBesideLabels = kFirst - 3; // those of the scale end further left

/// Along a row of pixels at a height with y upwards, between the scale's labels and the frame.
Extent alongRow(const QImage& picture, double y, QRgb color) {
    const int pixelY = picture.height() - 1 - static_cast<int>(y * kZoom);
    return extentOn(picture.width() - 2 * kZoom, color, [&](int x) {
        return x < kBesideLabels * kZoom ? kWhite : picture.pixel(x, pixelY);
    });
}

/// Along a column of pixels, between the edges of the frame; y upwards.
Extent alongColumn(const QImage& picture, double x, QRgb color) {
    const int pixelX = static_cast<int>(x * kZoom);
    const int frame = kZoom + 1;
    return extentOn(picture.height() - frame, color, [&](int y) {
        return y < frame ? kWhite : picture.pixel(pixelX, picture.height() - 1 - y);
    });
}

CentGraph twelveColumns(std::span<const double> cents = {}) {
    CentGraph graph;
    graph.columns.assign(12, {CentGraph::grid(), {}});
    graph.cents = cents;
    return graph;
}

TEST(GraphDetails, LinesOfTheGridReachFromTheFirstColumnToTheLast) {
    const QImage picture = pictureOf(twelveColumns());
    for (int cents = -50; cents <= 50; cents += 10) {
        const QRgb color = cents == 0 ? kBlack : kGrey;
        const Extent line = alongRow(picture, heightOf(cents), color);
        // Lines of the columns end half a unit further out.
        EXPECT_NEAR(line.from, kFirst, 0.5 + kStep) << cents;
        EXPECT_NEAR(line.to, kLast, 0.5 + kStep) << cents;
    }
}

TEST(GraphDetails, LinesOfTheColumnsReachFromTheBottomToTheTop) {
    const QImage picture = pictureOf(twelveColumns());
    for (int column = 0; column < 12; ++column) {
        const Extent line = alongColumn(picture, centreOf(column), kGrey);
        // Lines of the grid at the edges end half a unit further out.
        EXPECT_NEAR(line.from, 3, 0.5 + kStep) << column;
        EXPECT_NEAR(line.to, kPlotTop, 0.5 + kStep) << column;
    }
}

TEST(GraphDetails, EveryLineIsOneWide) {
    const QImage picture = pictureOf(twelveColumns());
    const auto widthAt = [&](QRgb color, int dx, int dy, int x, int y) {
        int pixels = 0;
        for (int i = -3 * kZoom; i <= 3 * kZoom; ++i)
            pixels += picture.pixel(x * kZoom + dx * i, (kHeight - y) * kZoom + dy * i) == color;
        return pixels;
    };
    EXPECT_EQ(widthAt(kGrey, 0, 1, 60, heightOf(30)), kZoom);
    EXPECT_EQ(widthAt(kBlack, 0, 1, 60, heightOf(0)), kZoom);
    EXPECT_EQ(widthAt(kGrey, 1, 0, centreOf(5), heightOf(15)), kZoom);
}

TEST(GraphDetails, TheCurveEndsAndTurnsRound) {
    // Up and down at right angles: 20 cents, 40 units, for a column.
    std::array<double, 12> cents{};
    for (std::size_t i = 0; i < cents.size(); i += 2)
        cents[i] = 20;
    const QImage picture = pictureOf(twelveColumns(cents));
    // A mitred corner would reach 2.1 above its point, a bevelled one 1.1.
    int top = (kHeight - heightOf(40)) * kZoom;
    while (qGray(picture.pixel(centreOf(4) * kZoom, top)) > qGray(kGrey) - 20)
        ++top;
    EXPECT_NEAR(kHeight - top * kStep, heightOf(20) + 1.5, kStep + 0.1);
    // Round about the first point, whose line runs down to the right: a flat end would reach 1.1
    // to the left, a square one 2.1.
    const QRect beside(kBesideLabels * kZoom, 0, 20 * kZoom, picture.height());
    const QRect ink = extentOfColor(picture.copy(beside), kCurve);
    EXPECT_NEAR(kBesideLabels + ink.left() * kStep, kFirst - 1.5, kStep + 0.1);
}

TEST(GraphDetails, TheCurveHasSoftEdgesAndTheLinesHaveNone) {
    const auto colors = [](const CentGraph& graph) {
        const QImage picture = pictureOf(graph, 1).copy(kFirst, 20, 400, 180);
        std::set<QRgb> found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                found.insert(picture.pixel(x, y));
        }
        return found;
    };
    EXPECT_EQ(colors(twelveColumns()), std::set({kWhite, kGrey, kBlack}));
    std::array<double, 12> cents{0, 30, -30, 10, 0, 45, -45, 3};
    EXPECT_GT(colors(twelveColumns(cents)).size(), 20u);
}

TEST(GraphDetails, TheCurveLiesOverEverything) {
    std::array<double, 12> cents{};
    const QImage picture = pictureOf(twelveColumns(cents));
    const Extent line = alongRow(picture, heightOf(0), kCurve);
    EXPECT_NEAR(line.from, kFirst - 1.5, kStep + 0.1);
    EXPECT_NEAR(line.to, kLast + 1.5, kStep + 0.1);
    EXPECT_EQ(alongRow(picture, heightOf(0), kBlack).to, 0) << "no black is left";
}

TEST(GraphDetails, ThePaintersOwnHintsDoNotMatter) {
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        twelveColumns().paint(painter, kWidth, kHeight);
    }
    EXPECT_EQ(picture, pictureOf(twelveColumns(), 1));
}

class GraphLabels : public testing::Test {
protected:
    static QFont font() { return labelFont(9); }
    /// A white picture that holds one label. @param x of its left end  @param y its baseline,
    /// upwards
    static QImage label(const QString& text, double x, double y) {
        QImage picture(kWidth, kHeight, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setFont(font());
        painter.setPen(Qt::black);
        painter.drawText(QPointF(x, kHeight - y), text);
        return picture;
    }
};

TEST_F(GraphLabels, AreNineHighAndUpright) {
    EXPECT_EQ(font().pixelSize(), 9);
    EXPECT_FALSE(font().bold());
    EXPECT_FALSE(font().italic());
}

TEST_F(GraphLabels, StandCentredOnTheTopOfTheirColumn) {
    const std::array<QString, 12> names{"C",  "C#", "D",  "Eb", "E",  "F",
                                        "F#", "G",  "G#", "A",  "Bb", "B"};
    CentGraph graph = twelveColumns();
    for (std::size_t i = 0; i < names.size(); ++i)
        graph.columns[i].label = names[i];
    const QImage picture = pictureOf(graph, 1);
    for (int i = 0; i < 12; ++i) {
        const QString& name = names[static_cast<std::size_t>(i)];
        const double width = QFontMetricsF(font()).horizontalAdvance(name);
        const QImage expected = label(name, centreOf(i) - width / 2, kPlotTop);
        // Above the line of +50 cents, below the frame.
        const QRect above(centreOf(i) - 15, 1, 30, kHeight - kPlotTop - 2);
        EXPECT_EQ(picture.copy(above), expected.copy(above)) << name.toStdString();
        EXPECT_NE(extentOfColor(expected.copy(above), kWhite), QRect());
    }
}

TEST_F(GraphLabels, OfTheScaleEndLeftOfTheirLineAndAreCentredOnIt) {
    const QImage picture = pictureOf(twelveColumns(), 1);
    const std::pair<int, QString> kLabels[] = {
        {-40, "-40"}, {-20, "-20"}, {0, QStringLiteral("±0")}, {20, "+20"}, {40, "+40"}};
    for (const auto& [cents, text] : kLabels) {
        const QFontMetricsF metrics(font());
        const double end = kFirst - 4;
        const double baseline = heightOf(cents) - metrics.capHeight() / 2;
        const QImage expected = label(text, end - metrics.horizontalAdvance(text), baseline);
        const QRect left(2, kHeight - heightOf(cents) - 15, kFirst - 5, 30);
        EXPECT_EQ(picture.copy(left), expected.copy(left)) << text.toStdString();
    }
    for (const int cents : {-50, -30, -10, 10, 30, 50}) {
        const QRect left(2, kHeight - heightOf(cents) - 4, kFirst - 5, 8);
        QImage blank(left.size(), QImage::Format_RGB32);
        blank.fill(Qt::white);
        const QRect within = left & QRect(2, 2, kWidth - 4, kHeight - 4);
        EXPECT_EQ(picture.copy(within), blank.copy(QRect(QPoint(), within.size()))) << cents;
    }
}

} // namespace
} // namespace veltrano
