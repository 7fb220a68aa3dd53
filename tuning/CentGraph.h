// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a graph of cents.
#pragma once

#include "tuning/GraphGeometry.h"

#include <QColor>
#include <QString>
#include <span>
#include <vector>

class QPainter;

namespace veltrano {

/// What a graph shows; drawn alike on the screen and on paper, on white whatever the appearance.
struct CentGraph {
    struct Column {
        QColor line;   ///< of its vertical line
        QString label; ///< above it; empty: none
    };

    static QColor grid() { return QColor(190, 190, 190); }
    static QColor curve() { return QColor(64, 64, 64); }

    std::vector<Column> columns;
    std::span<const double> cents; ///< one per column; empty: no curve

    /// @param width, height of the graph, whose upper left corner is the painter's origin
    void paint(QPainter& painter, double width, double height) const;

private:
    void paintScale(QPainter& painter, const GraphGeometry& geometry, double height) const;
    void paintColumns(QPainter& painter, const GraphGeometry& geometry, double height) const;
    void paintCurve(QPainter& painter, const GraphGeometry& geometry, double height) const;
};

} // namespace veltrano
