// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one document.
#pragma once

#include "app/MenuCommands.h"
#include "platform/desktop/Document.h"
#include "platform/desktop/PagePrinter.h"
#include "tuning/TuningDocument.h"

#include <QMainWindow>
#include <functional>
#include <memory>

namespace veltrano {

/// Edit commands as every document of ours has them.
struct DocumentCommands {
    std::function<void()> copy;
    std::function<void()> cut;
    std::function<void()> paste;
    std::function<void()> deleteAll;
    std::function<bool(TuningDocument::Command)> validateMenuItem;
    std::function<void()> exportScala; ///< empty: the document cannot
};

template <class AnyDocument>
DocumentCommands commandsOf(AnyDocument& document) {
    return {[&document] { document.copy(); },
            [&document] { document.cut(); },
            [&document] { document.paste(); },
            [&document] { document.deleteAll(); },
            [&document](auto command) { return document.validateMenuItem(command); },
            {}};
}

/// What the window of a kind of document is filled with.
struct EditorContents {
    std::unique_ptr<QWidget> editor;
    QWidget* initialFocus = nullptr; ///< in the editor
    DocumentCommands commands;
    PagePrinter::PaintPage paintPage;
};

/// Shows one document and takes its commands. Thread: main. Owned by its document; closing asks.
class EditorWindow final : public QMainWindow, public DocumentWindow, public CommandHandler {
    Q_OBJECT
public:
    /// @param document outlives the window
    /// @param close asked when the user closes the window; it destroys this window later, from the
    ///        event loop, unless the user refuses
    EditorWindow(Document& document, EditorContents contents, std::function<void()> close);

    // DocumentWindow
    void showWindow() override;
    void setTitle(std::string_view displayName, std::string_view path, bool isEdited) override;
    std::optional<PrintInfo> runPageSetup(const PrintInfo& current) override;
    void print(const PrintInfo& info, bool showsPanel) override;

    // CommandHandler
    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

    /// Paints the print page as it would be printed.
    const PagePrinter::PaintPage& paintPage() const { return mContents.paintPage; }

signals:
    void wasResized(); ///< after it was first shown

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool performEdit(MenuCommand command);
    void performFile(MenuCommand command);

    Document& mDocument;
    EditorContents mContents;
    const std::function<void()> mClose;
    PagePrinter mPrinter{*this};
};

} // namespace veltrano
