// SPDX-License-Identifier: GPL-3.0-or-later
// The smallest document: its value is its file's text.
#pragma once

#include "platform/desktop/Document.h"

#include <string>

namespace veltrano {

class TextDocument final : public Document {
public:
    explicit TextDocument(const DocumentServices& services)
        : Document(services, {"Test Text", "text"}) {}

    /// An edit that can be undone. @param run as in EditStep
    void setText(const std::string& newText, int run = 0) {
        const std::string before = text;
        text = newText;
        pushEdit({"Typing", [this, before] { text = before; }, [this, newText] { text = newText; },
                  run});
    }
    void rejectPaste() { markChanged(); }

    bool loadDataRepresentation(std::string_view bytes, std::string_view) override {
        text = bytes;
        return bytes != "damaged";
    }
    std::string dataRepresentationOfType(std::string_view) override { return text; }

    std::string text;
    bool isFaithful = true;              ///< the answer of readsBack()
    std::vector<std::string> happened{}; ///< hooks in their order

protected:
    std::function<void()> stateRestorer() override {
        return [this, now = text] { text = now; };
    }
    bool readsBack(std::string_view) override { return isFaithful; }
    void documentDidSave(bool didSave) override {
        happened.emplace_back(didSave ? "saved" : "not saved");
    }
    void documentDidRevert() override { happened.push_back("reverted to " + text); }
};

} // namespace veltrano
