#include "widgets/gridselection.h"

#include <QAbstractItemModel>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

GridSelection::GridSelection(std::function<bool()> leaveRow) : leaveRow_(std::move(leaveRow)) {}

void GridSelection::MoveUnasked(const std::function<void()>& move) {
    const QScopedValueRollback unasked(unasked_, true);
    move();
}

void GridSelection::setCurrentIndex(const QModelIndex& index,
                                    QItemSelectionModel::SelectionFlags command) {
    const bool otherRow =
        currentIndex().isValid() && index.isValid() && index.row() != currentIndex().row();
    stayed_ = false;
    if (!otherRow || unasked_) return QItemSelectionModel::setCurrentIndex(index, command);
    const int row = index.row(), column = index.column();
    if (!leaveRow_()) {
        stayed_ = true;
        return;
    }
    // What runs after a row is stored may have changed the rows.
    const int last = model()->rowCount() - 1;
    QItemSelectionModel::setCurrentIndex(model()->index(std::min(row, last), column), command);
}

void GridSelection::select(const QItemSelection& selection,
                           QItemSelectionModel::SelectionFlags command) {
    const bool elsewhere = !selection.isEmpty() && selection.first().top() != currentIndex().row();
    if (stayed_ && elsewhere) return;
    QItemSelectionModel::select(selection, command);
}
