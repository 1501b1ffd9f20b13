#include "widgets/griddeletion.h"

#include "platform/datasource.h"
#include "widgets/gridcursor.h"
#include "widgets/gridselection.h"
#include "widgets/recordsetmodel.h"

GridDeletion::GridDeletion(RecordSetModel& model, GridSelection& selection, GridCursor& cursor,
                           const GridEvents& events)
    : model_(model), selection_(selection), cursor_(cursor), events_(events) {}

std::optional<int> GridDeletion::MarkedRow() const {
    const int row = cursor_.Row();
    if (row < 0 || !selection_.isRowSelected(row, {})) return std::nullopt;
    return row;
}

void GridDeletion::MarkRow() {
    const QModelIndex cell = selection_.currentIndex();
    if (!cell.isValid()) return;
    selection_.QItemSelectionModel::select(
        cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool GridDeletion::DeleteMarkedRow(DataSource& source) {
    const std::optional<int> row = MarkedRow();
    if (!row) return false;
    const bool isNew = model_.IsNewRow(*row);
    if (!isNew) cursor_.MoveSource(*row);
    if (!isNew && events_.beforeRowDelete && !events_.beforeRowDelete()) return false;
    model_.Forget();
    if (isNew || !source.Guard([&] { DeleteCurrent(source); })) return false;
    if (events_.afterRowDelete) events_.afterRowDelete();
    return true;
}

void GridDeletion::DeleteCurrent(DataSource& source) {
    if (events_.deleteRow) {
        events_.deleteRow();
    } else {
        source.Delete();
    }
    // After the last row the one before it is current, not the empty one.
    if (source.Eof() && !source.Empty()) source.MoveLast();
}
