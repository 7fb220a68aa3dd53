// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that grow with the window.
#include "displays/AutoResizeTextField.h"

#include "tests/support/Pictures.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

const QString kLong = "Kirnberger III (1779), modified after the manuscript";

// Where there is any ink.
QRect inkOf(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) > 127) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

class AutoResizeTextFieldTest : public testing::Test {
protected:
    AutoResizeTextFieldTest() {
        mSuperview.setAttribute(Qt::WA_DontShowOnScreen);
        mSuperview.resize(200, 100);
        mSuperview.show();
        mField = new AutoResizeTextField(&mSuperview);
        mField->setGeometry(10, 10, 100, 40);
        mField->setPixelSize(20);
    }

    QWidget mSuperview;
    AutoResizeTextField* mField;
};

TEST_F(AutoResizeTextFieldTest, FontScalesWithTheWindow) {
    mField->setText("HH");
    const QRect small = inkOf(pictureOf(*mField));
    ASSERT_GT(small.height(), 10);
    mSuperview.resize(600, 300);
    const QRect large = inkOf(pictureOf(*mField));
    EXPECT_NEAR(large.width(), 3 * small.width(), 3);
    EXPECT_NEAR(large.height(), 3 * small.height(), 3);
    EXPECT_NEAR(large.left(), 3 * small.left(), 3);
    EXPECT_NEAR(large.top(), 3 * small.top(), 3);
}

TEST_F(AutoResizeTextFieldTest, FrameBetweenPointsPlacesTheTextBetweenPixels) {
    mField->setText("H");
    mSuperview.resize(250, 125); // frame x 12.5; the widget begins at 12
    ASSERT_EQ(mField->x(), 12);
    const QImage picture = pictureOf(*mField, 4);
    AutoResizeTextField exact;
    exact.resize(100, 40);
    exact.setPixelSize(20);
    exact.setText("H");
    const QRect reference = inkOf(pictureOf(exact, 5));          // 1.25 x 4
    EXPECT_NEAR(inkOf(picture).left(), reference.left() + 2, 1); // half a point of four pixels
}

TEST_F(AutoResizeTextFieldTest, Alignment) {
    mField->setText("HH");
    mField->setProperty("alignment", QVariant::fromValue(Qt::Alignment(Qt::AlignRight)));
    EXPECT_GT(inkOf(pictureOf(*mField)).right(), 94);
    mField->setProperty("alignment", QVariant::fromValue(Qt::Alignment(Qt::AlignHCenter)));
    EXPECT_NEAR(inkOf(pictureOf(*mField)).center().x(), 50, 1);
    mField->setProperty("alignment", QVariant::fromValue(Qt::Alignment(Qt::AlignLeft)));
    EXPECT_LT(inkOf(pictureOf(*mField)).left(), 6);
}

TEST_F(AutoResizeTextFieldTest, CapitalsAreCentredOrStandOnTheGivenBaseline) {
    mField->setText("H");
    EXPECT_NEAR(inkOf(pictureOf(*mField)).center().y(), 20, 1);
    mField->setProperty("baseline", 5.0);
    EXPECT_NEAR(inkOf(pictureOf(*mField)).bottom(), 34, 1);
}

TEST_F(AutoResizeTextFieldTest, LongWordsAreElidedAndWholeInTheToolTip) {
    const struct {
        const char* name;
        QString text, tip, toolTip;
        bool elided;
    } kCases[] = {
        {"short", "Equal", "", "", false},
        {"short with a tip", "Equal", "all alike", "all alike", false},
        {"long", kLong, "", kLong, true},
        {"long with a tip", kLong, "by hand", kLong + "\nby hand", true},
        {"short again", "Equal", "", "", false},
        {"empty", "", "tip", "tip", false},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        mField->setTip(c.tip);
        mField->setText(c.text);
        EXPECT_EQ(mField->text(), c.text);
        EXPECT_EQ(mField->tip(), c.tip);
        EXPECT_EQ(mField->toolTip(), c.toolTip);
        EXPECT_EQ(mField->shownText() != c.text, c.elided);
        EXPECT_LE(inkOf(pictureOf(*mField)).right(), 99);
    }
}

TEST_F(AutoResizeTextFieldTest, ElidesAtTheSamePlaceAtEveryScale) {
    mField->setText(kLong);
    const QString shown = mField->shownText();
    for (const int width : {333, 1000, 120}) {
        mSuperview.resize(width, width / 2);
        EXPECT_EQ(mField->shownText(), shown);
    }
    mField->setElideMode(Qt::ElideMiddle);
    EXPECT_NE(mField->shownText(), shown);
    EXPECT_TRUE(mField->shownText().endsWith("t"));
}

TEST_F(AutoResizeTextFieldTest, ElisionFollowsTheRoomAndTheFont) {
    mField->show();
    mField->setText("Concert grand");
    EXPECT_NE(mField->shownText(), mField->text());
    mField->setPixelSize(8);
    EXPECT_EQ(mField->toolTip(), "");
    mField->setPixelSize(20);
    EXPECT_EQ(mField->toolTip(), "Concert grand");
    mField->resize(190, 40);
    EXPECT_EQ(mField->toolTip(), "");
}

TEST_F(AutoResizeTextFieldTest, FiguresAreNeverCut) {
    mField->setFigures(true);
    mField->setText("-123456789.123");
    EXPECT_EQ(mField->shownText(), mField->text());
    const QRect ink = inkOf(pictureOf(*mField));
    EXPECT_GE(ink.left(), 0);
    EXPECT_LE(ink.right(), 99);
    EXPECT_GE(ink.width(), 92) << "made narrower, not shorter";
    EXPECT_EQ(mField->toolTip(), "");
}

TEST_F(AutoResizeTextFieldTest, AnEqualTextDoesNothing) {
    mField->setText("440.000");
    mField->show();
    PaintCounter paints(*mField);
    paints.take();
    mField->setText("440.000");
    EXPECT_EQ(paints.take(), 0);
    mField->setText("440.001");
    EXPECT_EQ(paints.take(), 1);
}

TEST_F(AutoResizeTextFieldTest, TakesItsColourFromThePalette) {
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(0, 0, 255));
    mField->setFigures(true);
    mField->setText("---");
    mField->setPalette(palette);
    EXPECT_FALSE(extentOfColor(pictureOf(*mField, 4), 0xff0000ff).isEmpty());
    mField->setProperty("caption", true);
    EXPECT_TRUE(extentOfColor(pictureOf(*mField, 4), 0xff0000ff).isEmpty());
}

TEST_F(AutoResizeTextFieldTest, IsPlainTextWhateverItHolds) {
    mField->setText("<b>HH</b>");
    mField->setPixelSize(10);
    EXPECT_EQ(mField->shownText(), "<b>HH</b>");
    EXPECT_EQ(mField->accessibleValue(), "<b>HH</b>");
}

} // namespace
} // namespace veltrano
