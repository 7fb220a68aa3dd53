// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of a temperament holds.
#include "tuning/TemperamentEditor.h"

#include "tuning/CellTable.h"
#include "tuning/EditorContents.h"
#include "tuning/GraphViews.h"

#include <QVBoxLayout>
#include <array>

namespace veltrano {

namespace {

using Column = Temperament::Column;

// In the order of the table's columns.
constexpr std::array<Column, 4> kColumns{Column::label, Column::cent, Column::ratio, Column::hertz};

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Column columnAt(int column) { return kColumns[static_cast<std::size_t>(column)]; }

QStringList columnTitles() {
    return {TemperamentEditor::tr("Note"), TemperamentEditor::tr("Cent"),
            TemperamentEditor::tr("Ratio"), TemperamentEditor::tr("Hertz")};
}

CellTableContents contentsOf(MVTemperamentDocument& document) {
    CellTableContents contents;
    contents.columnTitles = columnTitles();
    contents.rows = MVTemperamentDocument::numberOfRows();
    contents.text = [&document](int row, int column) {
        return fromUtf8(document.cell(columnAt(column), row));
    };
    contents.accessibleText = [&document, titles = columnTitles()](int row, int column) {
        const QString label = fromUtf8(document.cell(Column::label, row));
        if (column == 0) return label;
        return label + QStringLiteral(", ") + titles[column] + QStringLiteral(": ") +
               fromUtf8(document.cell(columnAt(column), row));
    };
    contents.mayEdit = [&document](int row, int column) {
        return document.shouldEdit(columnAt(column), row);
    };
    contents.tip = [&document](int row, int column) {
        const bool isFixed = column > 0 && !document.shouldEdit(columnAt(column), row);
        return isFixed ? TemperamentEditor::tr("A is what the others are measured against.")
                       : QString();
    };
    contents.setText = [&document](int row, int column, const QString& text) {
        document.setCell(columnAt(column), row, text.toStdString());
    };
    return contents;
}

} // namespace

std::unique_ptr<TemperamentEditor> TemperamentEditor::create(const ResourceFolder& resources,
                                                             MVTemperamentDocument& document,
                                                             Log& log) {
    auto contents = editor_contents::load(resources, QStringLiteral("TemperamentDocument"), log);
    if (!contents) return nullptr;
    return std::unique_ptr<TemperamentEditor>(new TemperamentEditor(std::move(contents), document));
}

TemperamentEditor::TemperamentEditor(std::unique_ptr<QWidget> contents,
                                     MVTemperamentDocument& document)
    : mDocument(document), mTable(&editor_contents::table(*contents)),
      mGraph(contents->findChild<TemperamentGraphView*>()) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    resize(contents->size());
    layout->addWidget(contents.get());
    QWidget& widgets = *contents.release(); // the layout owns it from here
    auto* model = new CellTableModel(contentsOf(document), this);
    const auto outlets = editor_contents::connect(widgets, document, *model, *mGraph);
    mGraph->setTemperamentDocument(&document);
    document.windowControllerDidLoadNib(outlets);
}

TemperamentEditor::~TemperamentEditor() { mDocument.windowControllerDidLoadNib({}); }

PrintPage TemperamentEditor::printPage() const {
    PrintPage page;
    page.printName = fromUtf8(mDocument.name());
    page.printDescription = fromUtf8(mDocument.description());
    page.printGraph = TemperamentGraphView::graphOf(mDocument);
    page.columnTitles = columnTitles();
    for (int row = 0; row < MVTemperamentDocument::numberOfRows(); ++row) {
        QStringList cells;
        for (const Column column : kColumns)
            cells.append(fromUtf8(mDocument.cell(column, row)));
        page.rows.push_back(cells);
    }
    return page;
}

} // namespace veltrano
