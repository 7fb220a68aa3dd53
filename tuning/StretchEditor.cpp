// SPDX-License-Identifier: GPL-3.0-or-later
// What the window of a stretch table holds.
#include "tuning/StretchEditor.h"

#include "tuning/CellTable.h"
#include "tuning/EditorContents.h"
#include "tuning/GraphViews.h"

#include <QVBoxLayout>

namespace veltrano {

namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The names of the pitch classes, then an octave each.
QStringList columnTitles() {
    QStringList titles{StretchEditor::tr("Note")};
    for (int octave = 0; octave < MVStretchDocument::numberOfOctaves(); ++octave)
        titles.append(QString::number(octave));
    return titles;
}

QStringList accessibleTitles() {
    QStringList titles{StretchEditor::tr("Note")};
    for (int octave = 0; octave < MVStretchDocument::numberOfOctaves(); ++octave)
        titles.append(StretchEditor::tr("Octave %1").arg(octave));
    return titles;
}

/// @param column 0: the name, otherwise an octave
QString cellOf(const MVStretchDocument& document, int row, int column) {
    if (column == 0) return fromUtf8(MVStretchDocument::noteName(row));
    return fromUtf8(document.cell(row, column - 1));
}

CellTableContents contentsOf(MVStretchDocument& document) {
    CellTableContents contents;
    contents.columnTitles = columnTitles();
    contents.accessibleTitles = accessibleTitles();
    contents.rows = MVStretchDocument::numberOfRows();
    contents.text = [&document](int row, int column) { return cellOf(document, row, column); };
    contents.accessibleText = [&document](int row, int column) {
        const QString note = fromUtf8(MVStretchDocument::noteName(row));
        if (column == 0) return note;
        return StretchEditor::tr("%1%2: %3 cents")
            .arg(note, QString::number(column - 1), cellOf(document, row, column));
    };
    contents.mayEdit = [](int, int column) { return column > 0; };
    contents.setText = [&document](int row, int column, const QString& text) {
        document.setCell(row, column - 1, text.toStdString());
    };
    return contents;
}

} // namespace

std::unique_ptr<StretchEditor> StretchEditor::create(const ResourceFolder& resources,
                                                     MVStretchDocument& document, Log& log) {
    auto contents = editor_contents::load(resources, QStringLiteral("StretchDocument"), log);
    if (!contents) return nullptr;
    return std::unique_ptr<StretchEditor>(new StretchEditor(std::move(contents), document));
}

StretchEditor::StretchEditor(std::unique_ptr<QWidget> contents, MVStretchDocument& document)
    : mDocument(document), mTable(&editor_contents::table(*contents)),
      mGraph(contents->findChild<StretchGraphView*>()) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    resize(contents->size());
    layout->addWidget(contents.get());
    QWidget& widgets = *contents.release(); // the layout owns it from here
    auto* model = new CellTableModel(contentsOf(document), this);
    const auto outlets = editor_contents::connect(widgets, document, *model, *mGraph);
    mGraph->setStretchDocument(&document);
    document.windowControllerDidLoadNib(outlets);
}

StretchEditor::~StretchEditor() { mDocument.windowControllerDidLoadNib({}); }

PrintPage StretchEditor::printPage() const {
    PrintPage page;
    page.printName = fromUtf8(mDocument.name());
    page.printDescription = fromUtf8(mDocument.description());
    page.printGraph = StretchGraphView::graphOf(mDocument);
    page.columnTitles = columnTitles();
    for (int row = 0; row < MVStretchDocument::numberOfRows(); ++row) {
        QStringList cells;
        for (int column = 0; column < page.columnTitles.size(); ++column)
            cells.append(cellOf(mDocument, row, column));
        page.rows.push_back(cells);
    }
    return page;
}

} // namespace veltrano
