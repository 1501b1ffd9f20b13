#include "widgets/gridcursor.h"

#include "platform/datasource.h"
#include "widgets/gridselection.h"
#include "widgets/gridtable.h"
#include "widgets/recordsetmodel.h"

#include <QHeaderView>
#include <QModelIndex>

#include <algorithm>

GridCursor::GridCursor(GridTable& table, RecordSetModel& model, GridSelection& selection)
    : table_(table), model_(model), selection_(selection) {
    connect(&selection, &QItemSelectionModel::currentChanged, this, &GridCursor::FollowTable);
}

void GridCursor::SetDataSource(DataSource* source) {
    if (source_) source_->disconnect(this);
    source_ = source;
    if (source_) connect(source_, &DataSource::CurrentRowChanged, this, &GridCursor::Follow);
}

int GridCursor::Row() const {
    return table_.currentIndex().row();
}

int GridCursor::Column() const {
    return table_.currentIndex().column();
}

void GridCursor::SetColumn(int column) {
    column_ = column;
    const QModelIndex cell = model_.index(std::max(0, Row()), column);
    if (cell.isValid()) table_.setCurrentIndex(cell);
}

void GridCursor::MoveSource(int row) {
    if (rowsChange_ || !source_) return;
    source_->Guard([&] {
        if (source_->IsAttached() && !source_->Empty() && source_->Position() != row) {
            source_->MoveTo(row);
        }
    });
}

void GridCursor::RowsBeginToChange() {
    rowsChange_ = true;
}

void GridCursor::RowsHaveChanged() {
    rowsChange_ = false;
    Follow();
}

void GridCursor::Show(int row) {
    if (row < 0 || row >= model_.rowCount() || model_.columnCount() == 0) return;
    const int column = std::clamp(column_, 0, model_.columnCount() - 1);
    selection_.MoveUnasked([&] { table_.setCurrentIndex(model_.index(row, column)); });
}

// The data source has moved: the grid goes along.
// What was typed in another row is given up by then.
void GridCursor::Follow() {
    if (rowsChange_ || !source_ || model_.rowCount() == 0) return;
    int row = -1;
    source_->Guard([&] { row = source_->Empty() ? 0 : source_->Position(); });
    if (row < 0 || row == Row()) return;
    if (model_.TypedRow() && *model_.TypedRow() != row) model_.Forget();
    Show(row);
}

void GridCursor::FollowTable(const QModelIndex& current) {
    table_.verticalHeader()->viewport()->update();
    if (!current.isValid() || rowsChange_) return;
    column_ = current.column();
    MoveSource(current.row());
    emit Moved();
}
