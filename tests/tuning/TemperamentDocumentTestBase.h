// SPDX-License-Identifier: GPL-3.0-or-later
// A temperament document with its window's controls.
#pragma once

#include "tests/tuning/TuningTestBase.h"

#include <memory>

namespace veltrano {

/// One document at a time.
class TemperamentDocumentTestBase : public TuningTestBase {
protected:
    MVTemperamentDocument& open(int tonic = 0) {
        settings.key = tonic;
        mDocument = std::make_unique<MVTemperamentDocument>(temperamentPorts());
        mDocument->windowControllerDidLoadNib(editor.outlets());
        editor.table.refreshes = editor.graph.refreshes = 0;
        return *mDocument;
    }
    void TearDown() override { mDocument.reset(); }

private:
    std::unique_ptr<MVTemperamentDocument> mDocument;
};

} // namespace veltrano
