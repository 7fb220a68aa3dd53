// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's clipboard.
#include "platform/desktop/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>

namespace veltrano {

namespace {

QString nameOf(std::string_view type) {
    return QString::fromUtf8(type.data(), static_cast<qsizetype>(type.size()));
}

} // namespace

void QtPasteboard::write(std::string_view type, std::string_view bytes) {
    auto* data = new QMimeData; // the clipboard takes it over
    data->setData(nameOf(type), QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::optional<std::string> QtPasteboard::read(std::string_view type) const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(nameOf(type))) return std::nullopt;
    return data->data(nameOf(type)).toStdString();
}

} // namespace veltrano
