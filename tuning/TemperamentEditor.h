// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of a temperament holds.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"
#include "tuning/MVTemperamentDocument.h"
#include "tuning/PrintPage.h"

#include <QWidget>
#include <memory>

namespace veltrano {

class CellTableModel;
class EditorField;
class TemperamentGraphView;

/// Name, description, table and graph of one temperament. Thread: main. Owns: its widgets.
class TemperamentEditor final : public QWidget {
    Q_OBJECT
public:
    /// Loads the interface file "TemperamentDocument" and hands its controls to the document. Null,
    /// with one log line, when that is missing, broken or lacks a control.
    /// @param document outlives the editor
    static std::unique_ptr<TemperamentEditor> create(const ResourceFolder& resources,
                                                     MVTemperamentDocument& document, Log& log);
    ~TemperamentEditor() override; ///< takes the controls back from the document

    QWidget* initialFocus() const { return mTable; }
    /// Paints the print page. @param area printable area in points
    void paintPage(QPainter& painter, const QRectF& area) const {
        printPage().paint(painter, area);
    }
    PrintPage printPage() const;

private:
    TemperamentEditor(std::unique_ptr<QWidget> contents, MVTemperamentDocument& document);

    MVTemperamentDocument& mDocument;
    QWidget* mTable; ///< child of this
    TemperamentGraphView* mGraph;
};

} // namespace veltrano
