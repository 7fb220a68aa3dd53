// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard with the key that is being tuned.
#include "analysis/PianoView.h"

#include "analysis/MVCommon.h"
#include "platform/desktop/ImageLibrary.h"
#include "platform/desktop/LabelFont.h"
#include "platform/desktop/YUp.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace veltrano {

using piano_keys::Key;

namespace {

const QColor kMark = Qt::red;
/// Neighbours compute their common edge differently; on half a pixel, that must not part them.
constexpr double kAgainstTies = 1e-6;

} // namespace

PianoView::PianoView(QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Graphic),
      isDark(MVCommon::appearanceIsDark()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus); // the mouse does nothing here
    setColors();
}

void PianoView::setColors() {
    mWhiteKeyColor = isDark ? Qt::black : Qt::white;
    mAlternatingWhiteKeyColor = isDark ? grey(1.0 / 3) : grey(0.85);
    mBlackKeyColor = isDark ? Qt::white : Qt::black;
    mBlackKeyNoteNameBackgroundColor = grey(1.0, isDark ? 0.25 : 0.75);
    mHighlightBlackKeyAttributes = isDark ? Qt::white : Qt::black;
    mRedKeyAttributes = Qt::white;
}

void PianoView::setMidiNote(int key) {
    if (key == mMidiNote) return;
    mMidiNote = key;
    update();
    accessibleValueChanged();
}

QString PianoView::accessibleValue() const {
    const auto keyboard = piano_keys::keyboard(mMidiNote, {});
    return keyboard.label ? QString::fromStdString(keyboard.label->text) : tr("no key");
}

void PianoView::paintEvent(QPaintEvent*) {
    if (isDark != MVCommon::appearanceIsDark()) {
        isDark = !isDark;
        setColors();
    }
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    frameRect(painter, rect(), Qt::black);
    const auto keyboard = piano_keys::keyboard(
        mMidiNote, {0, 0, static_cast<double>(width()), static_cast<double>(height())});
    for (const Key& key : keyboard.keys)
        drawKey(painter, key);
    if (keyboard.label) drawLabel(painter, *keyboard.label);
    mFocusRing.paint(painter);
}

// Edges lie on whole device pixels, so that neighbours leave no seam.
void PianoView::drawKey(QPainter& painter, const Key& key) const {
    const piano_keys::Bounds& place = key.place;
    const QRectF exact = YUp(height()).rect(place.x, place.y, place.width, place.height);
    const QRectF rect =
        DevicePlace::of(painter, exact.translated(kAgainstTies, kAgainstTies)).logical;
    if (key.isMarked) {
        painter.fillRect(rect, kMark);
    } else if (key.isWhite) {
        painter.fillRect(rect, key.isAlternating ? mAlternatingWhiteKeyColor : mWhiteKeyColor);
    } else {
        painter.fillRect(rect, mBlackKeyColor);
    }
    if (key.isWhite || key.isMarked) frameRect(painter, rect, mBlackKeyColor);
}

void PianoView::drawLabel(QPainter& painter, const piano_keys::Label& label) const {
    // Fonts have whole sizes: the rest is scaled.
    const double size = std::max(1.0, std::round(label.fontSize));
    QFont font = labelFont(size);
    font.setBold(true);
    painter.setFont(font);
    painter.translate(YUp(height()).point(label.x, label.y));
    painter.scale(label.fontSize / size, label.fontSize / size);
    const QString text = QString::fromStdString(label.text);
    const QFontMetricsF metrics(font);
    QRectF place(0, 0, metrics.horizontalAdvance(text), metrics.height());
    place.moveCenter(QPointF(0, 0));
    if (!label.isOnWhite) painter.fillRect(place, mBlackKeyNoteNameBackgroundColor);
    painter.setPen(label.isOnWhite ? mRedKeyAttributes : mHighlightBlackKeyAttributes);
    painter.drawText(QPointF(place.left(), place.top() + metrics.ascent()), text);
}

} // namespace veltrano
