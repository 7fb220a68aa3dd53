// SPDX-License-Identifier: GPL-3.0-or-later
// Puts one page on paper or into a PDF file.
#pragma once

#include "platform/desktop/DocumentPorts.h"

#include <QRectF>
#include <functional>
#include <optional>

class QPainter;
class QWidget;

namespace veltrano {

/// Page setup, preview and printing of documents of one page. Thread: main, with a QApplication.
class PagePrinter {
public:
    /// Paints the page; the rectangle is the printable area in points (1/72 inch).
    using PaintPage = std::function<void(QPainter& painter, const QRectF& area)>;

    /// @param window that dialogs belong to
    explicit PagePrinter(QWidget& window) : mWindow(window) {}

    /// nullopt: cancelled.
    std::optional<PrintInfo> runPageSetup(const PrintInfo& current);
    /// @param showsPanel false: at once on the default printer
    /// @return false: cancelled, or there is no printer and no file was chosen
    bool print(const PrintInfo& info, bool showsPanel, const std::string& jobName,
               const PaintPage& paint);
    void preview(const PrintInfo& info, const std::string& jobName, const PaintPage& paint);

    /// Writes the page as a PDF file. False: it could not be written.
    static bool writePdf(const PrintInfo& info, const std::string& path, const PaintPage& paint);

private:
    QWidget& mWindow;
};

} // namespace veltrano
