// SPDX-License-Identifier: GPL-3.0-or-later
// A document of the desktop.
#include "platform/desktop/Document.h"

#include "platform/desktop/TextFile.h"

#include <QFileInfo>
#include <utility>

namespace veltrano {

namespace {

std::string fileNameOf(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1)); // npos + 1 is 0
}

/// @p translated with @p name for "%1".
std::string text(const QString& translated, const std::string& name) {
    return translated.arg(QString::fromStdString(name)).toStdString();
}

std::string text(const QString& translated) { return translated.toStdString(); }

} // namespace

Document::Document(const DocumentServices& services, FileType type)
    : mServices(services), mFileType(std::move(type)) {}

Document::~Document() = default;

std::string Document::displayName() const {
    return mPath.empty() ? mUntitledName : fileNameOf(mPath);
}

void Document::setUntitledName(std::string_view name) {
    mUntitledName = name;
    updateWindow();
}

void Document::updateChangeCount(ChangeKind kind) {
    switch (kind) {
    case ChangeKind::done:
        ++mChangeCount;
        break;
    case ChangeKind::undone:
        --mChangeCount;
        break;
    case ChangeKind::cleared:
        mChangeCount = 0;
        mIsSavedStateLost = false;
        break;
    }
    updateWindow();
}

void Document::pushEdit(EditStep step) {
    if (mHistory.isReplaying()) return;
    // The steps that led back to the saved state are dropped; the count would reach 0 without it.
    if (mChangeCount < 0) mIsSavedStateLost = true;
    mHistory.push(std::move(step));
    updateChangeCount(ChangeKind::done);
}

void Document::markChanged() {
    // Without a step to undo, count and steps part: at 0 the values are not those of the file.
    mIsSavedStateLost = true;
    updateChangeCount(ChangeKind::done);
}

void Document::undo() {
    for (int steps = mHistory.undo(); steps > 0; --steps)
        updateChangeCount(ChangeKind::undone);
}

void Document::redo() {
    for (int steps = mHistory.redo(); steps > 0; --steps)
        updateChangeCount(ChangeKind::done);
}

bool Document::readFromFile(std::string_view path, std::string_view typeName) {
    const std::string file(path);
    // Before it is read: a change on the way is noticed at the next save.
    const FileStamp stamp = FileStamp::of(file);
    const TextFile text = readTextFile(path);
    if (!text.bytes) {
        mServices.log.detail(text.error);
        return false;
    }
    if (!loadDataRepresentation(*text.bytes, typeName)) return false;
    mPath = file;
    mFileStamp = stamp;
    mHistory.clear();
    updateChangeCount(ChangeKind::cleared);
    return true;
}

bool Document::saveDocument() {
    if (mPath.empty()) return saveDocumentAs();
    return mayWriteWhatReadsBackOtherwise() && mayReplaceFile() &&
           saveToFile(mPath, SaveOperation::save);
}

bool Document::saveDocumentAs() {
    if (!mayWriteWhatReadsBackOtherwise()) return false;
    const std::optional<std::string> path = askForPath(text(tr("Save As")));
    return path && saveToFile(*path, SaveOperation::saveAs);
}

bool Document::saveDocumentTo() {
    if (!mayWriteWhatReadsBackOtherwise()) return false;
    const std::optional<std::string> path = askForPath(text(tr("Save a Copy")));
    return path && saveToFile(*path, SaveOperation::saveTo);
}

bool Document::mayWriteWhatReadsBackOtherwise() {
    if (readsBack(dataRepresentationOfType(mFileType.name))) return true;
    return mServices.panels.confirm(
        text(tr("“%1” would not read back as it is now."), displayName()),
        text(tr(
            "Some of its values or texts cannot be kept in a file of this kind: the file would be "
            "refused or give other values when it is opened again.")),
        text(tr("Save Anyway")));
}

bool Document::mayReplaceFile() {
    const FileStamp now = FileStamp::of(mPath);
    if (now == mFileStamp) return true;
    if (!now.exists) {
        return mServices.panels.confirm(
            text(tr("The file of “%1” was moved or deleted since it was opened."), displayName()),
            text(tr("Saving makes it anew at %1."), mPath), text(tr("Save Anyway")));
    }
    return mServices.panels.confirm(
        text(tr("The file of “%1” was changed by another program since it was opened."),
             displayName()),
        text(tr("Saving replaces those changes by yours.")), text(tr("Save Anyway")));
}

