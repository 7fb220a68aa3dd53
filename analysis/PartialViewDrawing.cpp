// SPDX-License-Identifier: GPL-3.0-or-later
// The partials over the keyboard: the drawing.
#include "analysis/MVCommon.h"
#include "analysis/PartialKeyboard.h"
#include "analysis/PartialView.h"
#include "platform/desktop/ImageLibrary.h"
#include "platform/desktop/LabelFont.h"
#include "platform/desktop/YUp.h"
#include "tuning/PitchClass.h"
#include "tuning/Temperament.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace veltrano {

using namespace partial_keyboard;

namespace {

const YUp kUp(kHeight);
const double kCentreLine = centreLine(kHeight);

// [units]
constexpr double kBarWidth = 7;
constexpr double kInTuneHalfHeight = 2.5;
constexpr double kWhiteLabel = 189; ///< lower edges of the texts
constexpr double kBlackLabel = 197;
constexpr double kWhiteName = 2;
constexpr double kBlackNameTop = 30;
constexpr double kBlackNameMargin = 2;
constexpr double kCentSize = 7;
constexpr double kNameSize = 8;

void drawVertical(QPainter& painter, double x, double from, double to, const QColor& color,
                  double width) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(kUp.point(x, from), kUp.point(x, to));
}

/// @param corner the text's lower left one
void drawText(QPainter& painter, const QString& text, double x, double y, const QColor& color) {
    painter.setPen(color);
    painter.drawText(kUp.point(x, y + QFontMetricsF(painter.font()).descent()), text);
}

QSizeF sizeOf(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

double centreOf(const PartialData& record) {
    return partial_keyboard::centreOf(record.octave, record.note);
}

} // namespace

void PartialView::paintEvent(QPaintEvent*) {
    if (isDark != MVCommon::appearanceIsDark()) {
        isDark = !isDark;
        setColors();
        mPianoKeyboardImage = QImage();
    }
    QPainter painter(this);
    painter.fillRect(rect(), mBackgroundColor); // in whole pixels, at the edges too
    painter.scale(width() / kWidth, height() / kHeight);
    painter.setRenderHint(QPainter::Antialiasing);
    drawCentreLine(painter);
    drawPianoKeyboard(painter);
    if (mPartials && !mPartials->empty()) drawRecords(painter);
    mFocusRing.paint(painter);
}

void PartialView::drawRecords(QPainter& painter) {
    const std::string wordsBefore = partialsSpeech(false);
    const auto records = mRecords.generatePartialData(*mPartials, targets());
    if (partialsSpeech(false) != wordsBefore) accessibleValueChanged();
    for (const PartialData& record : records)
        drawRecord(painter, record, record.note == records.front().note);
    for (const PartialData& record : records)
        drawNoteName(painter, record);
}

void PartialView::drawCentreLine(QPainter& painter) const {
    painter.setPen(QPen(mCenterLineColor, 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(kUp.point(0, kCentreLine), kUp.point(kWidth, kCentreLine));
}

void PartialView::drawPianoKeyboard(QPainter& painter) {
    const DevicePlace place = DevicePlace::of(painter, kUp.rect(0, 0, kWidth, kKeyboardHeight));
    if (mPianoKeyboardImage.size() != place.pixels.size())
        mPianoKeyboardImage = pianoKeyboardImage(place.pixels.size());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(place.logical, mPianoKeyboardImage);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

QImage PartialView::pianoKeyboardImage(QSize pixels) const {
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(mBackgroundColor);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels.width() / kWidth, pixels.height() / kKeyboardHeight);
    const YUp up(kKeyboardHeight);
    for (const int octave : {1, 3, 5, 7}) {
        const QRectF rect = up.rect(kOctaveWidth * octave - kLeftOut + 0.5, 0.5, kOctaveWidth, 88);
        painter.fillRect(rect, mOddOctaveColor);
    }
    // Where a point is a pixel, a pen would leave a quarter of each corner out.
    const QPainterPathStroker stroker(
        QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    for (int key = kLowestKey; key <= kHighestKey; ++key) {
        const double x = partial_keyboard::centreOf(key);
        if (isWhiteKey(key % kPitchClasses)) {
            QPainterPath outline;
            outline.addRect(up.rect(x - 7, 0.5, 15, 88));
            painter.fillPath(stroker.createStroke(outline), mKeyColor);
        } else {
            painter.fillRect(up.rect(x - 4.5, 32.5, 9, 56), mKeyColor);
        }
    }
    return image;
}

void PartialView::drawRecord(QPainter& painter, const PartialData& record, bool isRoot) const {
    if (isRoot) {
        drawVertical(painter, centreOf(record), kCentreLine - kMostCents, kCentreLine + kMostCents,
                     mOctaveLineColor, 1);
    }
    drawBar(painter, record);
    drawCentNumber(painter, record);
    drawKey(painter, record);
}

void PartialView::drawBar(QPainter& painter, const PartialData& record) const {
    const double x = centreOf(record);
    if (isInTune(record.cent, mInTuneThreshold)) {
        drawVertical(painter, x, kCentreLine - kInTuneHalfHeight, kCentreLine + kInTuneHalfHeight,
                     mInTuneColor, kBarWidth);
        return;
    }
    const double length = std::clamp(static_cast<double>(record.cent), -kMostCents, kMostCents);
    drawVertical(painter, x, kCentreLine, kCentreLine + length,
                 record.cent < 0 ? mFlatColor : mSharpColor, kBarWidth);
}

void PartialView::drawCentNumber(QPainter& painter, const PartialData& record) const {
    const QString text = QString::fromStdString(centLabel(record.cent));
    painter.setFont(labelFont(kCentSize));
    const double left = centreOf(record) - sizeOf(text, painter.font()).width() / 2;
    drawText(painter, text, left, isWhiteKey(record.note) ? kWhiteLabel : kBlackLabel,
             mCentNumberAttributes);
}

void PartialView::drawKey(QPainter& painter, const PartialData& record) const {
    QPolygonF outline;
    for (const Corner& corner : outlineOf(keyType(record.noteNumber)))
        outline.append(kUp.point(centreOf(record) + corner.x, corner.y));
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    painter.fillPath(path, mPartialKeyColor);
}

void PartialView::drawNoteName(QPainter& painter, const PartialData& record) const {
    const std::string_view name = temperament::noteName(static_cast<int>(record.note));
    const QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    QFont font = labelFont(kNameSize);
    font.setBold(true);
    painter.setFont(font);
    const QSizeF size = sizeOf(text, font);
    const double left = centreOf(record) - size.width() / 2;
    if (isWhiteKey(record.note)) {
        drawText(painter, text, left, kWhiteName, mNoteNameAttributes);
        return;
    }
    const double bottom = kBlackNameTop - size.height();
    painter.fillRect(kUp.rect(left - kBlackNameMargin, bottom, size.width() + 2 * kBlackNameMargin,
                              size.height()),
                     mBlackNoteNameBackgroundColor);
    drawText(painter, text, left, bottom, mBlackNoteNameAttributes);
}

} // namespace veltrano
