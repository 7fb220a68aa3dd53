// SPDX-License-Identifier: GPL-3.0-or-later
// A table whose cells are edited by keyboard.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "tuning/CellMovement.h"

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>
#include <optional>

namespace veltrano {

/// What a table shows; an empty function of an editable table is never called.
struct CellTableContents {
    QStringList columnTitles;
    QStringList accessibleTitles; ///< of the same columns; a missing one is as it is shown
    int rows = 0;
    std::function<QString(int row, int column)> text;
    std::function<QString(int row, int column)> accessibleText;
    std::function<bool(int row, int column)> mayEdit;
    std::function<QString(int row, int column)> tip; ///< empty: no cell has one
    std::function<void(int row, int column, const QString& text)> setText;
};

/// Gives a table the contents that its document has. Thread: main.
class CellTableModel final : public QAbstractTableModel, public Refreshable {
    Q_OBJECT
public:
    explicit CellTableModel(CellTableContents contents, QObject* parent = nullptr);

    void refresh() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    QString accessibleDescription(const QModelIndex& index) const;

    const CellTableContents mContents;
};

/// Edits in place: typing, Return, F2 or a double click begin; Escape gives up; Return,
/// Shift-Return, Tab and Shift-Tab take the text over and go on to another cell, the first two as a
/// subclass says. Thread: main.
class CellTable : public QTableView {
    Q_OBJECT
public:
    explicit CellTable(QWidget* parent = nullptr);

    /// Every column has room for what its cells hold now. The first cell that may be edited becomes
    /// the current one.
    void setModel(QAbstractItemModel* model) override;

    QSize sizeHint() const override;        ///< every cell is in sight
    QSize minimumSizeHint() const override; ///< the same, where it leaves room on the screen

    /// Ends the edit of @p at with its text taken over, and goes on. For the editing delegate.
    enum class Ending { goOn, goBack, nextCell, previousCell };
    void didEndEditing(const QModelIndex& at, Ending ending);

protected:
    /// The cell to edit after @p at; nullopt: editing ends, the table keeps the focus.
    virtual std::optional<CellPosition> nextCell(CellPosition at, bool isUp) const = 0;
    bool mayEdit(CellPosition cell) const;

    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize sizeOfCells() const;
    void fitSections();
    void fitScrollBars();
    std::optional<CellPosition> neighbour(CellPosition at, int step) const;
};

/// The table of a temperament: note, cent, ratio, hertz. Return goes down the column, Shift-Return
/// up, from the first row to the last; rows that may not be edited are passed over.
class TemperamentTableView final : public CellTable {
    Q_OBJECT
public:
    using CellTable::CellTable;

protected:
    std::optional<CellPosition> nextCell(CellPosition at, bool isUp) const override;
};

/// The table of a stretch table: a row per pitch class, a column per octave. Return walks down each
/// octave and on to the next, Shift-Return back.
class StretchTableView final : public CellTable {
    Q_OBJECT
public:
    using CellTable::CellTable;

protected:
    std::optional<CellPosition> nextCell(CellPosition at, bool isUp) const override;
};

} // namespace veltrano
