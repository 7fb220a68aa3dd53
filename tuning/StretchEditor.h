// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of a stretch table holds.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"
#include "tuning/MVStretchDocument.h"
#include "tuning/PrintPage.h"

#include <QWidget>
#include <memory>

namespace veltrano {

class StretchGraphView;

/// Name, description, table and graph of one stretch table. Thread: main. Owns: its widgets.
class StretchEditor final : public QWidget {
    Q_OBJECT
public:
    /// Loads the interface file "StretchDocument" and hands its controls to the document. Null,
    /// with one log line, when that is missing, broken or lacks a control.
    /// @param document outlives the editor
    static std::unique_ptr<StretchEditor> create(const ResourceFolder& resources,
                                                 MVStretchDocument& document, Log& log);
    ~StretchEditor() override; ///< takes the controls back from the document

    QWidget* initialFocus() const { return mTable; }
    /// Paints the print page. @param area printable area in points
    void paintPage(QPainter& painter, const QRectF& area) const {
        printPage().paint(painter, area);
    }
    PrintPage printPage() const;

private:
    StretchEditor(std::unique_ptr<QWidget> contents, MVStretchDocument& document);

    MVStretchDocument& mDocument;
    QWidget* mTable; ///< child of this
    StretchGraphView* mGraph;
};

} // namespace veltrano
