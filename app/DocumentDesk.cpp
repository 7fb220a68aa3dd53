// SPDX-License-Identifier: GPL-3.0-or-later
// The documents of the application: their kinds, their windows and the commands that open them.
#include "app/DocumentDesk.h"

#include "platform/desktop/FileDrop.h"
#include "settings/Preferences.h"
#include "tuning/MVStretchDocument.h"
#include "tuning/MVTemperamentDocument.h"
#include "tuning/ScalaImport.h"
#include "tuning/StretchEditor.h"
#include "tuning/TemperamentEditor.h"

#include <QTimer>

namespace veltrano {

namespace {

/// The contents of a window whose editor is of that class; without an editor when its interface
/// file is missing (the log has said so).
template <class Editor, class AnyDocument>
EditorContents contentsOf(const ResourceFolder& resources, AnyDocument& document, Log& log) {
    EditorContents contents;
    auto editor = Editor::create(resources, document, log);
    if (!editor) return contents;
    contents.initialFocus = editor->initialFocus();
    contents.commands = commandsOf(document);
    contents.paintPage = [page = editor.get()](QPainter& painter, const QRectF& area) {
        page->paintPage(painter, area);
    };
    contents.editor = std::move(editor);
    return contents;
}

} // namespace

DocumentDesk::DocumentDesk(const Ports& ports)
    : mPorts(ports), mDocuments(services(), ports.defaults, [this] { return mLog.take(); }) {
    addTemperaments();
    addStretches();
    addScalaScales();
}

DocumentDesk::~DocumentDesk() = default;

void DocumentDesk::addTemperaments() {
    const FileType type{std::string(kTemperamentTypeName), "temperament"};
    const auto make = [this] {
        return std::make_unique<MVTemperamentDocument>(
            MVTemperamentDocument::Ports{services(), mPorts.notifications, mPorts.preferences,
                                         mPorts.libraries.temperaments.get()});
    };
    const auto makeWindow = [this](Document& any) {
        auto& document = static_cast<MVTemperamentDocument&>(any);
        EditorContents contents = contentsOf<TemperamentEditor>(mPorts.resources, document, mLog);
        contents.commands.exportScala = [&document] { document.exportTemperament(); };
        return windowOf(document, std::move(contents), "temperament");
    };
    mDocuments.addKind({type, type.name, make, makeWindow});
}

void DocumentDesk::addStretches() {
    const FileType type{std::string(kStretchTypeName), "stretch"};
    const auto make = [this] {
        return std::make_unique<MVStretchDocument>(MVStretchDocument::Ports{
            services(), mPorts.notifications, mPorts.libraries.stretches.get()});
    };
    const auto makeWindow = [this](Document& any) {
        auto& document = static_cast<MVStretchDocument&>(any);
        return windowOf(document, contentsOf<StretchEditor>(mPorts.resources, document, mLog),
                        "stretch");
    };
    mDocuments.addKind({type, type.name, make, makeWindow});
}

void DocumentDesk::addScalaScales() {
    mDocuments.addKind(
        {{std::string(kScalaTypeName), "scl"}, std::string(kTemperamentTypeName), {}, {}});
    mDocuments.setImporter(
        [this](std::string_view path) { ScalaImport(mDocuments, mPorts.panels).importFile(path); });
}

std::unique_ptr<DocumentWindow> DocumentDesk::windowOf(Document& document, EditorContents contents,
                                                       std::string_view kind) {
    if (!contents.editor) return nullptr;
    auto window = std::make_unique<EditorWindow>(document, std::move(contents),
                                                 [this, &document] { closeLater(document); });
    mMemory.restoreSize(kind, *window);
    connect(window.get(), &EditorWindow::wasResized, this,
            [this, kind, shown = window.get()] { mMemory.keepSize(kind, *shown); });
    furnish(*window, window.get());
    return window;
}

/// The window that asks is in the middle of an event and must outlive it.
void DocumentDesk::closeLater(Document& document) {
    QTimer::singleShot(0, this, [this, wanted = &document] {
        for (const auto& document : mDocuments.documents()) {
            if (document.get() != wanted) continue;
            mDocuments.tryToClose(*wanted);
            return;
        }
    });
}

ApplicationMenu& DocumentDesk::furnish(QWidget& window, CommandHandler* own) {
    CommandChain chain{&mFocusedText};
    if (own) chain.push_back(own);
    chain.push_back(this);
    if (mApplication) chain.push_back(mApplication);
    auto* menu = new ApplicationMenu(window, std::move(chain),
                                     {[this] { return mDocuments.recentPaths(); },
                                      [this](const std::string& path) { openFiles({path}); },
                                      [this] { mDocuments.clearRecentPaths(); }},
                                     {[this] { return documentList(); }});
    new FileDrop(
        window, [this](const std::string& path) { return mDocuments.kindOfPath(path) != nullptr; },
        [this](const std::vector<std::string>& paths) { openFiles(paths); });
    if (mDidFurnish) mDidFurnish(window);
    return *menu;
}

std::vector<DocumentList::Entry> DocumentDesk::documentList() const {
    std::vector<DocumentList::Entry> entries;
    for (EditorWindow* window : windows()) {
        QString title = window->windowTitle();
        title.replace(QStringLiteral("[*]"),
                      window->isWindowModified() ? QStringLiteral("*") : QString());
        entries.push_back({title, window->isActiveWindow(), [window] { window->showWindow(); }});
    }
    return entries;
}

void DocumentDesk::openFiles(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        mDocuments.openDocumentWithContentsOfFile(path);
}

bool DocumentDesk::mayQuit() { return mDocuments.tryToCloseAll(); }

std::vector<EditorWindow*> DocumentDesk::windows() const {
    std::vector<EditorWindow*> windows;
    for (const auto& document : mDocuments.documents()) {
        if (auto* window = dynamic_cast<EditorWindow*>(document->window())) {
            windows.push_back(window);
        }
    }
    return windows;
}

std::optional<CommandState> DocumentDesk::commandState(MenuCommand command) const {
    switch (command) {
    case MenuCommand::newTemperament:
    case MenuCommand::newStretch:
    case MenuCommand::open:
    case MenuCommand::importScala:
        return CommandState{};
    default:
        return std::nullopt;
    }
}

void DocumentDesk::perform(MenuCommand command) {
    switch (command) {
    case MenuCommand::newTemperament:
        mDocuments.openUntitledDocumentOfType(kTemperamentTypeName, true);
        break;
    case MenuCommand::newStretch:
        mDocuments.openUntitledDocumentOfType(kStretchTypeName, true);
        break;
    case MenuCommand::open:
        mDocuments.openDocument();
        break;
    case MenuCommand::importScala:
        ScalaImport(mDocuments, mPorts.panels).run();
        break;
    default:
        break;
    }
}

} // namespace veltrano
