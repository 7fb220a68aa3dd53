// SPDX-License-Identifier: GPL-3.0-or-later
// A table whose cells are edited by keyboard.
#include "tuning/CellTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

constexpr int kColumnPadding = 4;
constexpr int kRowPadding = 5;
// What a table may insist on; larger ones scroll.
constexpr int kScreenWidthPercent = 90;
constexpr int kScreenHeightPercent = 50;

/// Which keys end an edit and go on; nullopt: another key.
std::optional<CellTable::Ending> endingOf(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return (key.modifiers() & Qt::ShiftModifier) ? CellTable::Ending::goBack
                                                     : CellTable::Ending::goOn;
    case Qt::Key_Tab:
        return CellTable::Ending::nextCell;
    case Qt::Key_Backtab:
        return CellTable::Ending::previousCell;
    default:
        return std::nullopt;
    }
}

/// Whether the key undoes or redoes something, and not in the field itself.
bool isForDocument(const QKeyEvent& key, const QLineEdit* line) {
    if (!line) return false;
    return (key.matches(QKeySequence::Undo) && !line->isUndoAvailable()) ||
           (key.matches(QKeySequence::Redo) && !line->isRedoAvailable());
}

/// The field in which a cell is edited.
class CellDelegate final : public QStyledItemDelegate {
public:
    explicit CellDelegate(CellTable& table) : QStyledItemDelegate(&table), mTable(table) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
        editor->setAcceptDrops(false); // a file is for the window
        if (auto* line = qobject_cast<QLineEdit*>(editor)) {
            // Where the cell's text stands.
            line->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        }
        mEdited = index;
        return editor;
    }

    /// A value that changes meanwhile does not disturb who is typing.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (isTouched(*editor)) return;
        auto* line = qobject_cast<QLineEdit*>(editor);
        const bool isSelected = line && line->hasSelectedText();
        QStyledItemDelegate::setEditorData(editor, index);
        if (isSelected) line->selectAll(); // what is typed next still replaces it
    }

    /// A text that was not touched is no edit: its digits are fewer than those of its value.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        if (isTouched(*editor)) QStyledItemDelegate::setModelData(editor, model, index);
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
            return QStyledItemDelegate::eventFilter(object, event);
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isForDocument(key, qobject_cast<QLineEdit*>(object))) {
            event->ignore(); // it goes on to the menu
            return true;
        }
        if (event->type() == QEvent::ShortcutOverride)
            return QStyledItemDelegate::eventFilter(object, event);
        const auto ending = endingOf(key);
        auto* editor = qobject_cast<QWidget*>(object);
        if (!ending || !editor) return QStyledItemDelegate::eventFilter(object, event);
        const QModelIndex at = mEdited;
        emit commitData(editor);
        emit closeEditor(editor);
        mTable.didEndEditing(at, *ending);
        return true;
    }

private:
    static bool isTouched(const QWidget& editor) {
        const auto* line = qobject_cast<const QLineEdit*>(&editor);
        return line && line->isModified();
    }

    CellTable& mTable;
    mutable QPersistentModelIndex mEdited;
};

/// Titles keep as far from the right edge as the texts below them.
class CellHeader final : public QHeaderView {
public:
    explicit CellHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}
    /// What a title needs, however small or large its section is.
    int widthOf(int section) const { return sectionSizeFromContents(section).width(); }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (option->textAlignment & Qt::AlignRight) option->text += QChar(QChar::Nbsp);
    }
};

} // namespace

CellTableModel::CellTableModel(CellTableContents contents, QObject* parent)
    : QAbstractTableModel(parent), mContents(std::move(contents)) {}

void CellTableModel::refresh() {
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int CellTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : mContents.rows;
}

int CellTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mContents.columnTitles.size());
}

QVariant CellTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return mContents.text(index.row(), index.column());
    case Qt::AccessibleTextRole:
        return mContents.accessibleText(index.row(), index.column());
    case Qt::AccessibleDescriptionRole:
        return accessibleDescription(index);
    case Qt::ToolTipRole:
        return mContents.tip ? mContents.tip(index.row(), index.column()) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant((index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    default:
        return {};
    }
}

/// What a look at the table, or trying, tells others.
QString CellTableModel::accessibleDescription(const QModelIndex& index) const {
    if (mContents.mayEdit(index.row(), index.column())) return tr("editable");
    return mContents.tip ? mContents.tip(index.row(), index.column()) : QString();
}

QVariant CellTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    // The first column says what a row is; the rows' own header is hidden, but not for everyone.
    if (orientation == Qt::Vertical)
        return role == Qt::AccessibleTextRole ? mContents.accessibleText(section, 0) : QVariant();
    if (role == Qt::AccessibleTextRole) return mContents.accessibleTitles.value(section);
    if (role == Qt::DisplayRole) return mContents.columnTitles.value(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags CellTableModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || !mContents.mayEdit(index.row(), index.column())) return flags;
    return flags | Qt::ItemIsEditable;
}

