// SPDX-License-Identifier: GPL-3.0-or-later
// Files dropped on a window.
#include "platform/desktop/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace veltrano {

FileDrop::FileDrop(QWidget& window, std::function<bool(const std::string&)> accepts,
                   std::function<void(const std::vector<std::string>&)> open)
    : QObject(&window), mAccepts(std::move(accepts)), mOpen(std::move(open)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

std::vector<std::string> FileDrop::acceptedPaths(const QMimeData& data) const {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        const std::string path = url.toLocalFile().toStdString();
        if (!path.empty() && mAccepts(path)) paths.push_back(path);
    }
    return paths;
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const std::vector<std::string> paths = acceptedPaths(*drop->mimeData());
    if (paths.empty()) return QObject::eventFilter(watched, event);
    // A copy, whatever the source proposes: the file stays where it is.
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop) {
        // Opening may ask the user; the source of the drag must not wait for the answer.
        QTimer::singleShot(0, this, [this, paths] { mOpen(paths); });
    }
    return true;
}

} // namespace veltrano
