// SPDX-License-Identifier: GPL-3.0-or-later
// Hears of the end of the desktop's session.
#include "app/SessionEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <utility>

namespace veltrano {

SessionEnd::SessionEnd(std::function<void()> mayEnd, std::function<void()> ends)
    : mEnds(std::move(ends)) {
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [mayEnd = std::move(mayEnd)](QSessionManager&) { mayEnd(); }, Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qGuiApp || event->type() != QEvent::Quit) {
        return QObject::eventFilter(watched, event);
    }
    mEnds();
    return true;
}

} // namespace veltrano
