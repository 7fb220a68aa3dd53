// SPDX-License-Identifier: GPL-3.0-or-later
// What the analysis views share, and the interface files that they are in.
#include "analysis/AnalysisWidgets.h"

#include "analysis/HilbertView.h"
#include "analysis/MVCommon.h"
#include "analysis/PianoView.h"
#include "tests/analysis/PartialsRig.h"

#include <QBuffer>
#include <QImageReader>

namespace veltrano {
namespace {

TEST(MVCommonViewTest, TheAppearanceIsAskedEachTime) {
    EXPECT_FALSE(MVCommon::appearanceIsDark());
    {
        const InColors in(AppearanceChoice::dark);
        EXPECT_TRUE(MVCommon::appearanceIsDark());
    }
    EXPECT_FALSE(MVCommon::appearanceIsDark());
}

TEST(MVCommonViewTest, GreysAreSharesOfWhite) {
    EXPECT_EQ(grey(0).rgba(), kBlack);
    EXPECT_EQ(grey(1).rgba(), kWhite);
    EXPECT_EQ(grey(0.5).rgba(), kGrey);
    EXPECT_EQ(grey(1.0 / 3).rgba(), kDarkGrey);
    EXPECT_EQ(grey(0.15).rgba(), 0xff262626);
    EXPECT_EQ(grey(0.85).rgba(), 0xffd9d9d9);
    EXPECT_EQ(grey(1, 0.25).rgba(), 0x40ffffffu);
    EXPECT_EQ(grey(0, 0.75).rgba(), 0xbf000000u);
}

TEST(MVCommonViewTest, FramesLieJustInsideTheirRectangle) {
    struct Case {
        double ratio;
        int line; ///< [pixels]
    };
    for (const Case& c : {Case{0.5, 1}, {1, 1}, {1.25, 1}, {1.5, 2}, {2, 2}, {3, 3}}) {
        SCOPED_TRACE(c.ratio);
        const QImage picture = drawn(QSize(120, 120), 1, [&c](QPainter& painter) {
            painter.scale(c.ratio, c.ratio);
            frameRect(painter, QRectF(8, 12, 20, 16), QColor(kRed));
        });
        const QRect outer(static_cast<int>(8 * c.ratio), static_cast<int>(12 * c.ratio),
                          static_cast<int>(20 * c.ratio), static_cast<int>(16 * c.ratio));
        const QRect inner = outer.adjusted(c.line, c.line, -c.line, -c.line);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                ASSERT_EQ(picture.pixel(x, y),
                          outer.contains(x, y) && !inner.contains(x, y) ? kRed : 0)
                    << x << ", " << y;
            }
        }
    }
}

TEST(MVCommonViewTest, LinesOfFramesAreAsWideAsAPointInEachDirection) {
    const QImage picture = drawn(QSize(40, 80), 1, [](QPainter& painter) {
        painter.scale(1.5, 4);
        frameRect(painter, QRectF(2, 3, 10, 8), QColor(kRed));
    });
    const QRect outer(3, 12, 15, 32);
    const QRect inner = outer.adjusted(2, 4, -2, -4);
    EXPECT_TRUE(areSame(picture, drawn(QSize(40, 80), 1, [&](QPainter& painter) {
                            painter.fillRect(outer, QColor(kRed));
                            painter.setCompositionMode(QPainter::CompositionMode_Source);
                            painter.fillRect(inner, Qt::transparent);
                        })));
}

TEST(MVCommonViewTest, APointOnPixelsIsTheNearestCornerAndTheNearestWidth) {
    struct Case {
        double across, down; ///< [pixels per point]
        QPointF corner;
        QRectF pixels;
    };
    for (const Case& c : {Case{1, 1, {3, 4}, {3, 4, 1, 1}},
                          {1, 1, {3.4, 4.6}, {3, 5, 1, 1}},
                          {1, 1, {3.6, 4.4}, {4, 4, 1, 1}},
                          {2, 2, {3.2, 4.3}, {6, 9, 2, 2}},
                          {1.5, 1.5, {3, 4}, {5, 6, 2, 2}},
                          {1.25, 3, {3, 4.1}, {4, 12, 1, 3}},
                          {3, 1.25, {3, 4.1}, {9, 5, 3, 1}},
                          {0.4, 0.4, {5, 10}, {2, 4, 1, 1}}}) {
        drawn(QSize(40, 40), 1, [&c](QPainter& painter) {
            painter.scale(c.across, c.down);
            const QRectF seen = painter.deviceTransform().mapRect(pointOnPixels(painter, c.corner));
            EXPECT_NEAR(seen.x(), c.pixels.x(), 1e-9);
            EXPECT_NEAR(seen.y(), c.pixels.y(), 1e-9);
            EXPECT_NEAR(seen.width(), c.pixels.width(), 1e-9);
            EXPECT_NEAR(seen.height(), c.pixels.height(), 1e-9);
        });
    }
}

