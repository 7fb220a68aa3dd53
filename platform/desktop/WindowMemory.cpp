// SPDX-License-Identifier: GPL-3.0-or-later
// Where the user left the windows.
#include "platform/desktop/WindowMemory.h"

#include "platform/foundation/UserDefaults.h"

#include <QByteArray>
#include <QDataStream>
#include <QRect>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <string>

namespace veltrano {

namespace {

constexpr int kSmallest = 24; ///< [pixels] what can still be taken hold of

/// What a frame that is not known before the window is shown may take; no less than Qt leaves free
/// when it moves a window back.
constexpr QSize kFrame(2, 22); // [pixels]

std::string keyOf(std::string_view name) { return "veltrano.window." + std::string(name); }

/// Qt believes whatever begins as its own; from a cut text it makes a window of no size.
bool isPlace(const QByteArray& geometry, const QWidget& window) {
    if (geometry.size() != window.saveGeometry().size()) return false;
    QDataStream stream(geometry);
    quint32 magic = 0, version = 0;
    QRect frame, normal;
    stream >> magic >> version >> frame >> normal;
    const QSize least(kSmallest, kSmallest);
    return frame.isValid() && normal.size().expandedTo(least) == normal.size();
}

/// The screen may have been a larger one.
void fitToScreen(QWidget& window) {
    if (window.isMaximized() || window.isFullScreen()) return;
    const QRect available = window.screen()->availableGeometry();
    window.resize(window.size().boundedTo(available.size() - kFrame));
}

} // namespace

bool WindowMemory::restore(std::string_view name, QWidget& window) const {
    const auto stored = mDefaults.stringForKey(keyOf(name));
    if (!stored) return false;
    const QByteArray geometry = QByteArray::fromBase64(QByteArray::fromStdString(*stored));
    if (!isPlace(geometry, window) || !window.restoreGeometry(geometry)) return false;
    fitToScreen(window);
    return true;
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
