// SPDX-License-Identifier: GPL-3.0-or-later
// Artwork by name, and the program's own artwork.
#include "platform/desktop/ImageLibrary.h"

#include "platform/desktop/Appearance.h"
#include "tests/support/Contrast.h"
#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <QPainter>
#include <functional>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kBlue = 0xff0000ff;

class ImageLibraryTest : public testing::Test {
protected:
    ~ImageLibraryTest() override { Appearance::choose(AppearanceChoice::light); }

    static QImage drawn(double ratio, const std::function<void(QPainter&)>& draw) {
        QImage picture(static_cast<int>(40 * ratio), static_cast<int>(40 * ratio),
                       QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        draw(painter);
        return picture;
    }

    ArtworkFolder mArtwork;
    RecordingLog mLog;
    ImageLibrary mImages{mArtwork.path(), mLog};
};

TEST_F(ImageLibraryTest, TheSameObjectForTheSameName) {
    mArtwork.addPlain("red16x16", 16, 12, "#ff0000");
    const ImageRef image = mImages.imageNamed("red16x16");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->name(), "red16x16");
    EXPECT_EQ(image->size(), QSizeF(16, 12));
    EXPECT_EQ(mImages.imageNamed("red16x16"), image);
    EXPECT_TRUE(mLog.details.empty());
}

TEST_F(ImageLibraryTest, MissingOrBrokenArtworkIsNullAndOneLogLine) {
    mArtwork.write("broken.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" wi");
    mArtwork.write("empty.svg", "");
    for (const char* name : {"missing", "broken", "empty", ""}) {
        SCOPED_TRACE(name);
        mLog.details.clear();
        EXPECT_EQ(mImages.imageNamed(name), nullptr);
        EXPECT_EQ(mImages.imageNamed(name), nullptr);
        EXPECT_EQ(mLog.details,
                  std::vector<std::string>{"no artwork in " + mArtwork.path().toStdString() + "/" +
                                           name + ".svg"});
    }
}

TEST_F(ImageLibraryTest, DrawsIntoTheNearestDevicePixels) {
    mArtwork.addPlain("red", 10, 10, "#ff0000");
    const ImageRef image = mImages.imageNamed("red");
    const struct {
        const char* name;
        double ratio;
        QRectF target;
        QRect pixels;
    } kCases[] = {
        {"natural size", 1, {5, 6, 10, 10}, {5, 6, 10, 10}},
        {"stretched", 1, {5, 6, 20, 7}, {5, 6, 20, 7}},
        {"two pixels per point", 2, {5, 6, 10, 10}, {10, 12, 20, 20}},
        {"one and a half, at an odd place", 1.5, {5, 7, 10, 10}, {8, 11, 15, 15}},
        {"between pixels", 1, {5.4, 6.6, 10, 10}, {5, 7, 10, 10}},
        {"smaller than a pixel", 1, {5, 6, 0.1, 0.1}, {5, 6, 1, 1}},
        {"nothing", 1, {5, 6, 0, 10}, {}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const QImage picture = drawn(c.ratio, [&](QPainter& p) { image->draw(p, c.target); });
        EXPECT_EQ(extentOfColor(picture, kRed), c.pixels);
        int partly = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QRgb pixel = picture.pixel(x, y);
                if (pixel != 0 && pixel != kRed) ++partly;
            }
        }
        EXPECT_EQ(partly, 0) << "the edges are sharp";
    }
}

TEST_F(ImageLibraryTest, DrawsBetweenPixelsWhenAsked) {
    mArtwork.addPlain("red", 10, 10, "#ff0000");
    const QImage picture = drawn(1, [&](QPainter& painter) {
        mImages.imageNamed("red")->drawBetweenPixels(painter, {5.25, 6, 10, 10});
    });
    EXPECT_EQ(extentOfColor(picture, kRed), QRect(6, 6, 9, 10));
    EXPECT_NEAR(qAlpha(picture.pixel(5, 10)), 255 * 0.75, 3);
    EXPECT_NEAR(qAlpha(picture.pixel(15, 10)), 255 * 0.25, 3);
}

TEST_F(ImageLibraryTest, RenderingsAreKeptAndSharpAtEverySize) {
    mArtwork.add("half", 10, 10, "<rect width=\"5\" height=\"10\" fill=\"#ff0000\"/>");
    const ImageRef image = mImages.imageNamed("half");
    for (const int size : {10, 200, 34, 16, 600, 10}) {
        const QImage picture = image->rendered({size, size});
        EXPECT_EQ(extentOfColor(picture, kRed), QRect(0, 0, size / 2, size));
        EXPECT_EQ(image->rendered({size, size}).constBits(), picture.constBits());
    }
    EXPECT_TRUE(image->rendered({0, 5}).isNull());
}

