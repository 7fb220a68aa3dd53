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
    QString printName;        ///< at most kNameLines lines of it
    QString printDescription; ///< as many lines as leave room for the rest
    CentGraph printGraph;
    QStringList columnTitles;
    std::vector<QStringList> rows;

    static constexpr int kNameLines = 2;
    static constexpr double kLeastWidth = 380;  ///< [points] of the area at full size
    static constexpr double kLeastHeight = 460; ///< [points] likewise

    /// @param area printable area in points; on one that is smaller than the least everything is
    ///        drawn smaller
    void paint(QPainter& painter, const QRectF& area) const;

private:
    double tableHeight() const;
    double paintTexts(QPainter& painter, const QRectF& area) const;
    void paintTable(QPainter& painter, const QRectF& area) const;
};

} // namespace veltrano
