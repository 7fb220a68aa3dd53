// SPDX-License-Identifier: GPL-3.0-or-later
// The font of labels in drawings.
#include "platform/desktop/LabelFont.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <cmath>

namespace veltrano {

QFont labelFont(double size) {
    static const QString kWanted = QStringLiteral("Lucida Grande");
    static const bool hasIt = QFontDatabase::families().contains(kWanted); // a long list
    QFont font = QGuiApplication::font();
    if (hasIt) font.setFamily(kWanted);
    font.setPixelSize(static_cast<int>(std::lround(size)));
    font.setBold(false);
    font.setItalic(false);
    return font;
}

} // namespace veltrano
