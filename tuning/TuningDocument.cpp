// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/TuningDocument.h"

#include <utility>

namespace veltrano {

namespace {

constexpr std::size_t kMinPastableBytes = 33; ///< fewer cannot be a document

} // namespace

TuningDocument::TuningDocument(const DocumentServices& services, FileType type)
    : Document(services, std::move(type)) {}

void TuningDocument::windowControllerDidLoadNib(const Outlets& outlets) {
    // Controls that are taken back leave their texts with the document.
    if (mOutlets.name) mNameString = name();
    if (mOutlets.description) mDescriptionString = description();
    mOutlets = outlets;
    if (mNameString && mOutlets.name) mOutlets.name->setText(*mNameString);
    if (mDescriptionString && mOutlets.description) {
        mOutlets.description->setText(*mDescriptionString);
    }
    noteShownTexts();
    updateUI();
}

std::string TuningDocument::name() const {
    return mOutlets.name ? mOutlets.name->text() : mNameString.value_or("");
}

std::string TuningDocument::description() const {
    return mOutlets.description ? mOutlets.description->text() : mDescriptionString.value_or("");
}

void TuningDocument::setNameString(std::optional<std::string> name) {
    mNameString = std::move(name);
}

void TuningDocument::setDescriptionString(std::optional<std::string> description) {
    mDescriptionString = std::move(description);
}

void TuningDocument::setName(std::string_view name) {
    mNameString = name;
    show({std::string(name), description()});
}

void TuningDocument::show(const Texts& texts) {
    mShown = texts; // first: a field may report the new text as typed
    const auto fill = [](TextOutlet* field, const std::string& text) {
        if (field && field->text() != text) field->setText(text);
    };
    fill(mOutlets.name, texts.name);
    fill(mOutlets.description, texts.description);
}

void TuningDocument::noteShownTexts() { mShown = {name(), description()}; }

void TuningDocument::controlTextDidChange(const TextOutlet& field) {
    State before = state();
    if (before.shown == mShown) return; // the document itself has filled the field
    before.shown = std::exchange(mShown, before.shown);
    if (mTypingField != &field) {
        mTypingField = &field;
        ++mTypingRun;
    }
    EditStep step = stepFrom("Typing", std::move(before));
    step.run = mTypingRun;
    pushEdit(std::move(step));
}

void TuningDocument::copy() { services().pasteboard.write(pasteboardType(), data()); }

void TuningDocument::cut() {
    copy();
    clear("Cut");
}

void TuningDocument::deleteAll() { clear("Delete"); }

void TuningDocument::clear(std::string_view editName) {
    State before = state();
    clearValues();
    finishEdit(editName, std::move(before));
    updateUI();
}

void TuningDocument::paste() {
    State before = state();
    const auto bytes = services().pasteboard.read(pasteboardType());
    const bool isRead = bytes && readData(*bytes);
    // kept: the fields go on showing their texts, the pasted ones stay behind them.
    if (isRead && mOutlets.name == nullptr) noteShownTexts();
    updateUI(); // also for a refused stretch table: some of it may have been taken
    if (isRead) {
        finishEdit("Paste", std::move(before));
    } else {
        mTypingField = nullptr;
        markChanged(); // kept: what was refused marks the document changed, too
        postEdited();
    }
}

bool TuningDocument::isPastable() const {
    const auto bytes = services().pasteboard.read(pasteboardType());
    return bytes && bytes->size() >= kMinPastableBytes;
}

bool TuningDocument::validateMenuItem(Command command) const {
    switch (command) {
    case Command::paste:
        return isPastable();
    case Command::revertDocumentToSaved:
        return isDocumentEdited() && !path().empty();
    case Command::saveDocument:
        return isDocumentEdited() || path().empty();
    case Command::copy:
    case Command::cut:
    case Command::deleteAll:
    case Command::exportTemperament:
        break;
    }
    return true;
}

bool TuningDocument::loadDataRepresentation(std::string_view bytes, std::string_view) {
    if (!readData(bytes)) return false;
    didLoad();
    return true;
}

void TuningDocument::didLoad() {
    mTypingField = nullptr;
    updateUI();
    show({mNameString.value_or(""), mDescriptionString.value_or("")});
}

std::string TuningDocument::dataRepresentationOfType(std::string_view) { return data(); }

void TuningDocument::updateChangeCount(ChangeKind kind) {
    if (kind == ChangeKind::done && mOutlets.graph) mOutlets.graph->refresh();
    Document::updateChangeCount(kind);
}

void TuningDocument::setPrintInfo(const PrintInfo& info) {
    Document::setPrintInfo(info);
    updateChangeCount(ChangeKind::undone);
}

bool TuningDocument::saveToFile(const std::string& path, SaveOperation operation) {
    mIsSaveToFile = true;
    const bool isSaved = Document::saveToFile(path, operation);
    mIsSaveToFile = false;
    return isSaved;
}

bool TuningDocument::writeToFile(const std::string& path, std::string_view typeName,
                                 const std::string& originalPath, SaveOperation operation) {
    if (!Document::writeToFile(path, typeName, originalPath, operation)) return false;
    if (!mIsSaveToFile) updateLibrary(path);
    return true;
}

void TuningDocument::documentDidSave(bool didSave) {
    mTypingField = nullptr; // so that undo can come back to what was saved
    // kept: also a copy tells of the document's own file
    if (didSave) updateLibrary(path());
}

void TuningDocument::documentDidRevert() { postEdited(); }

std::function<void()> TuningDocument::stateRestorer() {
    return [this, now = state()] { restore(now); };
}

bool TuningDocument::hasTexts(const std::optional<std::string>& name,
                              const std::optional<std::string>& description) const {
    return name.value_or("") == this->name() && description.value_or("") == this->description();
}

TuningDocument::State TuningDocument::state() {
    return {.restoreValues = valuesRestorer(),
            .nameString = mNameString,
            .descriptionString = mDescriptionString,
            .shown = {name(), description()}};
}

void TuningDocument::restore(const State& state) {
    mTypingField = nullptr;
    state.restoreValues();
    mNameString = state.nameString;
    mDescriptionString = state.descriptionString;
    show(state.shown);
    updateUI();
}

EditStep TuningDocument::stepFrom(std::string_view editName, State before) {
    return {.name = std::string(editName),
            .undo =
                [this, before = std::move(before)] {
                    restore(before);
                    postEdited();
                },
            .redo =
                [this, after = state()] {
                    restore(after);
                    postEdited();
                },
            .run = 0};
}

void TuningDocument::finishEdit(std::string_view editName, State before) {
    mTypingField = nullptr;
    pushEdit(stepFrom(editName, std::move(before)));
    postEdited();
}

void TuningDocument::updateUI() {
    if (mOutlets.table) mOutlets.table->refresh();
    if (mOutlets.graph) mOutlets.graph->refresh();
}

} // namespace veltrano
