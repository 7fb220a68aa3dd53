// SPDX-License-Identifier: GPL-3.0-or-later
// The open documents.
#include "platform/desktop/DocumentController.h"

#include "platform/foundation/UserDefaults.h"

#include <QFileInfo>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

constexpr std::string_view kRecentDocuments = "recentDocuments";
constexpr std::size_t kMostRecent = 10;

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// One path for all the ways to write it; a file that is not there has none.
QString canonical(std::string_view path) { return QFileInfo(fromUtf8(path)).canonicalFilePath(); }

} // namespace

DocumentController::DocumentController(const DocumentServices& services, UserDefaults& defaults,
                                       std::function<std::string()> takeReason)
    : mServices(services), mDefaults(defaults), mTakeReason(std::move(takeReason)) {}

DocumentController::~DocumentController() = default;

void DocumentController::addKind(DocumentKind kind) { mKinds.push_back(std::move(kind)); }

const DocumentKind* DocumentController::kindOfPath(std::string_view path) const {
    const QString extension = QFileInfo(fromUtf8(path)).suffix();
    for (const DocumentKind& kind : mKinds) {
        if (extension.compare(fromUtf8(kind.type.extension), Qt::CaseInsensitive) == 0)
            return &kind;
    }
    return nullptr;
}

const DocumentKind* DocumentController::kindOfType(std::string_view typeName) const {
    const auto found = std::ranges::find_if(
        mKinds, [typeName](const DocumentKind& kind) { return kind.type.name == typeName; });
    return found == mKinds.end() || !found->make ? nullptr : &*found;
}

std::string DocumentController::freeUntitledName() const {
    const std::string first = tr("Untitled").toStdString();
    for (int number = 1;; ++number) {
        const std::string name = number == 1 ? first : first + " " + std::to_string(number);
        if (std::ranges::none_of(mDocuments, [&name](const auto& document) {
                return document->displayName() == name;
            }))
            return name;
    }
}

Document* DocumentController::add(const DocumentKind& kind, std::unique_ptr<Document> document) {
    if (kind.makeWindow) {
        auto window = kind.makeWindow(*document);
        if (!window) return nullptr;
        document->setWindow(std::move(window));
    }
    document->setDidWrite([this](const std::string& path) { noteRecentPath(path); });
    mDocuments.push_back(std::move(document));
    return mDocuments.back().get();
}

Document* DocumentController::openUntitledDocumentOfType(std::string_view typeName, bool isShown) {
    const DocumentKind* kind = kindOfType(typeName);
    if (!kind) return nullptr;
    auto made = kind->make();
    made->setUntitledName(freeUntitledName());
    Document* document = add(*kind, std::move(made));
    if (document && isShown) document->showWindow();
    return document;
}

Document* DocumentController::openDocumentWithContentsOfFile(std::string_view path) {
    if (Document* open = documentForPath(path)) {
        open->showWindow();
        return open;
    }
    const DocumentKind* kind = kindOfPath(path);
    if (!kind) {
        refuse(
            path,
            tr("Its name does not end as those of the known kinds of documents do.").toStdString());
        return nullptr;
    }
    if (!kind->make) {
        if (mImporter) mImporter(path);
        noteOrForget(path);
        return nullptr;
    }
    if (mTakeReason) mTakeReason(); // what was logged before is no reason
    auto made = kind->make();
    if (!made->readFromFile(path, kind->type.name)) {
        refuse(path, mTakeReason ? mTakeReason() : std::string());
        return nullptr;
    }
    Document* document = add(*kind, std::move(made));
    if (!document) {
        refuse(path, mTakeReason ? mTakeReason() : std::string());
        return nullptr;
    }
    noteRecentPath(path);
    document->showWindow();
    return document;
}

void DocumentController::refuse(std::string_view path, const std::string& reason) {
    if (!FileStamp::of(std::string(path)).exists) forgetRecentPath(path);
    const QString name = QFileInfo(fromUtf8(path)).fileName();
    std::string message(path);
    if (!reason.empty()) message += "\n" + reason;
    mServices.panels.alert(tr("“%1” could not be opened.").arg(name).toStdString(), message);
}

void DocumentController::openDocument() {
    OpenPanel panel;
    panel.title = tr("Open").toStdString();
    for (const DocumentKind& kind : mKinds)
        panel.types.push_back(kind.type);
    panel.allowsSeveral = true;
    for (const std::string& path : mServices.panels.openPaths(panel))
        openDocumentWithContentsOfFile(path);
}

void DocumentController::closeDocument(Document& document) {
    std::erase_if(mDocuments, [&document](const auto& each) { return each.get() == &document; });
}

bool DocumentController::tryToClose(Document& document) {
    // While a question waits, the event loop may ask for the same again.
    if (mAskedAbout) return false;
    // The user sees what is asked about.
    if (document.isDocumentEdited()) document.showWindow();
    mAskedAbout = &document;
    const bool mayClose = document.mayClose();
    mAskedAbout = nullptr;
    if (mayClose) closeDocument(document);
    return mayClose;
}

bool DocumentController::tryToCloseAll() {
    while (!mDocuments.empty()) {
        if (!tryToClose(*mDocuments.back())) return false;
    }
    return true;
}

Document* DocumentController::documentForPath(std::string_view path) const {
    const QString wanted = canonical(path);
    for (const auto& document : mDocuments) {
        if (document->path().empty()) continue;
        if (document->path() == path ||
            (!wanted.isEmpty() && canonical(document->path()) == wanted))
            return document.get();
    }
    return nullptr;
}

// A path may hold any character, a line break included, so each is kept as a URL.
std::vector<std::string> DocumentController::recentPaths() const {
    const QString kept = fromUtf8(mDefaults.stringForKey(kRecentDocuments).value_or(""));
    std::vector<std::string> paths;
    for (const QString& url : kept.split(u' ', Qt::SkipEmptyParts))
        paths.push_back(QUrl(url).toLocalFile().toStdString());
    return paths;
}

void DocumentController::noteRecentPath(std::string_view path) {
    std::vector<std::string> paths = recentPaths();
    std::erase(paths, path);
    paths.emplace(paths.begin(), path);
    if (paths.size() > kMostRecent) paths.resize(kMostRecent);
    keepRecentPaths(paths);
}

void DocumentController::forgetRecentPath(std::string_view path) {
    std::vector<std::string> paths = recentPaths();
    if (std::erase(paths, path) > 0) keepRecentPaths(paths);
}

void DocumentController::noteOrForget(std::string_view path) {
    if (FileStamp::of(std::string(path)).exists) {
        noteRecentPath(path);
    } else {
        forgetRecentPath(path);
    }
}

void DocumentController::clearRecentPaths() { keepRecentPaths({}); }

void DocumentController::keepRecentPaths(const std::vector<std::string>& paths) {
    QStringList urls;
    for (const std::string& path : paths)
        urls.append(QString::fromLatin1(QUrl::fromLocalFile(fromUtf8(path)).toEncoded()));
    mDefaults.setString(kRecentDocuments, urls.join(u' ').toStdString());
    mDefaults.synchronize();
}

} // namespace veltrano
