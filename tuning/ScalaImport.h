// SPDX-License-Identifier: GPL-3.0-or-later
// Scala files become temperament documents.
#pragma once

#include "platform/desktop/DocumentController.h"
#include "platform/desktop/DocumentPorts.h"

#include <string_view>

namespace veltrano {

/// The import command. Thread: main.
class ScalaImport {
public:
    /// @param controller knows the type "Veltrano Temperament"; both outlive this
    ScalaImport(DocumentController& controller, DocumentPanels& panels)
        : mController(controller), mPanels(panels) {}

    void run(); ///< asks for files, then imports each in order
    /// Makes an untitled document named after the file and shows it. False: refused; the user was
    /// told, and no document is left. @param path whole
    bool importFile(std::string_view path);

private:
    DocumentController& mController;
    DocumentPanels& mPanels;
};

} // namespace veltrano
