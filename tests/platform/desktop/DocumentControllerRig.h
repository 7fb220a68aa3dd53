// SPDX-License-Identifier: GPL-3.0-or-later
// A document controller with two kinds of documents and one that is imported.
#pragma once

#include "platform/desktop/DocumentController.h"
#include "platform/foundation/UserDefaults.h"
#include "tests/platform/desktop/DocumentRig.h"

#include <deque>
#include <utility>

namespace veltrano {

class DocumentControllerRig : public DocumentRig {
protected:
    DocumentControllerRig() {
        controller.addKind(kindOf("Test Text", "text"));
        controller.addKind(kindOf("Other Text", "other"));
        controller.addKind({{"Foreign Text", "foreign"}, "Test Text", {}, {}});
        controller.setImporter([this](std::string_view path) { imported.emplace_back(path); });
    }

    DocumentKind kindOf(const char* name, const char* extension) {
        return {{name, extension},
                name,
                [this] { return std::make_unique<TextDocument>(services()); },
                [this](Document&) -> std::unique_ptr<DocumentWindow> {
                    if (!canMakeWindows) return nullptr;
                    return std::make_unique<RecordingDocumentWindow>(windows.emplace_back());
                }};
    }
    TextDocument& untitled(bool isShown = true) {
        return static_cast<TextDocument&>(
            *controller.openUntitledDocumentOfType("Test Text", isShown));
    }
    TextDocument* open(const std::string& path) {
        return static_cast<TextDocument*>(controller.openDocumentWithContentsOfFile(path));
    }
    Lines openNames() const {
        Lines names;
        for (const auto& document : controller.documents())
            names.push_back(document->displayName());
        return names;
    }

    std::deque<WindowRecord> windows; ///< in the order in which they were made
    bool canMakeWindows = true;
    std::string reason; ///< what the log is said to hold
    Lines imported;
    UserDefaults defaults{QString::fromStdString(files.path("defaults.ini"))};
    DocumentController controller{services(), defaults,
                                  [this] { return std::exchange(reason, {}); }};
};

} // namespace veltrano
