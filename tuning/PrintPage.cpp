// SPDX-License-Identifier: GPL-3.0-or-later
// The page on which a temperament or stretch table is printed.
#include "tuning/PrintPage.h"

#include "platform/desktop/LabelFont.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
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
constexpr double kLeastGraphHeight = 100; ///< whatever the texts are
constexpr double kDescriptionShare = 0.2; ///< of the page at most
constexpr double kRuleWidth = 0.5;
constexpr qsizetype kMostLetters = 8000; ///< more than a page holds

/// Writes as many whole lines as there is room for; the last one shows where the text is cut.
/// @return the height of what was written
double paintLines(QPainter& painter, const QRectF& room, const QString& text) {
    if (text.isEmpty()) return 0;
    const QFontMetricsF metrics(painter.font());
    const int most = static_cast<int>(room.height() / metrics.height());
    QString wrapped = text.left(kMostLetters);
    wrapped.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const QChar end : {QChar(u'\r'), QChar(u'\n'), QChar(QChar::ParagraphSeparator)})
        wrapped.replace(end, QChar::LineSeparator);
    QTextLayout layout(wrapped, painter.font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int count = 0;
    for (QTextLine line = layout.createLine(); line.isValid() && count <= most;
         line = layout.createLine()) {
        line.setLineWidth(room.width());
        line.setPosition({0, count++ * metrics.height()});
    }
    layout.endLayout();
    for (int i = 0; i < std::min(count, most); ++i) {
        const QTextLine line = layout.lineAt(i);
        if (i < most - 1 || count <= most) {
            line.draw(&painter, room.topLeft());
            continue;
        }
        const QString last =
            wrapped.mid(line.textStart(), line.textLength()).trimmed() + QChar(0x2026);
        painter.drawText(QPointF(room.left(), room.top() + line.position().y() + metrics.ascent()),
                         metrics.elidedText(last, Qt::ElideRight, room.width()));
    }
    return std::min(count, most) * metrics.height();
}

} // namespace

double PrintPage::tableHeight() const {
    return kRowHeight * (static_cast<double>(rows.size()) + 1);
}

void PrintPage::paint(QPainter& painter, const QRectF& area) const {
    painter.save();
    const double scale = std::min({1.0, area.width() / kLeastWidth, area.height() / kLeastHeight});
    painter.translate(area.topLeft());
    painter.scale(scale, scale);
    const QRectF page(QPointF(), area.size() / scale);
    const double top = paintTexts(painter, page);
    const double room = page.bottom() - top - kGap - tableHeight();
    const double graphHeight = std::min(page.width() * kGraphShare, room);
    painter.save();
    painter.translate(0, top);
    printGraph.paint(painter, page.width(), graphHeight);
    painter.restore();
    paintTable(painter, QRectF(0, top + graphHeight + kGap, page.width(), tableHeight()));
    painter.restore();
}

/// @return y below the texts
double PrintPage::paintTexts(QPainter& painter, const QRectF& area) const {
    QFont font = labelFont(kNameSize);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    const double nameRoom = kNameLines * QFontMetricsF(font).height();
    double y = paintLines(painter, QRectF(0, 0, area.width(), nameRoom), printName) + kGap / 2;

    painter.setFont(labelFont(kTextSize));
    const double rest = area.height() - y - kGap - kLeastGraphHeight - kGap - tableHeight();
    const double room = std::clamp(rest, 0.0, area.height() * kDescriptionShare);
    y += paintLines(painter, QRectF(0, y, area.width(), room), printDescription);
    return y + kGap;
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
