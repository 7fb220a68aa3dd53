// SPDX-License-Identifier: GPL-3.0-or-later
// What both editors are made of.
#include "tuning/EditorContents.h"

#include "platform/desktop/InterfaceFile.h"
#include "tuning/CellTable.h"
#include "tuning/EditorFields.h"
#include "tuning/GraphViews.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace veltrano::editor_contents {

namespace {

const QString kNameField = QStringLiteral("nameField");
const QString kDescriptionField = QStringLiteral("descriptionField");
const QString kTable = QStringLiteral("table");
const QString kGraph = QStringLiteral("graph");

template <class Widget>
QWidget* make(QWidget* parent) {
    return new Widget(parent);
}

const WidgetMakers& makers() {
    static const WidgetMakers kMakers{
        {QStringLiteral("TemperamentTableView"), make<TemperamentTableView>},
        {QStringLiteral("TemperamentGraphView"), make<TemperamentGraphView>},
        {QStringLiteral("StretchTableView"), make<StretchTableView>},
        {QStringLiteral("StretchGraphView"), make<StretchGraphView>},
    };
    return kMakers;
}

/// The first control that is not there; empty: all are.
QString missingControl(const QWidget& contents) {
    if (!contents.findChild<QLineEdit*>(kNameField)) return kNameField;
    if (!contents.findChild<QPlainTextEdit*>(kDescriptionField)) return kDescriptionField;
    if (!contents.findChild<CellTable*>(kTable)) return kTable;
    if (!contents.findChild<GraphView*>(kGraph)) return kGraph;
    return {};
}

} // namespace

std::unique_ptr<QWidget> load(const ResourceFolder& resources, const QString& name, Log& log) {
    const QString path = resources.interfaceFile(name);
    QString error;
    auto contents = loadInterfaceFile(path, makers(), &error);
    if (contents) {
        const QString missing = missingControl(*contents);
        if (missing.isEmpty()) {
            AccessibleReadout::install();
            return contents;
        }
        error = path + QStringLiteral(": no control named ") + missing;
    }
    log.line("Failed to load the document window: " + error.toStdString());
    return nullptr;
}

CellTable& table(const QWidget& contents) { return *contents.findChild<CellTable*>(kTable); }

TuningDocument::Outlets connect(QWidget& contents, TuningDocument& document, CellTableModel& model,
                                Refreshable& graph) {
    table(contents).setModel(&model);
    const auto didType = [&document](const TextOutlet& field) {
        document.controlTextDidChange(field);
    };
    return {new EditorField(*contents.findChild<QLineEdit*>(kNameField), didType),
            new EditorField(*contents.findChild<QPlainTextEdit*>(kDescriptionField), didType),
            &model, &graph};
}

} // namespace veltrano::editor_contents
