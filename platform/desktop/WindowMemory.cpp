// SPDX-License-Identifier: GPL-3.0-or-later
// Where the user left the windows.
#include "platform/desktop/WindowMemory.h"

#include "platform/foundation/UserDefaults.h"

#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <string>

namespace veltrano {

namespace {

std::string keyOf(std::string_view name) { return "veltrano.window." + std::string(name); }

} // namespace

bool WindowMemory::restore(std::string_view name, QWidget& window) const {
    const auto stored = mDefaults.stringForKey(keyOf(name));
    if (!stored) return false;
    return window.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*stored)));
}

void WindowMemory::keep(std::string_view name, const QWidget& window) {
    mDefaults.setString(keyOf(name), window.saveGeometry().toBase64().toStdString());
}

void WindowMemory::restoreSize(std::string_view name, QWidget& window) const {
    const QStringList size =
        QString::fromStdString(mDefaults.stringForKey(keyOf(name)).value_or("")).split(u'x');
    if (size.size() != 2) return;
    const QSize wanted(size[0].toInt(), size[1].toInt());
    const QScreen* screen = window.screen();
    if (wanted.isEmpty() || !screen) return;
    window.resize(wanted.boundedTo(screen->availableSize()));
}

void WindowMemory::keepSize(std::string_view name, const QWidget& window) {
    if (window.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen)) return;
    mDefaults.setString(keyOf(name),
                        std::to_string(window.width()) + 'x' + std::to_string(window.height()));
}

} // namespace veltrano