TEST(MVCommonViewTest, APictureBecomesAPngOfTheSamePixels) {
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_RGB32}) {
        QImage picture(31, 17, format);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixel(x, y, qRgba(x * 8, y * 15, x * y % 256, 255 - x));
        }
        picture.setDevicePixelRatio(2);
        QByteArray png = pngRepresentation(picture);
        EXPECT_TRUE(png.startsWith("\x89PNG\r\n\x1a\n"));
        QBuffer buffer(&png);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), "png");
        EXPECT_TRUE(areSame(reader.read(), picture));
    }
}

TEST(MVCommonViewTest, APngTellsItsPixelsPerLength) {
    // 96 points to the inch of 25.4 mm.
    for (const auto& [ratio, perMetre] : {std::pair(1.0, 3780), {1.5, 5669}, {2.0, 7559}}) {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.setDevicePixelRatio(ratio);
        const QImage read = QImage::fromData(pngRepresentation(picture), "PNG");
        EXPECT_EQ(read.dotsPerMeterX(), perMetre);
        EXPECT_EQ(read.dotsPerMeterY(), perMetre);
        EXPECT_TRUE(areSame(withDensity(picture), picture));
        EXPECT_EQ(withDensity(picture).devicePixelRatio(), ratio);
        EXPECT_EQ(withDensity(picture).dotsPerMeterX(), perMetre);
    }
}

TEST(MVCommonViewTest, APictureOfAViewBecomesAPngOfTheSamePixels) {
    PianoView view;
    view.resize(300, 60);
    view.setMidiNote(57);
    const QImage picture = pictureOf(view, 2);
    EXPECT_TRUE(areSame(QImage::fromData(pngRepresentation(picture), "PNG"), picture));
}

TEST(MVCommonViewTest, AnImageWithoutPixelsBecomesNothing) {
    EXPECT_TRUE(pngRepresentation(QImage()).isEmpty());
    EXPECT_TRUE(pngRepresentation(QImage(0, 5, QImage::Format_ARGB32)).isEmpty());
}

class AnalysisWidgetsViewTest : public PartialsTest {
protected:
    std::unique_ptr<QWidget> load(const char* name) {
        QString error;
        auto window = loadInterfaceFile(
            QStringLiteral(VELTRANO_SOURCE_RESOURCES "/%1.ui").arg(QLatin1String(name)),
            analysisWidgets({mPreferences, mNotifications, &mSpeech}), &error);
        EXPECT_NE(window, nullptr) << error.toStdString();
        return window;
    }
};

TEST_F(AnalysisWidgetsViewTest, InterfaceFilesHoldTheViewsWithTheirNames) {
    struct Case {
        const char* file;
        const char* className;
        const char* name; ///< of the window and to assistive technologies
        QSize size;
    };
    AccessibleReadout::install();
    for (const Case& c : {Case{"PartialsWindow", "veltrano::PartialView", "Partials", {781, 207}},
                          {"HilbertWindow", "veltrano::HilbertView", "Hilbert Scope", {320, 320}},
                          {"PianoWindow", "veltrano::PianoView", "Piano Keyboard", {780, 96}}}) {
        SCOPED_TRACE(c.file);
        const auto window = load(c.file);
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->windowTitle(), c.name);
        EXPECT_EQ(window->size(), c.size);
        const auto views = window->findChildren<QWidget*>();
        ASSERT_EQ(views.size(), 1);
        EXPECT_STREQ(views[0]->metaObject()->className(), c.className);
        QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(views[0]);
        ASSERT_NE(seen, nullptr);
        EXPECT_TRUE(seen->text(QAccessible::Name).startsWith(QLatin1String(c.name) + ": "));
        window->ensurePolished();
        pictureOf(*window);
        EXPECT_EQ(views[0]->size(), c.size) << "fills the window";
        window->show();
        window->activateWindow();
        QCoreApplication::processEvents();
        views[0]->clearFocus(); // it has it, but not by a key
        views[0]->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(views[0]->grab().toImage().pixelColor(0, views[0]->height() / 2),
                  views[0]->palette().color(QPalette::Highlight))
            << "the focus is seen";
    }
}

TEST_F(AnalysisWidgetsViewTest, TheViewsWorkWithTheirPorts) {
    const auto partials = load("PartialsWindow");
    const auto scope = load("HilbertWindow");
    ASSERT_TRUE(partials && scope);
    mNotifications.post(notification::kPartialsChanged, published({partialAt(57)}));
    pictureOf(*partials);
    auto* const view = partials->findChild<PartialView*>();
    ASSERT_EQ(view->records().size(), 1u);
    view->iaSpeakStatus();
    PaintCounter(*view).take();
    EXPECT_EQ(mSpeech.said, std::vector<std::string>{"one partial: ay 4, in tune. "});
    mPreferences.setHilbertGrid(false);
    const QImage without = pictureOf(*scope);
    mPreferences.setHilbertGrid(true);
    EXPECT_NE(pictureOf(*scope), without);
}

} // namespace
} // namespace veltrano
