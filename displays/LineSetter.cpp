// SPDX-License-Identifier: GPL-3.0-or-later
// Sets one line of text.
#include "displays/LineSetter.h"

#include "displays/SymbolShape.h"

#include <QPainter>
#include <algorithm>

namespace veltrano {

namespace {

// Thickness of horizontal strokes, by weight, as a share of the height of the capitals.
double strokeShare(int weight) { return std::clamp(0.02 + weight * 0.00018, 0.06, 0.20); }

} // namespace

LineSetter::LineSetter(const QFont& font, LineStyle style)
    : mFont(font), mMetrics(font), mStyle(style), mCapHeight(mMetrics.capHeight()),
      mStroke(mCapHeight * strokeShare(font.weight())), mFigureWidth(0) {
    for (char digit = '0'; digit <= '9'; ++digit) {
        mFigureWidth = std::max(mFigureWidth, mMetrics.horizontalAdvance(QLatin1Char(digit)));
    }
}

double LineSetter::cellWidth(QChar c) const {
    if (c >= u'0' && c <= u'9') return mFigureWidth;
    if (const auto shape = SymbolShape::of(c, mCapHeight, mStroke, mFigureWidth)) {
        return shape->width;
    }
    return mMetrics.horizontalAdvance(c);
}

double LineSetter::width(const QString& text) const {
    if (mStyle == LineStyle::words) return mMetrics.horizontalAdvance(text);
    double width = 0;
    for (const QChar c : text)
        width += cellWidth(c);
    return width;
}

QString LineSetter::elided(const QString& text, Qt::TextElideMode mode, double width) const {
    return mMetrics.elidedText(text, mode, width);
}

void LineSetter::draw(QPainter& painter, QPointF baseline, const QString& text) const {
    painter.setFont(mFont);
    if (mStyle == LineStyle::words) {
        painter.drawText(baseline, text);
        return;
    }
    for (const QChar c : text) {
        const double cell = cellWidth(c);
        if (const auto shape = SymbolShape::of(c, mCapHeight, mStroke, mFigureWidth)) {
            painter.fillPath(shape->path.translated(baseline), painter.pen().brush());
        } else {
            const double margin = (cell - mMetrics.horizontalAdvance(c)) / 2;
            painter.drawText(baseline + QPointF(margin, 0), QString(c));
        }
        baseline += QPointF(cell, 0);
    }
}

} // namespace veltrano
