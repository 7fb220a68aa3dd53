// SPDX-License-Identifier: GPL-3.0-or-later
// The page on which a temperament or stretch table is printed.
#include "tuning/PrintPage.h"

#include "platform/desktop/LabelFont.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace veltrano {

namespace {

// Lengths in points.
constexpr double kNameSize = 20;
constexpr double kTextSize = 10;
constexpr double kTableSize = 9;
constexpr double kRowHeight = 15;
constexpr double kGap = 16;
constexpr double kGraphShare = 0.58;      ///< height of the graph for its width
constexpr double kDescriptionShare = 0.2; ///< of the page at most
constexpr double kRuleWidth = 0.5;
// A page smaller than this holds everything made smaller.
constexpr double kLeastWidth = 380;
constexpr double kLeastHeight = 460;

} // namespace

void PrintPage::paint(QPainter& painter, const QRectF& page) const {
    painter.save();
    const double scale = std::min({1.0, page.width() / kLeastWidth, page.height() / kLeastHeight});
    painter.translate(page.topLeft());
    painter.scale(scale, scale);
    const QRectF area(QPointF(), page.size() / scale);
    const double top = paintTexts(painter, area);
    const double tableHeight = kRowHeight * (static_cast<double>(rows.size()) + 1);
    const double room = area.bottom() - top - kGap - tableHeight;
    const double graphHeight = std::min(area.width() * kGraphShare, room);
    painter.save();
    painter.translate(area.left(), top);
    printGraph.paint(painter, area.width(), graphHeight);
    painter.restore();
    const double tableTop = top + graphHeight + kGap;
    paintTable(painter, QRectF(area.left(), tableTop, area.width(), tableHeight));
    painter.restore();
}

/// @return y below the texts
double PrintPage::paintTexts(QPainter& painter, const QRectF& area) const {
    QFont font = labelFont(kNameSize);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const QFontMetricsF name(font);
    painter.drawText(QPointF(area.left(), area.top() + name.ascent()),
                     name.elidedText(printName, Qt::ElideRight, area.width()));
    double y = area.top() + name.height() + kGap / 2;
    if (printDescription.isEmpty()) return y + kGap / 2;

    painter.setFont(labelFont(kTextSize));
    constexpr int kFlags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;
    const QRectF room(area.left(), y, area.width(), area.height() * kDescriptionShare);
    const QRectF taken = painter.boundingRect(room, kFlags, printDescription);
    painter.drawText(room, kFlags, printDescription); // what is longer is cut
    return y + std::min(taken.height(), room.height()) + kGap;
}

void PrintPage::paintTable(QPainter& painter, const QRectF& area) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const double columnWidth = area.width() / static_cast<double>(columnTitles.size());
    const auto paintRow = [&](const QStringList& texts, double y) {
        for (qsizetype column = 0; column < texts.size(); ++column) {
            const QRectF cell(area.left() + static_cast<double>(column) * columnWidth, y,
                              columnWidth, kRowHeight);
            const auto side = column == 0 ? Qt::AlignLeft : Qt::AlignRight;
            painter.drawText(cell, static_cast<int>(side | Qt::AlignVCenter), texts[column]);
        }
    };
    QFont font = labelFont(kTableSize);
    font.setBold(true);
    painter.setFont(font);
    paintRow(columnTitles, area.top());
    font.setBold(false);
    painter.setFont(font);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const double y = area.top() + kRowHeight * (static_cast<double>(row) + 1);
        painter.setPen(QPen(CentGraph::grid(), kRuleWidth, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QLineF(area.left(), y, area.right(), y));
        painter.setPen(Qt::black);
        paintRow(rows[row], y);
    }
}

} // namespace veltrano
