// SPDX-License-Identifier: GPL-3.0-or-later
// Setting figures and signs.
#include "displays/LineSetter.h"

#include "displays/SymbolShape.h"

#include <QFontDatabase>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

QFont fontOf(int pixels) {
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

TEST(LineSetter, NumbersOfEqualLengthAreEquallyWide) {
    // A family with proportional figures would let them dance; here the widest decides.
    const LineSetter figures(fontOf(30), LineStyle::figures);
    const double width = figures.width("+12.3");
    for (const char* text : {"+11.1", "-48.9", "\u00b100.0", "\u221277.7"}) {
        EXPECT_EQ(figures.width(QString::fromUtf8(text)), width) << text;
    }
    EXPECT_EQ(figures.width("--.-"), figures.width("00.0"));
}

TEST(LineSetter, WordsAreSetByTheFont) {
    const QFont font = fontOf(30);
    const LineSetter words(font, LineStyle::words);
    EXPECT_EQ(words.width("Wavy Tavern"), QFontMetricsF(font).horizontalAdvance("Wavy Tavern"));
    EXPECT_EQ(words.elided("Wavy", Qt::ElideRight, 1000), "Wavy");
    EXPECT_NE(words.elided("Wavy Tavern", Qt::ElideRight, 60), "Wavy Tavern");
}

TEST(SymbolShape, SignsAreShapesAndNothingElseIs) {
    const struct {
        const char* name;
        char16_t sign;
        double top, bottom; // of capitals of height 100; y down
    } kCases[] = {
        {"sharp", u'\u266f', -116, 16}, {"flat", u'\u266d', -118, 10},
        {"plus", u'+', -75, -19},       {"hyphen", u'-', -52, -42},
        {"minus", u'\u2212', -52, -42}, {"plus-minus", u'\u00b1', -84, 0},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const auto shape = SymbolShape::of(c.sign, 100, 10, 70);
        ASSERT_TRUE(shape);
        const QRectF extent = shape->path.boundingRect();
        EXPECT_NEAR(extent.top(), c.top, 1);
        EXPECT_NEAR(extent.bottom(), c.bottom, 1);
        EXPECT_GE(extent.left(), 0);
        EXPECT_LE(extent.right(), shape->width);
    }
    for (const char16_t other : {u'A', u'0', u'.', u' ', u'\u266e'}) {
        EXPECT_FALSE(SymbolShape::of(other, 100, 10, 70));
    }
}

TEST(SymbolShape, FlatHasAHollowBowl) {
    const auto flat = SymbolShape::of(u'\u266d', 100, 10, 70);
    EXPECT_TRUE(flat->path.contains(QPointF(8, -80))) << "stem";
    EXPECT_FALSE(flat->path.contains(QPointF(24, -25))) << "inside the bowl";
    EXPECT_TRUE(flat->path.contains(QPointF(46, -38))) << "bowl";
}

TEST(SymbolShape, SharpIsFilledWhereItsStrokesCross) {
    const auto sharp = SymbolShape::of(u'\u266f', 100, 10, 70);
    EXPECT_TRUE(sharp->path.contains(QPointF(19, -67 + 2)));
    EXPECT_FALSE(sharp->path.contains(QPointF(31, -48))) << "the middle is open";
}

} // namespace
} // namespace veltrano
