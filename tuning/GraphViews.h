// SPDX-License-Identifier: GPL-3.0-or-later
// The graphs in the windows of temperaments and stretch tables.
#pragma once

#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/ControlPorts.h"
#include "platform/desktop/FocusRing.h"
#include "tuning/CentGraph.h"

#include <QWidget>

namespace veltrano {

class MVStretchDocument;
class MVTemperamentDocument;

/// Shows a graph that a subclass takes from its document. Thread: main.
class GraphView : public QWidget, public AccessibleReadout, public Refreshable {
    Q_OBJECT
public:
    explicit GraphView(QWidget* parent = nullptr);

    void refresh() override;
    QSize sizeHint() const override { return {420, 240}; }
    QSize minimumSizeHint() const override { return {240, 120}; }

protected:
    /// Columns without cents while there is no document.
    virtual CentGraph graph() const = 0;
    void paintEvent(QPaintEvent* event) override;

private:
    FocusRing mFocusRing{*this};
};

class TemperamentGraphView final : public GraphView {
    Q_OBJECT
public:
    using GraphView::GraphView;
    /// @param document not owned; null: none
    void setTemperamentDocument(const MVTemperamentDocument* document);
    QString accessibleValue() const override;

    static CentGraph graphOf(const MVTemperamentDocument& document);

protected:
    CentGraph graph() const override;

private:
    const MVTemperamentDocument* mTemperamentDocument = nullptr;
};

class StretchGraphView final : public GraphView {
    Q_OBJECT
public:
    using GraphView::GraphView;
    /// @param document not owned; null: none
    void setStretchDocument(const MVStretchDocument* document);
    QString accessibleValue() const override;

    static CentGraph graphOf(const MVStretchDocument& document);

protected:
    CentGraph graph() const override;

private:
    const MVStretchDocument* mStretchDocument = nullptr;
};

} // namespace veltrano