TEST_F(ImageLibraryTest, DarkVariantFollowsTheAppearance) {
    mArtwork.addPlain("both", 10, 10, "#ff0000");
    mArtwork.addPlain("both-dark", 10, 10, "#0000ff");
    mArtwork.addPlain("one", 10, 10, "#ff0000");
    const ImageRef both = mImages.imageNamed("both");
    const ImageRef one = mImages.imageNamed("one");
    EXPECT_EQ(both->rendered({4, 4}).pixel(1, 1), kRed);
    Appearance::choose(AppearanceChoice::dark);
    EXPECT_EQ(both->rendered({4, 4}).pixel(1, 1), kBlue);
    EXPECT_EQ(one->rendered({4, 4}).pixel(1, 1), kRed);
    const QImage moved = drawn(1, [&](QPainter& painter) {
        both->drawBetweenPixels(painter, {0, 0, 9, 9});
    });
    EXPECT_EQ(moved.pixel(4, 4), kBlue);
    Appearance::choose(AppearanceChoice::light);
    EXPECT_EQ(both->rendered({4, 4}).pixel(1, 1), kRed);
    EXPECT_EQ(mImages.imageNamed("both"), both) << "still the same object";
}

// The artwork of the program.

constexpr char kOwnImages[] = VELTRANO_SOURCE_RESOURCES "/images";

TEST_F(ImageLibraryTest, OwnArtworkHasTheSizesThatTheViewsCountOn) {
    const struct {
        const char* name;
        QSizeF size;
    } kCases[] = {
        {"gray16x16", {16, 16}},      {"green16x16", {16, 16}},
        {"red16x16", {16, 16}},       {"yellow16x16", {16, 16}},
        {"green28x28", {28, 28}},     {"blue28x28", {28, 28}},
        {"gray28x28", {28, 28}},      {"gray24x24", {24, 24}},
        {"red24x24", {24, 24}},       {"strobeviewbackground", {404, 48}},
        {"strobeviewbar", {400, 40}}, {"tuningmeter", {404, 100}},
        {"tuningscale", {404, 100}},  {"tuningneedle", {18, 94}},
        {"intuneneedle", {18, 94}},   {"outtuneneedle", {18, 94}},
    };
    ImageLibrary own(kOwnImages, mLog);
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const ImageRef image = own.imageNamed(c.name);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), c.size);
        const ImageRef dark = own.imageNamed(QString(c.name) + "-dark");
        EXPECT_TRUE(!dark || dark->size() == c.size);
    }
}

// What a light looks like on the window: the colour that stands out most.
double standingOut(const NamedImage& image, const QColor& window) {
    const QImage picture = image.rendered({64, 64});
    double best = 0;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.alpha() == 255) best = std::max(best, contrast(color, window));
        }
    }
    return best;
}

TEST_F(ImageLibraryTest, OwnLightsAndNeedlesStandOutInLightAndDark) {
    ImageLibrary own(kOwnImages, mLog);
    for (const auto choice : {AppearanceChoice::light, AppearanceChoice::dark}) {
        Appearance::choose(choice);
        const QColor window = Appearance::palette(choice).color(QPalette::Window);
        for (const char* name : {"gray16x16", "green16x16", "yellow16x16", "red16x16", "gray28x28",
                                 "green28x28", "blue28x28", "gray24x24", "red24x24", "tuningneedle",
                                 "intuneneedle", "outtuneneedle"}) {
            EXPECT_GE(standingOut(*own.imageNamed(name), window), 3.0)
                << name << (choice == AppearanceChoice::dark ? " dark" : " light");
        }
        // lit and unlit differ in the middle of the lamp, whatever the colour
        for (const auto& [lit, unlit] :
             {std::pair{"green16x16", "gray16x16"}, std::pair{"red24x24", "gray24x24"},
              std::pair{"blue28x28", "gray28x28"}}) {
            const QColor on = own.imageNamed(lit)->rendered({64, 64}).pixelColor(14, 32);
            const QColor off = own.imageNamed(unlit)->rendered({64, 64}).pixelColor(14, 32);
            EXPECT_GE(contrast(on, off), 2.0) << lit;
        }
    }
}

} // namespace
} // namespace veltrano
