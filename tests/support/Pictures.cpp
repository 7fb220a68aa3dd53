// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of widgets, and artwork made for a test.
#include "tests/support/Pictures.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QWidget>
#include <utility>

namespace veltrano {

QImage pictureOf(QWidget& widget, double pixelRatio) {
    QImage picture((QSizeF(widget.size()) * pixelRatio).toSize(),
                   QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    widget.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

QRect extentOfColor(const QImage& picture, QRgb color) {
    QRect extent;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color) extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

PaintCounter::PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

int PaintCounter::take() {
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    return std::exchange(mCount, 0);
}

bool PaintCounter::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Paint) ++mCount;
    return false;
}

void ArtworkFolder::add(const QString& name, int width, int height, const QString& shapes) {
    write(name + QStringLiteral(".svg"),
          QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" "
                         "viewBox=\"0 0 %1 %2\">%3</svg>")
              .arg(width)
              .arg(height)
              .arg(shapes)
              .toUtf8());
}

void ArtworkFolder::addPlain(const QString& name, int width, int height, const QString& color) {
    add(name, width, height,
        QStringLiteral("<rect width=\"%1\" height=\"%2\" fill=\"%3\"/>")
            .arg(width)
            .arg(height)
            .arg(color));
}

void ArtworkFolder::write(const QString& name, const QByteArray& bytes) {
    QFile file(mFolder.filePath(name));
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

} // namespace veltrano
