// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing pass of a window into a picture.
#include "platform/desktop/DrawingPass.h"

#include <QWidget>

namespace veltrano {

QImage drawingPass(QWidget& window) {
    const double ratio = window.devicePixelRatioF();
    QImage image((QSizeF(window.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    window.render(&image);
    return image;
}

} // namespace veltrano
