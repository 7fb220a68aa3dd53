// SPDX-License-Identifier: GPL-3.0-or-later
// An editor that is shown, and hands that use it.
#pragma once

#include "tests/tuning/TuningTestBase.h"
#include "tuning/CellTable.h"
#include "tuning/StretchEditor.h"
#include "tuning/TemperamentEditor.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace veltrano {

inline constexpr int kCent = 1, kRatio = 2, kHertz = 3; // columns of a temperament

class EditorsTestBase : public TuningTestBase {
protected:
    TemperamentEditor& temperament(int tonic = 0) {
        settings.key = tonic;
        document = std::make_unique<MVTemperamentDocument>(temperamentPorts());
        auto made = TemperamentEditor::create(resources, *document, log);
        auto& shown = *made;
        show(std::move(made));
        return shown;
    }
    StretchEditor& stretch() {
        stretchDocument = std::make_unique<MVStretchDocument>(stretchPorts());
        auto made = StretchEditor::create(resources, *stretchDocument, log);
        auto& shown = *made;
        show(std::move(made));
        return shown;
    }
    void show(std::unique_ptr<QWidget> made) {
        editor = std::move(made);
        editor->show();
        editor->activateWindow();
        QApplication::processEvents();
        table().setFocus();
    }
    void TearDown() override {
        editor.reset();
        document.reset();
        stretchDocument.reset();
    }

    CellTable& table() { return *editor->findChild<CellTable*>("table"); }
    QModelIndex cell(int row, int column) { return table().model()->index(row, column); }
    QString shown(int row, int column) { return cell(row, column).data().toString(); }
    void select(int row, int column) { table().setCurrentIndex(cell(row, column)); }
    template <class Widget = QWidget>
    Widget& control(const char* name) {
        return *editor->findChild<Widget*>(QString::fromUtf8(name));
    }
    /// The name of the control that has the focus.
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }
    /// The field of the cell that is being edited; null: none is.
    QLineEdit* field() {
        auto* focus = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return focus && table().isAncestorOf(focus) ? focus : nullptr;
    }
    /// "row column" of the cell being edited, "" when none is.
    std::string edited() {
        if (!field()) return {};
        const QModelIndex at = table().currentIndex();
        return std::to_string(at.row()) + " " + std::to_string(at.column());
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    void type(const char* text) {
        // The first letter may open a field that gets the others.
        for (const QChar letter : QString::fromUtf8(text))
            QTest::keyClicks(QApplication::focusWidget(), letter);
    }

    ResourceFolder resources{QStringLiteral(VELTRANO_SOURCE_RESOURCES)};
    std::unique_ptr<MVTemperamentDocument> document;
    std::unique_ptr<MVStretchDocument> stretchDocument;
    std::unique_ptr<QWidget> editor;
};

} // namespace veltrano
