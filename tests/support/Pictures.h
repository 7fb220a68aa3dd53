// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of widgets, and artwork made for a test.
#pragma once

#include <QImage>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

class QWidget;

namespace veltrano {

/// What @p widget paints on a device of that many pixels per point, over transparent pixels.
QImage pictureOf(QWidget& widget, double pixelRatio = 1);

/// The smallest rectangle that holds every pixel of exactly that colour; empty if there is none.
QRect extentOfColor(const QImage& picture, QRgb color);

/// Counts the paint events that a shown widget gets while it exists.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget);
    /// Lets the event loop do what waits, then tells the paint events since the last question.
    int take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int mCount = 0;
};

/// A folder with artwork of plain colours, removed at the end.
class ArtworkFolder {
public:
    /// Writes NAME.svg of that natural size; @p shapes is SVG.
    void add(const QString& name, int width, int height, const QString& shapes);
    /// One rectangle over the whole extent.
    void addPlain(const QString& name, int width, int height, const QString& color);
    QString path() const { return mFolder.path(); }
    /// Writes any other file.
    void write(const QString& name, const QByteArray& bytes);

private:
    QTemporaryDir mFolder;
};

} // namespace veltrano
