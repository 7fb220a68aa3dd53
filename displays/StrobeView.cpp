// SPDX-License-Identifier: GPL-3.0-or-later
// The strobe display.
#include "displays/StrobeView.h"

#include "platform/desktop/YUp.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

// Where the bar artwork lies on the background. [points, y up]
constexpr double kBarsLeft = 2.0;
constexpr double kBarsBottom = 4.0;

int rounded(double value) { return static_cast<int>(std::lround(value)); }

} // namespace

StrobeView::StrobeView(ImageLibrary& images, QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Graphic),
      mBackgroundImage(images.imageNamed(QStringLiteral("strobeviewbackground"))),
      mBarImage(images.imageNamed(QStringLiteral("strobeviewbar"))),
      mBarSize(mBarImage ? mBarImage->size() : QSizeF()) {
    setFocusPolicy(Qt::TabFocus);
}

void StrobeView::setData(FrameRef frame) {
    if (frame == mData) return;
    const bool hadData = mData != nullptr;
    mData = std::move(frame);
    update();
    if (hadData != (mData != nullptr)) accessibleValueChanged();
}

QString StrobeView::accessibleValue() const { return mData ? tr("signal") : tr("no signal"); }

void StrobeView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF bounds(rect());
    if (mBackgroundImage) mBackgroundImage->draw(painter, bounds);
    if (mData && !mData->samples.empty()) drawBars(painter, bounds);
    mFocusRing.paint(painter);
}

void StrobeView::drawBars(QPainter& painter, const QRectF& bounds) {
    const DevicePlace place = DevicePlace::of(painter, bounds);
    composeBars(place.pixels.size());
    painter.drawImage(place.logical, mBars);
}

// The off-screen image has the background's extent in points and the view's in device pixels, so
// that the bars are as sharp as the device; column edges fall on the nearest device pixel.
void StrobeView::composeBars(QSize pixels) {
    if (mBars.size() != pixels) mBars = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    mBars.fill(Qt::transparent);
    const auto runs = mPattern.pass(mData->samples, static_cast<int>(mBarSize.width()));
    if (!mBackgroundImage || runs.empty()) return;

    const QSizeF extent = mBackgroundImage->size();
    const double sx = pixels.width() / extent.width();
    const double sy = pixels.height() / extent.height();
    const QImage bar =
        mBarImage->rendered({rounded(mBarSize.width() * sx), rounded(mBarSize.height() * sy)});
    const YUp yUp(extent.height());
    const int top = rounded(yUp.rect(0, kBarsBottom, 1, mBarSize.height()).top() * sy);
    const int left = rounded(kBarsLeft * sx);

    QPainter painter(&mBars);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const StrobeRun& run : runs) {
        const int begin = rounded(run.start * sx);
        const int end = rounded((run.start + run.length) * sx);
        painter.drawImage(QPoint(left + begin, top), bar,
                          QRect(begin, 0, end - begin, bar.height()));
    }
}

} // namespace veltrano
