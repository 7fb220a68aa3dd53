// SPDX-License-Identifier: GPL-3.0-or-later
// The needle meter.
#include "displays/TuningMeterView.h"

#include "platform/desktop/YUp.h"
#include "platform/foundation/LenientNumber.h"

#include <QPainter>
#include <algorithm>

namespace veltrano {

namespace {

Extent extentOf(const QSizeF& size) { return {size.width(), size.height()}; }
Extent sizeOf(const ImageRef& image) { return image ? extentOf(image->size()) : Extent{}; }

} // namespace

TuningMeterView::TuningMeterView(ImageLibrary& images, QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Dial),
      mDialImage(images.imageNamed(QStringLiteral("tuningmeter"))),
      mScaleImage(images.imageNamed(QStringLiteral("tuningscale"))),
      mNeedleImage(images.imageNamed(QStringLiteral("tuningneedle"))),
      mInTuneNeedleImage(images.imageNamed(QStringLiteral("intuneneedle"))),
      mEndStopNeedleImage(images.imageNamed(QStringLiteral("outtuneneedle"))) {
    setFocusPolicy(Qt::TabFocus);
}

void TuningMeterView::setCent(float cents) {
    if (cents == mCent) return;
    mCent = cents;
    update();
    accessibleValueChanged();
}

void TuningMeterView::setThreshold(long cents) {
    if (cents == mThreshold) return;
    mThreshold = cents;
    update();
}

void TuningMeterView::setEnabled(bool enabled) {
    if (enabled == mEnabled) return;
    mEnabled = enabled;
    update();
    accessibleValueChanged();
}

QString TuningMeterView::accessibleValue() const {
    if (!mEnabled) return tr("off");
    const auto cents = QString::fromStdString(fixedDecimals(static_cast<double>(mCent), 1));
    return tr("%1 cents").arg(cents);
}

std::optional<AccessibleRange> TuningMeterView::accessibleRange() const {
    constexpr double kEnd = dial::kEndStop;
    const double cents = mEnabled ? static_cast<double>(mCent) : 0;
    return AccessibleRange{-kEnd, kEnd, std::clamp(cents, -kEnd, kEnd)};
}

void TuningMeterView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (mDialImage) mDialImage->draw(painter, rect());
    if (mEnabled) drawNeedle(painter, dial::needlePose(mCent, mThreshold));
    if (mScaleImage) mScaleImage->draw(painter, rect());
    mFocusRing.paint(painter);
}

void TuningMeterView::drawNeedle(QPainter& painter, const dial::Pose& pose) const {
    const ImageRef& image = imageOf(pose.needle);
    if (!image) return;
    const QRectF bounds(rect());
    const YUpRect place = dial::needleRect(pose.centreX, sizeOf(mNeedleImage), sizeOf(mDialImage),
                                           extentOf(bounds.size()));
    const YUp yUp(bounds.height());
    image->drawBetweenPixels(painter, yUp.rect(place.x, place.y, place.width, place.height));
}

const ImageRef& TuningMeterView::imageOf(dial::Needle needle) const {
    switch (needle) {
    case dial::Needle::inTune:
        return mInTuneNeedleImage;
    case dial::Needle::endStop:
        return mEndStopNeedleImage;
    case dial::Needle::normal:
        break;
    }
    return mNeedleImage;
}

} // namespace veltrano
