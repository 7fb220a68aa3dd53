// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/ScalaImport.h"

#include "tuning/MVTemperamentDocument.h"

namespace veltrano {

void ScalaImport::run() {
    const auto paths = mPanels.openPaths({.title = "Import",
                                          .prompt = "Import",
                                          .message = {},
                                          .folder = {},
                                          .types = {{std::string(kScalaTypeName), "scl"}},
                                          .allowsSeveral = true});
    for (const std::string& path : paths)
        importFile(path);
}

bool ScalaImport::importFile(std::string_view path) {
    Document* made = mController.openUntitledDocumentOfType(kTemperamentTypeName, false);
    if (!made) return false; // the controller has said why
    auto* document = dynamic_cast<MVTemperamentDocument*>(made);
    if (document && document->importScalaFile(path)) {
        document->showWindow();
        return true;
    }
    // kept: the reason is not told
    mPanels.alert("Unable to import the Scala Scale File (.scl).",
                  "Veltrano failed to import the Scala Scale File (.scl): " + std::string(path) +
                      ".");
    mController.closeDocument(*made);
    return false;
}

} // namespace veltrano
