// SPDX-License-Identifier: GPL-3.0-or-later
// The phase scope.
#include "analysis/HilbertView.h"

#include "analysis/MVCommon.h"
#include "platform/desktop/YUp.h"
#include "settings/Preferences.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

// The middle of the block, away from the unreliable ends.
constexpr std::size_t kFirstPoint = 1792;
constexpr std::size_t kPoints = 512;
constexpr double kPenShare = 1.0 / 60; ///< width of the pen, of half the height

bool isFinite(const QPointF& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

} // namespace

HilbertView::HilbertView(const Preferences& preferences, QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Graphic), mPrefs(preferences),
      isDark(MVCommon::appearanceIsDark()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);
    setColors();
}

void HilbertView::setColors() {
    mHilbertColor = isDark ? Qt::white : Qt::black;
    mBackgroundColor = isDark ? Qt::black : Qt::white;
    mDecayColor = grey(isDark ? 0.0 : 1.0, 0.25);
    mGridColor = isDark ? grey(1.0 / 3) : grey(0.0, 0.25);
}

void HilbertView::setData(FrameRef frame) {
    if (frame == mData) return;
    const auto isSignal = [](const FrameRef& data) { return data && data->samples.size() > 1; };
    const bool wasSignal = isSignal(mData);
    mData = std::move(frame);
    update();
    if (wasSignal != isSignal(mData)) accessibleValueChanged();
}

QString HilbertView::accessibleValue() const {
    return mData && mData->samples.size() > 1 ? tr("signal") : tr("no signal");
}

void HilbertView::resizeEvent(QResizeEvent*) { frameChanged(); }

/// What was drawn for another size is gone.
void HilbertView::frameChanged() {
    mImage = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
    mImage.setDevicePixelRatio(devicePixelRatioF());
    mImage.fill(mBackgroundColor);
}

void HilbertView::paintEvent(QPaintEvent*) {
    if (isDark != MVCommon::appearanceIsDark()) {
        isDark = !isDark;
        setColors();
    }
    if (mImage.isNull() || mImage.devicePixelRatioF() != devicePixelRatioF()) frameChanged();
    mTransform.setData(mData ? mData->samples : std::span<const float>());
    drawHilbert();
    QPainter painter(this);
    painter.drawImage(QPointF(0, 0), mImage);
    if (mPrefs.hilbertGrid()) drawGrid(painter);
    mFocusRing.paint(painter);
}

void HilbertView::drawHilbert() {
    QPainter painter(&mImage);
    painter.fillRect(rect(), mPrefs.hilbertDecay() ? mDecayColor : mBackgroundColor);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = height() * 0.5 * kPenShare;
    if (mPrefs.hilbertLine()) {
        drawLine(painter, points(), width);
    } else {
        drawDots(painter, points(), width);
    }
}

std::vector<QPointF> HilbertView::points() const {
    const double cx = width() * 0.5;
    const double cy = height() * 0.5;
    const double scale = cy / static_cast<double>(mPeak);
    const YUp yUp(height());
    std::vector<QPointF> points;
    points.reserve(kPoints);
    for (std::size_t k = kFirstPoint; k < kFirstPoint + kPoints; ++k) {
        const auto x = static_cast<double>(mTransform.hilbertWave()[k]);
        const auto y = static_cast<double>(mTransform.wave()[k]);
        const QPointF point = yUp.point(x * scale + cx + 0.5, y * scale + cy + 0.5);
        if (isFinite(point)) points.push_back(point); // a broken recording may hold NaN
    }
    return points;
}

// A round line, put together: the rasteriser is quick with single segments without caps and with
// small discs, and twenty times as slow with one round path that crosses itself hundreds of times.
// In an opaque colour the picture is the same, but for the soft edges where points lie close.
void HilbertView::drawLine(QPainter& painter, const std::vector<QPointF>& points,
                           double width) const {
    painter.setPen(QPen(mHilbertColor, width, Qt::SolidLine, Qt::FlatCap));
    for (std::size_t i = 1; i < points.size(); ++i)
        painter.drawLine(points[i - 1], points[i]);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mHilbertColor);
    for (const QPointF& point : points)
        painter.drawEllipse(point, width / 2, width / 2);
}

void HilbertView::drawDots(QPainter& painter, const std::vector<QPointF>& points,
                           double size) const {
    painter.setPen(QPen(mHilbertColor, size, Qt::SolidLine, Qt::FlatCap));
    const QPointF half(size / 2, 0);
    for (const QPointF& point : points)
        painter.drawLine(point - half, point + half);
}

// In one path: where the lines cross, a translucent colour lies only once.
void HilbertView::drawGrid(QPainter& painter) const {
    const double cx = width() * 0.5;
    const double cy = height() * 0.5;
    const YUp yUp(height());
    QPainterPath dashes;
    dashes.setFillRule(Qt::WindingFill);
    for (int x = 0; x < width(); x += 2)
        dashes.addRect(pointOnPixels(painter, yUp.rect(x, cy, 1, 1).topLeft()));
    for (int y = 0; y < height(); y += 2)
        dashes.addRect(pointOnPixels(painter, yUp.rect(cx, y, 1, 1).topLeft()));
    painter.fillPath(dashes, mGridColor);
}

} // namespace veltrano
