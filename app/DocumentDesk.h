// SPDX-License-Identifier: GPL-3.0-or-later
// The documents of the application: their kinds, their windows and the commands that open them.
#pragma once

#include "app/ApplicationMenu.h"
#include "app/EditorWindow.h"
#include "app/LibrariesInUse.h"
#include "app/MenuCommands.h"
#include "platform/desktop/DocumentController.h"
#include "platform/desktop/QtPasteboard.h"
#include "platform/desktop/ResourceFolder.h"
#include "platform/desktop/WindowMemory.h"
#include "platform/foundation/RememberingLog.h"

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veltrano {

class NotificationCenter;
class Preferences;
class UserDefaults;

/// Thread: main. Owns: the documents and through them their windows.
class DocumentDesk final : public QObject, public CommandHandler {
public:
    /// None of it is owned, all of it outlives the desk.
    struct Ports {
        const ResourceFolder& resources;
        UserDefaults& defaults;
        NotificationCenter& notifications;
        const Preferences& preferences;
        const LibrariesInUse& libraries;
        DocumentPanels& panels;
        Log& log;
    };

    explicit DocumentDesk(const Ports& ports);
    ~DocumentDesk() override;

    /// What answers a command of a document window after the window and the desk themselves.
    void setApplication(CommandHandler* application) { mApplication = application; }
    /// Called with every window that is furnished.
    void setDidFurnish(std::function<void(QWidget&)> didFurnish) {
        mDidFurnish = std::move(didFurnish);
    }
    /// Gives a window its menu bar, or the keys alone when it can have none, and lets files be
    /// dropped on it.
    /// @param own answers first; null: the window has no commands of its own
    /// @return its menu
    ApplicationMenu& furnish(QWidget& window, CommandHandler* own);

    void openFiles(const std::vector<std::string>& paths);
    /// Asks for every edited document. False: the user refused, or a save failed.
    bool mayQuit();
    /// The windows of the open documents, oldest first.
    std::vector<EditorWindow*> windows() const;

    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

private:
    void addTemperaments();
    void addStretches();
    void addScalaScales();
    std::unique_ptr<DocumentWindow> windowOf(Document& document, EditorContents contents,
                                             std::string_view kind);
    void closeLater(Document& document);

    std::vector<DocumentList::Entry> documentList() const;

    DocumentServices services() { return {mLog, mPasteboard, mPorts.panels}; }

    const Ports mPorts;
    RememberingLog mLog{mPorts.log};
    QtPasteboard mPasteboard;
    WindowMemory mMemory{mPorts.defaults};
    CommandHandler* mApplication = nullptr;
    std::function<void(QWidget&)> mDidFurnish; ///< empty: nobody is told
    FocusedTextHandler mFocusedText;
    DocumentController mDocuments;
};

} // namespace veltrano
