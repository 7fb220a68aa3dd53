// SPDX-License-Identifier: GPL-3.0-or-later
// A document of the desktop: its file, its edits, its window.
#pragma once

#include "platform/desktop/AtomicFile.h"
#include "platform/desktop/DocumentPorts.h"
#include "platform/desktop/EditHistory.h"
#include "platform/foundation/Log.h"

#include <QCoreApplication>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

class DocumentController;

/// What every document is given. None of it is owned, all of it outlives the documents.
struct DocumentServices {
    Log& log;
    Pasteboard& pasteboard;
    DocumentPanels& panels;
};

/// Base of the documents. Thread: main. Owns: its window and its edit history.
///
/// The change count is a signed counter: a change, a redo and a rejected paste count +1, an undo
/// -1, a save sets it to 0. A document is edited when the count is not 0, or when undo and redo
/// cannot lead to a count of 0 that is the saved state: after a change at a negative count, and
/// after a rejected paste. Saving and reverting end both.
///
/// Saving is atomic: the file on disk is always the whole old or the whole new one.
class Document {
    Q_DECLARE_TR_FUNCTIONS(veltrano::Document)

public:
    enum class ChangeKind { done = 0, undone = 1, cleared = 2 };
    enum class SaveOperation { save = 0, saveAs = 1, saveTo = 2 };

    Document(const DocumentServices& services, FileType type);
    virtual ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    const FileType& fileType() const { return mFileType; }
    const std::string& path() const { return mPath; } ///< empty while untitled
    std::string displayName() const;                  ///< with its extension when it has a file
    void setUntitledName(std::string_view name);      ///< such as "Untitled 2"

    long changeCount() const { return mChangeCount; }
    bool isDocumentEdited() const { return mChangeCount != 0 || mIsSavedStateLost; }
    virtual void updateChangeCount(ChangeKind kind);

    // Undo
    const EditHistory& history() const { return mHistory; }
    void undo(); ///< nothing to undo: nothing happens
    void redo();

    // File. A path is whole.
    /// Reads @p path as that type and belongs to it from then on. False: refused, the reason is
    /// logged.
    bool readFromFile(std::string_view path, std::string_view typeName);
    /// With its panels and questions. False: cancelled or failed (the user was told).
    bool saveDocument();
    bool saveDocumentAs();
    bool saveDocumentTo(); ///< a copy; the document stays with its file
    /// Writes without a panel, then tells documentDidSave(). False: failed, the user was told.
    virtual bool saveToFile(const std::string& path, SaveOperation operation);
    /// Asks, then reads the file again and forgets all edits. False: cancelled or refused.
    bool revertDocumentToSaved();
    /// Whether the document may close: asks when it is edited. Cancel or a failed save: false.
    bool mayClose();

    // Print
    const PrintInfo& printInfo() const { return mPrintInfo; }
    virtual void setPrintInfo(const PrintInfo& info); ///< marks the document changed
    void runPageSetup();
    virtual void printShowingPrintPanel(bool showsPanel);

    /// Told after a file was written. @param path of the file, also of a copy
    void setDidWrite(std::function<void(const std::string& path)> didWrite) {
        mDidWrite = std::move(didWrite);
    }

    // Window
    DocumentWindow* window() const { return mWindow.get(); } ///< null: none was made
    void setWindow(std::unique_ptr<DocumentWindow> window);
    void showWindow();

    /// Fills the document. False: refused, the reason is logged.
    virtual bool loadDataRepresentation(std::string_view bytes, std::string_view typeName) = 0;
    /// The bytes of its file.
    virtual std::string dataRepresentationOfType(std::string_view typeName) = 0;

protected:
    /// Whether reading @p bytes back gives the document again; asked before every save.
    virtual bool readsBack(std::string_view bytes) = 0;
    /// Writes the file itself. False: failed, the user was told.
    virtual bool writeToFile(const std::string& path, std::string_view typeName,
                             const std::string& originalPath, SaveOperation operation);
    virtual void documentDidSave(bool didSave) { static_cast<void>(didSave); }
    /// Where the panel begins that asks for the first file of a new document; empty: where the
    /// last panel was left.
    virtual std::string folderOfNew() const { return {}; }
    /// A function that puts back what the document holds now, bit for bit, also what no file can
    /// keep. It is called, if at all, before anything but a refused load has happened.
    virtual std::function<void()> stateRestorer() = 0;
    /// After revert and after a close that discards edits: the values are those of the file again.
    virtual void documentDidRevert() {}

    /// For a change that was just made.
    void pushEdit(EditStep step); ///< counts it as done
    void markChanged();           ///< counts a change that cannot be undone (a rejected paste)

    /// Asks where to write; the panel's extension is added where it lacks. nullopt: cancelled.
    std::optional<std::string> askForPath(const SavePanel& panel);

    const DocumentServices& services() const { return mServices; }

private:
    bool mayReplaceFile();
    bool mayWriteWhatReadsBackOtherwise();
    std::optional<std::string> askForPath(std::string_view title);
    bool reload();
    void updateWindow();

    const DocumentServices mServices;
    const FileType mFileType;
    std::string mPath;
    std::string mUntitledName = "Untitled";
    long mChangeCount = 0;
    bool mIsSavedStateLost = false;
    EditHistory mHistory;
    PrintInfo mPrintInfo;
    FileStamp mFileStamp; ///< of the file as it was read or written last
    std::function<void(const std::string&)> mDidWrite;
    std::unique_ptr<DocumentWindow> mWindow;
};

} // namespace veltrano
