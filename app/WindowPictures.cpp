// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of hidden windows.
#include "app/WindowPictures.h"

#include "platform/desktop/DrawingPass.h"

#include <QDir>

namespace veltrano {

void WindowPictures::take() {
    for (Picture& picture : mPictures)
        picture.image = drawingPass(*picture.window);
}

QString WindowPictures::write(const QString& folder) const {
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) return QStringLiteral("cannot make the folder ") + folder;
    for (const Picture& picture : mPictures) {
        const QString path = dir.filePath(picture.name + QStringLiteral(".png"));
        if (!picture.image.save(path)) return QStringLiteral("cannot write ") + path;
    }
    return {};
}

} // namespace veltrano
