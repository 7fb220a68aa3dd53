// SPDX-License-Identifier: GPL-3.0-or-later
// Where the interface files and the artwork are.
#pragma once

#include <QString>

namespace veltrano {

/// A folder that holds "NAME.ui" interface files and an "images" folder. Thread: any.
class ResourceFolder {
public:
    /// @param path of a folder, which need not exist: loading from it then fails
    explicit ResourceFolder(QString path);

    /// share/veltrano beside the folder of the running executable when it is there, otherwise the
    /// resources folder of the source tree that this program was built from.
    static ResourceFolder find();
    /// The same for an executable in @p executableFolder.
    static ResourceFolder findFrom(const QString& executableFolder);

    const QString& path() const { return mPath; }
    QString interfaceFile(const QString& name) const; ///< path of NAME.ui
    QString images() const;                           ///< path of the artwork's folder

private:
    QString mPath;
};

} // namespace veltrano
