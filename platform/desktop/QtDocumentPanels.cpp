// SPDX-License-Identifier: GPL-3.0-or-later
// Questions and file panels of the desktop.
#include "platform/desktop/QtDocumentPanels.h"

#include "platform/foundation/UserDefaults.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace veltrano {

namespace {

constexpr std::string_view kLastFolder = "lastFolder";

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A dialog of the active window. Its texts are plain: a file's name is never taken for markup.
void prepare(QMessageBox& box, std::string_view title, std::string_view message) {
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(text(title));
    // An informative text has no format of its own; without tags it cannot be taken for markup.
    box.setInformativeText(text(message).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

/// "Veltrano Temperament (*.temperament)", in every case of letters.
QString filterOf(const FileType& type) {
    return QStringLiteral("%1 (*.%2 *.%3)")
        .arg(text(type.name), text(type.extension), text(type.extension).toUpper());
}

QStringList filtersOf(const std::vector<FileType>& types) {
    QStringList filters;
    QStringList patterns;
    for (const FileType& type : types) {
        filters.append(filterOf(type));
        patterns.append(
            QStringLiteral("*.%1 *.%2").arg(text(type.extension), text(type.extension).toUpper()));
    }
    if (filters.size() > 1) {
        filters.prepend(QtDocumentPanels::tr("All documents (%1)").arg(patterns.join(u' ')));
    }
    return filters;
}

void setTexts(QFileDialog& dialog, const std::string& title, const std::string& prompt) {
    if (!title.empty()) dialog.setWindowTitle(text(title));
    if (!prompt.empty()) dialog.setLabelText(QFileDialog::Accept, text(prompt));
}

} // namespace

DocumentPanels::SaveAnswer QtDocumentPanels::askToSave(std::string_view displayName) {
    QMessageBox box(QApplication::activeWindow());
    prepare(
        box,
        tr("Do you want to save the changes made to “%1”?").arg(text(displayName)).toStdString(),
        tr("Your changes will be lost if you don’t save them.").toStdString());
    box.setIcon(QMessageBox::Warning);
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return SaveAnswer::save;
    case QMessageBox::Discard:
        return SaveAnswer::discard;
    default:
        return SaveAnswer::cancel;
    }
}

bool QtDocumentPanels::confirm(std::string_view title, std::string_view message,
                               std::string_view action) {
    QMessageBox box(QApplication::activeWindow());
    prepare(box, title, message);
    box.setIcon(QMessageBox::Warning);
    const QPushButton* go = box.addButton(text(action), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    return box.clickedButton() == go;
}

void QtDocumentPanels::alert(std::string_view title, std::string_view message) {
    QMessageBox box(QApplication::activeWindow());
    prepare(box, title, message);
    box.setIcon(QMessageBox::Warning);
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.exec();
}

QString QtDocumentPanels::startFolder(const std::string& wanted) const {
    if (!wanted.empty() && QFileInfo(text(wanted)).isDir()) return text(wanted);
    const QString last = text(mDefaults.stringForKey(kLastFolder).value_or(""));
    return QFileInfo(last).isDir() ? last : QDir::homePath();
}

void QtDocumentPanels::rememberFolderOf(const QString& path) {
    mDefaults.setString(kLastFolder, QFileInfo(path).absolutePath().toStdString());
}

std::optional<std::string> QtDocumentPanels::savePath(const SavePanel& panel) {
    QFileDialog dialog(QApplication::activeWindow());
    setTexts(dialog, panel.title, panel.prompt);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(filterOf(panel.type));
    dialog.setDefaultSuffix(text(panel.type.extension));
    dialog.setDirectory(startFolder(panel.folder));
    dialog.selectFile(text(panel.proposedName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    const QString path = dialog.selectedFiles().constFirst();
    rememberFolderOf(path);
    return path.toStdString();
}

std::vector<std::string> QtDocumentPanels::openPaths(const OpenPanel& panel) {
    QFileDialog dialog(QApplication::activeWindow());
    setTexts(dialog, panel.title, panel.prompt);
    dialog.setFileMode(panel.allowsSeveral ? QFileDialog::ExistingFiles
                                           : QFileDialog::ExistingFile);
    dialog.setNameFilters(filtersOf(panel.types));
    dialog.setDirectory(startFolder(panel.folder));
    if (dialog.exec() != QDialog::Accepted) return {};
    std::vector<std::string> paths;
    for (const QString& path : dialog.selectedFiles())
        paths.push_back(path.toStdString());
    if (!paths.empty()) rememberFolderOf(dialog.selectedFiles().constFirst());
    return paths;
}

std::optional<std::string> QtDocumentPanels::chooseFolder(const OpenPanel& panel) {
    QFileDialog dialog(QApplication::activeWindow());
    // The desktop's dialogs have no line for a message; the title is read first of all.
    setTexts(dialog, panel.message.empty() ? panel.title : panel.message, panel.prompt);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setDirectory(startFolder(panel.folder));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst().toStdString();
}

void QtDocumentPanels::beep() { QApplication::beep(); }

} // namespace veltrano
