// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a graph of cents.
#include "tuning/CentGraph.h"

#include "platform/desktop/LabelFont.h"
#include "platform/desktop/YUp.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace veltrano {

namespace {

void paintLine(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color) {
    painter.setPen(QPen(color, 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QLineF(from, to));
}

/// @param baseline of the text  @param share of the text's width that lies left of it: 0.5 centred
void paintLabel(QPainter& painter, const QPointF& baseline, double share, const QString& text) {
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(text);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(baseline.x() - share * width, baseline.y()), text);
}

} // namespace

void CentGraph::paint(QPainter& painter, double width, double height) const {
    const QRectF bounds(0, 0, width, height);
    painter.save();
    // Lines without soft edges: all of them are equally dark.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setClipRect(bounds, Qt::IntersectClip); // values can lie beyond the edges
    painter.fillRect(bounds, Qt::white);
    painter.setPen(QPen(grid(), 1));
    painter.drawRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5));
    const GraphGeometry geometry(width, height, static_cast<int>(columns.size()));
    painter.setFont(labelFont(GraphGeometry::kLabelSize));
    paintScale(painter, geometry, height);
    paintColumns(painter, geometry, height);
    const YUp up(height);
    const double zero = geometry.heightOf(0);
    paintLine(painter, up.point(geometry.columnCentre(0), zero),
              up.point(geometry.columnCentre(geometry.columns() - 1), zero), Qt::black);
    paintCurve(painter, geometry, height);
    painter.restore();
}

void CentGraph::paintScale(QPainter& painter, const GraphGeometry& geometry, double height) const {
    const YUp up(height);
    const double first = geometry.columnCentre(0);
    const double last = geometry.columnCentre(geometry.columns() - 1);
    const QFontMetricsF metrics(painter.font());
    // Centred on the height of the letters: digits have no descenders.
    const double toBaseline = metrics.capHeight() / 2;
    for (int cents = -GraphGeometry::kEdge; cents <= GraphGeometry::kEdge;
         cents += GraphGeometry::kGridStep) {
        const double y = geometry.heightOf(cents);
        paintLine(painter, up.point(first, y), up.point(last, y), grid());
        if (cents % GraphGeometry::kLabelStep != 0) continue;
        paintLabel(painter, up.point(geometry.scaleLabelEnd(), y - toBaseline), 1,
                   QString::fromStdString(scaleLabel(cents)));
    }
}

void CentGraph::paintColumns(QPainter& painter, const GraphGeometry& geometry,
                             double height) const {
    const YUp up(height);
    const GraphGeometry::Plot& plot = geometry.plot();
    for (int i = 0; i < geometry.columns(); ++i) {
        const Column& column = columns[static_cast<std::size_t>(i)];
        const double x = geometry.columnCentre(i);
        paintLine(painter, up.point(x, plot.bottom), up.point(x, plot.top()), column.line);
        if (!column.label.isEmpty())
            paintLabel(painter, up.point(x, plot.top()), 0.5, column.label);
    }
}

void CentGraph::paintCurve(QPainter& painter, const GraphGeometry& geometry, double height) const {
    if (cents.empty()) return;
    const YUp up(height);
    QPainterPath path;
    for (int i = 0; i < geometry.columns(); ++i) {
        const QPointF point = up.point(geometry.columnCentre(i),
                                       geometry.heightOf(cents[static_cast<std::size_t>(i)]));
        if (i == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(path, QPen(curve(), GraphGeometry::kCurveWidth, Qt::SolidLine, Qt::RoundCap,
                                  Qt::RoundJoin));
}

} // namespace veltrano