bool CellTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
    mContents.setText(index.row(), index.column(), value.toString());
    return true;
}

CellTable::CellTable(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new CellDelegate(*this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false); // Tab leaves the table; inside an edit it goes on
    setCornerButtonEnabled(false);
    setHorizontalHeader(new CellHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
}

bool CellTable::mayEdit(CellPosition cell) const {
    return model()->index(cell.row, cell.column).flags().testFlag(Qt::ItemIsEditable);
}

void CellTable::didEndEditing(const QModelIndex& at, Ending ending) {
    if (!at.isValid()) return;
    const CellPosition from{at.row(), at.column()};
    const bool isByColumn = ending == Ending::goOn || ending == Ending::goBack;
    const std::optional<CellPosition> to =
        isByColumn ? nextCell(from, ending == Ending::goBack)
                   : neighbour(from, ending == Ending::previousCell ? -1 : 1);
    if (!to) return; // the table has the focus again
    const QModelIndex next = model()->index(to->row, to->column);
    setCurrentIndex(next);
    if (mayEdit(*to)) edit(next);
}

/// The next cell, line by line, that may be edited.
std::optional<CellPosition> CellTable::neighbour(CellPosition at, int step) const {
    const int columns = model()->columnCount();
    const int cells = columns * model()->rowCount();
    for (int i = at.row * columns + at.column + step; i >= 0 && i < cells; i += step) {
        const CellPosition cell{i / columns, i % columns};
        if (mayEdit(cell)) return cell;
    }
    return std::nullopt;
}

void CellTable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && state() != EditingState && currentIndex().isValid() &&
        currentIndex().flags().testFlag(Qt::ItemIsEditable)) {
        edit(currentIndex());
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void CellTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    fitSections();
    connect(model, &QAbstractItemModel::dataChanged, this, [this] { fitSections(); });
    for (int row = 0; row < model->rowCount() && !currentIndex().isValid(); ++row) {
        for (int column = 0; column < model->columnCount() && !currentIndex().isValid(); ++column) {
            if (!mayEdit({row, column})) continue;
            selectionModel()->setCurrentIndex(model->index(row, column),
                                              QItemSelectionModel::NoUpdate);
        }
    }
}

void CellTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitSections();
}

/// Columns share the width equally, and none is narrower than the widest text.
void CellTable::fitSections() {
    if (!model()) return;
    const auto& titles = static_cast<const CellHeader&>(*horizontalHeader());
    int widest = 0;
    for (int column = 0; column < model()->columnCount(); ++column)
        widest = std::max({widest, sizeHintForColumn(column), titles.widthOf(column)});
    horizontalHeader()->setMinimumSectionSize(widest + kColumnPadding);
    verticalHeader()->setMinimumSectionSize(fontMetrics().height() + kRowPadding);
    fitScrollBars();
    updateGeometry();
}

/// Sections that share the room are not what decides on scroll bars: they would be made smaller
/// only after a bar has taken its room.
void CellTable::fitScrollBars() {
    const QSize room = maximumViewportSize();
    const QSize cells = sizeOfCells();
    const bool isRoom = room.width() >= cells.width() && room.height() >= cells.height();
    const auto policy = isRoom ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
}

void CellTable::resizeEvent(QResizeEvent* event) {
    if (model()) fitScrollBars();
    QTableView::resizeEvent(event);
}

/// When every section is as small as it may be.
QSize CellTable::sizeOfCells() const {
    return {model()->columnCount() * horizontalHeader()->minimumSectionSize(),
            model()->rowCount() * verticalHeader()->minimumSectionSize()};
}

QSize CellTable::sizeHint() const {
    if (!model()) return QTableView::sizeHint();
    const int frame = 2 * frameWidth();
    return sizeOfCells() + QSize(frame, frame + horizontalHeader()->sizeHint().height());
}

QSize CellTable::minimumSizeHint() const {
    if (!model()) return QTableView::minimumSizeHint();
    const QSize available = screen()->availableSize();
    return sizeHint().boundedTo({available.width() * kScreenWidthPercent / 100,
                                 available.height() * kScreenHeightPercent / 100});
}

std::optional<CellPosition> TemperamentTableView::nextCell(CellPosition at, bool isUp) const {
    const int rows = model()->rowCount();
    const auto mayEditRow = [this, &at](int row) { return mayEdit({row, at.column}); };
    if (isUp) return CellPosition{cell_movement::rowAbove(at.row, rows, mayEditRow), at.column};
    const std::optional<int> row = cell_movement::rowBelow(at.row, rows, mayEditRow);
    if (!row) return std::nullopt;
    return CellPosition{*row, at.column};
}

std::optional<CellPosition> StretchTableView::nextCell(CellPosition at, bool isUp) const {
    return cell_movement::nextInColumns(at, model()->rowCount(), model()->columnCount(), isUp);
}

} // namespace veltrano
