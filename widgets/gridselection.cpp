#include "widgets/gridselection.h"

#include <QAbstractItemModel>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

GridSelection::GridSelection(GridGuards guards) : guards_(std::move(guards)) {}

void GridSelection::MoveUnasked(const std::function<void()>& move) {
    const QScopedValueRollback unasked(unasked_, true);
    move();
}

void GridSelection::setCurrentIndex(const QModelIndex& index,
                                    QItemSelectionModel::SelectionFlags command) {
    stayed_ = false;
    const bool leaves = currentIndex().isValid() && index.isValid() && index != currentIndex();
    if (!leaves || unasked_) return QItemSelectionModel::setCurrentIndex(index, command);
    const int row = index.row(), column = index.column();
    const bool sameRow = row == currentIndex().row();
    if (!(sameRow ? guards_.leaveCell() : guards_.leaveRow())) {
        stayed_ = true;
        return;
    }
    // What runs after a row is stored may have changed the rows.
    const int last = model()->rowCount() - 1;
    QItemSelectionModel::setCurrentIndex(model()->index(std::min(row, last), column), command);
}

void GridSelection::select(const QItemSelection& selection,
                           QItemSelectionModel::SelectionFlags command) {
    const bool elsewhere = !selection.isEmpty() && selection.first().topLeft() != currentIndex();
    if (stayed_ && elsewhere) return;
    QItemSelectionModel::select(selection, command);
}
