// SPDX-License-Identifier: GPL-3.0-or-later
// Where the interface files and the artwork are.
#include "platform/desktop/ResourceFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <utility>

namespace veltrano {

ResourceFolder::ResourceFolder(QString path) : mPath(std::move(path)) {}

ResourceFolder ResourceFolder::find() { return findFrom(QCoreApplication::applicationDirPath()); }

ResourceFolder ResourceFolder::findFrom(const QString& executableFolder) {
    const QDir shared(QDir::cleanPath(executableFolder + QStringLiteral("/../share/veltrano")));
    if (shared.exists()) return ResourceFolder(shared.absolutePath());
    return ResourceFolder(QStringLiteral(VELTRANO_SOURCE_RESOURCES));
}

QString ResourceFolder::interfaceFile(const QString& name) const {
    return mPath + u'/' + name + QStringLiteral(".ui");
}

QString ResourceFolder::images() const { return mPath + QStringLiteral("/images"); }

} // namespace veltrano
