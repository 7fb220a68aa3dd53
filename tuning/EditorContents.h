// SPDX-License-Identifier: GPL-3.0-or-later
// What both editors are made of.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"
#include "tuning/TuningDocument.h"

#include <QString>
#include <QWidget>
#include <memory>

namespace veltrano {

class CellTable;
class CellTableModel;

namespace editor_contents {

/// The contents of an interface file that has "nameField", "descriptionField", "table" and "graph".
/// Null, with one log line, when it is missing, broken or lacks one of them.
std::unique_ptr<QWidget> load(const ResourceFolder& resources, const QString& name, Log& log);

CellTable& table(const QWidget& contents);

/// Fills the table and makes the fields talk to the document.
/// @param graph the graph view of @p contents
TuningDocument::Outlets connect(QWidget& contents, TuningDocument& document, CellTableModel& model,
                                Refreshable& graph);

} // namespace editor_contents

} // namespace veltrano
