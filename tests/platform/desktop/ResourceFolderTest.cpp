// SPDX-License-Identifier: GPL-3.0-or-later
// Where resources are looked for.
#include "platform/desktop/ResourceFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(ResourceFolder, PrefersTheInstalledFolderBesideTheExecutables) {
    QTemporaryDir prefix;
    QDir(prefix.path()).mkpath("bin");
    const QString executables = prefix.filePath("bin");
    EXPECT_EQ(ResourceFolder::findFrom(executables).path(), VELTRANO_SOURCE_RESOURCES)
        << "not installed: the source tree";
    QDir(prefix.path()).mkpath("share/veltrano");
    EXPECT_EQ(ResourceFolder::findFrom(executables).path(), prefix.filePath("share/veltrano"));
}

TEST(ResourceFolder, NamesFiles) {
    const ResourceFolder folder("/somewhere");
    EXPECT_EQ(folder.interfaceFile("Help"), "/somewhere/Help.ui");
    EXPECT_EQ(folder.images(), "/somewhere/images");
}

TEST(ResourceFolder, SourceTreeHoldsTheInterfaceFiles) {
    const ResourceFolder folder(VELTRANO_SOURCE_RESOURCES);
    for (const char* name : {"TunerWindow", "Help"}) {
        EXPECT_TRUE(QFileInfo::exists(folder.interfaceFile(name))) << name;
    }
}

} // namespace
} // namespace veltrano
