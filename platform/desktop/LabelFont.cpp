// SPDX-License-Identifier: GPL-3.0-or-later
// The font of labels in drawings.
#include "platform/desktop/LabelFont.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <cmath>

namespace veltrano {

QFont labelFont(double size) {
    static const QString kWanted = QStringLiteral("Lucida Grande");
    QFont font = QGuiApplication::font();
    if (QFontDatabase::families().contains(kWanted)) font.setFamily(kWanted);
    font.setPixelSize(static_cast<int>(std::lround(size)));
    font.setBold(false);
    font.setItalic(false);
    return font;
}

} // namespace veltrano
