// SPDX-License-Identifier: GPL-3.0-or-later
// A text that grows with the window.
#include "displays/AutoResizeTextField.h"

#include "platform/desktop/Appearance.h"

#include <QEvent>
#include <QPainter>

namespace veltrano {

AutoResizeTextField::AutoResizeTextField(QWidget* parent)
    : ScaledContent(parent), AccessibleReadout(*this, QAccessible::StaticText) {}

void AutoResizeTextField::setText(const QString& text) {
    if (text == mText) return;
    mText = text;
    updateToolTip();
    update();
    accessibleValueChanged();
}

void AutoResizeTextField::setTip(const QString& tip) {
    if (tip == mTip) return;
    mTip = tip;
    updateToolTip();
}

void AutoResizeTextField::setElideMode(Qt::TextElideMode mode) {
    mElideMode = mode;
    styleChanged();
}

void AutoResizeTextField::setPixelSize(int size) {
    mPixelSize = size;
    styleChanged();
}

void AutoResizeTextField::setWeight(int weight) {
    mWeight = weight;
    styleChanged();
}

void AutoResizeTextField::setFigures(bool figures) {
    mIsFigures = figures;
    styleChanged();
}

QString AutoResizeTextField::shownText() const {
    if (mIsFigures) return mText;
    return setter().elided(mText, mElideMode, contentSize().width());
}

void AutoResizeTextField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!mText.isEmpty()) paintText(painter);
    mFocusRing.paint(painter);
}

void AutoResizeTextField::paintText(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    useContentCoordinates(painter);
    painter.setPen(mIsCaption ? Appearance::captionColor(palette())
                              : palette().color(QPalette::WindowText));
    const QString line = shownText();
    const double width = setter().width(line);
    const double room = contentSize().width();
    if (width > room) {
        painter.scale(room / width, 1);
        setter().draw(painter, {0, lineStart(room).y()}, line);
    } else {
        setter().draw(painter, lineStart(width), line);
    }
    painter.restore();
}

QPointF AutoResizeTextField::lineStart(double lineWidth) const {
    const QSizeF size = contentSize();
    const double spare = size.width() - lineWidth;
    double x = 0;
    if (mAlignment.testFlag(Qt::AlignRight)) x = spare;
    if (mAlignment.testFlag(Qt::AlignHCenter)) x = spare / 2;
    const double y =
        mBaseline < 0 ? (size.height() + setter().capHeight()) / 2 : size.height() - mBaseline;
    return {x, y};
}

void AutoResizeTextField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) styleChanged();
    ScaledContent::changeEvent(event);
}

void AutoResizeTextField::resizeEvent(QResizeEvent* event) {
    ScaledContent::resizeEvent(event);
    updateToolTip(); // until the field follows the window, its size is the room that it has
}

const LineSetter& AutoResizeTextField::setter() const {
    if (!mSetter) {
        QFont sized = font();
        sized.setPixelSize(mPixelSize);
        sized.setWeight(static_cast<QFont::Weight>(mWeight));
        sized.setHintingPreference(QFont::PreferNoHinting); // the same widths at every scale
        mSetter.emplace(sized, mIsFigures ? LineStyle::figures : LineStyle::words);
    }
    return *mSetter;
}

void AutoResizeTextField::styleChanged() {
    mSetter.reset();
    updateToolTip();
    update();
}

void AutoResizeTextField::updateToolTip() {
    if (mText.isEmpty() || shownText() == mText) {
        setToolTip(mTip);
    } else {
        setToolTip(mTip.isEmpty() ? mText : mText + u'\n' + mTip);
    }
}

} // namespace veltrano
