// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing pass of a window into a picture.
#include "platform/desktop/DrawingPass.h"

#include <QWidget>

namespace veltrano {

QImage drawingPass(QWidget& window) {
    const double ratio = window.devicePixelRatioF();
    // At a broken ratio the last row and column are only partly the window's: they are left out.
    const QSize pixels(static_cast<int>(window.width() * ratio),
                       static_cast<int>(window.height() * ratio));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    window.render(&image);
    return image;
}

} // namespace veltrano
