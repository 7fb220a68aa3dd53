// SPDX-License-Identifier: GPL-3.0-or-later
// What documents ask of the desktop: questions, file panels, the pasteboard, a window, a printer.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

// Texts and paths are UTF-8. Thread: main. Every call that asks the user returns with the answer.

/// The general pasteboard.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;
    /// Replaces the contents by @p bytes under that single type.
    virtual void write(std::string_view type, std::string_view bytes) = 0;
    virtual std::optional<std::string> read(std::string_view type) const = 0;
};

/// A file type as panels offer it.
struct FileType {
    std::string name;      ///< such as "Veltrano Temperament"
    std::string extension; ///< without the point
};

struct SavePanel {
    std::string title;
    std::string prompt; ///< on the button; empty: the desktop's own
    std::string folder; ///< where it starts; empty: the last one
    std::string proposedName;
    FileType type;
};

struct OpenPanel {
    std::string title;
    std::string prompt;
    std::string message;
    std::string folder;
    std::vector<FileType> types;
    bool allowsSeveral = false;
};

/// Questions to the user.
class DocumentPanels {
public:
    enum class SaveAnswer { save, discard, cancel };

    virtual ~DocumentPanels() = default;
    /// Whether to save the edited document of that name before it closes.
    virtual SaveAnswer askToSave(std::string_view displayName) = 0;
    /// A question whose default answer is no. @param action what the other button says
    virtual bool confirm(std::string_view title, std::string_view message,
                         std::string_view action) = 0;
    /// A message with the single button "OK".
    virtual void alert(std::string_view title, std::string_view message) = 0;
    virtual std::optional<std::string> savePath(const SavePanel& panel) = 0; ///< nullopt: cancelled
    virtual std::vector<std::string> openPaths(const OpenPanel& panel) = 0;  ///< empty: cancelled
    virtual std::optional<std::string> chooseFolder(const OpenPanel& panel) = 0;
    virtual void beep() = 0;
};

/// How a document is put on paper. Lengths in millimetres.
struct PrintInfo {
    double paperWidth = 210;
    double paperHeight = 297;
    bool isLandscape = false;
    double left = 15, top = 15, right = 15, bottom = 15; ///< margins
    bool operator==(const PrintInfo&) const = default;
};

/// The window of one document. Destroying it closes it without a question.
class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;
    virtual void showWindow() = 0; ///< shows it and brings it to the front
    /// @param displayName the title @param path empty while untitled
    virtual void setTitle(std::string_view displayName, std::string_view path, bool isEdited) = 0;
    /// Asks for page setup. @return nullopt: cancelled
    virtual std::optional<PrintInfo> runPageSetup(const PrintInfo& current) = 0;
    /// Prints the document's print page. @param showsPanel whether the print panel comes first
    virtual void print(const PrintInfo& info, bool showsPanel) = 0;
};

} // namespace veltrano
