// SPDX-License-Identifier: GPL-3.0-or-later
// The needle meter's pictures.
#include "displays/TuningMeterView.h"

#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr QRgb kNormal = 0xffff0000;
constexpr QRgb kInTune = 0xff00ff00;
constexpr QRgb kEndStop = 0xff0000ff;
constexpr QRgb kScale = 0xff000000;
constexpr QRgb kNone = 0;

struct MeterArtwork : ArtworkFolder {
    MeterArtwork() {
        addPlain("tuningmeter", 404, 100, "#ffffff");
        add("tuningscale", 404, 100, "<rect width=\"404\" height=\"10\" fill=\"#000000\"/>");
        addPlain("tuningneedle", 12, 94, "#ff0000");
        // drawn in the size of the normal needle all the same
        addPlain("intuneneedle", 24, 40, "#00ff00");
        addPlain("outtuneneedle", 6, 94, "#0000ff");
    }
};

class TuningMeterViewTest : public testing::Test {
protected:
    TuningMeterViewTest() {
        mView.resize(404, 100);
        mView.setEnabled(true);
    }

    MeterArtwork mArtwork;
    RecordingLog mLog;
    ImageLibrary mImages{mArtwork.path(), mLog};
    TuningMeterView mView{mImages};
};

TEST_F(TuningMeterViewTest, NeedleStandsWhereTheCentsSay) {
    const struct {
        const char* name;
        float cents;
        QRgb needle;
        int left; // of the pixels that are wholly covered
        int width;
    } kCases[] = {
        {"in the middle", 0, kInTune, 196, 12},
        {"10 sharp", 10, kNormal, 236, 12},
        {"10 flat", -10, kNormal, 156, 12},
        {"exactly the threshold", 3, kNormal, 208, 12},
        {"2.75 cents, on whole pixels", 2.75f, kInTune, 207, 12},
        {"between two pixels", 10.125f, kNormal, 237, 11}, // 236.5 ... 248.5
        {"60 sharp", 60, kEndStop, 392, 12},
        {"60 flat", -60, kEndStop, 0, 12},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        mView.setCent(c.cents);
        const QImage picture = pictureOf(mView);
        for (const QRgb needle : {kNormal, kInTune, kEndStop}) {
            // 94 high and 3 above the bottom; the scale covers its upper 7 rows
            const QRect place = needle == c.needle ? QRect(c.left, 10, c.width, 87) : QRect();
            EXPECT_EQ(extentOfColor(picture, needle), place);
        }
        EXPECT_EQ(extentOfColor(picture, kScale), QRect(0, 0, 404, 10)) << "scale over all";
    }
}

TEST_F(TuningMeterViewTest, EverythingGrowsWithTheView) {
    mView.setCent(10);
    const QRect doubled(472, 20, 24, 174);
    EXPECT_EQ(extentOfColor(pictureOf(mView, 2), kNormal), doubled) << "two pixels per point";
    mView.resize(808, 200);
    EXPECT_EQ(extentOfColor(pictureOf(mView), kNormal), doubled) << "twice the size";
    mView.resize(404, 200);
    EXPECT_EQ(extentOfColor(pictureOf(mView), kNormal), QRect(236, 20, 12, 174)) << "one axis";
}

TEST_F(TuningMeterViewTest, WithoutANeedleWhenDisabled) {
    mView.setEnabled(false);
    const QImage picture = pictureOf(mView);
    for (const QRgb needle : {kNormal, kInTune, kEndStop}) {
        EXPECT_TRUE(extentOfColor(picture, needle).isEmpty());
    }
    EXPECT_EQ(extentOfColor(picture, kScale), QRect(0, 0, 404, 10));
    EXPECT_EQ(picture.pixel(202, 50), 0xffffffffu);
}

TEST_F(TuningMeterViewTest, ThresholdDecidesTheNeedle) {
    mView.setCent(10);
    mView.setThreshold(11);
    EXPECT_FALSE(extentOfColor(pictureOf(mView), kInTune).isEmpty());
    mView.setThreshold(10);
    EXPECT_FALSE(extentOfColor(pictureOf(mView), kNormal).isEmpty());
}

TEST_F(TuningMeterViewTest, RedrawsOnlyOnAChange) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    const struct {
        const char* name;
        std::function<void()> set;
        int paints;
    } kCases[] = {
        {"3 is the threshold at creation", [&] { mView.setThreshold(3); }, 0},
        {"another threshold", [&] { mView.setThreshold(5); }, 1},
        {"the same threshold", [&] { mView.setThreshold(5); }, 0},
        {"0 cents at creation", [&] { mView.setCent(0); }, 0},
        {"other cents", [&] { mView.setCent(1.5f); }, 1},
        {"the same cents", [&] { mView.setCent(1.5f); }, 0},
        {"enabled already", [&] { mView.setEnabled(true); }, 0},
        {"disabled", [&] { mView.setEnabled(false); }, 1},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        c.set();
        EXPECT_EQ(paints.take(), c.paints);
    }
}

TEST_F(TuningMeterViewTest, DoesWithoutArtwork) {
    ArtworkFolder nothing;
    ImageLibrary none(nothing.path(), mLog);
    TuningMeterView view(none);
    view.resize(404, 100);
    view.setEnabled(true);
    EXPECT_EQ(pictureOf(view).pixel(202, 50), kNone);
}

TEST_F(TuningMeterViewTest, SaysTheCents) {
    mView.setCent(-12.34f);
    EXPECT_EQ(mView.accessibleValue(), "-12.3 cents");
    mView.setEnabled(false);
    EXPECT_EQ(mView.accessibleValue(), "off");
}

} // namespace
} // namespace veltrano
