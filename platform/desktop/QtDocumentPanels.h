// SPDX-License-Identifier: GPL-3.0-or-later
// Questions and file panels of the desktop.
#pragma once

#include "platform/desktop/DocumentPorts.h"

#include <QCoreApplication>
#include <QString>

namespace veltrano {

class UserDefaults;

/// Shows every question as a dialog of the active window and waits for the answer; sound and
/// everything else of the event loop go on meanwhile. Thread: main, with a QApplication.
class QtDocumentPanels final : public DocumentPanels {
    Q_DECLARE_TR_FUNCTIONS(QtDocumentPanels)
public:
    /// @param defaults keeps the folder in which the last file was chosen; outlives this
    explicit QtDocumentPanels(UserDefaults& defaults) : mDefaults(defaults) {}

    SaveAnswer askToSave(std::string_view displayName) override;
    bool confirm(std::string_view title, std::string_view message,
                 std::string_view action) override;
    void alert(std::string_view title, std::string_view message) override;
    std::optional<std::string> savePath(const SavePanel& panel) override;
    std::vector<std::string> openPaths(const OpenPanel& panel) override;
    std::optional<std::string> chooseFolder(const OpenPanel& panel) override;
    void beep() override;

private:
    QString startFolder(const std::string& wanted) const;
    void rememberFolderOf(const QString& path);

    UserDefaults& mDefaults;
};

} // namespace veltrano
