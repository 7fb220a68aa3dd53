// SPDX-License-Identifier: GPL-3.0-or-later
// Whether any window of the application is to be seen.
#include "app/WindowsInSight.h"

#include <QEvent>
#include <QWidget>
#include <algorithm>

namespace veltrano {

void WindowsInSight::add(QWidget& window) {
    mWindows.push_back(&window);
    window.installEventFilter(this);
    connect(&window, &QObject::destroyed, this,
            [this, gone = &window] { std::erase(mWindows, gone); });
    mWasInSight = isAnyInSight();
}

bool WindowsInSight::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowStateChange:
        tellChange();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void WindowsInSight::tellChange() {
    const bool isInSight = isAnyInSight();
    if (isInSight == mWasInSight) return;
    mWasInSight = isInSight;
    mChanged(isInSight);
}

bool WindowsInSight::isAnyInSight() const {
    return std::ranges::any_of(mWindows, [](const QWidget* window) {
        return window->isVisible() && !window->isMinimized();
    });
}

} // namespace veltrano
