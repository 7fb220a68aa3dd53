// SPDX-License-Identifier: GPL-3.0-or-later
// Sets one line of text.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPointF>
#include <QString>

class QPainter;

namespace veltrano {

/// How a line is set.
enum class LineStyle {
    words,   ///< as the font does it
    figures, ///< every digit and sign equally wide, so that changing numbers stand still; signs as
             ///< shapes
};

/// One font at one size, with the measures of its figures. Thread: main.
class LineSetter {
public:
    LineSetter(const QFont& font, LineStyle style);

    double capHeight() const { return mCapHeight; }
    double width(const QString& text) const;
    QString elided(const QString& text, Qt::TextElideMode mode, double width) const;
    /// In the painter's pen colour.
    /// @param baseline where the line begins
    void draw(QPainter& painter, QPointF baseline, const QString& text) const;

private:
    double cellWidth(QChar c) const;

    QFont mFont;
    QFontMetricsF mMetrics;
    LineStyle mStyle;
    double mCapHeight;
    double mStroke;
    double mFigureWidth;
};

} // namespace veltrano
