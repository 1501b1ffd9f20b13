#include "widgets/gridtable.h"

#include "platform/typedkey.h"
#include "widgets/captionheader.h"
#include "widgets/colours.h"
#include "widgets/entryfield.h"
#include "widgets/gridcells.h"
#include "widgets/gridkeys.h"
#include "widgets/recordsetmodel.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPalette>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr int kMinColumnWidth = 30;
constexpr int kRowPadding = 8;

}  // namespace

GridTable::GridTable(RecordSetModel& model, GridCells& cells, const GridEvents& events,
                     SignOfRow signOf, QWidget* parent)
    : QTableView(parent), model_(model), cells_(cells), events_(events) {
    // The headers are there before the model: each that is exchanged later is connected anew.
    setHorizontalHeader(new CaptionHeader(this));
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setMinimumSectionSize(kMinColumnWidth);
    setVerticalHeader(new GridRowHeader(std::move(signOf), this));
    LayOutRows();
    setModel(&model);
    setItemDelegate(&cells);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::DoubleClicked);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setAlternatingRowColors(true);
    setFrameShape(QFrame::NoFrame);
    SetColours();
}

void GridTable::SetColours() {
    using namespace colours;
    QPalette shown = palette();
    shown.setColor(QPalette::Base, ToQColor(kWhite));
    shown.setColor(QPalette::AlternateBase, ToQColor(kAlternateRow));
    shown.setColor(QPalette::Text, ToQColor(kFieldText));
    shown.setColor(QPalette::Highlight, ToQColor(kAccent));
    shown.setColor(QPalette::HighlightedText, ToQColor(kWhite));
    setPalette(shown);
}

void GridTable::Stroke(QKeyEvent* key) {
    if (IsTab(*key)) {
        focusNextPrevChild(key->key() == Qt::Key_Tab);
        return;
    }
    keyPressEvent(key);
}

/// While a row is typed Tab goes through its cells, and out of the grid at the row's ends.
bool GridTable::focusNextPrevChild(bool next) {
    const QModelIndex cell = currentIndex();
    const QModelIndex beside = cell.siblingAtColumn(cell.column() + (next ? 1 : -1));
    if (!model_.TypedRow() || !beside.isValid()) return QTableView::focusNextPrevChild(next);
    setCurrentIndex(beside);
    return true;
}

/// A new row begins with its first cell.
QModelIndex GridTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int row = currentIndex().row();
    if (action == MoveDown && model_.TypedRow() == row && model_.IsNewRow(row)) {
        return model_.index(row + 1, 0);
    }
    return QTableView::moveCursor(action, modifiers);
}

bool GridTable::Passes(int column, const QKeyEvent& event) const {
    if (event.key() == Qt::Key_Backspace) return true;
    const CharacterFilter& filter = model_.Columns()[static_cast<std::size_t>(column)].filter;
    const std::optional<char32_t> typed = TypedCharacter(event);
    return typed && (!filter || filter(*typed));
}

bool GridTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted =
        trigger == AnyKeyPressed || trigger == EditKeyPressed || trigger == DoubleClicked;
    if (!wanted || !index.isValid() || state() == EditingState) {
        return QTableView::edit(index, trigger, event);
    }
    const int column = index.column();
    const auto* key = event != nullptr && event->type() == QEvent::KeyPress
                          ? static_cast<QKeyEvent*>(event)
                          : nullptr;
    if (trigger == AnyKeyPressed && key != nullptr && !Passes(column, *key)) return true;
    if (events_.beforeCellEdit && !events_.beforeCellEdit(column)) return true;
    if (model_.Columns()[static_cast<std::size_t>(column)].locked) return true;
    cells_.OpenedBy(trigger == AnyKeyPressed ? CellOpening::Typing : CellOpening::Editing);
    return QTableView::edit(index, trigger, event);
}

void GridTable::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (MarksRow(*event)) return MarkPressed();
    if (event->key() == Qt::Key_Delete) return DeletePressed();
    if (IsEnter(*event)) return EnterPressed();
    if (event->key() == Qt::Key_Escape) return EscapePressed(event);
    if (event->key() == Qt::Key_Backspace) {
        edit(currentIndex(), AnyKeyPressed, event);
        return;
    }
    if (event->matches(QKeySequence::Paste)) return PasteIntoCell(event);
    QTableView::keyPressEvent(event);
}

void GridTable::PasteIntoCell(QKeyEvent* event) {
    if (!currentIndex().isValid()) return;
    edit(currentIndex(), EditKeyPressed, event);
    if (cells_.Editor() == nullptr) return;
    cells_.OpenedBy(CellOpening::Typing);
    // What is pasted into a cell takes the place of its text.
    static_cast<EntryField*>(cells_.Editor())->selectAll();
    QApplication::sendEvent(cells_.Editor(), event);
}

/// A window that comes back gives the keys to the table where the layout hid the open cell for a
/// moment: they are the cell's.
void GridTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason || cells_.Editor() == nullptr) return;
    cells_.Editor()->setFocus(Qt::ActiveWindowFocusReason);
}

void GridTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    LayOutColumns();
    // A table that is shown for the first time gets its size after its current cell.
    scrollTo(currentIndex());
}

void GridTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) LayOutRows();
}

void GridTable::LayOutRows() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    emit RowsLaidOut();
}

void GridTable::LayOutColumns() {
    const std::vector<GridColumn>& columns = model_.Columns();
    int shares = 0;
    for (const GridColumn& column : columns) shares += column.widthShare;
    if (shares == 0) return;
    int left = viewport()->width();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int share = shares == 0 ? 0 : left * columns[i].widthShare / shares;
        const int width = std::max(kMinColumnWidth, share);
        setColumnWidth(static_cast<int>(i), width);
        left = std::max(0, left - width);
        shares -= columns[i].widthShare;
    }
}
