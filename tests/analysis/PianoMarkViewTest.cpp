// SPDX-License-Identifier: GPL-3.0-or-later
// The marked key of the piano keyboard and its name.
#include "analysis/PianoView.h"

#include "tests/analysis/PianoPictures.h"

#include <QMouseEvent>
#include <array>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace veltrano {

using namespace piano_pictures;

namespace {

constexpr int kA4 = 57;
constexpr int kNone = -1;

struct Marked {
    int key;
    const char* name;
    int white; ///< index of the white key
    int gap;   ///< to the left of which the marked black key lies, counted from Bb0
};
constexpr Marked kMarked[] = {
    {9, "A0", 0, kNone},    {10, "Bb0", kNone, 0},  {11, "B0", 1, kNone},   {12, "C1", 2, kNone},
    {13, "C#1", kNone, 2},  {14, "D1", 3, kNone},   {15, "Eb1", kNone, 3},  {28, "E2", 11, kNone},
    {41, "F3", 19, kNone},  {54, "F#4", kNone, 26}, {55, "G4", 27, kNone},  {56, "G#4", kNone, 27},
    {kA4, "A4", 28, kNone}, {58, "Bb4", kNone, 28}, {61, "C#5", kNone, 30}, {94, "Bb7", kNone, 49},
    {95, "B7", 50, kNone},  {96, "C8", 51, kNone},
};

/// With black keys of 12 points, names are as large.
void drawName(QPainter& painter, const Marked& marked, AppearanceChoice choice) {
    const bool isWhite = marked.gap == kNone;
    const bool isDark = choice == AppearanceChoice::dark;
    const double x = isWhite ? marked.white * 20 + 10 : 14 + marked.gap * 20 + 6;
    const double y = isWhite ? 15 : 37 - 0.15 * 62;
    const QFont font = textFont(12, true);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(marked.name);
    const double height = metrics.ascent() + metrics.descent();
    painter.translate(x, 100 - y);
    const QPointF topLeft(-width / 2, -height / 2);
    if (!isWhite) {
        painter.fillRect(QRectF(topLeft, QSizeF(width, height)),
                         QColor::fromRgbF(1, 1, 1, isDark ? 0.25f : 0.75f));
    }
    painter.setFont(font);
    painter.setPen(isWhite || isDark ? Qt::white : Qt::black);
    painter.drawText(topLeft + QPointF(0, metrics.ascent()), marked.name);
}

class PianoMarkViewTest : public testing::Test {
protected:
    PianoMarkViewTest() { mView.resize(kSize); }
    QImage picture(int key, double ratio = 1) {
        mView.setMidiNote(key);
        return pictureOf(mView, ratio);
    }
    PianoView mView;
};

TEST_F(PianoMarkViewTest, TheMarkedKeyIsRedAndNamed) {
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        for (const Marked& marked : kMarked) {
            for (const double ratio : {1.0, 2.0}) {
                SCOPED_TRACE(testing::Message()
                             << marked.name << ' ' << nameOf(colors.choice) << " at " << ratio);
                QImage expected = keyboard(colors, ratio, marked.white, marked.gap);
                QPainter painter(&expected);
                drawName(painter, marked, colors.choice);
                painter.end();
                EXPECT_TRUE(areSame(picture(marked.key, ratio), expected));
            }
        }
    }
}

TEST_F(PianoMarkViewTest, A0IsTheLeftmostAndC8TheRightmostKey) {
    EXPECT_EQ(extentOfColor(picture(9), kRed), QRect(1, 1, 18, 98));
    EXPECT_EQ(extentOfColor(picture(96), kRed), QRect(1021, 1, 18, 98));
}

TEST_F(PianoMarkViewTest, Bb0BeginsAtSevenTenthsOfAWhiteKey) {
    // Down to 37 points, inside an outline; one point below the top.
    EXPECT_EQ(extentOfColor(picture(10), kRed), QRect(14 + 1, 1 + 1, 12 - 2, 62 - 2));
}

TEST_F(PianoMarkViewTest, A4IsWhiteKey28WithItsNameAtFifteenPercent) {
    const QImage marked = picture(kA4);
    EXPECT_EQ(extentOfColor(marked, kRed), QRect(28 * 20 + 1, 1, 18, 98));
    const QRect name = extentOfColor(marked.copy(28 * 20 + 1, 65, 18, 34), kWhite);
    EXPECT_NEAR(name.y() + 65 + name.height() / 2.0, 100 - 15, 1.5);
    EXPECT_NEAR(name.x() + 1 + name.width() / 2.0, 10, 1);
    EXPECT_EQ(mView.accessibleValue(), "A4");
}

