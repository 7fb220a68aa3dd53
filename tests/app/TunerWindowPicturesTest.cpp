// SPDX-License-Identifier: GPL-3.0-or-later
// What the whole tuner window looks like.
#include "app/TunerWindow.h"

#include "app/ProportionalStage.h"
#include "displays/AutoResizeTextField.h"
#include "displays/DotView.h"
#include "displays/StrobeView.h"
#include "displays/TuningMeterView.h"
#include "platform/desktop/Appearance.h"
#include "platform/desktop/DrawingPass.h"
#include "tests/support/RecordingLog.h"

#include <QCoreApplication>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace veltrano {
namespace {

class TunerWindowPictures : public testing::Test {
protected:
    TunerWindowPictures() {
        for (std::size_t i = 0; i < mSamples.size(); ++i) {
            mSamples[i] = static_cast<float>(std::sin(0.0627 * static_cast<double>(i)));
        }
    }
    ~TunerWindowPictures() override { Appearance::choose(AppearanceChoice::light); }

    std::unique_ptr<TunerWindow> makeWindow() {
        auto window = TunerWindow::create(mResources, mImages, mLog);
        for (int i = 0; i < kTunerLights; ++i) {
            window->setLight(static_cast<TunerLight>(i), LightImage::gray24x24);
        }
        window->setMeterEnabled(true);
        window->setStrobeSampleRate(44100);
        window->setStrobeFrequency(440);
        return window;
    }
    // Without an owner: the samples are this fixture's.
    FrameRef frame() const { return {FrameRef(), &mFrame}; }

    // In points.
    static QRect frameOf(const TunerWindow& window, const QWidget& view) {
        return {view.mapTo(&window, QPoint(0, 0)), view.size()};
    }
    // In pixels.
    static QRect placeOf(const TunerWindow& window, const QWidget& view) {
        const double ratio = window.devicePixelRatioF();
        const QRectF place(frameOf(window, view));
        return QRectF(place.topLeft() * ratio, place.size() * ratio).toAlignedRect();
    }

    ResourceFolder mResources{VELTRANO_SOURCE_RESOURCES};
    RecordingLog mLog;
    ImageLibrary mImages{mResources.images(), mLog};
    std::vector<float> mSamples = std::vector<float>(5393);
    Frame mFrame{mSamples, 5393};
};

// Where two pictures differ.
QRect difference(const QImage& a, const QImage& b) {
    QRect extent;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

TEST_F(TunerWindowPictures, EveryOutletIsVisibleWhereItLies) {
    const auto window = makeWindow();
    for (int i = 0; i < kTunerTexts; ++i) {
        SCOPED_TRACE(i);
        const auto field = static_cast<TunerText>(i);
        const QImage before = drawingPass(*window);
        window->setText(field, "4");
        const QRect changed = difference(before, drawingPass(*window));
        EXPECT_FALSE(changed.isEmpty());
        EXPECT_TRUE(placeOf(*window, window->outlets().text(field)).contains(changed));
    }
    for (int i = 0; i < kTunerLights; ++i) {
        SCOPED_TRACE(i);
        const auto light = static_cast<TunerLight>(i);
        const QImage before = drawingPass(*window);
        window->setLight(light, LightImage::red24x24);
        const QRect changed = difference(before, drawingPass(*window));
        EXPECT_FALSE(changed.isEmpty());
        EXPECT_TRUE(placeOf(*window, window->outlets().light(light)).contains(changed));
    }
    const QImage before = drawingPass(*window);
    window->setMeterCent(30);
    const QRect changed = difference(before, drawingPass(*window));
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_TRUE(placeOf(*window, *window->outlets().meter).contains(changed));
}

TEST_F(TunerWindowPictures, OneDrawingPassMovesTheStrobeOnce) {
    const auto one = makeWindow();
    const auto other = makeWindow();
    one->setStrobeData(frame());
    other->setStrobeData(frame());
    const QImage first = drawingPass(*one);
    const QImage second = drawingPass(*one);
    EXPECT_NE(first, second);
    EXPECT_EQ(drawingPass(*other), first);
    EXPECT_EQ(drawingPass(*other), second);
    const QRect changed = difference(first, second);
    EXPECT_TRUE(placeOf(*one, *one->outlets().strobe).contains(changed));
}

TEST_F(TunerWindowPictures, NothingOverlapsOrSticksOutAtAnySize) {
    const auto window = makeWindow();
    for (const double factor : {1.0, 1.21, 1.5, 1.77, 2.0, 3.3}) {
        SCOPED_TRACE(factor);
        window->setScale(factor);
        drawingPass(*window);
        const QRect contents(QPoint(), window->stage().contents().size());
        std::vector<QWidget*> views{window->outlets().meter, window->outlets().strobe};
        for (DotView* light : window->outlets().lights)
            views.push_back(light);
        for (auto* field : window->findChildren<AutoResizeTextField*>())
            views.push_back(field);
        for (std::size_t i = 0; i < views.size(); ++i) {
            const QRect place = frameOf(*window, *views[i]);
            EXPECT_TRUE(contents.contains(place)) << views[i]->objectName().toStdString();
            for (std::size_t j = 0; j < i; ++j) {
                // a widget's geometry is widened to whole points
                const QRect shared = place & frameOf(*window, *views[j]);
                EXPECT_TRUE(shared.width() <= 2 || shared.height() <= 2)
                    << views[i]->objectName().toStdString() << " and "
                    << views[j]->objectName().toStdString();
            }
        }
    }
}

TEST_F(TunerWindowPictures, OrdinaryTextsFit) {
    const auto window = makeWindow();
    const struct {
        TunerText field;
        const char* text;
    } kTexts[] = {
        {TunerText::inputDevice, "Built-in Audio Analog Stereo : Microphone"},
        {TunerText::referencePitch, "A4 = 1000.000Hz"},
        {TunerText::tuningName, "Equal Temperament"},
        {TunerText::stretchName, "Concert grand"},
        {TunerText::frequency, "8133.683"},
        {TunerText::frequencyDiff, "-199.999"},
        {TunerText::stretchOffset, "+12.345"},
        {TunerText::cent, "\u00b100.0"},
        {TunerText::level, "-96dB"},
    };
    for (const auto& c : kTexts) {
        SCOPED_TRACE(c.text);
        window->setText(c.field, c.text);
        const AutoResizeTextField& field = window->outlets().text(c.field);
        EXPECT_EQ(field.shownText(), field.text());
        QFont font = field.font();
        font.setPixelSize(field.pixelSize());
        const auto style = field.isFigures() ? LineStyle::figures : LineStyle::words;
        EXPECT_LE(LineSetter(font, style).width(field.text()), field.contentSize().width());
    }
}

TEST_F(TunerWindowPictures, FollowsTheAppearance) {
    const auto window = makeWindow();
    window->setText(TunerText::note, "A");
    const QImage light = drawingPass(*window);
    Appearance::choose(AppearanceChoice::dark);
    QCoreApplication::processEvents();
    const QImage dark = drawingPass(*window);
    EXPECT_GT(light.pixelColor(3, 3).lightness(), 200);
    EXPECT_LT(dark.pixelColor(3, 3).lightness(), 60);
    const QPoint dial = placeOf(*window, *window->outlets().meter).topLeft() + QPoint(20, 8);
    EXPECT_GT(light.pixelColor(dial).lightness(), 200);
    EXPECT_LT(dark.pixelColor(dial).lightness(), 60);
    Appearance::choose(AppearanceChoice::light);
    QCoreApplication::processEvents();
    EXPECT_EQ(drawingPass(*window), light);
}

} // namespace
} // namespace veltrano
