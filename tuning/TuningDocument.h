// SPDX-License-Identifier: GPL-3.0-or-later
// What the documents of the tuning data have in common.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/desktop/Document.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// A document of one table of cents with a name and a description: its texts, its edit menu, its
/// undo steps and what a save tells the library. Thread: main.
class TuningDocument : public Document {
public:
    /// The controls of its window; they outlive the document or are taken back by clearing them.
    struct Outlets {
        TextOutlet* name = nullptr;
        TextOutlet* description = nullptr;
        Refreshable* table = nullptr;
        Refreshable* graph = nullptr;
    };
    /// The commands whose menu items depend on the document.
    enum class Command {
        copy,
        cut,
        paste,
        deleteAll,
        revertDocumentToSaved,
        saveDocument,
        exportTemperament
    };

    TuningDocument(const DocumentServices& services, FileType type);

    /// Hands over the window's controls and fills them.
    void windowControllerDidLoadNib(const Outlets& outlets);

    std::string name() const;        ///< the name field's text; without a window the string's
    std::string description() const; ///< likewise
    void setNameString(std::optional<std::string> name);
    void setDescriptionString(std::optional<std::string> description);
    /// The string and the field. Counts as no edit.
    void setName(std::string_view name);

    /// The user typed into the name or description field, which shows the new text already.
    void controlTextDidChange(const TextOutlet& field);

    // Edit menu
    void copy();
    void cut();
    void paste(); ///< kept: counts as a change also when what was to be pasted is refused
    void deleteAll();
    bool isPastable() const;
    bool validateMenuItem(Command command) const;

    // Files
    virtual bool readData(std::string_view bytes) = 0; ///< false: refused, the reason is logged
    virtual std::string data() const = 0;              ///< the bytes of a file
    bool loadDataRepresentation(std::string_view bytes, std::string_view typeName) override;
    std::string dataRepresentationOfType(std::string_view typeName) override;
    void updateChangeCount(ChangeKind kind) override;
    void setPrintInfo(const PrintInfo& info) override; ///< leaves the edited state as it is
    bool saveToFile(const std::string& path, SaveOperation operation) override;
    /// Tells the library, too, unless a save operation runs, which does so itself.
    bool writeToFile(const std::string& path, std::string_view typeName,
                     const std::string& originalPath, SaveOperation operation) override;

protected:
    /// What the two fields show.
    struct Texts {
        std::string name;
        std::string description;
        bool operator==(const Texts&) const = default;
    };
    /// Everything that undo brings back.
    struct State {
        std::function<void()> restoreValues;
        std::optional<std::string> nameString;
        std::optional<std::string> descriptionString;
        Texts shown;
    };

    void documentDidSave(bool didSave) override;
    void documentDidRevert() override;
    std::function<void()> stateRestorer() override;

    virtual std::string_view pasteboardType() const = 0;
    /// A function that gives the table the values that it has now.
    virtual std::function<void()> valuesRestorer() = 0;
    virtual void clearValues() = 0;
    virtual void postEdited() = 0;
    /// Tells the library, and whoever listens, of the document's values in that file.
    virtual void updateLibrary(const std::string& path) = 0;
    /// Whether an entry that was read back has these texts.
    bool hasTexts(const std::optional<std::string>& name,
                  const std::optional<std::string>& description) const;

    State state();
    /// Counts, keeps for undo and announces an edit. @param before the state that it changed
    void finishEdit(std::string_view editName, State before);
    void updateUI();

    void didLoad(); ///< after the values and the strings came from a file

private:
    void clear(std::string_view editName);
    void restore(const State& state);
    void show(const Texts& texts);
    void noteShownTexts();
    EditStep stepFrom(std::string_view editName, State before);

    Outlets mOutlets;
    std::optional<std::string> mNameString; ///< as read from a file, for the field to show
    std::optional<std::string> mDescriptionString;
    Texts mShown;                             ///< before the letter that is being typed
    const TextOutlet* mTypingField = nullptr; ///< of the run under way; null: none
    int mTypingRun = 0;
    bool mIsSaveToFile = false; ///< while a save operation runs, which tells the library itself
};

} // namespace veltrano