std::optional<std::string> Document::askForPath(std::string_view title) {
    SavePanel panel;
    panel.title = title;
    panel.type = mFileType;
    panel.folder = mPath.empty() ? folderOfNew() : mPath.substr(0, mPath.rfind('/'));
    const std::string extension = "." + mFileType.extension;
    panel.proposedName = mPath.empty() ? displayName() + extension : displayName();
    return askForPath(panel);
}

std::optional<std::string> Document::askForPath(const SavePanel& panel) {
    std::optional<std::string> path = mServices.panels.savePath(panel);
    if (!path) return std::nullopt;
    const QString suffix = QFileInfo(QString::fromStdString(*path)).suffix();
    const QString wanted = QString::fromStdString(panel.type.extension);
    if (suffix.compare(wanted, Qt::CaseInsensitive) == 0) return path;
    *path += "." + panel.type.extension;
    // The panel asked about the name as it was typed.
    if (FileStamp::of(*path).exists &&
        !mServices.panels.confirm(text(tr("“%1” is already there."), fileNameOf(*path)),
                                  text(tr("Replacing it discards what it holds.")),
                                  text(tr("Replace"))))
        return std::nullopt;
    return path;
}

bool Document::saveToFile(const std::string& path, SaveOperation operation) {
    // A copy onto the document's own file is no change by another program.
    const bool isOwnFile = mFileStamp.exists && FileStamp::of(path) == mFileStamp;
    const bool isWritten = writeToFile(path, mFileType.name, mPath, operation);
    if (isWritten && (operation != SaveOperation::saveTo || isOwnFile)) {
        mFileStamp = FileStamp::of(path);
    }
    if (isWritten && operation != SaveOperation::saveTo) {
        mPath = path;
        updateChangeCount(ChangeKind::cleared);
    }
    if (isWritten && mDidWrite) mDidWrite(path);
    documentDidSave(isWritten);
    return isWritten;
}

bool Document::writeToFile(const std::string& path, std::string_view typeName, const std::string&,
                           SaveOperation) {
    const std::optional<std::string> error =
        writeFileAtomically(path, dataRepresentationOfType(typeName));
    if (!error) return true;
    mServices.panels.alert(text(tr("“%1” could not be saved."), fileNameOf(path)),
                           path + ": " + *error);
    return false;
}

bool Document::revertDocumentToSaved() {
    if (mPath.empty() ||
        !mServices.panels.confirm(
            text(tr("Do you want to revert to the saved version of “%1”?"), displayName()),
            text(tr("Your changes will be lost.")), text(tr("Revert"))))
        return false;
    // A file that is refused half-way must not leave half of its values.
    const std::function<void()> restoreState = stateRestorer();
    if (reload()) return true;
    restoreState();
    mServices.panels.alert(
        text(tr("“%1” could not be read."), displayName()),
        text(tr("It is no longer there, or it is damaged. Your changes are kept.")));
    return false;
}

bool Document::reload() {
    const std::string path = mPath;
    if (!readFromFile(path, mFileType.name)) return false;
    documentDidRevert();
    return true;
}

bool Document::mayClose() {
    if (!isDocumentEdited()) return true;
    switch (mServices.panels.askToSave(displayName())) {
    case DocumentPanels::SaveAnswer::save:
        return saveDocument();
    case DocumentPanels::SaveAnswer::cancel:
        return false;
    case DocumentPanels::SaveAnswer::discard:
        break;
    }
    // Whoever followed the edits gets the saved values back.
    if (!mPath.empty()) reload();
    return true;
}

void Document::setPrintInfo(const PrintInfo& info) {
    mPrintInfo = info;
    updateChangeCount(ChangeKind::done);
}

void Document::runPageSetup() {
    if (!mWindow) return;
    if (const std::optional<PrintInfo> info = mWindow->runPageSetup(mPrintInfo)) {
        setPrintInfo(*info);
    }
}

void Document::printShowingPrintPanel(bool showsPanel) {
    if (mWindow) mWindow->print(mPrintInfo, showsPanel);
}

void Document::setWindow(std::unique_ptr<DocumentWindow> window) {
    mWindow = std::move(window);
    updateWindow();
}

void Document::showWindow() {
    if (mWindow) mWindow->showWindow();
}

void Document::updateWindow() {
    if (mWindow) mWindow->setTitle(displayName(), mPath, isDocumentEdited());
}

} // namespace veltrano
