// SPDX-License-Identifier: GPL-3.0-or-later
// The page on which a temperament or stretch table is printed.
#pragma once

#include "tuning/CentGraph.h"

#include <QRectF>
#include <QString>
#include <QStringList>
#include <vector>

class QPainter;

namespace veltrano {

/// Name, description, graph and values, one below the other on one page. Black on white.
struct PrintPage {
    QString printName;
    QString printDescription; ///< cut where it would leave no room for the rest
    CentGraph printGraph;
    QStringList columnTitles;
    std::vector<QStringList> rows;

    /// @param page printable area in points, not empty; on a small one everything is smaller
    void paint(QPainter& painter, const QRectF& page) const;

private:
    double paintTexts(QPainter& painter, const QRectF& area) const;
    void paintTable(QPainter& painter, const QRectF& area) const;
};

} // namespace veltrano
