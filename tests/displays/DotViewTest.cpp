// SPDX-License-Identifier: GPL-3.0-or-later
// The lights' pictures.
#include "displays/DotView.h"

#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr QRgb kGreen = 0xff00ff00;
constexpr QRgb kRed = 0xffff0000;

class DotViewTest : public testing::Test {
protected:
    DotViewTest() {
        mArtwork.addPlain("green16x16", 16, 16, "#00ff00");
        mArtwork.add("red24x24", 24, 24, "<rect width=\"12\" height=\"24\" fill=\"#ff0000\"/>");
    }

    ArtworkFolder mArtwork;
    RecordingLog mLog;
    ImageLibrary mImages{mArtwork.path(), mLog};
};

// The three kinds of lights behave alike.
template <class View>
class EveryDotView : public DotViewTest {};
using Kinds = testing::Types<InTuneDotView, OutOfTuneDotView, LevelDotView>;
TYPED_TEST_SUITE(EveryDotView, Kinds);

TYPED_TEST(EveryDotView, StretchesItsImageToItsBounds) {
    TypeParam view;
    view.resize(40, 20);
    EXPECT_EQ(extentOfColor(pictureOf(view), kGreen), QRect()) << "no image yet";
    view.setImage(this->mImages.imageNamed("green16x16"));
    EXPECT_EQ(extentOfColor(pictureOf(view), kGreen), QRect(0, 0, 40, 20));
    EXPECT_EQ(extentOfColor(pictureOf(view, 2), kGreen), QRect(0, 0, 80, 40));
    view.setImage(this->mImages.imageNamed("red24x24"));
    EXPECT_EQ(extentOfColor(pictureOf(view), kRed), QRect(0, 0, 20, 20)) << "left half";
    view.setImage(nullptr);
    EXPECT_EQ(extentOfColor(pictureOf(view), kRed), QRect());
}

TYPED_TEST(EveryDotView, RedrawsOnlyForAnotherImage) {
    TypeParam view;
    view.resize(40, 20);
    view.show();
    PaintCounter paints(view);
    paints.take();
    view.setImage(this->mImages.imageNamed("green16x16"));
    EXPECT_EQ(paints.take(), 1);
    view.setImage(this->mImages.imageNamed("green16x16"));
    EXPECT_EQ(paints.take(), 0);
    view.setImage(this->mImages.imageNamed("red24x24"));
    EXPECT_EQ(paints.take(), 1);
}

TEST_F(DotViewTest, SaysWhatItsColourMeans) {
    for (const char* name : {"gray16x16", "yellow16x16", "red16x16", "blue28x28"})
        mArtwork.addPlain(name, 16, 16, "#808080");
    InTuneDotView inTune;
    OutOfTuneDotView outOfTune;
    LevelDotView level;
    const struct {
        DotView& view;
        const char *image, *says;
    } kCases[] = {
        {inTune, "gray16x16", "off"},    {inTune, "green16x16", "yes"},
        {inTune, "blue28x28", "no"},     {outOfTune, "gray16x16", "off"},
        {outOfTune, "red24x24", "on"},   {level, "gray16x16", "off"},
        {level, "green16x16", "on"},     {level, "yellow16x16", "peak"},
        {level, "red16x16", "overload"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.image);
        row.view.setImage(nullptr);
        EXPECT_EQ(row.view.accessibleValue(), "");
        EXPECT_FALSE(row.view.isLit());
        row.view.setImage(mImages.imageNamed(row.image));
        EXPECT_EQ(row.view.accessibleValue(), row.says);
        EXPECT_EQ(row.view.isLit(), std::string_view(row.says) != "off");
    }
}

TEST_F(DotViewTest, KindsCanBeToldApart) {
    EXPECT_STREQ(InTuneDotView().metaObject()->className(), "veltrano::InTuneDotView");
    EXPECT_STREQ(OutOfTuneDotView().metaObject()->className(), "veltrano::OutOfTuneDotView");
    EXPECT_STREQ(LevelDotView().metaObject()->className(), "veltrano::LevelDotView");
}

} // namespace
} // namespace veltrano
