// SPDX-License-Identifier: GPL-3.0-or-later
// Views that follow the size of what holds them.
#include "displays/AutoResizeBox.h"
#include "displays/AutoResizeTextField.h"
#include "displays/AutoResizeView.h"
#include "displays/DisplayWidgets.h"
#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

// A parent that hears of every size at once, as a visible one does.
class Superview : public QWidget {
public:
    Superview(int width, int height) {
        setAttribute(Qt::WA_DontShowOnScreen);
        resize(width, height);
        show();
    }
};

TEST(AutoResizeView, SuperviewDoubled) {
    Superview superview(100, 50);
    AutoResizeView view(YUpRect{10.4, 5.2, 20.3, 8.9}, &superview);
    superview.resize(200, 100);
    // (20, 10, 40, 17) with y up
    EXPECT_EQ(view.geometry(), QRect(20, 100 - 10 - 17, 40, 17));
}

TEST(AutoResizeView, AlwaysStartsFromTheOriginalFrame) {
    Superview superview(100, 50);
    AutoResizeView view(YUpRect{10, 5, 21, 9}, &superview);
    EXPECT_EQ(view.geometry(), QRect(10, 36, 21, 9));
    for (const int width : {33, 250, 7, 100})
        superview.resize(width, width / 2);
    EXPECT_EQ(view.geometry(), QRect(10, 36, 21, 9));
}

TEST(AutoResizeView, FrameOfAnInterfaceFileIsItsGeometry) {
    Superview superview(100, 50);
    AutoResizeView view(&superview);
    view.setGeometry(10, 5, 20, 8);
    superview.resize(150, 100);
    EXPECT_EQ(view.geometry(), QRect(15, 10, 30, 16));
}

TEST(AutoResizeView, TakesTheBoundsOfTheFirstSuperviewOnly) {
    Superview first(100, 50);
    Superview second(200, 100);
    AutoResizeView view(YUpRect{10, 5, 20, 8}, nullptr);
    view.setParent(&first);
    EXPECT_EQ(view.geometry(), QRect(10, 37, 20, 8));
    view.setParent(&second);
    second.resize(400, 200); // four times the first
    EXPECT_EQ(view.geometry(), QRect(40, 200 - 20 - 32, 80, 32));
    const QRect before = view.geometry();
    first.resize(50, 25);
    EXPECT_EQ(view.geometry(), before) << "the former parent does not count any more";
}

TEST(AutoResizeView, SuperviewWithoutSizeLeavesTheFrame) {
    Superview superview(100, 50);
    superview.resize(0, 0);
    AutoResizeView view(YUpRect{1, 2, 3, 4}, &superview);
    superview.resize(100, 50);
    EXPECT_EQ(view.geometry(), QRect(1, 50 - 2 - 4, 3, 4));
}

TEST(AutoResizeView, SuperviewResizedBeforeItWasEverShown) {
    QWidget superview;
    superview.resize(100, 50);
    AutoResizeView view(YUpRect{10, 5, 20, 8}, &superview);
    AutoResizeTextField field(&superview);
    field.setGeometry(10, 5, 20, 8);
    superview.resize(200, 100);
    superview.setAttribute(Qt::WA_DontShowOnScreen);
    superview.show();
    EXPECT_EQ(view.geometry(), QRect(20, 74, 40, 16));
    EXPECT_EQ(field.geometry(), QRect(20, 10, 40, 16));
}

// The text field and the box resize alike.
template <class View>
class EveryScaledContent : public testing::Test {};
using Kinds = testing::Types<AutoResizeTextField, AutoResizeBox>;
TYPED_TEST_SUITE(EveryScaledContent, Kinds);

TYPED_TEST(EveryScaledContent, FrameIsNotRounded) {
    Superview superview(100, 50);
    TypeParam view(&superview);
    view.setGeometry(10, 36, 21, 9);
    EXPECT_EQ(view.frame(), (YUpRect{10, 5, 21, 9}));
    superview.resize(133, 60);
    const double x = static_cast<double>(1.33f);
    const double y = static_cast<double>(1.2f);
    EXPECT_EQ(view.frame(), (YUpRect{10 * x, 5 * y, 21 * x, 9 * y}));
    // x 13.3 ... 41.2, y 60 - 16.8 ... 60 - 6: the whole points that hold it, 60 - 6 being 53.99...
    EXPECT_EQ(view.geometry(), QRect(13, 43, 29, 11));
    EXPECT_EQ(view.contentSize(), QSizeF(21, 9));
    superview.resize(100, 50);
    EXPECT_EQ(view.geometry(), QRect(10, 36, 21, 9));
}

TYPED_TEST(EveryScaledContent, OriginalIsWhatIsThereAtTheFirstResize) {
    Superview superview(100, 50);
    TypeParam view(&superview);
    view.setGeometry(0, 0, 50, 25);
    view.setGeometry(10, 20, 30, 10);
    superview.resize(200, 100);
    EXPECT_EQ(view.geometry(), QRect(20, 40, 60, 20));
}

TEST(AutoResizeBox, BorderGrowsWithTheFrame) {
    Superview superview(100, 50);
    AutoResizeBox box(&superview);
    box.setGeometry(10, 10, 40, 20);
    const QRgb border = pictureOf(box).pixel(20, 0);
    const QRgb inside = pictureOf(box).pixel(20, 10);
    ASSERT_NE(border, inside);
    EXPECT_EQ(pictureOf(box).pixel(20, 1), inside);
    superview.resize(400, 200);
    const QImage picture = pictureOf(box);
    for (int y = 0; y < 4; ++y)
        EXPECT_EQ(picture.pixel(80, y), border) << y;
    EXPECT_EQ(picture.pixel(80, 4), inside);
    EXPECT_EQ(picture.pixel(0, 0), 0u) << "the corners are round";
}

TEST(DisplayWidgets, MakesEveryClassUnderItsName) {
    ArtworkFolder artwork;
    RecordingLog log;
    ImageLibrary images(artwork.path(), log);
    const WidgetMakers makers = displayWidgets(images);
    EXPECT_EQ(makers.size(), 8);
    for (auto maker = makers.begin(); maker != makers.end(); ++maker) {
        const std::unique_ptr<QWidget> widget((*maker)(nullptr));
        EXPECT_EQ(QStringLiteral("veltrano::") + maker.key(), widget->metaObject()->className());
    }
}

} // namespace
} // namespace veltrano
