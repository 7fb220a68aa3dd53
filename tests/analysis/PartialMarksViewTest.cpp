// SPDX-License-Identifier: GPL-3.0-or-later
// What partials draw: bars, guide lines, marked keys, numbers and names.
#include "tests/analysis/PartialsRig.h"

namespace veltrano {

using namespace partial_pictures;

namespace {

class PartialMarksViewTest : public PartialsTest {
protected:
    void expectDrawing(const std::vector<Shown>& shown, double ratio = 1) {
        Partials partials;
        for (const Shown& s : shown)
            partials.push_back(partialAt(s.key, s.cents));
        for (const Colors& colors : kColors) {
            SCOPED_TRACE(nameOf(colors.choice));
            const InColors in(colors.choice);
            // Frequencies are single-precision: the ends of bars may differ by a shade.
            EXPECT_TRUE(
                areSame(pictureOfPartials(partials, ratio), drawing(colors, shown, ratio), 2));
        }
    }
};

constexpr double kCentre = 139.5;

TEST_F(PartialMarksViewTest, EveryKeyIsMarkedInItsShapeWithItsName) {
    for (int key = 9; key <= 96; ++key) {
        SCOPED_TRACE(key);
        expectDrawing({{key, 20, "+20", kRed, true, 0, 20}});
    }
}

TEST_F(PartialMarksViewTest, MarkedKeysOfEveryShapeOnAFineScreen) {
    for (const int key : {9, 10, 11, 12, 13, 14, 16, 17, 19, 96}) {
        SCOPED_TRACE(key);
        expectDrawing({{key, -33, "-33", kBlue, true, -33, 0}}, 2);
    }
}

TEST_F(PartialMarksViewTest, AChordIsDrawnKeyByKeyAndItsNamesOverAll) {
    const std::vector<Shown> chord = {
        {36, 1, "+1", kGreen, true, -2.5, 2.5},   {43, -12, "-12", kBlue, false, -12, 0},
        {48, 25, "+25", kRed, true, 0, 25},       {52, 2, "+2", kGreen, false, -2.5, 2.5},
        {53, -49, "-49", kBlue, false, -49, 0},   {54, 4, "+4", kRed, false, 0, 4},
        {55, -2, "-2", kGreen, false, -2.5, 2.5}, {56, 30, "+30", kRed, false, 0, 30},
        {57, -4, "-4", kBlue, false, -4, 0},      {58, 0, "0", kGreen, false, -2.5, 2.5},
        {60, -7, "-7", kBlue, true, -7, 0},       {96, 45, "+45", kRed, true, 0, 45},
    };
    expectDrawing(chord, 1);
    expectDrawing(chord, 2);
}

TEST_F(PartialMarksViewTest, KeyShapesLeaveRoomForTheBlackKeys) {
    struct Case {
        const char* name;
        int key;
        bool hasLeft, hasRight; ///< whether the upper part reaches to that side
    };
    for (const Case& c : {Case{"A0", 9, true, false},
                          {"B0", 11, false, true},
                          {"C1", 12, true, false},
                          {"D1", 14, false, false},
                          {"E1", 16, false, true},
                          {"F1", 17, true, false},
                          {"G1", 19, false, false},
                          {"A1", 21, false, false},
                          {"B7", 95, false, true},
                          {"C8", 96, true, true}}) {
        SCOPED_TRACE(c.name);
        const Seen seen = seenPartials({partialAt(c.key, 10)});
        const double x = middleOf(c.key);
        EXPECT_TRUE(seen.isAll(kRed, x - 2.5, 33, 6, 55));
        EXPECT_TRUE(seen.isAll(kRed, x - 6.5, 14, 14, 18));
        EXPECT_EQ(seen.isAll(kRed, x - 6.5, 33, 4, 55), c.hasLeft);
        EXPECT_EQ(seen.isAll(kRed, x + 3.5, 33, 4, 55), c.hasRight);
        EXPECT_EQ(seen.at(x - 7, 20), kBlack) << "the outline stays";
        EXPECT_EQ(seen.at(x + 8, 20), kBlack);
        EXPECT_EQ(seen.at(x, 0.5), kBlack);
        EXPECT_EQ(seen.at(x, 88.5), kBlack);
    }
    const Seen black = seenPartials({partialAt(10, 10)});
    // Of eight points around 15.5, seven are whole pixels.
    EXPECT_EQ(extentOfColor(black.picture().copy(0, 118, 781, 89), kRed), QRect(12, 1, 7, 55));
}

TEST_F(PartialMarksViewTest, ADeviationOf70CentsDrawsABarOf50AndIsLabelled70) {
    // Seventy cents from the target are within fifty of the equal-tempered key.
    mTemperaments.entries = {{"Wide.temperament", {}}};
    for (const double side : {1.0, -1.0}) {
        SCOPED_TRACE(side);
        mTemperaments.entries[0].cents.fill(-40 * side);
        mPreferences.setTuning(0);
        mPreferences.setTuningForFileName("Wide.temperament");
        const Seen seen = seenPartials({partialAt(57, 30 * side)});
        const double x = middleOf(57);
        const QRgb color = side > 0 ? kRed : kBlue;
        EXPECT_TRUE(seen.isAll(color, x - 3.5, kCentre + (side > 0 ? 0.5 : -49.5), 7, 49));
        EXPECT_NE(seen.at(x - 3, kCentre + side * 51), color);
        EXPECT_EQ(seen.at(x - 3, kCentre - side * 2), kWhite);
        const QImage expected =
            drawing(kColors[0], {{57, 70 * side, side > 0 ? "+70" : "-70", color, true,
                                  side > 0 ? 0.0 : -50.0, side > 0 ? 50.0 : 0.0}});
        EXPECT_TRUE(areSame(seen.picture(), expected, 2));
    }
}

TEST_F(PartialMarksViewTest, ADeviationThatRoundsToZeroKeepsItsColor) {
    for (const Shown& shown :
         {Shown{57, -0.4, "0", kBlue, true, -0.4, 0}, Shown{57, 0.4, "0", kRed, true, 0, 0.4},
          Shown{57, -0.6, "-1", kBlue, true, -0.6, 0}, Shown{57, 0.6, "+1", kRed, true, 0, 0.6}}) {
        SCOPED_TRACE(shown.cents);
        mPreferences.setInTuneThreshold(0);
        expectDrawing({shown});
        mPreferences.setInTuneThreshold(1);
        Shown inTune = shown;
        inTune.color = kGreen;
        inTune.from = -2.5;
        inTune.to = 2.5;
        expectDrawing({inTune});
    }
}

TEST_F(PartialMarksViewTest, InTuneMeansNearerThanTheThreshold) {
    struct Case {
        int threshold;
        double cents;
        QRgb color;
    };
    for (const Case& c : {Case{3, 2.99, kGreen},
                          {3, 3.01, kRed},
                          {3, -2.99, kGreen},
                          {3, -3.01, kBlue},
                          {10, 9.99, kGreen},
                          {10, -10.01, kBlue},
                          {2, 2.01, kRed},
                          {1, -0.99, kGreen},
                          {50, 49, kGreen}}) {
        SCOPED_TRACE(testing::Message() << c.cents << " with " << c.threshold);
        mPreferences.setInTuneThreshold(c.threshold);
        const QImage bars = pictureOfPartials({partialAt(57, c.cents)}).copy(0, 0, 781, 117);
        for (const QRgb color : {kGreen, kRed, kBlue})
            EXPECT_EQ(extentOfColor(bars, color).isEmpty(), color != c.color) << std::hex << color;
    }
}

TEST_F(PartialMarksViewTest, TheThresholdItselfIsNotInTune) {
    // Look for the reference pitch with which this partial is sharp by exactly 3 cents.
    const Partials partials{partialAt(57, 3)};
    double low = 439.9;
    double high = 440.1;
    for (int step = 0; step < 100; ++step) {
        mPreferences.setReferencePitch((low + high) / 2);
        PartialView view({mPreferences, mNotifications});
        view.setPartials(published(partials));
        pictureOf(view);
        const float cent = view.records()[0].cent;
        if (cent == 3.0f) break;
        (cent > 3.0f ? low : high) = (low + high) / 2;
    }
    PartialView view({mPreferences, mNotifications});
    view.resize(kSize);
    view.setPartials(published(partials));
    const Seen seen(view);
    ASSERT_EQ(view.records()[0].cent, 3.0f);
    EXPECT_TRUE(areSame(seen.picture(), drawing(kColors[0], {{57, 3, "+3", kRed, true, 0, 3}}), 2));
    mPreferences.setInTuneThreshold(4);
    EXPECT_TRUE(
        areSame(pictureOf(view), drawing(kColors[0], {{57, 3, "+3", kGreen, true, -2.5, 2.5}}), 2));
}

TEST_F(PartialMarksViewTest, GuideLinesStandOnTheRootsPitchClassAlone) {
    const Seen seen = seenPartials({partialAt(33, 20, 1), partialAt(40, 20), partialAt(45, 20),
                                    partialAt(52, 20), partialAt(57, 20), partialAt(69, 20)});
    for (const int key : {33, 45, 57, 69}) {
        EXPECT_TRUE(seen.isAll(kGrey, middleOf(key) - 0.5, kCentre - 49.5, 1, 49)) << key;
        EXPECT_TRUE(seen.isAll(kGrey, middleOf(key) - 0.5, kCentre + 21, 1, 28)) << key;
        EXPECT_EQ(seen.at(middleOf(key) - 1, kCentre - 20), kWhite);
        EXPECT_EQ(seen.at(middleOf(key) + 1, kCentre - 20), kWhite);
    }
    for (const int key : {40, 52})
        EXPECT_TRUE(seen.isAll(kWhite, middleOf(key) - 3, kCentre - 50, 6, 49)) << key;
}

/// The smallest rectangle of pixels unlike the background, in points from the lower left corner.
QRectF inkWithin(const Seen& seen, const QRectF& upwards) {
    QRect ink;
    const double ratio = seen.picture().devicePixelRatio();
    const int height = seen.picture().height();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < seen.picture().width(); ++x) {
            const QPointF place((x + 0.5) / ratio, (height - y - 0.5) / ratio);
            if (upwards.contains(place) && qGreen(seen.picture().pixel(x, y)) < 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return {ink.x() / ratio, (height - ink.y() - ink.height()) / ratio, ink.width() / ratio,
            ink.height() / ratio};
}

TEST_F(PartialMarksViewTest, NumbersStandAt189AndAt197AboveBlackKeys) {
    const Seen seen = seenPartials({partialAt(45, 20), partialAt(58, 20)}, 4);
    const double descent = QFontMetricsF(textFont(7, false)).descent();
    const QRectF digits = QFontMetricsF(textFont(700, false)).tightBoundingRect("+20");
    for (const auto& [key, y] : {std::pair(45, 189.0), std::pair(58, 197.0)}) {
        const QRectF ink = inkWithin(seen, QRectF(middleOf(key) - 20, y, 40, 10));
        EXPECT_NEAR(ink.y(), y + descent, 0.5) << "baseline";
        EXPECT_NEAR(ink.height(), digits.height() / 100, 0.5);
        EXPECT_NEAR(ink.center().x(), middleOf(key), 0.6);
    }
}

TEST_F(PartialMarksViewTest, PartialsOutsideTheKeyboardAreDropped) {
    const QImage nothing = drawing(kColors[0], {});
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(8)}), nothing));
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(97)}), nothing));
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(8, 49), partialAt(97, -49)}), nothing));
    EXPECT_TRUE(areSame(pictureOfPartials({}), nothing));
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(8), partialAt(57, 20), partialAt(97)}),
                        drawing(kColors[0], {{57, 20, "+20", kRed, true, 0, 20}}), 2));
}

TEST_F(PartialMarksViewTest, PartialsOfOneKeyAreOneBarOfTheirWeightedMean) {
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(57, -10, 3), partialAt(57, 30, 1)}),
                        drawing(kColors[0], {{57, 0, "0", kGreen, true, -2.5, 2.5}}), 2));
    EXPECT_TRUE(areSame(pictureOfPartials({partialAt(57, -10, 1), partialAt(57, 30, 3)}),
                        drawing(kColors[0], {{57, 20, "+20", kRed, true, 0, 20}}), 2));
}

TEST_F(PartialMarksViewTest, OnlyTheSixteenStrongestAreShown) {
    Partials partials;
    std::vector<Shown> shown;
    for (int i = 0; i < 17; ++i) {
        const bool isWeakest = i == 11;
        partials.push_back(partialAt(40 + i, 20, isWeakest ? 0.4f : 0.5f));
        if (!isWeakest) shown.push_back({40 + i, 20, "+20", kRed, i == 0 || i == 12, 0, 20});
    }
    EXPECT_TRUE(areSame(pictureOfPartials(partials), drawing(kColors[0], shown), 2));
}

} // namespace
} // namespace veltrano
