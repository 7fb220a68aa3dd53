// SPDX-License-Identifier: GPL-3.0-or-later
// Puts one page on paper or into a PDF file.
#include "platform/desktop/PagePrinter.h"

#include <QPageLayout>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>

namespace veltrano {

namespace {

QPageLayout layoutOf(const PrintInfo& info) {
    const QSizeF paper(std::min(info.paperWidth, info.paperHeight),
                       std::max(info.paperWidth, info.paperHeight));
    return QPageLayout(QPageSize(paper, QPageSize::Millimeter),
                       info.isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(info.left, info.top, info.right, info.bottom),
                       QPageLayout::Millimeter);
}

PrintInfo infoOf(const QPageLayout& layout) {
    const QSizeF paper = layout.pageSize().size(QPageSize::Millimeter);
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    return {paper.width(),   paper.height(), layout.orientation() == QPageLayout::Landscape,
            margins.left(),  margins.top(),  margins.right(),
            margins.bottom()};
}

void paintOn(QPrinter& printer, const PagePrinter::PaintPage& paint) {
    QPainter painter;
    if (!painter.begin(&printer)) return;
    constexpr double kPointsPerInch = 72;
    const double scale = printer.resolution() / kPointsPerInch;
    painter.scale(scale, scale);
    // The painter's origin is the corner of the printable area.
    const QSizeF area = printer.pageLayout().paintRectPoints().size();
    paint(painter, QRectF(QPointF(), area));
}

} // namespace

std::optional<PrintInfo> PagePrinter::runPageSetup(const PrintInfo& current) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(layoutOf(current));
    QPageSetupDialog dialog(&printer, &mWindow);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return infoOf(printer.pageLayout());
}

bool PagePrinter::print(const PrintInfo& info, bool showsPanel, const std::string& jobName,
                        const PaintPage& paint) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(layoutOf(info));
    printer.setDocName(QString::fromStdString(jobName));
    if (showsPanel) {
        QPrintDialog dialog(&printer, &mWindow);
        dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
        if (dialog.exec() != QDialog::Accepted) return false;
    }
    paintOn(printer, paint);
    return printer.printerState() != QPrinter::Error;
}

void PagePrinter::preview(const PrintInfo& info, const std::string& jobName,
                          const PaintPage& paint) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(layoutOf(info));
    printer.setDocName(QString::fromStdString(jobName));
    QPrintPreviewDialog dialog(&printer, &mWindow);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&paint](QPrinter* target) { paintOn(*target, paint); });
    dialog.exec();
}

bool PagePrinter::writePdf(const PrintInfo& info, const std::string& path, const PaintPage& paint) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path));
    printer.setPageLayout(layoutOf(info));
    paintOn(printer, paint);
    return printer.printerState() != QPrinter::Error;
}

} // namespace veltrano