TEST_F(PianoMarkViewTest, KeysThatAreNotThereMarkAndNameNothing) {
    for (const int key : {5, 0, 8, 97, 100, 107, 120, kNone, -2}) {
        SCOPED_TRACE(key);
        ASSERT_NE(picture(kA4), keyboard(kColors[0], 1));
        EXPECT_TRUE(areSame(picture(key), keyboard(kColors[0], 1)));
        EXPECT_EQ(mView.accessibleValue(), "no key");
    }
}

/// Rows of pixels that are more white than red.
int rowsOfInk(const QImage& picture) {
    int rows = 0;
    for (int y = 0; y < picture.height(); ++y) {
        bool isInk = false;
        for (int x = 0; x < picture.width(); ++x)
            isInk = isInk || qGreen(picture.pixel(x, y)) > 127;
        rows += isInk ? 1 : 0;
    }
    return rows;
}

TEST_F(PianoMarkViewTest, NamesAreAsLargeAsBlackKeysAreWideAtAnyWidth) {
    constexpr double kRatio = 8;
    const double capHeight = QFontMetricsF(textFont(1000, true)).tightBoundingRect("A4").height();
    for (const int width : {780, 900, 950, 1000, 1075, 1300}) {
        SCOPED_TRACE(width);
        mView.resize(width, 100);
        const double kw = width / 52.0;
        const QRectF lowerPart(28 * kw + 1.5, 70, kw - 3, 28);
        const QRectF pixels(lowerPart.topLeft() * kRatio, lowerPart.size() * kRatio);
        EXPECT_NEAR(rowsOfInk(picture(kA4, kRatio).copy(pixels.toRect())),
                    capHeight / 1000 * 0.6 * kw * kRatio, 1.1);
    }
}

TEST_F(PianoMarkViewTest, ViewsTooSmallForNamesAreDrawn) {
    for (const QSize size : {QSize(1, 1), QSize(10, 3), QSize(40, 20)}) {
        mView.resize(size);
        testing::internal::CaptureStderr();
        EXPECT_NE(qAlpha(picture(kA4).pixel(0, 0)), 0);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
}

TEST_F(PianoMarkViewTest, RedrawsOnlyForAnotherKey) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    for (const int key : {kA4, 58, 100, kNone, 9}) {
        SCOPED_TRACE(key);
        mView.setMidiNote(key);
        EXPECT_EQ(paints.take(), 1);
        mView.setMidiNote(key);
        EXPECT_EQ(paints.take(), 0);
        EXPECT_EQ(mView.midiNote(), key);
    }
}

TEST_F(PianoMarkViewTest, TheMouseAndTheKeyboardDoNothing) {
    const QImage before = picture(kA4);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
                            QEvent::MouseButtonDblClick}) {
        QMouseEvent event(type, QPointF(10, 90), QPointF(10, 90), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&mView, &event);
        EXPECT_FALSE(event.isAccepted());
    }
    EXPECT_EQ(mView.midiNote(), kA4);
    EXPECT_EQ(mView.focusPolicy(), Qt::TabFocus) << "a click does not take the focus";
    EXPECT_EQ(pictureOf(mView), before);
}

TEST_F(PianoMarkViewTest, SaysTheKeyToThoseWhoCannotSeeIt) {
    const HeardValues heard;
    EXPECT_EQ(mView.accessibleValue(), "no key");
    EXPECT_EQ(mView.accessibleRole(), QAccessible::Graphic);
    PaintCounter loop(mView);
    for (const Marked& marked : kMarked) {
        PianoView view;
        view.setMidiNote(marked.key);
        EXPECT_EQ(view.accessibleValue(), marked.name);
        loop.take();
        EXPECT_EQ(std::exchange(HeardValues::values, {}), std::vector<QString>{marked.name});
        view.setMidiNote(marked.key);
        loop.take();
        EXPECT_EQ(HeardValues::values.size(), 0u) << "the same key";
    }
    mView.setAccessibleName(QStringLiteral("Keys"));
    mView.setMidiNote(61);
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&mView);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Value), "C#5");
    EXPECT_EQ(seen->text(QAccessible::Name), "Keys: C#5");
    EXPECT_EQ(seen->role(), QAccessible::Graphic);
}

} // namespace
} // namespace veltrano
