// SPDX-License-Identifier: GPL-3.0-or-later
// Windows and panels out of interface files.
#pragma once

#include <QHash>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

namespace veltrano {

/// Makes our own widgets for an interface file, by class name.
using WidgetMakers = QHash<QString, std::function<QWidget*(QWidget* parent)>>;

/// Builds what an interface file (NAME.ui) describes. Thread: main.
/// @param error set when null is returned: one line, file and cause
/// @return null when the file is missing or is no interface file
std::unique_ptr<QWidget> loadInterfaceFile(const QString& path, const WidgetMakers& makers,
                                           QString* error);

} // namespace veltrano
