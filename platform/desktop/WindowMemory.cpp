// SPDX-License-Identifier: GPL-3.0-or-later
// Where the user left the windows.
#include "platform/desktop/WindowMemory.h"

#include "platform/foundation/UserDefaults.h"

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

} // namespace veltrano
