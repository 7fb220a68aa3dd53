// SPDX-License-Identifier: GPL-3.0-or-later
// The open documents.
#pragma once

#include "platform/desktop/Document.h"

#include <QCoreApplication>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

class UserDefaults;

/// A kind of file that can be opened.
struct DocumentKind {
    FileType type;
    std::string documentTypeName; ///< of the document it opens as; differs for files to import
    /// Makes an empty document; null for a kind that is only imported.
    std::function<std::unique_ptr<Document>()> make;
    /// Makes the window of a document, or null with a log line.
    std::function<std::unique_ptr<DocumentWindow>(Document&)> makeWindow;
};

/// Opens, keeps and closes documents. Thread: main. Owns: the documents.
class DocumentController {
    Q_DECLARE_TR_FUNCTIONS(veltrano::DocumentController)

public:
    /// @param defaults where the recent files are kept; outlives this
    /// @param takeReason what was logged since it was last asked, for an alert; may be empty
    DocumentController(const DocumentServices& services, UserDefaults& defaults,
                       std::function<std::string()> takeReason = {});
    ~DocumentController();

    void addKind(DocumentKind kind);
    /// The kind of a path by its extension, in any case of letters; null: none.
    const DocumentKind* kindOfPath(std::string_view path) const;

    /// An untitled document ("Untitled", "Untitled 2" ...) with its window, which is not shown when
    /// @p isShown is false. Null: no such type, or its window cannot be made (logged).
    Document* openUntitledDocumentOfType(std::string_view typeName, bool isShown);
    /// The document of that file, opened when it is not yet; shown. Null: refused, the user was
    /// told; or a file to import, which the importer was told of.
    Document* openDocumentWithContentsOfFile(std::string_view path);
    void openDocument(); ///< the Open panel
    /// Closes it without a question.
    void closeDocument(Document& document);
    /// Asks where it is edited. False: the user or a failed save refused, or is being asked
    /// already.
    bool tryToClose(Document& document);
    bool tryToCloseAll();

    Document* documentForPath(std::string_view path) const; ///< null: not open
    const std::vector<std::unique_ptr<Document>>& documents() const { return mDocuments; }

    /// What opens a file that is only imported, by type name; told the path.
    void setImporter(std::function<void(std::string_view path)> importer) {
        mImporter = std::move(importer);
    }

    // Recent files, newest first, at most 10; kept at once.
    std::vector<std::string> recentPaths() const;
    void noteRecentPath(std::string_view path);
    void clearRecentPaths();

private:
    const DocumentKind* kindOfType(std::string_view typeName) const;
    std::string freeUntitledName() const;
    Document* add(const DocumentKind& kind, std::unique_ptr<Document> document);
    void refuse(std::string_view path, const std::string& reason);
    void noteOrForget(std::string_view path);
    void forgetRecentPath(std::string_view path);
    void keepRecentPaths(const std::vector<std::string>& paths);

    const DocumentServices mServices;
    UserDefaults& mDefaults;
    const std::function<std::string()> mTakeReason;
    std::vector<DocumentKind> mKinds;
    std::vector<std::unique_ptr<Document>> mDocuments;
    const Document* mAskedAbout =
        nullptr; ///< the user has not answered yet; null: nothing is asked
    std::function<void(std::string_view path)> mImporter;
};

} // namespace veltrano
